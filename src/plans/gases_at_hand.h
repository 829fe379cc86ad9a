#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "model/dive_template.h"
#include "model/user_actions.h"

namespace tav {

/// A gas of a plan, and where the way up breathes it.
struct GasAtHand {
  std::string name;
  std::optional<std::size_t> change;  ///< its place in `ChangeGasMixes`; nothing where the way up leaves it out
  friend bool operator==(const GasAtHand&, const GasAtHand&) = default;
};

/// All gases of a plan in the order of their use: those of the legs, those of the way up from the deepest on, the
/// others as the template has them.
std::vector<GasAtHand> GasesAtHand(const DiveTemplate& diveTemplate, const ClassUseractions& actions);

/// The deepest multiple of the stop step at which a gas keeps the PPO2 limit of stops, in depth units; 0 for a gas that
/// keeps it nowhere, or has no oxygen.
Single DeepestOnWayUp(const GasMix& gas, const DiveTemplate& diveTemplate);

/// The way up breathes a gas from a depth on, in place of the change that it has, if any.
void BreatheOnWayUp(const GasAtHand& gas, Single depth, DiveTemplate& diveTemplate);

}  // namespace tav
