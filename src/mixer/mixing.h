#pragma once

#include <optional>
#include <string>

#include "model/number_text.h"
#include "model/single.h"

/// Partial pressure filling: what to put into a cylinder that holds one gas so that it ends up with another. Two
/// independent results: an ideal one (air on top of oxygen and helium), and one by the van der Waals equation.
namespace tav {

inline constexpr double kGasConstant = 0.0831451;  ///< l bar / (mol K)
inline constexpr double kFillTemperature = 293.0;  ///< K, of the filled cylinder

// Air as each of the two results takes it. The list to fill by takes it as the ideal one does.
inline constexpr double kIdealAirO2 = 0.21;
inline constexpr double kIdealAirN2 = 0.79;
inline constexpr double kRealAirO2 = 0.208;
inline constexpr double kRealAirN2 = 0.792;

/// Shares of oxygen, helium and nitrogen, percent or fractions as said.
struct MixShares {
  Single O2;
  Single He;
  Single N2;
};

/// Percentages with nitrogen as the rest, free of what rounding to 32 bits leaves: 33.3 and 66.7 leave 0.
MixShares MixOf(Single o2, Single he);

/// Molar densities, mol per litre of cylinder.
struct MolesAdded {
  Single O2;
  Single Air;
  Single He;
};

/// The van der Waals coefficients a and b of a mix, from fractions. The form is 1 / (sum of x / sqrt(a))^2.
Single MixCoefficientA(Single o2, Single n2, Single he);
Single MixCoefficientB(Single o2, Single n2, Single he);

/// Molar density in mol/l at p bar and t kelvin: the real root of a b n^3 - a n^2 + (R t + b p) n - p = 0 by Cardano's
/// formula. 0 at a pressure of 0.
Single DensityFromPressure(Single a, Single b, Single p, Single t);

/// Pressure in bar of n mol/l at t kelvin: n R t / (1 - n b) - a n^2.
Single PressureFromDensity(Single n, Single t, Single a, Single b);

/// What to add, from fractions and densities. Air is taken as 20.8 % oxygen and 79.2 % nitrogen.
MolesAdded MolesToAdd(const MixShares& desired, const MixShares& current, Single desiredDensity, Single currentDensity);

/// Compressed air, percent.
inline constexpr MixShares kAir{21, 0, 79};

/// A fill as the user states it: percentages and pressures, in bar, or in psi when not metric. The two results of this
/// file take air on top, whatever `top` is, and their own temperature.
struct FillRequest {
  MixShares current;
  Single currentFill;
  MixShares desired;
  Single desiredFill;
  bool metric = true;
  MixShares top = kAir;          ///< the gas on top, which must hold nitrogen
  Single celsius = 20;           ///< temperature at which all its pressures are read
  std::optional<Single> warm{};  ///< degrees Celsius of the cylinder while it is filled
};

/// The two results as the labels show them, one decimal, in bar or psi. The van der Waals block fills helium first,
/// then oxygen, then air: IdealTopHe is the absolute pressure after the helium.
struct FillResult {
  std::string AirTopO2;  ///< empty when air can't reach the mix
  std::string AirTopHe;
  std::string AirTopAir;
  std::string IdealTopO2;
  std::string IdealTopHe;
  std::string IdealTopN2;
  Single AirO2;  ///< percent times bar, for the report
  Single Heneed;
  Single Air;
  bool AirImpossible = false;
};

/// psi per unit of pressure in imperial fills.
constexpr double kPsiPerBar = 14.7;

/// Beyond this, a pressure is a slip of the pen: psi in a field of bar.
constexpr double HighestFill(bool metric) { return metric ? 1000.0 : 1000.0 * kPsiPerBar; }

/// What a cylinder that is filled may have, in degrees Celsius.
inline constexpr double kColdestFill = -20;
inline constexpr double kWarmestFill = 80;

/// Percent; the nitrogen of a mix comes out of the gas on top alone.
inline constexpr double kLeastNitrogen = 1;

/// Works out both results. Any numbers are accepted; what can't be reached is told by the result.
FillResult Recalculate(const FillRequest& request);

/// The rules of a percentage field, in the user's number text: text that is empty counts as 0, text that is no number
/// and a value outside 0 to 100 become 0, and the field is to show "0". Nitrogen is what is left, below 0 when the two
/// exceed 100.
struct PercentageFields {
  MixShares mix;
  bool o2Reset = false;  ///< the field is to show "0"
  bool heReset = false;
  bool over100 = false;  ///< nitrogen came out below 0: a message
};
PercentageFields UpdateMix(const std::string& o2Text, const std::string& heText, const LocaleSeparators& separators);

}  // namespace tav
