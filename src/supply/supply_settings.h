#pragma once

#include <optional>

#include "model/supply_choice.h"
#include "platform/settings_store.h"

namespace tav {

/// What new plans begin with, section "GasSupply"; nothing when the user has never chosen. What is out of its range has
/// its usual value.
std::optional<SupplyChoice> ReadSupplyChoice(const SettingsStore& settings);
void WriteSupplyChoice(SettingsStore& settings, const SupplyChoice& choice);

}  // namespace tav
