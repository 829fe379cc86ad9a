#include "app/column_cells.h"

#include "platform/colour.h"

namespace tav {

std::vector<std::vector<GridCell>> CellsOf(const ColumnTable& table) {
  std::vector<std::vector<GridCell>> cells;
  cells.reserve(table.rows.size() + 2);
  std::vector<GridCell> names{{""}};
  std::vector<GridCell> details{{""}};
  for (const ColumnTable::Head& head : table.heads) {
    names.push_back({head.name, -1, true});
    details.push_back({head.detail});
  }
  if (!table.heads.empty()) {
    cells.push_back(names);
    cells.push_back(details);
  }
  for (const ColumnTable::Row& row : table.rows) {
    std::vector<GridCell>& line = cells.emplace_back();
    line.push_back({row.Heading(), -1, row.total});
    for (const ColumnTable::Cell& cell : row.cells) {
      line.push_back({cell.All(), cell.bad ? kRed : Colour(-1), cell.bad || cell.differs});
    }
  }
  return cells;
}

}  // namespace tav
