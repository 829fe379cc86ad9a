#pragma once

#include <string>
#include <utility>

#include "dialogs/dialog_services.h"
#include "platform/localize_form.h"

namespace tav {

/// The frame of every dialog of a plan: the services and short ways to texts, boxes and numbers.
class DialogForm : public Form {
 protected:
  DialogForm(std::string name, DialogServices services) : Form(std::move(name)), services_(std::move(services)) {}

  void Localize() { LocalizeForm(*this, services_.texts); }
  [[nodiscard]] std::string T(int id) const { return services_.texts.GetResString(id); }
  BoxAnswer Box(const std::string& text, const std::string& title, BoxIcon icon, BoxButtons buttons = BoxButtons::OK) {
    return services_.platform.boxes.Show(text, title, icon, buttons);
  }
  /// The number in a text as the user writes numbers; 0 for a text that is none. The fields show a point in every
  /// locale, so what is a number with a point is taken as it stands: "0.30" is not 30 where points group thousands.
  [[nodiscard]] Single Number(const std::string& text) const {
    return IsNumber(text) ? Single(ParseLenient(text)) : ParseLocaleNumber(text, services_.platform.separators);
  }
  [[nodiscard]] DiveTemplate& TemplateOf(std::int16_t document) const {
    return services_.Documents()(document).Template;
  }

  DialogServices services_;
};

}  // namespace tav
