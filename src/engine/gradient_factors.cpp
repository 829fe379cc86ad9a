#include "engine/gradient_factors.h"

namespace tav {

GradientsInUse GradientsOf(const Loads& loads, const MValueCoefficients& m, const DiveTemplate& settings,
                           Single surface, Single depth) {
  const CompartmentKernels& kernels = BestKernels();
  const double perPressure = DepthPerPressure(settings.Metric);
  return {kernels.LargestGradient(loads, m, surface * perPressure + depth),
          kernels.LargestGradient(loads, m, settings.EndPressure * perPressure)};
}

}  // namespace tav
