#pragma once

/// The page of all reports: landscape A4, origin at the top left corner, x to the right, y down. Reports give
/// centimetres; the page file holds page units.
namespace tav::page {

constexpr double kUnitsPerCm = 567.0;
constexpr double kWidth = 16839.9;   ///< page units, 29.7 cm
constexpr double kHeight = 11907.0;  ///< page units, 21.0 cm

}  // namespace tav::page
