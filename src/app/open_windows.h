#pragma once

#include <memory>
#include <vector>

#include "controls/form.h"
#include "platform/windows.h"

namespace tav {

/// The windows of a platform, which knows those that stand beside the program.
class OpenWindows : public Windows {
 public:
  explicit OpenWindows(Windows& windows) : windows_(windows) {}

  /// Each of them takes the texts of another language; what is entered in it stays.
  void TextsChanged();

  void ShowModal(Form& form) override { windows_.ShowModal(form); }
  void Show(const std::shared_ptr<Form>& form) override;
  void PopupMenu(const std::vector<MenuItem*>& items) override { windows_.PopupMenu(items); }
  void PopupMenuAtFocus(const std::vector<MenuItem*>& items) override { windows_.PopupMenuAtFocus(items); }

 private:
  Windows& windows_;
  std::vector<std::weak_ptr<Form>> shown_;
};

}  // namespace tav
