#pragma once

#include "cli/typed_edits.h"
#include "model/dive_template.h"

namespace tav {

/// Cylinders of a dive, whose numbers stay those from before. Throws OptionError for what can't be so.
void EditCylinders(const PlanEdits& edits, DiveTemplate& settings);

}  // namespace tav
