#pragma once

#include <string>

#include "dialogs/dialog_services.h"
#include "platform/localize_form.h"

namespace tav {

/// The frame of every dialog of a plan: the services and short ways to texts, boxes and numbers.
class DialogForm : public Form {
 protected:
  DialogForm(std::string name, const DialogServices& services) : Form(std::move(name)), services_(services) {}

  void Localize() { LocalizeForm(*this, services_.texts); }
  [[nodiscard]] std::string T(int id) const { return services_.texts.GetResString(id); }
  BoxAnswer Box(const std::string& text, const std::string& title, BoxIcon icon,
                BoxButtons buttons = BoxButtons::OK) const {
    return services_.platform.boxes.Show(text, title, icon, buttons);
  }
  /// The number in a text as the user writes numbers; 0 for a text that is none.
  [[nodiscard]] Single Number(const std::string& text) const {
    return ParseLocaleNumber(text, services_.platform.separators);
  }
  [[nodiscard]] DiveTemplate& TemplateOf(std::int16_t document) const {
    return services_.Documents()(document).Template;
  }

  DialogServices services_;
};

}  // namespace tav
