#pragma once

#include <vector>

#include "cli/typed_edits.h"
#include "model/dive_record.h"

namespace tav {

/// Makes the changes. Throws OptionError for one that can't be made, or that leaves a plan which no reader of files
/// takes; `dives` is of no use then.
void Edit(const PlanEdits& edits, std::vector<DiveRecord>& dives);

}  // namespace tav
