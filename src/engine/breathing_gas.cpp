#include "engine/breathing_gas.h"

namespace tav {

Single GasUsedAtDepth(Single depth, Single time, Single rmv, Single surfacePressure, bool Metric) {
  return (depth / DepthPerPressure(Metric) + surfacePressure) * time * rmv;
}

Single GasUsedOnRamp(Single from, Single to, Single rate, Single rmv, Single surfacePressure, bool Metric) {
  const double time = (to - from) / rate;
  const Single meanDepth = (from + to) / 2;
  return (meanDepth / DepthPerPressure(Metric) + surfacePressure) * time * rmv;
}

Single AdjustedDepth(Single depth, const DiveTemplate& diveTemplate) {
  if (!diveTemplate.DepthAdjust || depth == 0) return depth;
  return depth * 1.03 + (diveTemplate.Metric ? 1.0 : 3.3);
}

Single PPO2AtDepth(Single depth, Single surfacePressure, Single fO2, bool Metric) {
  const double units = DepthPerPressure(Metric);
  return (surfacePressure * units + depth) / units * fO2;
}

Single EquivalentDepthOC(bool Metric, Single depth, Single N2, Single He, bool O2Narcotic,
                         const DiveTemplate& diveTemplate) {
  constexpr double kFeetPerMetre = 3.3;
  const double metres = depth / (Metric ? 1.0 : kFeetPerMetre);
  const double surface = diveTemplate.StartPressure * 10;
  const double end =
      O2Narcotic ? (1 - He / 100) * (surface + metres) - surface : ((surface + metres) * N2 / 1000 / 0.79 - 1) * 10;
  if (!(end > 0)) return 0;
  return Metric ? end : end * kFeetPerMetre;
}

Single EquivalentDepthCC(bool Metric, Single /*ppo2*/, Single depth, Single He, Single N2, bool O2Narcotic,
                         const DiveTemplate& diveTemplate) {
  return EquivalentDepthOC(Metric, depth, N2, He, O2Narcotic, diveTemplate);
}

}  // namespace tav
