#pragma once

#include "dialogs/template_page.h"
#include "model/text_id.h"

namespace tav {

/// The units of a template.
class UnitsPage : public TemplatePage {
 public:
  explicit UnitsPage(TemplateSheet& sheet) : TemplatePage(sheet, "Frame2", Text::TemplateUnits) {
    Texts({{&Option1_1, Text::TemplateMetric}, {&Option1_0, Text::TemplateImperial}});
  }

  OptionButton Option1_1{form_, "Option1_1"};  ///< metric
  OptionButton Option1_0{form_, "Option1_0"};  ///< imperial

  void ShowUnits() override {
    Option1_1.Value = sheet_.metric;
    Option1_0.Value = !sheet_.metric;
  }
};

}  // namespace tav
