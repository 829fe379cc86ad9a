#pragma once

#include <cstdint>
#include <vector>

#include "compute/compute.h"

namespace tav {

/// Where a leg of the user's ends.
struct LegEnd {
  int leg = 1;           ///< from 1
  std::int16_t row = 0;  ///< its last one
};

/// The ends of the legs of a computed plan, those at the surface left out.
std::vector<LegEnd> LegEndsOf(const PlannedDive& dive);

}  // namespace tav
