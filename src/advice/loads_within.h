#pragma once

#include "compute/breathed_gas.h"
#include "engine/compartment_kernels.h"

namespace tav::plan_check {

/// The loads, depth units, after a share of the time of a segment of the plan, which `before`, the row ahead of it,
/// starts from. At 1 they are those of its row, but where a loop reaches its setpoint within it.
Loads LoadsWithin(const BreathedSegment& segment, const Waypoint& before, double share, const DiveTemplate& settings);

}  // namespace tav::plan_check
