#pragma once

#include <array>
#include <optional>

#include "mixer/gerg_2008.h"
#include "mixer/mixing.h"

/// A cylinder that is filled gas by gas, as the real gas has it: what it holds, and what a gauge shows.
namespace tav {

/// The gases that a cylinder is filled with, in the order of filling. The gas on top is air, or one from a bank.
enum class FillGas { Helium, Oxygen, Top };
inline constexpr FillGas kFillOrder[] = {FillGas::Helium, FillGas::Oxygen, FillGas::Top};

/// mol per litre of each gas to add, in the order of filling.
using Amounts = std::array<double, 3>;

/// A mix in percent; all 0 for nothing.
MixShares MixOf(const Contents& contents);
/// The fractions of a mix, as contents of 1 mol/l.
Contents FractionsOf(const MixShares& percent);

/// Fills of a request: with which gases, how warm, and in the unit of its gauge, absolute bar or psi.
class Filling {
 public:
  explicit Filling(const FillRequest& request);

  /// What a mix holds when the gauge shows a pressure.
  [[nodiscard]] Contents At(const MixShares& percent, double pressure) const;
  /// What the gauge shows at the temperature of the fill.
  [[nodiscard]] double GaugeOf(const Contents& contents) const;
  /// What it shows in a cylinder of another temperature, in degrees Celsius.
  [[nodiscard]] double GaugeOf(const Contents& contents, double celsius) const;
  [[nodiscard]] Contents With(const Contents& contents, const Amounts& amounts) const;
  /// How much of a gas of the fractions `gas`, in mol/l, brings the gauge to a pressure; 0 when it is there already.
  [[nodiscard]] double AmountUntil(const Contents& contents, const Contents& gas, double pressure) const;
  /// The fractions of a gas that is filled.
  [[nodiscard]] const Contents& Gas(FillGas gas) const { return gases_.at(static_cast<std::size_t>(gas)); }

  /// What is to be added of each gas for `wanted`; below 0 where it would have to come out.
  [[nodiscard]] Amounts AmountsFor(const Contents& wanted, const Contents& current) const;
  /// What comes nearest to a mix at a pressure when nothing comes out: the distance counts in margins, see below. No
  /// helium for a mix without. Nothing when the cylinder is full already.
  [[nodiscard]] std::optional<Amounts> NearestTo(const MixShares& percent, double pressure,
                                                 const Contents& current) const;

 private:
  double barPerUnit_;
  double kelvin_;
  std::array<Contents, 3> gases_;
};

/// How far a fill may miss the wanted mix, in percent of oxygen and of helium.
inline constexpr double kOxygenMargin = 0.5;
inline constexpr double kHeliumMargin = 1.0;
bool OxygenMisses(const MixShares& mix, const MixShares& wanted);
bool HeliumMisses(const MixShares& mix, const MixShares& wanted);

/// The volume of an amount of gas set free, at 1 bar and 20 degrees: litres for each mol.
double LitresPerMol(const Contents& gas);

inline constexpr double kCelsius = 273.15;            ///< K at 0 degrees Celsius
inline constexpr double kBarPerAtmosphere = 1.01325;  ///< of the standard atmosphere, 14.7 psi

}  // namespace tav
