#pragma once

#include <cstdint>

#include "model/profile.h"

namespace tav {

/// The depth on the segment of a row at a time within it, by linear interpolation. The time is minutes of run time.
Single CreateNewWay(const ClassProfile& profile, Single time, std::int16_t row);

/// A row as it would be if the plan ended at that run time within it: the end of a leg.
Waypoint CutRow(const ClassProfile& profile, Single time, std::int16_t row);

}  // namespace tav
