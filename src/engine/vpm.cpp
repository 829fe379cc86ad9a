#include "engine/vpm.h"

#include <cmath>

#include "model/dive_template.h"
#include "model/number_text.h"

namespace tav {
namespace {

constexpr double kCrossoverPascal = 9.2 * 101325;

double ReferencePascal(bool Metric) { return Metric ? 100000.0 : 101325.0; }

}  // namespace

void ClassVPMGF::SetVPMValues(Single gamma, Single gammaC, Single micron, Single surfacePressure, bool Metric) {
  gamma_ = gamma;
  gammaC_ = gammaC;
  micron_ = micron;
  surfacePressure_ = surfacePressure;
  Metric_ = Metric;
  r0_ = micron * 1e-6;
}

void ClassVPMGF::VPMStart(Single depth) {
  depth_ = depth;
  const double surface = surfacePressure_ * DepthPerPressure(Metric_);
  const Single ratio = (surface + depth) / surface;
  const Single crossover = Metric_ ? 9.3219 : 9.2;
  if (ratio <= crossover) {
    Perm(depth, ratio);
  } else {
    ImPerm(depth, ratio);
  }
}

void ClassVPMGF::SetGradient(double pascal, double depthUnits) {
  GradP_ = pascal / ReferencePascal(Metric_);
  GradF_ = GradP_ * depthUnits;
  Fstop_ = depth_ - ParseLenient(FormatFixed(GradF_ / 10 - 0.5, 0)) * 10;
}

void ClassVPMGF::Perm(Single depth, Single ratio) {
  depth_ = depth;
  const double reference = ReferencePascal(Metric_);
  const Single ambient = ratio * reference;
  const Single tension = 2 * (gammaC_ - gamma_);
  const double crush = ambient - reference;
  SetGradient(gamma_ * tension / (r0_ * gammaC_) + crush * (gamma_ / gammaC_),
              surfacePressure_ * DepthPerPressure(Metric_));
  micron_ = r0_ / (crush / tension * r0_ + 1) * 1e6;
}

void ClassVPMGF::ImPerm(Single depth, Single ratio) {
  depth_ = depth;
  const double reference = ReferencePascal(Metric_);
  const Single ambient = ratio * reference;
  const Single tension = 2 * (gammaC_ - gamma_);
  const Single crossoverRadius = r0_ / ((kCrossoverPascal - reference) / tension * r0_ + 1);
  const Single a = tension / crossoverRadius + (ambient - kCrossoverPascal + reference);
  const Single c = crossoverRadius * reference * crossoverRadius * crossoverRadius;
  const Single radius = Root(a, tension, c, tension / a, crossoverRadius);
  const Single compression = Cubic(crossoverRadius / radius);
  SetGradient((ambient - compression * reference) * (gamma_ / gammaC_) + gamma_ * tension / (r0_ * gammaC_),
              Metric_ ? surfacePressure_ * 10.0 : 33.0);
  micron_ = radius * 1e6;
}

Single ClassVPMGF::Root(Single a, Single b, Single c, Single low, Single high) {
  constexpr int kMostSteps = 11;
  constexpr Single kClose = 1.0e-10;
  Single r = (high + low) * 0.5;
  for (int step = 0; step < kMostSteps; ++step) {
    const Single f = (a * r - b) * r * r - c;
    const Single slope = (3 * r * a - 2 * b) * r;
    const Single change = f / slope;
    r = r - change;
    if (std::fabs(change) < kClose) break;
  }
  return r;
}

Single VPMGradient(Single deepest, Single surfacePressure, bool Metric) {
  ClassVPMGF vpm;
  vpm.SetVPMValues(0.0179, 0.257, 1.0, surfacePressure, Metric);
  vpm.VPMStart(deepest);
  return vpm.GetGradF();
}

}  // namespace tav
