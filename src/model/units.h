#pragma once

/// Conversion of lengths between the two unit systems of a template, as people round it.
namespace tav {

inline constexpr double kFeetPerMetre = 3.2808;
inline constexpr double kMetresPerFoot = 0.3048;

}  // namespace tav
