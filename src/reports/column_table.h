#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "advice/what_if.h"
#include "figures/advice_words.h"

namespace tav {

/// The columns of a comparison in words, side by side, the same in windows, on the clipboard and in the terminal.
struct ColumnTable {
  struct Cell {
    std::string figure;                ///< stands at the right
    std::string note = {};             ///< beside it: a gas that is changed to, a verdict
    bool bad = false;                  ///< the gas is short, the dive does not decompress
    bool differs = false;              ///< from the first column of a comparison
    std::optional<double> value = {};  ///< of a total, as it is printed

    /// "8  EAN50"
    [[nodiscard]] std::string All() const { return figure + (figure.empty() || note.empty() ? "" : "  ") + note; }
  };
  struct Row {
    std::string label;
    std::string unit;         ///< empty where the label tells it
    std::vector<Cell> cells;  ///< one for each column
    bool total = false;       ///< below the stops
    bool words = false;       ///< the cells are texts that stand at the left

    /// "Stop 9 m, min"
    [[nodiscard]] std::string Heading() const { return unit.empty() ? label : label + ", " + unit; }
  };
  struct Head {
    std::string name;
    std::string detail;  ///< "+5 min", "at 35 min, 65 m"
  };

  std::vector<Head> heads;            ///< one for each column
  std::vector<Row> rows;              ///< from the deepest stop to the gases
  std::vector<std::string> notes;     ///< which minutes the bail-outs begin at, and why
  std::vector<std::string> warnings;  ///< what must not be breathed, column by column: "lost EAN50: PPO2 too low ..."
};

/// Fills a table column by column: stops, run time, doses, gas. Depths and volumes are in the units of the words, also
/// those of a column in the other units.
class ColumnTableBuilder {
 public:
  /// A column with what stands above it, and what the dive starts with. What it refers to outlives the builder.
  struct Column {
    const WhatIfColumn& column;
    ColumnTable::Head head;
    const EndState* before = nullptr;
  };
  ColumnTableBuilder(std::vector<Column> columns, const AdviceWords& words);

  /// A row of texts, one for each column.
  void AddRow(const std::string& label, const std::vector<std::string>& texts);
  void AddStops();
  void AddTotals();
  /// Where the columns carry the same, or the first is that of all, the rows tell how much that is.
  enum class Carried { OfTheFirst, EachItsOwn };
  void AddGases(Carried carried);
  /// The dangers of the plan check, but for the PPO2, and the same lines as below bail-out tables and on cards.
  void AddWarnings();
  [[nodiscard]] ColumnTable Take() { return std::move(table_); }

 private:
  template <class CellOf>
  void Total(int label, const std::string& unit, CellOf cellOf);
  [[nodiscard]] ColumnTable::Cell GasCell(const WhatIfColumn& column, double volume,
                                          const std::optional<GasVerdict>& verdict) const;

  std::vector<Column> columns_;
  const AdviceWords& words_;
  ColumnTable table_;
};

/// The dangers of the plan check in a column, but for the PPO2 and verdicts of gases, and the lines as below bail-out
/// tables. With `beside` only what that column does not have of the same gas.
std::vector<std::string> WarningsOf(const WhatIfColumn& column, const EndState* before, const AdviceWords& words,
                                    const WhatIfColumn* beside = nullptr);

/// The table as lines of text with columns that are aligned by blanks, in as many blocks below each other as lines of
/// `width` letters take.
std::string AlignedText(const ColumnTable& table, std::size_t width);

}  // namespace tav
