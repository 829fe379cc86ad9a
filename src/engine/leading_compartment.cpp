#include "engine/leading_compartment.h"

#include <limits>

namespace tav {

LeadingCompartment LeadingByMValues(const Loads& loads, const MValueCoefficients& m, double gradientFactor,
                                    double ambient) {
  LeadingCompartment leading;
  double deepest = -std::numeric_limits<double>::infinity();
  for (std::size_t i = 0; i < kCompartments; ++i) {
    const double he = loads.He[i];
    const double n2 = loads.N2[i];
    const double total = he + n2;
    if (total == 0) continue;
    const double a = (he * m.HeA[i] + n2 * m.N2A[i]) / total;
    const double b = (he * m.HeB[i] + n2 * m.N2B[i]) / total;
    const double slope = gradientFactor / b - gradientFactor + 1;
    const double ceiling = (total - a * gradientFactor) / slope;
    if (ceiling <= deepest) continue;
    deepest = ceiling;
    leading = {i, total, a * gradientFactor + ambient * slope};
  }
  return leading;
}

LeadingCompartment LeadingByBubbles(const Loads& loads, double gradient, double ambient) {
  LeadingCompartment leading;
  for (std::size_t i = 0; i < kCompartments; ++i) {
    const double total = loads.He[i] + loads.N2[i];
    if (total > leading.load) leading = {i, total, 0};
  }
  leading.tolerated = ambient + gradient;
  return leading;
}

}  // namespace tav
