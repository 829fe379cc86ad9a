#pragma once

#include <string>

#include "dialogs/limit_fields.h"
#include "dialogs/template_page.h"

namespace tav {

/// What the gases of the dive are judged by, and the rate at which they are breathed.
class LimitsPage : public TemplatePage {
 public:
  explicit LimitsPage(TemplateSheet& sheet);

  Frame Frame17{form_, "Frame17"};
  Label Label3{form_, "Label3"};
  TextBox tbMinPPO{form_, "tbMinPPO"};
  Label Label6{form_, "Label6"};
  Label Label4{form_, "Label4"};
  TextBox tbMaxPPO{form_, "tbMaxPPO"};
  Label lbMaxPPOUnit{form_, "lbMaxPPOUnit"};
  Frame Frame18{form_, "Frame18"};
  Label lbRMV{form_, "lbRMV"};
  TextBox tbRMV{form_, "tbRMV"};
  Label Label2{form_, "Label2"};
  Frame Frame19{form_, "Frame19"};
  CheckBox cbONarcotic{form_, "cbONarcotic"};
  Label Label8{form_, "Label8"};
  TextBox tbMaximalEND{form_, "tbMaximalEND"};
  Label Label9{form_, "Label9"};
};

/// Which limits warn, and which ones margins and the longest stay keep.
class WarningsPage : public TemplatePage {
 public:
  explicit WarningsPage(TemplateSheet& sheet);

  CheckBox cbWarnPPOLow{form_, "cbWarnPPOLow"};
  CheckBox cbWarnPPOHigh{form_, "cbWarnPPOHigh"};
  CheckBox cbWarnMaxEND{form_, "cbWarnMaxEND"};
  Frame Frame20{form_, "Frame20"};
  Label lbRun{form_, "lbRun"};
  TextBox tbRun{form_, "tbRun"};
  Label lbStops{form_, "lbStops"};
  TextBox tbStops{form_, "tbStops"};
  Label lbCNS{form_, "lbCNS"};
  TextBox tbCNS{form_, "tbCNS"};
  CheckBox ckGas{form_, "ckGas"};

  void Fill() override;
  [[nodiscard]] std::string Fault() const override;
  void Store(DiveTemplate& t) override;

 private:
  mutable LimitFields limits_{platform_, texts_, {tbRun, tbStops, tbCNS, ckGas}};
};

}  // namespace tav
