#pragma once

#include <functional>
#include <string>

#include "controls/grid.h"
#include "dialogs/template_sheet.h"

namespace tav {

/// A table of the template dialog: the numbers that its cells take, and its rows, which buttons, keys and a menu add
/// and delete.
class TemplateTable : protected FormTexts {
 public:
  /// The columns from `first` to before `end` hold numbers.
  TemplateTable(TemplateSheet& sheet, Grid& grid, int first, int end);

  /// Without a button to add, rows are not added here.
  void WireRows(Button* add, Button& remove);
  /// The rows can't be added or deleted now.
  std::function<bool()> IsLocked = [] { return false; };
  /// The second cell of a new row.
  std::function<std::string()> NewText = [] { return std::string(); };
  /// A row has gone.
  std::function<void(int row)> Removed = [](int) {};
  /// The user wants to delete a row.
  std::function<void(int row)> Delete = [this](int row) { DeleteRow(row); };

  /// What a cell shows of a typed text: the number that is left when all but digits and separators are taken out, in
  /// plain form; what is left, if that is no number; "10" if nothing is left; a blank text is that of a value not
  /// given.
  static std::string PurgeNumericInput(const std::string& text, const LocaleSeparators& separators);
  /// What takes the place of a word, or of a number below 0, is marked with the reason, and not stored.
  void CommitNumber(int row, int column, const std::string& text);

  /// A depth or a rate as its cell shows it; nothing for one that has not been given.
  [[nodiscard]] std::string Cell(Single value) const;
  /// The number of a cell as it is stored: to a whole one, unless the cell was filled with it.
  [[nodiscard]] Single Stored(int row, int column) const;
  /// Why the first row that has a fault can't be stored, after `title` and the row; empty when all can.
  [[nodiscard]] std::string Fault(const std::string& title) const;
  /// Why else a row can't be stored.
  std::function<std::string(int row)> FaultOf = [](int) { return std::string(); };
  /// Takes the numbers of the first columns times a factor; with `rounded` by way of whole numbers.
  void Scale(double factor, int columns, bool rounded);

  void Remove(int row);
  void Refuse(int text);

 private:
  void Append();
  void DeleteSelected();
  void DeleteRow(int row);
  void OpenMenu(bool canAdd);

  TemplateSheet& sheet_;
  Grid& grid_;
  int first_;
  int end_;
};

/// What stands in a file for a depth or a rate that has not been given yet; its cell is empty.
inline constexpr double kNotGiven = 1000000;

}  // namespace tav
