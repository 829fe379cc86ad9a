#pragma once

#include "mixer/mixing.h"

/// A cylinder by the van der Waals equation: what it holds, and what adding a gas makes of it.
namespace tav {

/// The gases that a cylinder is filled with, in the order of filling. Air is 20.8 % oxygen and 79.2 % nitrogen.
enum class FillGas { Helium, Oxygen, Air };
inline constexpr FillGas kFillOrder[] = {FillGas::Helium, FillGas::Oxygen, FillGas::Air};

/// What a cylinder holds: mol of each gas per litre of its volume.
struct Contents {
  double O2 = 0;
  double He = 0;
  double N2 = 0;

  [[nodiscard]] double Sum() const { return O2 + He + N2; }
  /// The mix in percent; all 0 for an empty cylinder.
  [[nodiscard]] MixShares Mix() const;
};

/// The contents of a cylinder with a mix (percent) at a pressure in bar; nothing at a pressure of 0 or less.
Contents ContentsAt(const MixShares& percent, Single bar);

/// The pressure of contents in bar at the temperature of a filled cylinder; infinite beyond what the equation can hold.
Single PressureOf(const Contents& contents);

/// The contents with an amount of a gas added, mol per litre.
Contents With(const Contents& contents, FillGas gas, double amount);

/// How much of a gas, in mol per litre, brings contents to a pressure in bar; 0 when they are there already.
double AmountUntil(const Contents& contents, FillGas gas, Single bar);

}  // namespace tav
