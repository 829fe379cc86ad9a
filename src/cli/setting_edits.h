#pragma once

#include "cli/typed_edits.h"
#include "model/dive_record.h"

namespace tav {

/// Circuit, settings and altitudes of a dive. Throws OptionError for what can't be so.
void EditSettings(const PlanEdits& edits, DiveRecord& dive);

}  // namespace tav
