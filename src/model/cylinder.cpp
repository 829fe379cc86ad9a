#include "model/cylinder.h"

#include "model/number_text.h"
#include "model/numbers.h"

namespace tav {
namespace {

constexpr double kPsiPerBar = 14.50377;
constexpr double kLitresPerCubicFoot = 28.31685;
constexpr double kBarPerAtmosphere = 1.01325;

bool Within(double value, double most) { return value >= 0 && value <= most; }

}  // namespace

std::string CylinderFault(const Cylinder& cylinder) {
  constexpr std::int16_t kMost = 99;
  constexpr double kLargest = 1000;  // litres or cubic feet
  const double highest = cylinder.InLitres() ? 1000 : 15000;
  const auto text = [](Single number) { return FormatPlain(number); };
  const auto outside = [&](const char* what, Single value, double most) {
    return std::string(what) + " of " + text(value) + " is outside 0 to " + text(most);
  };
  if (cylinder.Count < 1 || cylinder.Count > kMost) return "the number of cylinders must be 1 to 99";
  if (!(cylinder.Size > 0 && cylinder.Size <= kLargest))
    return "the size of a cylinder must be above 0 and at most 1000";
  if (!Within(cylinder.RatedPressure, highest)) return outside("a rated pressure", cylinder.RatedPressure, highest);
  if (!Within(cylinder.Fill, highest)) return outside("a fill", cylinder.Fill, highest);
  if (!Within(cylinder.Reserve, highest)) return outside("a reserve", cylinder.Reserve, highest);
  if (cylinder.Reserve > cylinder.Fill) {
    return "a reserve of " + text(cylinder.Reserve) + " is above the fill of " + text(cylinder.Fill);
  }
  return {};
}

double GasPerPressure(const Cylinder& cylinder, bool metric) {
  // Cubic feet at 1 atmosphere for each psi, or litres at 1 bar for each bar.
  const double own =
      cylinder.Count * (cylinder.InLitres() ? double{cylinder.Size} : cylinder.Size / cylinder.RatedPressure);
  if (cylinder.InLitres() == metric) return own;
  constexpr double kMetricPerImperial = kLitresPerCubicFoot * kBarPerAtmosphere * kPsiPerBar;
  return metric ? own * kMetricPerImperial : own / kMetricPerImperial;
}

double GaugePressure(double pressure, bool inBar, bool toBar) {
  if (inBar == toBar) return pressure;
  return toBar ? pressure / kPsiPerBar : pressure * kPsiPerBar;
}

double PressureIn(bool metric, const Cylinder& cylinder, double pressure) {
  return GaugePressure(pressure, cylinder.InLitres(), metric);
}

Cylinder InOtherUnit(const Cylinder& cylinder) {
  constexpr double kUsualRating = 3000;  // psi
  Cylinder other = cylinder;
  const bool toLitres = !cylinder.InLitres();
  other.Fill = RoundSingle(PressureIn(toLitres, cylinder, cylinder.Fill), 0);
  other.Reserve = RoundSingle(PressureIn(toLitres, cylinder, cylinder.Reserve), 0);
  const double perPressure = GasPerPressure(cylinder, toLitres) / cylinder.Count;
  if (toLitres) {
    other.RatedPressure = 0;
    other.Size = RoundSingle(perPressure, 1);
  } else {
    other.RatedPressure = other.Fill > 0 ? other.Fill : Single(kUsualRating);
    other.Size = RoundSingle(perPressure * other.RatedPressure, 1);
  }
  return other;
}

}  // namespace tav
