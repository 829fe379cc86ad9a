#pragma once

#include <cstddef>
#include <vector>

#include "cli/typed_edits.h"
#include "model/dive_record.h"

namespace tav {

/// Gases of a dive, and from where they are breathed on the way up. Throws OptionError for what can't be so.
void EditGases(const PlanEdits& edits, DiveRecord& dive);

/// The legs go on with the gases of the names that they had in the list `before`. Throws OptionError where one of them
/// is no longer there.
void KeepGasesOfLegs(const std::vector<GasMix>& before, DiveRecord& dive);

/// Whether a leg, a gas change or a cylinder of the dive has the gas of that place in the list.
bool HasUse(std::size_t gas, const DiveRecord& dive);

}  // namespace tav
