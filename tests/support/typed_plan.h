#pragma once

#include "support/plan_fixture.h"
#include "support/profile_text.h"

namespace tav::test {

/// The rows of a plan with these actions and this template when a user enters it action by action, and what the user
/// was told; for comparison with a plan that was edited until it is the same.
inline std::string TypedRows(const ClassUseractions& actions, const DiveTemplate& settings) {
  Plans plans;
  frmWaypointEditor& plan = plans.New([&](DiveTemplate& t) { t = settings; });
  for (std::int16_t i = 1; i <= actions.GetLength(); ++i) {
    if (actions.getaction(i) == ClassUseractions::kLeg) {
      plan.AddUserWaypoint(actions.getDepth(i), actions.gettime(i), actions.getmixnumber(i));
    } else {
      plan.StartDeco();
    }
  }
  std::string text = RowsText(plan.InputProfile);
  for (const std::string& box : plans.boxes.shown) text += box + "\n";
  return text;
}

}  // namespace tav::test
