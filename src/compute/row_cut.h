#pragma once

#include "model/profile.h"

namespace tav {

/// The depth on the segment of a row at a time within it, by linear interpolation. The time is minutes of run time.
Single CreateNewWay(const ClassProfile& profile, Single time, std::int16_t row);

/// A row of a plan cut at a run time within it: a segment of the user's, whatever it was.
Waypoint RowUntil(const ClassProfile& profile, std::int16_t row, Single time);

}  // namespace tav
