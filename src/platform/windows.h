#pragma once

#include <memory>
#include <string>
#include <vector>

namespace tav {

class Form;
class MenuItem;

/// Shows forms on the screen.
class Windows {
 public:
  virtual ~Windows() = default;

  /// Loads the form, shows it over the program and returns when it has been unloaded. A form that unloads itself while
  /// it loads is not shown.
  virtual void ShowModal(Form& form) = 0;
  /// Loads the form and shows it beside the program, and beside a modal form that is open; it lives until it is
  /// unloaded.
  virtual void Show(const std::shared_ptr<Form>& form) = 0;
  /// Opens a pop-up of these items of a form at the pointer.
  virtual void PopupMenu(const std::vector<MenuItem*>& items) = 0;
  /// The same at the cell or the text that has the focus, for a menu that was called by key.
  virtual void PopupMenuAtFocus(const std::vector<MenuItem*>& items) = 0;
};

}  // namespace tav
