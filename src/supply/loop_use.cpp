#include "supply/loop_use.h"

#include <algorithm>

#include "compute/breathed_gas.h"
#include "engine/breathing_gas.h"
#include "model/cylinder.h"

namespace tav {

LoopUse LoopUseOf(const PlannedDive& dive) {
  LoopUse use;
  const DiveTemplate& settings = dive.record.Template;
  const ClassProfile& rows = dive.plan.rows;
  if (settings.OpenCircuit || !dive.plan.fault.IsEmpty()) return use;
  const std::int16_t open = FirstOpenRow(rows, settings);
  const std::int16_t lastLeg = LastUserRow(rows);
  const double loop = kLoopLitres / (settings.Metric ? 1 : kLitresInCubicFoot);
  for (std::int16_t i = 1; i <= rows.GetLength() && i < open; ++i) {
    const Waypoint& row = rows.Row(i);
    use.oxygen += (i <= lastLeg ? settings.RMV : settings.DecoRMV) * row.SegmentTime / kBreathedPerOxygen;
    const Single from = rows.getDepth(static_cast<std::int16_t>(i - 1));
    const double rise =
        (AdjustedDepth(row.Depth, settings) - AdjustedDepth(from, settings)) / DepthPerPressure(settings.Metric);
    if (!(rise > 0)) continue;
    auto diluent = std::ranges::find(use.diluents, row.GasMixName, &LoopUse::Diluent::gas);
    if (diluent == use.diluents.end()) diluent = use.diluents.insert(diluent, {row.GasMixName, 0});
    diluent->volume += loop * rise;
  }
  return use;
}

}  // namespace tav
