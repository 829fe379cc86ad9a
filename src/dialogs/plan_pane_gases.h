#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/grid.h"
#include "dialogs/plan_entry.h"
#include "plans/gases_at_hand.h"

namespace tav {

/// The gases of the plan in the plan pane, in the order of their use, and an empty row for one more by its name: a tick
/// for each that is breathed on the way up, the depth that it is breathed from, and its cylinders.
class PlanPaneGases : protected PlanPanePart {
 public:
  PlanPaneGases(Form& form, PlanEntry& entry);

  Label lbGases{form_, "lbGases"};
  Button cbAddGas{form_, "cbAddGas"};
  Grid fgGases{form_, "fgGases"};
  enum Column { kGas, kDepth, kCylinders };

  void SetTexts();
  void Show();

 private:
  [[nodiscard]] const GasAtHand* At(int line) const;
  [[nodiscard]] Grid::Editor EditorOf(int line, int column) const;
  void Commit(int line, int column, const std::string& text);
  void Tick(int line, bool on);
  void SetDepth(const GasAtHand& gas, const std::string& text);
  void LeaveOut(const GasAtHand& gas);
  void AddGas(const std::string& name);
  /// A change of the template of the plan that was entered as `text`, as one step.
  void Enter(const std::string& text, const std::string& fault, const std::function<void(DiveTemplate&)>& change);
  [[nodiscard]] std::string CylindersOf(const std::string& gas) const;

  std::vector<GasAtHand> gases_;  ///< as in the lines below the head
  bool entering_ = false;         ///< what is shown anew is what was changed here
};

}  // namespace tav
