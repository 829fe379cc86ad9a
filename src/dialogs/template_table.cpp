#include "dialogs/template_table.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <iterator>

#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {

TemplateTable::TemplateTable(TemplateSheet& sheet, Grid& grid, int first, int end)
    : FormTexts(sheet.services.platform, sheet.services.texts), sheet_(sheet), grid_(grid), first_(first), end_(end) {
  grid_.Commit = [this](int row, int column, const std::string& text) { CommitNumber(row, column, text); };
}

void TemplateTable::WireRows(Button* add, Button& remove) {
  grid_.RowMenu = [this, canAdd = add != nullptr] { OpenMenu(canAdd); };
  grid_.DeleteKey = remove.Click = [this] { DeleteSelected(); };
  if (add != nullptr) grid_.InsertKey = add->Click = [this] { Append(); };
}

std::string TemplateTable::PurgeNumericInput(const std::string& text, const LocaleSeparators& separators) {
  if (TrimBlanks(text).empty()) return {};
  std::string kept;
  std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
               [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0 || c == '.' || c == ','; });
  const bool digits = std::any_of(kept.begin(), kept.end(), [](char c) { return c != '.' && c != ','; });
  if (!digits) return "10";
  const auto number = ParseLocaleNumber(kept, separators);
  return number ? ReplaceAll(FormatPlain(*number), ".", separators.decimal) : kept;
}

void TemplateTable::CommitNumber(int row, int column, const std::string& text) {
  const std::string number = PurgeNumericInput(text, platform_.separators);
  grid_.SetText(row, column, number);
  grid_.SetColour(row, column, NumberIn(number) ? -1 : kRed);
  auto cells = grid_.Cells.Get();
  // Units behind a number mean nothing else; but nobody types a word, or a number below 0, to get another one.
  const bool isWord = !number.empty() && text.find_first_of("0123456789") == std::string::npos;
  const bool replaced = isWord || NumberIn(text).value_or(0) < 0;
  cells.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column)).fault =
      replaced ? T(Text::CellSetTo, {text, number}) : "";
  grid_.Cells = cells;
}

std::string TemplateTable::Cell(Single value) const { return value == kNotGiven ? "" : sheet_.Whole(value, 0); }

Single TemplateTable::Stored(int row, int column) const {
  // A rate of 2.5 does not become 3 unless someone types it.
  const std::string text = grid_.Text(row, column);
  return sheet_.WasFilledIn(text) ? Number(text) : Single(RoundSingle(Number(text), 0));
}

std::string TemplateTable::Fault(const std::string& title) const {
  for (int row = 1; row < grid_.Rows(); ++row) {
    std::string fault;
    for (int column = first_; fault.empty() && column < end_; ++column) {
      const std::string text = grid_.Text(row, column);
      fault = grid_.Cells.Get()[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)].fault;
      if (fault.empty() && text.empty()) fault = T(Text::CellNotGiven);
      if (fault.empty() && !NumberIn(text)) fault = T(Text::CellNoNumber) + text;
    }
    if (fault.empty()) fault = FaultOf(row);
    if (!fault.empty()) return std::string(title).append(", ").append(std::to_string(row)).append(": ").append(fault);
  }
  return {};
}

void TemplateTable::Scale(double factor, int columns, bool rounded) {
  for (int row = 1; row < grid_.Rows(); ++row) {
    for (int column = 0; column < columns; ++column) {
      const auto value = NumberIn(grid_.Text(row, column));
      if (!value) continue;  // not given yet
      const double to = rounded ? std::nearbyint(std::nearbyint(*value) * factor) : *value * factor;
      grid_.SetText(row, column, FormatFixed(Single(to), 0));
    }
  }
}

void TemplateTable::Refuse(int text) { Box(T(text), T(Text::TemplateTitle), BoxIcon::Exclamation); }

void TemplateTable::OpenMenu(bool canAdd) {
  sheet_.addRow.Visible = canAdd;
  sheet_.addRow.Click = [this] { Append(); };
  sheet_.deleteRow.Click = [this] { DeleteSelected(); };
  for (MenuItem* item : {&sheet_.addRow, &sheet_.deleteRow}) item->Enabled = !IsLocked();
  if (grid_.MenuByKey) {
    platform_.windows.PopupMenuAtFocus({&sheet_.addRow, &sheet_.deleteRow});
  } else {
    platform_.windows.PopupMenu({&sheet_.addRow, &sheet_.deleteRow});
  }
}

void TemplateTable::Append() {
  if (IsLocked()) return;
  grid_.AddRow({"", NewText()});
  grid_.SelectCell(grid_.Rows() - 1, 0);
  grid_.SetFocus();
}

void TemplateTable::DeleteSelected() {
  if (IsLocked()) return;
  Delete(grid_.SelectedRow);
  grid_.SetFocus();
}

void TemplateTable::DeleteRow(int row) {
  if (row >= 2) {
    Remove(row);
  } else {
    Refuse(Text::TemplateRowStays);
  }
}

void TemplateTable::Remove(int row) {
  grid_.RemoveRow(row);
  grid_.SelectCell(std::min(grid_.SelectedRow, grid_.Rows() - 1), grid_.SelectedColumn);
  Removed(row);
}

}  // namespace tav
