#pragma once

#include "dialogs/template_page.h"

namespace tav {

/// The setpoints of a rebreather and what it does on the way up and at the surface.
class RebreatherPage : public TemplatePage {
 public:
  explicit RebreatherPage(TemplateSheet& sheet);

  Label Label1{form_, "Label1"};
  TextBox SetPoint{form_, "SetPoint"};
  Label lBarAta{form_, "lBarAta"};
  Label Label19{form_, "Label19"};
  TextBox Text6{form_, "Text6"};  ///< deco setpoint
  Label Label5{form_, "Label5"};
  CheckBox Check2{form_, "Check2"};  ///< decompression on open circuit
  CheckBox cbKeepsDiluent{form_, "cbKeepsDiluent"};
  CheckBox cbIntervalOnAir{form_, "cbIntervalOnAir"};

  void Fill() override;
};

}  // namespace tav
