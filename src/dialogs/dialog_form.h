#pragma once

#include <optional>
#include <string>
#include <utility>

#include "dialogs/dialog_services.h"
#include "model/number_text.h"
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
  /// The number in a text as the user writes numbers; nothing for a text that is none.
  [[nodiscard]] std::optional<double> NumberIn(const std::string& text) const {
    return ParseLocaleNumber(text, services_.platform.separators);
  }
  /// The same as it is stored; 0 for a text that is no number.
  [[nodiscard]] Single Number(const std::string& text) const { return NumberIn(text).value_or(0); }
  /// Number text with the user's decimal separator; `NumberIn` reads it back.
  [[nodiscard]] std::string Written(const std::string& number) const {
    const std::string& decimal = services_.platform.separators.decimal;
    return decimal.empty() ? number : ReplaceAll(number, ".", decimal);
  }
  [[nodiscard]] std::string Fixed(Single value, int decimals) const { return Written(FormatFixed(value, decimals)); }
  [[nodiscard]] std::string Plain(Single value) const { return Written(FormatPlain(value)); }
  /// The template of a document has changed, and with it the plan.
  void MarkChanged(std::int16_t document) const {
    TemplateOf(document).TemplateChanged = true;
    if (document != DocumentStore::DefaultDocument) services_.forms(document).MarkModified();
  }
  [[nodiscard]] DiveTemplate& TemplateOf(std::int16_t document) const {
    return services_.Documents()(document).Template;
  }

  DialogServices services_;
};

}  // namespace tav
