#pragma once

#include <optional>
#include <vector>

#include "mixer/filling.h"

/// A list that one can fill by: fill helium to this pressure, then oxygen to that, then air to the end.
namespace tav {

/// One line of the list. Pressures are absolute, in bar, or in psi when the request is not metric.
struct FillStep {
  FillGas gas = FillGas::Top;
  Single to;     ///< pressure of the cylinder after this gas, at the temperature of the request
  Single warm;   ///< the same in a cylinder as warm as the request tells
  Single added;  ///< litres of the gas at 1 bar and 20 degrees, per litre of the cylinder
};

/// The fill by the real gas, and what really comes out of it.
struct GaugeList {
  bool possible = true;
  std::vector<FillStep> steps;  ///< in order of filling; none when the fill is impossible or there is nothing to do
  MixShares comesOut;           ///< percent: the mix that the list gives as it stands, worked out backwards
  MixShares byIdealSteps;       ///< percent: what the steps for ideal gases really give; the start without such steps
  bool oxygenOff = false;       ///< `comesOut` misses the wanted oxygen by more than its margin
  bool heliumOff = false;       ///< or the wanted helium

  // Of an impossible fill.
  std::vector<FillGas> mustComeOut;  ///< gases of which there is too much; the gas on top stands for nitrogen
  std::optional<Single> drainTo;     ///< what to drain the cylinder to so that the fill works, rounded down
  std::optional<MixShares> nearest;  ///< the mix nearest to the wanted one without draining; none in a full cylinder
};

/// What the scale of a usual gauge tells apart: 1 bar or 10 psi.
constexpr double GaugeMark(bool metric) { return metric ? 1.0 : 10.0; }

/// The list by the real gas (GERG-2008). Its pressures are rounded to multiples of `mark`, and a gas of which less than
/// half a mark is wanted is left out; a mark of 0 rounds nothing. A fill that nothing has to come out for gives the
/// wanted mix; one that comes within the margins of it is possible, too, such as oxygen into a cylinder with 1 bar of
/// air. The request must hold shares of 0 to 100 that make up 100, a gas on top with nitrogen, and pressures from 0 to
/// HighestFill.
GaugeList GaugeListOf(const FillRequest& request, double mark);

/// The steps of simple arithmetic, for ideal gases. Empty when it has no answer. `warm` and `added` are 0.
std::vector<FillStep> IdealSteps(const FillRequest& request, double mark);

/// The depth at which a mix reaches a PPO2, at sea level, in whole metres (or feet, the PPO2 in atmospheres), rounded
/// down; nothing without oxygen. Never below 0.
std::optional<int> MaximumOperatingDepth(Single percentO2, double ppo2, bool metric);

}  // namespace tav
