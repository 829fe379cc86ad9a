#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/controls.h"
#include "controls/grid_cell.h"

/// The tables among the controls.
namespace tav {

/// A table; row 0 is the header. `Select` marks a cell; a cell is edited in place when `EditorOf` allows it, and the
/// outcome goes to `Commit`. A grid with `Typed` is a spreadsheet: each text goes to it while it is typed, Escape to
/// `Restored`, Return moves on to the cell below, and several rows can be selected.
class Grid : public Control {
 public:
  using Control::Control;

  /// What opens over a cell: nothing, an edit box, a list of these entries, or an edit box with such a list.
  struct Editor {
    enum class Kind { None, Text, List, TypedList } kind = Kind::None;
    std::vector<std::string> entries;
  };

  Property<std::vector<std::vector<GridCell>>> Cells{Changed};
  std::function<Editor(int row, int column)> EditorOf;
  std::function<void(int row, int column, const std::string& text)> Commit;
  std::function<void(int row, int column, const std::string& text)> Typed;
  /// An open cell was left by Escape, and so is a spreadsheet in which none is open.
  Event Restored;
  /// What Up (1) and Down (-1) make of the text of an open cell; in a grid without it they move to the next row.
  std::function<std::string(const std::string& text, int by)> Stepped;
  enum class Wish { Duplicate, MoveUp, MoveDown, Copy, Paste };
  /// A key that asks for something, while no cell is open.
  std::function<void(Wish wish)> Wished;
  std::vector<int> RightColumns;  ///< whose texts stand at the right
  int WideColumn = -1;            ///< takes the room that the others, then as wide as a number, leave
  Event Click;                    ///< a cell was clicked or reached by key: SelectedRow, SelectedColumn
  Event RowMenu;                  ///< the menu button: show the pop-up that the form has for the grid
  bool MenuByKey = false;         ///< the key of the menu called it, so that it belongs to the selected cell
  Event InsertKey;                ///< Ins and Del while no cell is open; a grid without the event leaves the key alone
  Event DeleteKey;
  int SelectedRow = 0;
  int SelectedColumn = 0;
  int FirstRow = 0;  ///< of the selected rows
  int LastRow = 0;
  /// Set by the view: opens the selected cell.
  std::function<void()> OpenWanted;

  [[nodiscard]] int Rows() const { return static_cast<int>(Cells.Get().size()); }
  [[nodiscard]] int Columns() const { return Rows() == 0 ? 0 : static_cast<int>(Cells.Get().front().size()); }
  /// Empty text outside the table.
  [[nodiscard]] std::string Text(int row, int column) const;
  void SetText(int row, int column, const std::string& text);
  /// The colour of the text of a cell; -1 leaves it to the system.
  void SetColour(int row, int column, Colour colour);
  void AddRow(const std::vector<std::string>& texts);
  void RemoveRow(int row);
  /// All rows, header first.
  void SetRows(const std::vector<std::vector<std::string>>& rows);

  void Select(int row, int column) { Select(row, column, row, row); }
  /// The same among the selected rows from `first` to `last`.
  void Select(int row, int column, int first, int last) {
    SelectedRow = row;
    SelectedColumn = column;
    FirstRow = first;
    LastRow = last;
    Fire(Click);
  }
  /// Selects a cell for the user, without an event.
  void SelectCell(int row, int column) {
    SelectedRow = FirstRow = LastRow = row;
    SelectedColumn = column;
    Refresh();
  }
  void OpenSelected() const {
    if (OpenWanted) OpenWanted();
  }
  /// Opens a cell in one of several selected rows, which stay selected.
  void OpenInSelection(int row, int column) {
    SelectedRow = row;
    SelectedColumn = column;
    OpenSelected();
  }
  /// Brings the view in line with what EditorOf allows now.
  void Refresh() const {
    if (Changed) Changed();
  }
  void OpenMenu(bool byKey = false) {
    MenuByKey = byKey;
    Fire(RowMenu);
  }
  void PressInsert() const {
    if (CanAct()) Fire(InsertKey);
  }
  void PressDelete() const {
    if (CanAct()) Fire(DeleteKey);
  }
  /// The text of an open cell after a key of the user.
  void Type(int row, int column, const std::string& text) const {
    if (CanAct() && Typed) Typed(row, column, text);
  }
  void Restore() const { Fire(Restored); }
  void Ask(Wish wish) const {
    if (CanAct() && Wished) Wished(wish);
  }
  /// The user has set the tick of a row, or taken it away.
  std::function<void(int row, bool on)> Ticked;
  void Tick(int row, bool on) const {
    if (CanAct() && Ticked) Ticked(row, on);
  }
  /// The user's edit of a cell, as far as EditorOf allows it.
  void Edit(int row, int column, const std::string& text) const {
    if (CanAct() && EditorOf && Commit && EditorOf(row, column).kind != Editor::Kind::None) Commit(row, column, text);
  }
};

/// A table that is read, not written: cells can be selected and copied, columns keep the width that the user gives
/// them. Row 0 is the header, unless `HasHeader` is false.
class ResultGrid : public Control {
 public:
  using Control::Control;

  Property<std::vector<std::vector<GridCell>>> Cells{Changed};
  /// Widths of the columns in pixels, as the user gave them; empty leaves them to their contents. To be set ahead of
  /// the cells.
  std::vector<int> ColumnWidths;
  /// Columns of text stand at the left, all others at the right.
  std::vector<int> TextColumns;
  bool HasHeader = true;
  Event Click;          ///< the user has reached a cell, or clicked it
  Event Return;         ///< Return was pressed on a cell
  int SelectedRow = 0;  ///< as in `Cells`

  void Select(int row) {
    SelectedRow = row;
    Fire(Click);
  }
  void PressReturn(int row) {
    SelectedRow = row;
    Fire(Return);
  }
  /// Set by the view: brings the selection in line.
  std::function<void()> SelectWanted;
  /// Selects a row for the user, without an event.
  void SelectRow(int row) {
    SelectedRow = row;
    if (SelectWanted) SelectWanted();
  }
};

}  // namespace tav
