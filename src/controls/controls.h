#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/grid_cell.h"
#include "controls/property.h"

/// The controls of a window as plain records. A dialog is a class with its controls as members under their own names
/// and its events as methods; it knows no widget. A binder ties each record to the widget of the same name:
///
/// - code sets a property, the record calls `Changed`, the widget follows;
/// - the user acts, the widget calls `Press`, `Type`, `Select`, ... of the record, and the record fires its event.
///
/// Setting a property by code fires no event. Tests call the same operations as the widgets do.
namespace tav {

class DrawingSurface;
class Form;

using Event = std::function<void()>;

class Control {
 public:
  Control(Form& form, std::string name);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control();

  [[nodiscard]] const std::string& Name() const { return name_; }

  /// Set by the view: brings the widget in line with the record.
  std::function<void()> Changed;
  /// Set by the view: gives the widget the focus.
  std::function<void()> FocusWanted;

  Property<std::string> Caption{Changed};
  Property<std::string> ToolTipText{Changed};
  /// What a screen reader calls a control that no label or caption names; empty leaves that to the view.
  Property<std::string> SpokenName{Changed};
  Property<bool> Enabled{Changed, true};
  Property<bool> Visible{Changed, true};
  Property<bool> Bold{Changed};
  /// The colour of the text; -1 leaves it to the system.
  Property<Colour> ForeColor{Changed, -1};
  /// A string ID in decimal: LocalizeForm puts its text into the caption.
  std::string Tag;

  void SetFocus() const {
    if (FocusWanted) FocusWanted();
  }

 protected:
  /// The event works on a copy of its own: what it does may end this control.
  static void Fire(const Event& event) {
    if (const Event act = event) act();
  }
  [[nodiscard]] bool CanAct() const { return Enabled && Visible; }

 private:
  Form& form_;
  std::string name_;
};

class Label : public Control {
 public:
  using Control::Control;
};

/// A box around other controls. Hidden or disabled, it takes them along. `MouseMove` fires when the pointer moves over
/// it or anything in it that is in no other frame.
class Frame : public Control {
 public:
  using Control::Control;
  Event MouseMove;
  void MoveMouse() const { Fire(MouseMove); }
};

class Button : public Control {
 public:
  using Control::Control;
  Event Click;
  bool Default = false;  ///< Return presses it
  bool Cancel = false;   ///< Escape presses it
  /// The user's click; nothing on a button that is disabled or hidden.
  void Press() const {
    if (CanAct()) Fire(Click);
  }
};

class CheckBox : public Control {
 public:
  using Control::Control;
  Property<bool> Value{Changed};
  Event Click;
  void Set(bool value) {
    if (!CanAct()) return;
    Value = value;
    Fire(Click);
  }
};

/// One of several; the group is that of the frame around it. The form that holds them clears the others.
class OptionButton : public Control {
 public:
  using Control::Control;
  Property<bool> Value{Changed};
  Event Click;
  void Choose() {
    if (!CanAct()) return;
    Value = true;
    Fire(Click);
  }
};

class TextBox : public Control {
 public:
  using Control::Control;
  Property<std::string> Text{Changed};
  Property<bool> Locked{Changed};  ///< shows, but takes no typing
  Event Change;                    ///< the user has changed the text
  Event KeyEscape;                 ///< Escape was pressed; a box that has this event keeps Escape from the window
  Event KeyReturn;  ///< Return was pressed; a box that has this event keeps Return from the default button
  Event GotFocus;
  Event LostFocus;
  /// Set by the view: selects the whole text.
  std::function<void()> SelectWanted;

