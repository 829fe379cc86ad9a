#pragma once

/// Real gas of oxygen, helium and nitrogen by GERG-2008, the reference equation of state for mixtures: pressures and
/// densities within 0.1 % of what is measured, from 90 to 450 K up to 350 bar; it may be used to 700 bar.
/// Source: O. Kunz and W. Wagner, The GERG-2008 Wide-Range Equation of State for Natural Gases and Other Mixtures,
/// J. Chem. Eng. Data 57 (2012) 3032-3091. Between these three gases it has no departure functions.
namespace tav {

/// Amounts of the three gases, mol per litre of the room that they fill.
struct Contents {
  double O2 = 0;
  double He = 0;
  double N2 = 0;

  [[nodiscard]] double Sum() const { return O2 + He + N2; }
  friend Contents operator*(double factor, const Contents& c) { return {factor * c.O2, factor * c.He, factor * c.N2}; }
  friend Contents operator+(const Contents& a, const Contents& b) { return {a.O2 + b.O2, a.He + b.He, a.N2 + b.N2}; }
};

/// The gas constant that goes with the equation's coefficients, J / (mol K).
inline constexpr double kGergGasConstant = 8.314472;

/// Z = p / (density R T); 1 for an ideal gas.
double CompressibilityOf(const Contents& contents, double kelvin);

/// The pressure of contents in bar; 0 for nothing.
double PressureOf(const Contents& contents, double kelvin);

/// What has the mix of `mix` (in any amount above 0) at a pressure in bar, to the last digits: the inverse of
/// PressureOf. Nothing at a pressure of 0 or less. For up to 1000 bar above 230 K.
Contents ContentsAt(const Contents& mix, double bar, double kelvin);

}  // namespace tav
