#pragma once

#include <cstdint>
#include <string>

#include "model/message.h"
#include "model/single.h"

namespace tav {

constexpr double kLitresInCubicFoot = 28.31685;

/// Cylinders of one kind that the diver carries with one gas. Litres and bar, or cubic feet and psi, whatever the
/// units of the plan are: a cylinder keeps those of its stamp.
struct Cylinder {
  std::string Gas;         ///< name of a blend
  std::int16_t Count = 1;  ///< 1 to 99
  Single Size;             ///< water volume in litres, or cubic feet of gas at `RatedPressure`; above 0
  Single RatedPressure;    ///< psi; 0 for a size in litres
  Single Fill;             ///< bar or psi
  Single Reserve;          ///< bar or psi, at most `Fill`
  bool BailOut = false;    ///< on a rebreather: to be breathed on open circuit, though it holds the loop's diluent

  [[nodiscard]] bool InLitres() const { return RatedPressure == 0; }
  friend bool operator==(const Cylinder& a, const Cylinder& b) {
    return a.Gas == b.Gas && a.Count == b.Count && a.Size == b.Size && a.RatedPressure == b.RatedPressure &&
           a.Fill == b.Fill && a.Reserve == b.Reserve && a.BailOut == b.BailOut;
  }
};

constexpr int kMostCylinders = 99;
constexpr double kLargestCylinder = 1000;  ///< litres or cubic feet
/// The highest pressure that a cylinder may have, bar or psi.
constexpr double HighestPressure(bool inBar) { return inBar ? 1000 : 15000; }

/// Why a cylinder can't be: a number outside its range, a reserve above the fill. Empty for a sound one. The gas is not
/// looked at.
Message CylinderFault(const Cylinder& cylinder);

/// What cylinders hold for each unit of pressure, as an ideal gas: litres at 1 bar for each bar, or cubic feet at 1
/// atmosphere for each psi, as a plan in those units counts gas.
double GasPerPressure(const Cylinder& cylinder, bool metric);

/// A pressure of a gauge in bar or psi as another one shows it.
double GaugePressure(double pressure, bool inBar, bool toBar);

/// A pressure of a cylinder's own unit in bar or psi.
double PressureIn(bool metric, const Cylinder& cylinder, double pressure);

/// The same cylinder as it is stamped in the other unit: litres become cubic feet at its fill (at 3000 psi for an empty
/// one), cubic feet litres; rounded to what a stamp shows. The gas that it holds stays but for the rounding.
Cylinder InOtherUnit(const Cylinder& cylinder);

}  // namespace tav