  /// The whole text after a key of the user.
  void Type(const std::string& text);
  void PressReturn() const { Fire(KeyReturn); }
  void PressEscape() const { Fire(KeyEscape); }
  void Enter() const { Fire(GotFocus); }
  void Leave() const { Fire(LostFocus); }
  void SelectAll() const {
    SetFocus();
    if (SelectWanted) SelectWanted();
  }
};

class ComboBox : public Control {
 public:
  using Control::Control;
  Property<std::vector<std::string>> Items{Changed};
  Property<int> ListIndex{Changed, -1};
  Event Click;      ///< the user has chosen an entry
  Event KeyReturn;  ///< Return was pressed; a list that has this event keeps Return from the default button
  void PressReturn() const {
    if (CanAct()) Fire(KeyReturn);
  }
  void Select(int index) {
    if (!CanAct() || index < 0 || index >= static_cast<int>(Items.Get().size())) return;
    ListIndex = index;
    Fire(Click);
  }
  /// The chosen entry; empty when there is none.
  [[nodiscard]] std::string Text() const {
    const int index = ListIndex;
    return index < 0 || index >= static_cast<int>(Items.Get().size()) ? ""
                                                                      : Items.Get()[static_cast<std::size_t>(index)];
  }
};

/// Two arrows beside a field. Arrow keys up and down in the field of its name in `Buddy` do the same.
class SpinButton : public Control {
 public:
  using Control::Control;
  std::string Buddy;  ///< name of the text box that it steps
  Event UpClick;
  Event DownClick;
  void Up() const {
    if (CanAct()) Fire(UpClick);
  }
  void Down() const {
    if (CanAct()) Fire(DownClick);
  }
};

class ProgressBar : public Control {
 public:
  using Control::Control;
  Property<int> Maximum{Changed, 100};
  Property<int> Value{Changed};
};

/// A list of which one item is chosen.
class ListView : public Control {
 public:
  using Control::Control;
  Property<std::vector<std::string>> Items{Changed};
  Property<int> SelectedItem{Changed, -1};  ///< from 0
  Event ItemClick;
  void Select(int index) {
    if (!CanAct() || index < 0 || index >= static_cast<int>(Items.Get().size())) return;
    SelectedItem = index;
    Fire(ItemClick);
  }
};

/// Text of several lines that the user can read, scroll and select.
class TextView : public Control {
 public:
  using Control::Control;
  Property<std::string> Text{Changed};
};

/// A picture by the name of its asset ("tav").
class Picture : public Control {
 public:
  using Control::Control;
  Property<std::string> Image{Changed};
};

/// A table; row 0 is the header. `Select` marks a cell; a cell is edited in place when `EditorOf` allows it, and the
/// outcome goes to `Commit`. A grid with `Typed` is a spreadsheet: each text goes to it while it is typed, Escape to
/// `Restored`, Return moves on to the cell below, and several rows can be selected.
class Grid : public Control {
 public:
  using Control::Control;

  /// What opens over a cell: nothing, an edit box, or a list of these entries.
  struct Editor {
    enum class Kind { None, Text, List } kind = Kind::None;
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

  void Select(int row, int column) {
    SelectedRow = FirstRow = LastRow = row;
    SelectedColumn = column;
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

/// Tabs of which one is chosen; what they show is up to the form.
class TabStrip : public Control {
 public:
  using Control::Control;
  Property<std::vector<std::string>> Tabs{Changed};
  Property<int> SelectedItem{Changed};  ///< from 0
  Event Click;
  void Select(int index) {
    if (!CanAct() || index < 0 || index >= static_cast<int>(Tabs.Get().size())) return;
    SelectedItem = index;
    Fire(Click);
  }
};

/// A landscape A4 page in a view that scrolls; the form draws it.
class PageView : public Control {
 public:
  using Control::Control;

  /// Draws the page on a surface whose lengths are 1/567 cm; fonts are to be scaled by the second argument.
  std::function<void(DrawingSurface& page, double ZoomScale)> Draw;
  /// 1.0 shows the page in its real size.
  Property<double> Zoom{Changed, 1.0};
  /// Changes with every page that is to be drawn.
  Property<int> Page{Changed};

  enum class Wish { ZoomIn, ZoomOut, First, Previous, Next, Last };
  /// A key or a wheel that asks for something.
  std::function<void(Wish wish)> Wished;
};

/// An entry of a menu. Its `Caption` holds a string ID until LocalizeForm has run.
class MenuItem : public Control {
 public:
  using Control::Control;
  Property<bool> Checked{Changed};
  std::string Shortcut;  ///< "Ctrl+N"; empty for none
  Event Click;
  void Choose() const {
    if (CanAct()) Fire(Click);
  }
};

/// A button of a tool bar.
class ToolButton : public Control {
 public:
  using Control::Control;
  Property<std::string> Image{Changed};  ///< name of its icon
  Property<bool> Checked{Changed};       ///< shown as pressed
  Event Click;
  void Press() const {
    if (CanAct()) Fire(Click);
  }
};

}  // namespace tav
