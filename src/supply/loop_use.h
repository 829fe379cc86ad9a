#pragma once

#include <string>
#include <vector>

#include "compute/compute.h"

namespace tav {

/// What a rebreather itself takes from its two cylinders, as an estimate: gas for leaks, flushes, dry suit and the loss
/// through the mask is not in it, and no cylinder is judged by it. Volumes are litres at 1 bar or cubic feet at 1
/// atmosphere.
struct LoopUse {
  struct Diluent {
    std::string gas;
    double volume = 0;
  };

  /// What is metabolised, the same at every depth: a twentieth of the volume breathed in each minute on the loop. The
  /// ventilation of a working diver is 20 to 25 times his oxygen uptake (U.S. Navy Diving Manual, chapter on underwater
  /// physiology: 24 at moderate work); 20 is the careful end.
  double oxygen = 0;
  /// For each diluent the volume of the loop and the lungs once for each bar or atmosphere that the pressure rises on
  /// ways down (Boyle); none is given back on the way up.
  std::vector<Diluent> diluents;
};

/// Volume of loop and lungs that is filled again on the way down, litres.
constexpr double kLoopLitres = 6;
/// Volume breathed for each volume of oxygen metabolised.
constexpr double kBreathedPerOxygen = 20;

/// Nothing of an open-circuit dive, without rows, and of rows on open circuit.
LoopUse LoopUseOf(const PlannedDive& dive);

}  // namespace tav
