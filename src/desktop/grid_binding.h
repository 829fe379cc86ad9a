#pragma once

class QTableWidget;

namespace tav {

class Grid;

/// Ties a grid to a table: cells are edited in place as the grid allows it. Return commits, Escape leaves the cell as
/// it was, up and down commit and move a row.
void BindGrid(Grid& grid, QTableWidget& table);

/// Brings the table in line with the grid.
void ShowGrid(const Grid& grid, QTableWidget& table);

}  // namespace tav
