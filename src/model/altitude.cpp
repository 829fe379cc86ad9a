#include "model/altitude.h"

#include <cmath>

#include "model/dive_template.h"
#include "model/numbers.h"
#include "model/units.h"

namespace tav {
namespace {

constexpr double kDecayPerMetre = -0.000116;
constexpr double kSeaLevelPascal = 101325;
constexpr double kPascalPerBar = 100000;

}  // namespace

Single AltitudeToPressure(Single altitude, bool Metric) {
  if (Metric) return std::exp(altitude * kDecayPerMetre) * kSeaLevelPascal / kPascalPerBar;
  return std::exp(altitude * kDecayPerMetre / kFeetPerMetre);
}

void SetAltitude(DiveTemplate& diveTemplate, Single altitude) {
  DiveTemplate& t = diveTemplate;
  const bool endFollows = t.StartAltitude == t.EndAltitude && t.StartPressure == t.EndPressure;
  t.StartAltitude = altitude;
  t.StartPressure = AltitudeToPressure(altitude, t.Metric);
  if (endFollows) SetEndAltitude(t, altitude);
}

void SetEndAltitude(DiveTemplate& diveTemplate, Single altitude) {
  diveTemplate.EndAltitude = altitude;
  diveTemplate.EndPressure = AltitudeToPressure(altitude, diveTemplate.Metric);
}

std::optional<std::int16_t> PressureToAltitude(Single pressure, bool Metric) {
  if (!(pressure > 0)) return std::nullopt;
  const double bar = pressure * (Metric ? 1.0 : 1.01325);
  const double metres = std::log(bar * kPascalPerBar / kSeaLevelPascal) / kDecayPerMetre;
  return RoundToInt16(Metric ? metres : metres / kMetresPerFoot);
}

}  // namespace tav
