#pragma once

#include <cstdint>

#include "model/dive_template.h"
#include "model/profile.h"

namespace tav {

/// One leg: from a depth at a time to a target depth, to be finished at an end time, on a gas. Minutes of run time and
/// depth units.
struct Leg {
  Single startTime;
  Single startDepth;
  Single endTime;
  Single targetDepth;
  std::int16_t mix = 0;
};

/// Appends a leg to a plan as rows: the move, cut at the limits of the rate tables, each piece at its band's rate, then
/// the time that is left, level at the target. A leg too short for its move is lengthened (`endTime`), a target above
/// the shallowest ascent limit becomes that limit (`targetDepth`). The template must have no faults and the leg
/// neither. Throws std::length_error when the plan is full.
void GetSegmentedProfile(Leg& leg, const DiveTemplate& diveTemplate, ClassProfile& profile);

/// How the minutes of a leg divide between its move and the time held at its target.
struct LegTimes {
  Single move;
  Single level;  ///< 0 when the leg is too short for its move and is lengthened
};
/// Under the conditions of GetSegmentedProfile.
LegTimes TimesOfLeg(Leg leg, const DiveTemplate& diveTemplate);

/// Appends one row of a plan.
void SaveUserProfile(ClassProfile& profile, const DiveTemplate& diveTemplate, Single depth, Single segmentTime,
                     Single rate, Single startTime, std::int16_t status, std::int16_t mix);

}  // namespace tav
