#pragma once

#include <functional>
#include <vector>

#include "dialogs/plan_entry.h"
#include "engine/model_choice.h"

namespace tav {

/// What the plan pane has at hand of this dive: circuit, setpoints, altitude, surface interval, gradient factors and
/// last stop, which are the plan's, and the model, which is the program's.
class PlanPaneSettings : protected PlanPanePart {
 public:
  PlanPaneSettings(Form& form, PlanEntry& entry);

  Label lbCircuit{form_, "lbCircuit"};
  ComboBox cbCircuit{form_, "cbCircuit"};
  ComboBox cbModel{form_, "cbModel"};
  Label lbSetpoint{form_, "lbSetpoint"};  ///< it, the setpoints and their unit are seen on a rebreather
  TextBox tbSetpoint{form_, "tbSetpoint"};
  Label lbDecoSetpoint{form_, "lbDecoSetpoint"};
  TextBox tbDecoSetpoint{form_, "tbDecoSetpoint"};
  Label lbSetpointUnit{form_, "lbSetpointUnit"};
  Label lbAltitude{form_, "lbAltitude"};
  TextBox tbAltitude{form_, "tbAltitude"};
  Label lbAltitudeUnit{form_, "lbAltitudeUnit"};
  Label lbInterval{form_, "lbInterval"};
  TextBox tbInterval{form_, "tbInterval"};  ///< "1:30"; takes typing after another dive
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
  CheckBox cbOpenForDeco{form_, "cbOpenForDeco"};      ///< seen on a rebreather
  CheckBox cbIntervalOnAir{form_, "cbIntervalOnAir"};  ///< seen on a rebreather after a dive

  /// Commands of the program, on the plan in front.
  std::function<void(bool openCircuit)> SetCircuit;
  std::function<void(const ModelChoice& model)> SetModel;
  std::function<bool(const ModelChoice& model)> HasModel;  ///< the program offers it

  void SetTexts();
  void Show();

 private:
  void ShowPlan();
  void ShowModel();
  void TypeNumber(const TextBox& field, const Label& label, const std::function<void(DiveTemplate&, Single)>& change);
  void TypeInterval();
  void ChooseCircuit();
  void ChooseModel();
  void TypeFactor(const TextBox& field);
  void TypeLastStop();
  void StepFactor(TextBox& field, int by);
  void StepLastStop(int by);
  void Switch(const CheckBox& box, bool DiveTemplate::*setting);
  /// Gradient factors up to this are taken.
  [[nodiscard]] Single Highest() const;

  std::vector<ModelChoice> models_;  ///< as in the list
};

}  // namespace tav
