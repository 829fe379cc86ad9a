#pragma once

#include <optional>
#include <vector>

#include "mixer/cylinder.h"

/// A list that one can fill by: fill helium to this pressure, then oxygen to that, then air to the end.
namespace tav {

/// One line of the list. Pressures are absolute, in bar, or in psi when the request is not metric.
struct FillStep {
  FillGas gas = FillGas::Air;
  Single to;     ///< pressure of the cylinder after this gas
  Single added;  ///< litres of the gas at 1 bar and the temperature of the fill, per litre of the cylinder
};

/// The fill by the real gas, and what really comes out of it.
struct GaugeList {
  std::vector<FillStep> steps;  ///< in order of filling; none when the fill is impossible or there is nothing to do
  std::vector<FillGas> mustComeOut;  ///< gases of which the cylinder, or the air, has too much; air stands for nitrogen
  /// What to drain the cylinder to so that the fill works, for real gases and where it can be for ideal ones, too;
  /// rounded down.
  std::optional<Single> drainTo;
  MixShares comesOut;      ///< percent: the mix that the list gives as it stands, worked out backwards
  MixShares ifIdeal;       ///< percent: what it would give if the gases were ideal
  bool oxygenOff = false;  ///< `comesOut` misses the wanted oxygen by more than 0.5 %
  bool heliumOff = false;  ///< or the wanted helium by more than 1 %

  [[nodiscard]] bool Possible() const { return mustComeOut.empty(); }
};

/// What the scale of a usual gauge tells apart: 1 bar or 10 psi.
constexpr double GaugeMark(bool metric) { return metric ? 1.0 : 10.0; }

/// The list by the van der Waals equation. Its pressures are rounded to multiples of `mark`, and a gas of which less
/// than a mark is wanted is left out; a mark of 0 rounds nothing. The request must hold shares of 0 to 100 that make up
/// 100, and pressures from 0 to kHighestFill.
GaugeList GaugeListOf(const FillRequest& request, double mark);

/// The same steps for ideal gases: what simple arithmetic would fill. Empty when it has no answer. `added` is 0.
std::vector<FillStep> IdealSteps(const FillRequest& request, double mark);

/// Beyond this, a pressure is a slip of the pen: psi in a field of bar.
constexpr double HighestFill(bool metric) { return metric ? 1000.0 : 1000.0 * kPsiPerBar; }

/// The depth at which a mix reaches a PPO2, at sea level, in whole metres (or feet, the PPO2 in atmospheres), rounded
/// down; nothing without oxygen. Never below 0.
std::optional<int> MaximumOperatingDepth(Single percentO2, double ppo2, bool metric);

}  // namespace tav
