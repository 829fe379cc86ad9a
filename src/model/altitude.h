#pragma once

#include <cstdint>
#include <optional>

#include "model/single.h"

/// The isothermal barometric formula, p = 1.01325 bar * exp(-0.000116 / m * altitude), and its inverse. It lies above
/// the standard atmosphere (ISO 2533), by 1 % at 2,000 m, 2 % at 3,000 m and 3.4 % at 4,000 m.
namespace tav {

struct DiveTemplate;

/// Surface pressure in bar at an altitude in metres, or in atmospheres at an altitude in feet.
Single AltitudeToPressure(Single altitude, bool Metric);

/// Altitude in whole metres or feet (halves to even) of a surface pressure in bar or atmospheres; nothing for a
/// pressure of 0 or less or an altitude that does not fit 16 bits.
std::optional<std::int16_t> PressureToAltitude(Single pressure, bool Metric);

/// The altitude of a dive, with the surface pressure that it usually has. Whoever dives at an altitude comes up there,
/// unless told otherwise.
void SetAltitude(DiveTemplate& diveTemplate, Single altitude);
/// The same of the altitude that the ascent returns to.
void SetEndAltitude(DiveTemplate& diveTemplate, Single altitude);

}  // namespace tav
