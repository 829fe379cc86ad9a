#pragma once

#include "model/single.h"

namespace tav {

/// The allowed gradient of the varying permeability model, from the deepest depth of a dive: how far the dive crushes
/// a gas nucleus of a given critical radius decides how much over-pressure every compartment may hold.
///
/// It has no compartments and keeps nothing between dives.
/// Source: D. E. Yount and D. C. Hoffman, "On the use of a bubble formation model to calculate diving tables", 1986.
class ClassVPMGF {
 public:
  [[nodiscard]] Single getDepth() const { return depth_; }    ///< depth of the last VPMStart, depth units
  [[nodiscard]] Single GetMicron() const { return micron_; }  ///< regenerated radius, micrometres
  [[nodiscard]] Single GetGradF() const { return GradF_; }    ///< gradient, depth units
  [[nodiscard]] Single GetGradP() const { return GradP_; }    ///< gradient, reference pressures
  [[nodiscard]] Single GetFstop() const { return Fstop_; }    ///< first stop by this model, depth units

  /// Surface tension and crumbling compression in N/m, critical radius in micrometres (all above 0), surface pressure
  /// in bar or atmospheres.
  void SetVPMValues(Single gamma, Single gammaC, Single micron, Single surfacePressure, bool Metric);

  /// Computes the gradient for the deepest depth of a dive.
  void VPMStart(Single depth);

  /// The nucleus stays permeable: up to a pressure ratio of about 9.2. The engine reaches both through VPMStart.
  void Perm(Single depth, Single ratio);
  /// Past the crossover the nucleus is impermeable and its gas is compressed.
  void ImPerm(Single depth, Single ratio);

  static Single Cubic(Single value) { return value * value * value; }
  /// The root of a r^3 - b r^2 - c by Newton's method from the middle of the bracket; at most 11 steps.
  static Single Root(Single a, Single b, Single c, Single low, Single high);

 private:
  void SetGradient(double pascal, double depthUnits);

  Single surfacePressure_;
  Single gamma_ = 0.0179;
  Single gammaC_ = 0.257;
  Single micron_ = 1.0;
  bool Metric_ = true;
  Single depth_;
  Single Fstop_;
  Single GradP_;
  Single GradF_;
  Single r0_ = 1e-6;  ///< critical radius, metres
};

/// The over-pressure that the bubble model allows every compartment on the way up from the deepest depth of a dive,
/// depth units. `surfacePressure` is that of the ascent's end.
Single VPMGradient(Single deepest, Single surfacePressure, bool Metric);

}  // namespace tav
