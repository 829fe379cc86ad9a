#include "mixer/cylinder.h"

#include <limits>

namespace tav {
namespace {

struct Coefficients {
  Single a;
  Single b;
};

Coefficients CoefficientsOf(double o2, double n2, double he) {
  return {MixCoefficientA(o2, n2, he), MixCoefficientB(o2, n2, he)};
}

}  // namespace

MixShares Contents::Mix() const {
  const double sum = Sum();
  if (sum <= 0) return {};
  return {100 * O2 / sum, 100 * He / sum, 100 * N2 / sum};
}

Contents ContentsAt(const MixShares& percent, Single bar) {
  if (bar <= 0) return {};
  const double o2 = percent.O2 / 100;
  const double he = percent.He / 100;
  const double n2 = percent.N2 / 100;
  const Coefficients mix = CoefficientsOf(o2, n2, he);
  const double density = DensityFromPressure(mix.a, mix.b, bar, kFillTemperature);
  return {o2 * density, he * density, n2 * density};
}

Single PressureOf(const Contents& contents) {
  const double density = contents.Sum();
  if (density <= 0) return 0;
  const Coefficients mix = CoefficientsOf(contents.O2 / density, contents.N2 / density, contents.He / density);
  if (density * mix.b >= 1) return std::numeric_limits<double>::infinity();
  return PressureFromDensity(density, kFillTemperature, mix.a, mix.b);
}

Contents With(const Contents& contents, FillGas gas, double amount) {
  Contents sum = contents;
  switch (gas) {
    case FillGas::Helium:
      sum.He += amount;
      break;
    case FillGas::Oxygen:
      sum.O2 += amount;
      break;
    case FillGas::Air:
      sum.O2 += kRealAirO2 * amount;
      sum.N2 += kRealAirN2 * amount;
      break;
  }
  return sum;
}

double AmountUntil(const Contents& contents, FillGas gas, Single bar) {
  if (PressureOf(contents) >= bar) return 0;
  double below = 0;
  double above = 1;
  while (PressureOf(With(contents, gas, above)) < bar) above *= 2;
  constexpr int kHalvings = 40;  // to the last bit of a 32-bit pressure
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = (below + above) / 2;
    (PressureOf(With(contents, gas, middle)) < bar ? below : above) = middle;
  }
  return (below + above) / 2;
}

}  // namespace tav
