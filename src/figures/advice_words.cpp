#include "figures/advice_words.h"

#include <cmath>

#include "model/numbers.h"

namespace tav {
namespace {

constexpr int kMetres = 7425;
constexpr int kFeet = 7426;
constexpr int kBar = 6314;
constexpr int kAtmospheres = 7600;
constexpr int kPsi = 6315;
constexpr int kLitres = 7423;
constexpr int kCubicFeet = 7424;

}  // namespace

std::string AdviceWords::Factor(double value) const { return numbers_.Plain(RoundSingle(value, 3)); }

std::string AdviceWords::Depth(double depth) const { return Short(depth) + " " + LengthUnit(); }
std::string AdviceWords::PPO2(double ppo2) const { return Fixed(ppo2, 2) + " " + PressureUnit(); }
std::string AdviceWords::Volume(double volume) const { return Fixed(volume, metric_ ? 0 : 1) + " " + VolumeUnit(); }
std::string AdviceWords::Gauge(double pressure, bool inBar) const {
  return Fixed(pressure, 0) + " " + GaugeUnit(inBar);
}
std::string AdviceWords::GaugeDown(double pressure, bool inBar) const {
  constexpr double kNoise = 1e-3;
  return Gauge(std::floor(pressure + kNoise), inBar);
}
std::string AdviceWords::GaugeUnit(bool inBar) const { return T(inBar ? kBar : kPsi); }
std::string AdviceWords::LengthUnit() const { return T(metric_ ? kMetres : kFeet); }
std::string AdviceWords::PressureUnit() const { return T(metric_ ? kBar : kAtmospheres); }
std::string AdviceWords::VolumeUnit() const { return T(metric_ ? kLitres : kCubicFeet); }

}  // namespace tav
