#include "compute/leg_ends.h"

namespace tav {

std::vector<LegEnd> LegEndsOf(const PlannedDive& dive) {
  std::vector<LegEnd> ends;
  const ClassUseractions& actions = dive.record.UserActions;
  int leg = 0;
  std::int16_t before = 0;
  for (std::int16_t n = 1; n <= actions.GetLength(); ++n) {
    const std::int16_t last = dive.plan.LastRowOf(n);
    if (actions.getaction(n) == ClassUseractions::kLeg) {
      ++leg;
      if (last > before && dive.plan.rows.getDepth(last) > 0) ends.push_back({leg, last});
    }
    before = last;
  }
  return ends;
}

}  // namespace tav
