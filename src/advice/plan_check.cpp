#include "advice/plan_check.h"

#include <algorithm>
#include <tuple>

namespace tav {

std::vector<Finding> CheckPlan(const CheckedDive& dive, const AdviceWords& words, const GasSupply& supply) {
  std::vector<Finding> findings;
  if (dive.rows.GetLength() == 0) return findings;
  const std::vector<BreathedSegment> segments = BreathedSegments(dive.Breathed());
  const plan_check::Context context{dive, words, segments, findings};
  plan_check::CheckOxygen(context);
  plan_check::CheckGas(context);
  plan_check::CheckCeilings(context);
  plan_check::CheckLegs(context);
  plan_check::CheckDoses(context);
  plan_check::CheckChanges(context);
  plan_check::CheckSurface(context);
  plan_check::CheckLoop(context);
  plan_check::CheckSupply(context, supply);
  std::ranges::stable_sort(findings, {}, [](const Finding& f) { return std::tuple(f.severity, f.firstRow); });
  return findings;
}

}  // namespace tav
