#pragma once

#include <optional>
#include <string>
#include <vector>

#include "compute/table_dives.h"
#include "figures/advice_words.h"
#include "supply/gas_supply.h"

namespace tav {

/// What the ways out of a plan ask for of each gas, as its gas supply reckons it.
///
/// The plan is taken when the object is made, and may change or go away meanwhile.
class WayOutSupply {
 public:
  explicit WayOutSupply(const PlannedDive& dive);

  /// The gases of a cut of the plan, computed on `settings`, in the order of the template. From a loop it is what
  /// leaving it at that minute asks for, on open circuit what the dive breathes until there and on its way up.
  [[nodiscard]] std::vector<GasStore> Of(const DiveTemplate& settings, const TableDive& cut) const;

 private:
  /// The rows of the plan until a cut, and those of the way up: what the replay of a cut within the ascent breathes
  /// before it is too much, since it counts the first minute of each stop whole.
  [[nodiscard]] ClassProfile Breathed(const TableDive& cut) const;

  DiveRecord record_;
  ComputedPlan plan_;
  std::optional<EndState> before_;
};

/// "EAN50: too little, 2854 l of 2200 l": what is needed of what is carried, the same on cards and slates.
/// `when` follows the verdict.
std::string GasNote(const GasStore& store, const AdviceWords& words, const std::string& when = {});

}  // namespace tav
