#pragma once

#include <cstdint>
#include <vector>

#include "exchange/logged_dive.h"
#include "model/dive_template.h"

namespace tav {

/// A leg of a plan: to the depth by the end time, on the gas. Depth units and minutes.
struct LogLeg {
  double end = 0;  ///< run time
  double depth = 0;
  std::int16_t mix = 0;
  double minutes = 0;  ///< of the leg: from where the plan is when it begins, which is late where a leg was too short
};

/// When the diver changes to which gas of the template, in order of time; element 0 is the gas of the start.
struct GasFrom {
  double minutes = 0;
  std::int16_t mix = 0;
};

/// A logged dive as legs.
struct DiveLegs {
  std::vector<LogLeg> legs;  ///< without the last move to the surface, which is left to the ascent
  double deviation = 0;      ///< the most by which the plan's depth differs from a sample, depth units
  double endDepth = 0;       ///< where the log ends, depth units; 0 at the surface
};

/// Turns samples into legs that stay within a metre of them.
///
/// Douglas and Peucker (Cartographica 10, 1973) leave of the samples those from which a straight line strays too far; a
/// change of gas is always kept. A leg of a plan is no straight line: it moves at the rate of the template and stays
/// for the rest of its time. So a slow slope becomes steps, and then legs are joined as long as they stay within a
/// metre of all samples. A diver who was faster than the template's rates can't be followed; `deviation` tells it.
DiveLegs LegsOfSamples(const std::vector<LoggedDive::Sample>& samples, const std::vector<GasFrom>& gases,
                       const DiveTemplate& diveTemplate);

}  // namespace tav
