#pragma once

#include <vector>

#include "controls/grid_cell.h"
#include "reports/column_table.h"

namespace tav {

/// Plans side by side as cells of a grid: heads, then the rows. Bold is what is bad, or is not as in the first column.
std::vector<std::vector<GridCell>> CellsOf(const ColumnTable& table);

}  // namespace tav
