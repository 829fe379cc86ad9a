#pragma once

#include "model/single.h"
#include "model/units.h"

/// UDDF is SI throughout: metres, seconds, pascal, cubic metres, shares as fractions.
namespace tav::si {

inline constexpr double kSecondsPerMinute = 60;
inline constexpr double kPascalPerBar = 100000;
inline constexpr double kPascalPerAtmosphere = 101325;
inline constexpr double kPascalPerPsi = 6894.757;
inline constexpr double kLitresPerCubicMetre = 1000;
inline constexpr double kLitresPerCubicFoot = 28.316847;

/// Depths and altitudes.
inline double Metres(double length, bool metric) { return metric ? length : length * kMetresPerFoot; }
inline double FromMetres(double metres, bool metric) { return metric ? metres : metres / kMetresPerFoot; }

/// Pressures of a plan: bar, or atmospheres.
inline double Pascal(double pressure, bool metric) {
  return pressure * (metric ? kPascalPerBar : kPascalPerAtmosphere);
}
inline double FromPascal(double pascal, bool metric) {
  return pascal / (metric ? kPascalPerBar : kPascalPerAtmosphere);
}

}  // namespace tav::si
