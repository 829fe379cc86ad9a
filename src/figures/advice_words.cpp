#include "figures/advice_words.h"

#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {

std::string AdviceWords::Factor(double value) const { return numbers_.Plain(RoundSingle(value, 3)); }

std::string AdviceWords::Depth(double depth) const { return Short(depth) + " " + LengthUnit(); }
std::string AdviceWords::PPO2(double ppo2) const { return Fixed(ppo2, 2) + " " + PressureUnit(); }
std::string AdviceWords::Volume(double volume) const { return Fixed(volume, metric_ ? 0 : 1) + " " + VolumeUnit(); }
std::string AdviceWords::Gauge(double pressure, bool inBar) const {
  return Fixed(pressure, 0) + " " + GaugeUnit(inBar);
}
std::string AdviceWords::GaugeUnit(bool inBar) const { return T(inBar ? Text::Bar : Text::Psi); }
std::string AdviceWords::LengthUnit() const { return T(metric_ ? Text::Metres : Text::Feet); }
std::string AdviceWords::PressureUnit() const { return T(metric_ ? Text::Bar : Text::Atmospheres); }
std::string AdviceWords::VolumeUnit() const { return T(metric_ ? Text::Litres : Text::CubicFeet); }

}  // namespace tav
