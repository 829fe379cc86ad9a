#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/controls.h"
#include "model/not_copied.h"

namespace tav {

/// A window with its controls. Life: `Load` runs the load step, the view shows it, `Unload` ends it.
class Form : NotCopied {
 public:
  explicit Form(std::string name) : name_(std::move(name)) {}
  virtual ~Form() = default;

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }
  /// nullptr when there is none of that name.
  [[nodiscard]] Control* Find(std::string_view name) const;
  [[nodiscard]] bool IsLoaded() const { return loaded_; }

  /// Set by the view: brings the window in line with the record.
  std::function<void()> Changed;
  /// Set by the view: the window is to go away.
  std::function<void()> CloseWanted;
  /// Set by the view: the window is to come to the front, also of a modal one.
  std::function<void()> FrontWanted;

  Property<std::string> Caption{Changed};
  /// Size in 1/1440 inch; 0 leaves it to the design. The view keeps them as the user changes the window.
  Property<int> Width{Changed};
  Property<int> Height{Changed};
  /// Beside the program, it takes all input of the program until it is closed.
  bool Blocks = false;
  /// The view puts the window where it was when it was last closed.
  bool RemembersPlace = false;
  /// The user asked for the menu of the window, at no control that has one of its own.
  std::function<void()> ContextMenu;
  /// The pointer moves over the window, but over none of its frames.
  std::function<void()> MouseMove;
  /// The user pressed a key or a mouse button in the window, at no control that takes it.
  std::function<void()> AnyInput;
  /// The window is no larger than what it shows, in place of the size that it was designed with.
  bool FitsContent = false;
  /// A string ID in decimal: LocalizeForm puts its text into the caption.
  std::string Tag;

  void Load() {
    loaded_ = true;
    Form_Load();
  }
  /// The texts are those of another language: the load step runs again, and what the user has entered stays.
  void LoadAnew();
  void BringToFront() const {
    if (FrontWanted) FrontWanted();
  }
  /// Ends the window, unless the form refuses. The user's own close control says byUser.
  bool Unload(bool byUser = false);

 protected:
  virtual void Form_Load() = 0;
  virtual bool Form_QueryUnload(bool /*byUser*/) { return true; }
  virtual void Form_Unload() {}

 private:
  friend class Control;

  std::string name_;
  std::vector<Control*> controls_;
  bool loaded_ = false;
};

}  // namespace tav
