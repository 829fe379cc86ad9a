#pragma once

#include <array>

#include "model/profile.h"

/// The inner loops of the engine over the 16 compartments. They allocate nothing, branch on no compartment and exist
/// once for each instruction set, from one source, with results that are the same to the last bit: they use only
/// operations that the floating point standard rounds exactly (+ - * / and conversions), never a fused one.
namespace tav {

/// Inert gas loads, depth units.
struct alignas(32) Loads {
  Compartments He{};
  Compartments N2{};
};

/// Rate constants ln 2 / half-time, per minute, and the decay exp(-k t) of some time t.
struct alignas(32) CompartmentPair {
  std::array<double, kCompartments> He{};
  std::array<double, kCompartments> N2{};
};

/// M-value coefficients; a in depth units of the template.
struct alignas(32) MValueCoefficients {
  std::array<double, kCompartments> HeA{};
  std::array<double, kCompartments> N2A{};
  std::array<double, kCompartments> HeB{};
  std::array<double, kCompartments> N2B{};
};

/// The coefficients of ZH-L16 in the units of a template. `useC` takes those of the C table for nitrogen, else B.
MValueCoefficients MValuesOf(bool metric, bool useC);

/// Inspired pressure of each gas, depth units.
struct Inspired {
  double He = 0;
  double N2 = 0;
};

struct CompartmentKernels {
  /// Haldane: L' = (Pi - L) (1 - exp(-k t)) + L.
  void (*LoadConstant)(Loads& loads, const Inspired& inspired, const CompartmentPair& decay);

  /// Schreiner: L' = Pi + R (t - 1/k) - (Pi - L - R/k) exp(-k t), with R in depth units per minute.
  void (*LoadRamp)(Loads& loads, const Inspired& inspired, const Inspired& rate, double time,
                   const CompartmentPair& rateConstants, const CompartmentPair& decay);

  /// No inert gas is breathed: L' = L exp(-k t).
  void (*LoadDecay)(Loads& loads, const CompartmentPair& decay);

  /// The deepest of 0 and, over the compartments, (T - a G) / (G / b - G + 1) - surface, where T is the sum of the two
  /// loads, a and b are the coefficients weighted by them, and G is the gradient factor. Depth units.
  double (*DeepestCeiling)(const Loads& loads, const MValueCoefficients& m, double gradientFactor, double surface);

  /// fractions = T / (ambient / b + a), the loads as fractions of the M-values at an ambient pressure in depth units.
  /// Returns the largest, at least 0.
  double (*MValueFractions)(const Loads& loads, const MValueCoefficients& m, double ambient, Compartments& fractions);

  /// The largest (T - ambient) / (ambient / b + a - ambient), at least 0: how far the loads are on the way from the
  /// ambient pressure, in depth units, to their M-values.
  double (*LargestGradient)(const Loads& loads, const MValueCoefficients& m, double ambient);

  /// The largest T, at least 0. Depth units.
  double (*LargestLoad)(const Loads& loads);
};

/// The kernels for every processor of the platform.
const CompartmentKernels& PortableKernels();

/// The kernels for 256-bit vectors (AVX2); null where the processor or the build has none.
const CompartmentKernels* WideKernels();

/// The widest kernels that this processor runs. Chosen once.
const CompartmentKernels& BestKernels();

}  // namespace tav
