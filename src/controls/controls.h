#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/property.h"
#include "platform/colour.h"
#include "platform/page_size.h"

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
  Event KeyUp;                     ///< the arrow up was pressed
  Event KeyDown;                   ///< the arrow down was pressed
  Event KeyEscape;                 ///< Escape was pressed; a box that has this event keeps Escape from the window
  Event KeyReturn;  ///< Return was pressed; a box that has this event keeps Return from the default button
  Event GotFocus;
  Event LostFocus;
  std::function<bool()> Pasting;  ///< the user is about to paste; true when that went elsewhere
  /// Set by the view: selects the whole text.
  std::function<void()> SelectWanted;

  /// The whole text after a key of the user.
  void Type(const std::string& text);
  void PressReturn() const { Fire(KeyReturn); }
  void PressEscape() const { Fire(KeyEscape); }
  void PressUp() const { Fire(KeyUp); }
  void PressDown() const { Fire(KeyDown); }
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
  bool TakesText = false;  ///< what the list does not have can be typed
  Event Click;             ///< the user has chosen an entry, or typed
  Event KeyReturn;         ///< Return was pressed; a list that has this event keeps Return from the default button
  void PressReturn() const {
    if (CanAct()) Fire(KeyReturn);
  }
  void Select(int index) {
    if (!CanAct() || index < 0 || index >= static_cast<int>(Items.Get().size())) return;
    ListIndex = index;
    Fire(Click);
  }
  /// The whole text after a key of the user: an entry, or one of its own.
  void Type(const std::string& text) {
    if (!CanAct() || !TakesText) return;
    const auto& items = Items.Get();
    const auto entry = std::find(items.begin(), items.end(), text);
    typed_ = text;
    ListIndex = entry == items.end() ? -1 : static_cast<int>(entry - items.begin());
    Fire(Click);
  }
  /// The chosen entry, or what was typed; empty when there is none.
  [[nodiscard]] std::string Text() const {
    const int index = ListIndex;
    if (index < 0) return TakesText ? typed_ : "";
    return index >= static_cast<int>(Items.Get().size()) ? "" : Items.Get()[static_cast<std::size_t>(index)];
  }

 private:
  std::string typed_;
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

/// A list of items with a tick each.
class CheckList : public Control {
 public:
  struct Item {
    std::string text;
    bool on = true;
    friend bool operator==(const Item&, const Item&) = default;
  };
  using Control::Control;
  Property<std::vector<Item>> Items{Changed};
  std::function<void(int index)> Ticked;  ///< the user has set the tick of an item, or taken it away
  void Tick(int index, bool on) {
    if (!CanAct() || index < 0 || index >= static_cast<int>(Items.Get().size())) return;
    std::vector<Item> items = Items;
    items[static_cast<std::size_t>(index)].on = on;
    Items = items;
    if (Ticked) Ticked(index);
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
  PageSize Size;  ///< of the page that is to be drawn
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
