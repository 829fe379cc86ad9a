#pragma once

#include "cli/typed_edits.h"
#include "model/dive_record.h"

namespace tav {

/// Legs of a dive, whose numbers stay those of the actions from before. Throws OptionError for what can't be so.
void EditLegs(const PlanEdits& edits, DiveRecord& dive);

}  // namespace tav
