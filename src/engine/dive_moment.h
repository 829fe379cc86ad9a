#pragma once

#include <cstdint>

#include "engine/gradient_factors.h"
#include "model/profile.h"

namespace tav {

/// A moment of a dive. Moments stand in the order of their times, at each tenth of a minute of the run time and at the
/// end of each row; of two at one time the second is after a change of the gradient factor.
struct DiveMoment {
  Single time;               ///< run time, minutes
  Single depth;              ///< depth units
  Single ceiling;            ///< depth units, with the gradient factor in force
  std::int16_t row = -1;     ///< the row that ends here, -1 within a segment
  Compartments fractions{};  ///< loads as fractions of the M-values at that depth
  GradientsInUse gradients;
};

}  // namespace tav
