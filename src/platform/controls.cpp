#include "platform/controls.h"

#include <algorithm>

#include "platform/form.h"

namespace tav {

Control::Control(Form& form, std::string name) : form_(form), name_(std::move(name)) {
  form_.controls_.push_back(this);
}

Control::~Control() { std::erase(form_.controls_, this); }

Control* Form::Find(std::string_view name) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [&](auto* c) { return c->Name() == name; });
  return found == controls_.end() ? nullptr : *found;
}

bool Form::Unload(bool byUser) {
  if (!loaded_) return true;
  if (!Form_QueryUnload(byUser)) return false;
  if (!loaded_) return true;
  loaded_ = false;
  Form_Unload();
  if (CloseWanted) CloseWanted();
  return true;
}

void TextBox::Type(const std::string& text) {
  if (!CanAct() || Locked) return;
  Text = text;
  Fire(Change);
}

std::string Grid::Text(int row, int column) const {
  if (row < 0 || row >= Rows() || column < 0 || column >= Columns()) return {};
  return Cells.Get()[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)].text;
}

void Grid::SetText(int row, int column, const std::string& text) {
  auto cells = Cells.Get();
  cells.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column)).text = text;
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
