#include "controls/grid.h"

namespace tav {

std::string Grid::Text(int row, int column) const {
  if (row < 0 || row >= Rows() || column < 0 || column >= Columns()) return {};
  return Cells.Get()[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)].text;
}

void Grid::SetText(int row, int column, const std::string& text) {
  auto cells = Cells.Get();
  cells.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column)).text = text;
  Cells = cells;
}

void Grid::SetColour(int row, int column, Colour colour) {
  auto cells = Cells.Get();
  cells.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column)).colour = colour;
  Cells = cells;
}

void Grid::AddRow(const std::vector<std::string>& texts) {
  auto cells = Cells.Get();
  auto& row = cells.emplace_back();
  for (const std::string& text : texts) row.push_back({text});
  Cells = cells;
}

void Grid::RemoveRow(int row) {
  auto cells = Cells.Get();
  if (row < 0 || row >= Rows()) return;
  cells.erase(cells.begin() + row);
  Cells = cells;
}

void Grid::SetRows(const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::vector<GridCell>> cells;
  for (const auto& texts : rows) {
    auto& row = cells.emplace_back();
    for (const std::string& text : texts) row.push_back({text});
  }
  Cells = cells;
}

}  // namespace tav
