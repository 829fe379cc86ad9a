#pragma once

#include <string>

#include "report/print_preview.h"
#include "report/small_tables.h"
#include "report/table_slots.h"

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
  /// The lower edge of the row of totals, which hangs under the table.
  [[nodiscard]] double End() const { return Row(rows + 2); }
};

/// The title of a small table: gradient factors, gas of the bottom, breathing circuit.
std::string TableTitle(const TableDives& profiles, const PrintPreview& writer);

/// Draws a small table at its place on the open page. Stops show from `firstStopRow` on: row 1 is the bottom.
void DrawTable(PrintPreview& writer, const SmallTable& table, const TablePlace& place, const std::string& title,
               int firstStopRow = 2);

}  // namespace tav
