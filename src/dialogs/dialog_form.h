#pragma once

#include <string>
#include <utility>

#include "controls/text_form.h"
#include "dialogs/dialog_services.h"

namespace tav {

/// The frame of every dialog of a plan: the services and short ways to texts, boxes and numbers.
class DialogForm : public TextForm {
 protected:
  DialogForm(std::string name, DialogServices services)
      : TextForm(std::move(name), services.platform, services.texts), services_(std::move(services)) {}

  void MarkChanged(std::int16_t document) const { services_.MarkChanged(document); }
  [[nodiscard]] DiveTemplate& TemplateOf(std::int16_t document) const { return services_.TemplateOf(document); }

  /// Says what is wrong with the entry of a field and goes there. The field stays marked, with the reason as its tool
  /// tip, until the user changes it.
  void RefuseEntry(const Label& label, TextBox& field, const std::string& reason, const std::string& title) {
    const auto mark = [&field](Colour colour, const std::string& why) {
      field.ForeColor = colour;
      field.ToolTipText = why;
    };
    mark(kRed, reason);
    field.Change = [mark] { mark(-1, ""); };
    Box(label.Caption.Get() + " " + field.Text.Get() + "\r\n\r\n" + reason, title, BoxIcon::Exclamation);
    field.SelectAll();
  }

  DialogServices services_;
};

}  // namespace tav
