#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "compute/gas_warnings.h"
#include "compute/table_dives.h"

namespace tav {

/// The texts of a small table, row by row. Row 0 holds the heads; the others a mix label, a depth, and from column 3 on
/// the minutes of stop of each dive. Column 2 belongs to the dive without a column and is never drawn.
using TableCells = std::vector<std::vector<std::string>>;

/// The columns of TableCells.
namespace TableColumn {
constexpr std::size_t kMix = 0;
constexpr std::size_t kDepth = 1;
constexpr std::size_t kFirstDive = 3;
}  // namespace TableColumn

/// A stop that a small table does not tell as it is.
struct StopRemark {
  std::size_t dive = 0;    ///< the column, from 0; two columns may have one head
  std::string head;        ///< of that column
  std::string depth;       ///< as the cells have it, in whole numbers
  std::string what;        ///< its minutes, or the label of its gas
  std::string exact = {};  ///< the depth, with a decimal where it has one
  std::string mix = {};    ///< the label of its gas
};

/// What must not be breathed in a dive of a table.
struct TableWarning {
  std::size_t dive = 0;
  std::string head;
  GasWarning warning;
};

/// The bottom of a square dive breaks a limit.
struct BottomRemark {
  std::size_t dive = 0;
  std::string head;
  double end = 0;      ///< END there, depth units, where it is beyond that of the settings; else 0
  double density = 0;  ///< of its gas, g/l, where it is above what is recommended; else 0
};

/// A family of dives as a table: rows are the depths of the ascent with the gas breathed there, columns the dives.
///
/// The rows are those of the last dive, its gases are their labels. What that drops or gives a wrong label is told in
/// `left_out` and `other_gas`, so that no number is missing without a word; `warnings` tell what must not be breathed.
struct SmallTable {
  TableCells cells;                     ///< all rows in use, the heads included
  std::vector<std::string> depths;      ///< of each row of cells, with a decimal where it has one; the head first
  std::vector<std::string> totals;      ///< run time of each dive
  std::vector<StopRemark> left_out;     ///< stops without a row, and such that a later one has replaced: minutes
  std::vector<StopRemark> other_gas;    ///< stops on another gas than the label of their row: mix label
  std::vector<StopRemark> bottom;       ///< stops in row 1, which paper does not show: minutes
  std::vector<StopRemark> other_depth;  ///< stops at another depth than their row, whose whole number is the same
  std::vector<TableWarning> warnings;
  std::vector<BottomRemark> bottoms;  ///< of square dives
  Single maximalEND = 0;              ///< the limit that they are held to
  std::vector<StopRemark>
      long_descent;  ///< square dives whose descent takes longer than their bottom time: its minutes
  std::vector<StopRemark> no_decompression;  ///< dives with a stop that never clears; its depth and gas are not told

  [[nodiscard]] int Dives() const { return static_cast<int>(totals.size()); }
  /// The last row in use.
  [[nodiscard]] int LastRow() const { return static_cast<int>(cells.size()) - 1; }
  /// The place that the table asks for, cm. What is drawn is somewhat wider and lower.
  [[nodiscard]] Single Width() const { return (Dives() + 3) * 0.5 + 0.6; }
  [[nodiscard]] Single Height() const { return (LastRow() + 1) * 0.5 + 0.4 + 0.5; }
};

/// The content of a gas as a label: "21/35".
std::string MixLabel(const Waypoint& row);

/// Rows below the heads that a table of these dives must at least hold.
std::int16_t CountTableRows(const TableDives& profiles);

/// The first row from 0 to lastRow whose depth is exactly that text, else -1.
int FindDepthRow(const TableCells& cells, std::string_view depthText, int lastRow);

/// `depthHead` is the head of the column of depths.
SmallTable MakeSmallTable(const TableDives& profiles, const std::string& depthHead);

}  // namespace tav
