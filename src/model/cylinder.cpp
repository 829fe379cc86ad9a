#include "model/cylinder.h"

#include "model/number_text.h"
#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {
namespace {

constexpr double kPsiPerBar = 14.50377;
constexpr double kBarPerAtmosphere = 1.01325;

bool Within(double value, double most) { return value >= 0 && value <= most; }

}  // namespace

Message CylinderFault(const Cylinder& cylinder) {
  const double highest = HighestPressure(cylinder.InLitres());
  const auto outside = [&](int text, Single value) {
    return Message(text, {FormatPlain(value), FormatPlain(highest)});
  };
  if (cylinder.Count < 1 || cylinder.Count > kMostCylinders) return Text::CylinderCount;
  if (!(cylinder.Size > 0 && cylinder.Size <= kLargestCylinder))
    return {Text::CylinderSize, {FormatPlain(kLargestCylinder)}};
  if (!Within(cylinder.RatedPressure, highest)) return outside(Text::CylinderRated, cylinder.RatedPressure);
  if (!Within(cylinder.Fill, highest)) return outside(Text::CylinderFill, cylinder.Fill);
  if (!Within(cylinder.Reserve, highest)) return outside(Text::CylinderReserve, cylinder.Reserve);
  if (cylinder.Reserve > cylinder.Fill) {
    return {Text::CylinderReserveAboveFill, {FormatPlain(cylinder.Reserve), FormatPlain(cylinder.Fill)}};
  }
  return {};
}

double GasPerPressure(const Cylinder& cylinder, bool metric) {
  // Cubic feet at 1 atmosphere for each psi, or litres at 1 bar for each bar.
  const double own =
      cylinder.Count * (cylinder.InLitres() ? double{cylinder.Size} : cylinder.Size / cylinder.RatedPressure);
  if (cylinder.InLitres() == metric) return own;
  constexpr double kMetricPerImperial = kLitresInCubicFoot * kBarPerAtmosphere * kPsiPerBar;
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
