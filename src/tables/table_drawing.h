#pragma once

#include <algorithm>
#include <cmath>
#include <string>

#include "pages/print_preview.h"
#include "tables/small_tables.h"
#include "tables/table_slots.h"

namespace tav {

/// The lines of a small table on paper, cm.
struct TableFrame {
  TableFrame(const SmallTable& table, const TablePlace& place)
      : left(place.x), top(place.y), columns(table.Dives()), rows(table.LastRow()) {}

  double left;
  double top;
  int columns;
  int rows;  ///< the last row in use

  [[nodiscard]] double Right() const { return left + 1.6 + columns * 0.55; }
  [[nodiscard]] double Bottom() const { return top + 0.4 + (rows + 1) * 0.5 - 0.1; }
  /// Where the column of a dive (from 0) starts.
  [[nodiscard]] double Column(int dive) const { return left + 1.6 + dive * 0.55; }
  /// Where the text of a row stands, and where its frame starts.
  [[nodiscard]] double Text(int row) const { return top + 0.4 + row * 0.5; }
  [[nodiscard]] double Row(int row) const { return top + 0.3 + row * 0.5; }
  /// How wide the title may be: beyond a narrow table, but not into the next cell.
  [[nodiscard]] double TitleWidth() const {
    const double inGrid = std::max(0.0, left - TableSlots::kLeft);
    const double cell = TableSlots::kLeft + (std::floor(inGrid / TableSlots::kCellWidth) + 1) * TableSlots::kCellWidth;
    return std::max(Right(), cell) - left - 0.2;
  }
  /// The lower edge of the row of totals, which hangs under the table.
  [[nodiscard]] double End() const { return Row(rows + 2); }
};

/// "ZH-L16B  GF 0.30-0.85": the model, and gradient factors where they act.
std::string ModelLine(const TableDives& profiles, const PrintPreview& writer);

/// The title of a small table: model, gas of the bottom, breathing circuit.
std::string TableTitle(const TableDives& profiles, const PrintPreview& writer);

/// What the table is, for the line above it: circuit and units.
std::string TableCaption(const TableDives& profiles, const TextSource& texts);

/// Draws a small table at its place on the open page. Stops show from `firstStopRow` on: row 1 is the bottom.
void DrawTable(PrintPreview& writer, const SmallTable& table, const TablePlace& place, const std::string& title,
               int firstStopRow = 2);

}  // namespace tav
