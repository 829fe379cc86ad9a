#pragma once

#include "dialogs/plan_entry.h"

namespace tav {

/// The settings that the plan pane has at hand. A change is one of the template
/// of this plan.
class PlanPaneSettings : protected PlanPanePart {
 public:
  PlanPaneSettings(Form& form, PlanEntry& entry);

  Label lbTemplate{form_, "lbTemplate"};
  Button cbEditTemplate{form_, "cbEditTemplate"};
  Label lbGF{form_, "lbGF"};
  TextBox tbLowGF{form_, "tbLowGF"};
  SpinButton udLowGF{form_, "udLowGF"};
  TextBox tbHighGF{form_, "tbHighGF"};
  SpinButton udHighGF{form_, "udHighGF"};
  Label lbLastStop{form_, "lbLastStop"};
  TextBox tbLastStop{form_, "tbLastStop"};
  SpinButton udLastStop{form_, "udLastStop"};
  Label lbLastStopUnit{form_, "lbLastStopUnit"};
  CheckBox cbKeepsDiluent{form_, "cbKeepsDiluent"};    ///< seen on a rebreather
  CheckBox cbIntervalOnAir{form_, "cbIntervalOnAir"};  ///< seen on a rebreather after a dive

  void SetTexts();
  void Show();

 private:
  void TypeFactor(const TextBox& field);
  void TypeLastStop();
  void StepFactor(TextBox& field, int by);
  void StepLastStop(int by);
  void Switch(const CheckBox& box, bool DiveTemplate::*setting);
  /// Gradient factors up to this are taken.
  [[nodiscard]] Single Highest() const;
};

}  // namespace tav
