#pragma once

#include <cstddef>

#include "engine/compartment_kernels.h"

namespace tav {

/// The compartment that keeps a diver from going up. Pressures in depth units.
struct LeadingCompartment {
  std::size_t index = 0;  ///< compartment 1 is 0
  double load = 0;        ///< helium and nitrogen together
  double tolerated = 0;   ///< the most that it may hold at the ambient pressure asked for
};

/// The compartment with the deepest ceiling by ZH-L16 with a gradient factor, and what it tolerates at an ambient
/// pressure: a G + ambient (G / b - G + 1), with a and b weighted by the loads.
LeadingCompartment LeadingByMValues(const Loads& loads, const MValueCoefficients& m, double gradientFactor,
                                    double ambient);

/// The compartment with the largest load: the bubble model allows each the same over-pressure `gradient`.
LeadingCompartment LeadingByBubbles(const Loads& loads, double gradient, double ambient);

}  // namespace tav
