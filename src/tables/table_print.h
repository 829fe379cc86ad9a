#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tables/card_printing.h"
#include "tables/table_drawing.h"
#include "tables/table_pages.h"

namespace tav {

/// Which parts of a bail-out are printed.
struct BailoutParts {
  bool tables = true;
  bool cards = true;
};

/// Prints sets of dives as small tables on pages with cut marks, and the cuts of a plan as cards behind them.
///
/// The grid of cells gives each table its place. What does not come out whole there (a table that leaves the sheet,
/// remarks without room below) is printed again behind the tables, each on a page of its own. One that would lie over
/// another is printed only there, and the information column says so; as is one that is wider than the grid.
/// Order of the calls: StartTableOutput, PrintWaysOut of a bail-out, PrintTableSet for each set, EndTableOutput.
/// Without the last one nothing is shown.
class TablePrintModule {
 public:
  /// `caption` is that of the plan's window, for bail-outs.
  explicit TablePrintModule(PrintPreview& writer, std::string caption = "", BailoutParts parts = {});

  void StartTableOutput() { pages_.StartTableOutput(); }
  /// Takes the plan for the gas on its cards, and prints the ways out of the minutes of a rebreather dive that take
  /// longest to come up from and that ask most of a gas, side by side ahead of the tables. Throws as BailoutCuts::At.
  void PrintWaysOut(const PlannedDive& dive);
  void PrintTableSet(const TableDives& profiles);
  /// Prints what is left, closes the last page and opens the preview. `proceed` is asked for each card and answers
  /// false to end it all at once; then nothing is shown.
  void EndTableOutput(const std::function<bool()>& proceed = nullptr);

 private:
  /// A table as it stands on its page.
  struct Printed {
    std::string name;     ///< "EAN50 lost", "30 m"
    std::string title;    ///< of the strip
    std::string caption;  ///< what it is
    SmallTable table;
    TableInfo info;
    TablePlace place;
    double right = 0;  ///< edges of all that belongs to it, remarks included
    double bottom = 0;
    int number = 0;  ///< among those printed again; 0 for none
  };

  void PrintSmallTable(const TableDives& profiles);
  bool PrintRemarks(Printed& printed);
  /// The line above: what the table is, or where it stands whole.
  void PrintName(Printed& printed, bool whole);
  [[nodiscard]] TableInfo InfoOf(const TableDives& profiles) const;
  void PrintReference(Printed& printed);
  void PrintWhole(const Printed& printed);
  [[nodiscard]] std::vector<std::string> Remarks(const Printed& printed, bool onPaper) const;
  [[nodiscard]] std::string T(int id) const { return writer_.Texts().GetResString(id); }

  PrintPreview& writer_;
  std::string caption_;
  BailoutParts parts_;
  std::optional<WayOutSupply> supply_;
  TablePages pages_;
  std::vector<Printed> onPage_;  ///< the tables of the open page
  std::vector<Printed> again_;   ///< those to be printed behind the others, in order of their numbers
  std::vector<CardSet> cards_;
  int numbers_ = 0;
  int references_ = 0;  ///< in the information column of the open page
};

}  // namespace tav
