#include <cmath>

#include "engine/buhlmann.h"

namespace tav {
namespace {

constexpr double kTenths = 10;
constexpr double kNoise = 0.001;  // minutes; what is nearer to a row is the row

/// Tenths of a minute from one moment to the next: a stretch of more than five hours, at a stop that never clears, has
/// 3,000 moments and not 60,000.
double StepOf(double minutes) {
  constexpr double kFiveHours = 300;
  constexpr double kMost = 3000;
  return minutes <= kFiveHours ? 1 : kTenths * std::ceil(minutes / kMost);
}

}  // namespace

DiveMoment ClassBuhlmann::MomentOf(const Loads& loads, Single time, Single depth) const {
  // Where a setpoint is above the ambient pressure, a ramp can take a fast compartment a little below nothing. Its
  // coefficients are weighted by the loads: of two that nearly cancel out they would be no coefficients.
  Loads there = loads;
  for (Compartments* gas : {&there.He, &there.N2}) {
    for (Single& load : *gas) load = std::fmax(0, load);
  }
  DiveMoment moment;
  moment.time = time;
  moment.depth = depth;
  moment.ceiling = CeilingOf(there).depth;
  const Single surface = decoPhase_ ? template_->EndPressure : template_->StartPressure;
  kernels_.MValueFractions(there, mValues_, ToDepthUnits(surface) + depth, moment.fractions);
  moment.gradients = GradientsOf(there, mValues_, *template_, surface, depth);
  return moment;
}

void ClassBuhlmann::KeepRow(std::int16_t row, Single depth) {
  moments_->push_back(MomentOf(loads_, runTime_, depth));
  moments_->back().row = row;
  moments_->back().ceiling = result_->GetCeiling(row);
  rowTime_ = stretchTime_ = runTime_;
}

void ClassBuhlmann::KeepStretch(const Loads& before, const Stretch& stretch) {
  const DiveMoment start = MomentOf(before, stretchTime_, moments_->back().depth);
  if (start.ceiling != moments_->back().ceiling) moments_->push_back(start);
  const double from = stretchTime_;
  // The run time counts: the parts of a segment can be longer together, by rounding or by an adjusted depth.
  const double end = std::fmin(from + stretch.time, runTime_);
  const double step = StepOf(stretch.time);
  const double slope = segmentTime_ != 0 ? (stretch.to - stretch.from) / segmentTime_ : 0;
  for (double tenth = (std::floor(from * kTenths / step) + 1) * step;; tenth += step) {
    const double time = tenth / kTenths;
    if (time - from < kNoise) continue;
    if (time > end - kNoise) break;
    Loads loads = before;
    LoadStretch(loads, stretch, time - from);
    moments_->push_back(MomentOf(loads, time, stretch.from + slope * (time - rowTime_)));
  }
  stretchTime_ += stretch.time;
}

}  // namespace tav
