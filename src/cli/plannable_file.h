#pragma once

#include <string>

#include "persist/profile_file.h"

namespace tav {

/// Reads a profile and refuses one that can't be planned, with the line to mend. Throws FileError.
ProfileText ReadPlannable(const std::string& file);

}  // namespace tav
