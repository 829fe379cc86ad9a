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
/// The grid of cells gives each table its place. One that would not come out whole there, to be cut out with all that
/// belongs to it (wider than the grid, lower than its marks, over another table, remarks without room below), has pages
/// of its own behind the others, in as many parts as it takes, each with its remarks; the information column says so.
/// Order of the calls: StartTableOutput, PrintWaysOut of a bail-out, PrintTableSet for each set, EndTableOutput.
/// Without the last one nothing is shown.
class TablePrintModule {
 public:
  /// `caption` is that of the plan's window, for bail-outs.
  explicit TablePrintModule(PrintPreview& writer, std::string caption = "", BailoutParts parts = {});

  void StartTableOutput() { pages_.StartTableOutput(); }
  /// Takes the plan for the gas on its cards, and prints what its ways out ask for side by side ahead of the tables: on
  /// a rebreather from the minutes that take longest to come up from and that ask most of a gas, on open circuit the
  /// longest way up from the end of a leg, with all gases and with each lost. False when `progress`, which counts
  /// the ways out, ended it. Throws as BailoutCuts::Compute.
  [[nodiscard]] bool PrintWaysOut(const PlannedDive& dive, const RunProgress& progress);
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
    std::string circuit;  ///< of dives on a loop; else empty
    SmallTable table;
    TableInfo info;
    TablePlace place;
    std::vector<std::string> remarks;  ///< the lines below
    double right = 0;                  ///< edges of all that belongs to it, remarks included
    double bottom = 0;
  };
  /// Columns and rows of a table that stand on one page, with their remarks.
  struct Part {
    std::size_t firstDive;
    std::size_t endDive;
    std::size_t firstRow;
    std::size_t endRow;
    std::vector<std::string> remarks;
    int size;  ///< of the remarks, points
  };

  void PrintSmallTable(const TableDives& profiles);
  void PrintLoopWaysOut(const PlannedDive& dive);
  bool PrintOpenWaysOut(const PlannedDive& dive, const RunProgress& progress);
  /// A way out of a page of them, with the title of its card.
  struct WayOut {
    TableDives dives;
    std::string title;
  };
  void PrintTall(const std::vector<WayOut>& ways, const std::string& head);
  /// Finds out where the table and all that belongs to it end, and whether that is within its own room.
  [[nodiscard]] bool ComesOutWhole(Printed& printed) const;
  void PrintRemarks(const Printed& printed);
  /// The line above: what the table is.
  void PrintName(const Printed& printed);
  [[nodiscard]] TableInfo InfoOf(const TableDives& profiles) const;
  [[nodiscard]] std::string NameOf(const TableDives& profiles) const;
  /// In the information column of the open page, as far as there is room: which tables stand behind.
  void PrintReferences();
  void PrintWhole(const Printed& printed, int number);
  [[nodiscard]] std::vector<Part> PartsOf(const Printed& printed) const;
  [[nodiscard]] std::vector<std::string> Remarks(const Printed& printed, bool onPaper, std::size_t firstDive = 0,
                                                 std::size_t endDive = static_cast<std::size_t>(-1)) const;
  [[nodiscard]] std::vector<std::string> Wrapped(const std::vector<std::string>& remarks, double width, int size) const;
  [[nodiscard]] std::string T(int id) const { return writer_.Texts().GetResString(id); }

  PrintPreview& writer_;
  std::string caption_;
  BailoutParts parts_;
  std::optional<WayOutSupply> supply_;
  TablePages pages_;
  std::vector<Printed> onPage_;  ///< the tables of a page of the grid
  std::vector<Printed> behind_;  ///< those on pages of their own, in order of their numbers
  std::size_t referred_ = 0;     ///< of those, told on a page before
  double referencesEnd_ = 0;     ///< in the information column of the open page, cm
  std::vector<CardSet> cards_;
  bool bailout_ = false;
};

}  // namespace tav
