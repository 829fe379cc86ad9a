#include "app/open_windows.h"

namespace tav {

void OpenWindows::Show(const std::shared_ptr<Form>& form) {
  std::erase_if(shown_, [](const auto& each) { return each.expired(); });
  shown_.push_back(form);
  windows_.Show(form);
}

void OpenWindows::TextsChanged() {
  for (const auto& each : shown_) {
    if (const auto form = each.lock(); form && form->IsLoaded()) form->LoadAnew();
  }
}

}  // namespace tav
