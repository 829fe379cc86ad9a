#pragma once

#include <string>
#include <utility>
#include <vector>

#include "dialogs/template_sheet.h"

namespace tav {

/// A page of the template dialog: a frame with the fields of one subject, as text in the units shown. What stands for
/// one value of the record is filled and stored by the sheet, ahead of what the page does.
class TemplatePage : protected FormTexts {
 public:
  virtual ~TemplatePage() = default;

  Frame frame;

  virtual void Fill() {}
  virtual void ShowUnits() {}
  /// To the units shown, by the factor of a length.
  virtual void Convert(double /*length*/) {}
  /// Why the tables of the page can't be stored; empty when they can.
  [[nodiscard]] virtual std::string Fault() const { return {}; }
  virtual void Store(DiveTemplate& /*t*/) {}

 protected:
  using Limits = TemplateSheet::Limits;
  using Quantity = TemplateSheet::Quantity;

  /// The frame bears that name and text.
  TemplatePage(TemplateSheet& sheet, std::string name, int caption)
      : FormTexts(sheet.services.platform, sheet.services.texts),
        frame(sheet.form, std::move(name)),
        sheet_(sheet),
        form_(sheet.form) {
    Texts({{&frame, caption}});
  }
  /// The numbers of the captions.
  static void Texts(const std::vector<std::pair<Control*, int>>& captions) {
    for (const auto& [control, id] : captions) control->Tag = std::to_string(id);
  }

  TemplateSheet& sheet_;
  Form& form_;
};

}  // namespace tav
