#include "advice/loads_within.h"

#include <algorithm>

#include "engine/breathing_gas.h"
#include "engine/decay_factors.h"
#include "engine/zhl16.h"

namespace tav::plan_check {

Loads LoadsWithin(const BreathedSegment& segment, const Waypoint& before, double share, const DiveTemplate& settings) {
  const Waypoint& row = *segment.end;
  Loads loads{before.HeCompartments, before.N2Compartments};
  const double ambient = segment.surface * segment.perPressure + AdjustedDepth(segment.from, settings);
  // A loop holds its setpoint, and diluent fills the rest.
  const double oxygen = segment.openCircuit ? 0 : std::min(row.PPO2 * segment.perPressure, ambient);
  const double inert = segment.openCircuit ? 100 : row.GasMixN2 + row.GasMixHe;
  const double vapour = settings.Metric ? zhl16::kVapourMetres : zhl16::kVapourFeet;
  const double dry = std::max(ambient - oxygen - vapour, 0.0);
  const double he = inert > 0 ? row.GasMixHe / inert : 0;
  const double n2 = inert > 0 ? row.GasMixN2 / inert : 0;
  const Single time = row.SegmentTime * share;
  DecayFactors decay;
  const CompartmentPair& factors = decay.For(time);
  if (row.Rate == 0) {
    BestKernels().LoadConstant(loads, {dry * he, dry * n2}, factors);
  } else {
    BestKernels().LoadRamp(loads, {dry * he, dry * n2}, {row.Rate * he, row.Rate * n2}, time, RateConstants(), factors);
  }
  return loads;
}

}  // namespace tav::plan_check
