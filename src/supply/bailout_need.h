#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "compute/compute.h"

namespace tav {

/// What leaving a rebreather dive at a moment asks for of one gas: minutes times pressure in bar or atmospheres, which
/// the volume breathed in a minute at the surface makes a volume of.
struct BailOutNeed {
  std::string gas;
  Single moment;         ///< run time at which the loop is left
  Single depth;          ///< and the depth there
  std::int16_t row = 0;  ///< in which it lies
  double sorting = 0;    ///< the minutes to sort things out, at that depth
  double ascent = 0;     ///< the way up

  [[nodiscard]] double All() const { return sorting + ascent; }
};

/// A minute that is among the dearest, and why.
struct DearMinute {
  Single moment;
  bool neverUp = false;            ///< its way up never ends
  bool longest = false;            ///< it takes longest to come up from
  std::vector<std::string> gases;  ///< of which it asks for most
};

/// The dearest minutes of a rebreather dive.
struct BailOutNeeds {
  /// For each gas that a way up takes, the moment that asks for most of it; of equals the first.
  std::vector<BailOutNeed> gases;
  /// The moment that takes longest to come up from, the minutes at depth apart; of equals the first.
  std::optional<Single> longest;
  /// Moments whose way up never reaches the surface: the first one.
  std::optional<Single> neverUp;

  /// All of them, each once: the one without end, the longest, then in the order of the gases.
  [[nodiscard]] std::vector<DearMinute> Minutes() const;
};

/// Every whole minute on the loop under water, and the end of a plan that ends there, is left on open circuit:
/// `minutes` at its depth and the ascent of the plan's model, on the gases of the change list, before the first of them
/// on the gas of the row. A dive of more than 3,000 minutes is looked at in as many equal steps. Empty for open
/// circuit, without rows, and for a way up of more rows than there can be. With `only`, that moment alone.
BailOutNeeds BailOutNeedsOf(const PlannedDive& dive, Single minutes, std::optional<Single> only = std::nullopt);

}  // namespace tav
