#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "model/dive_record.h"

namespace tav {

/// What can be edited of a plan, as JSON: {"file": ..., "dives": [{"settings": ..., "gases": ..., "legs": ...}, ...]}.
void WritePlanJson(const std::string& file, const std::vector<DiveRecord>& dives, std::ostream& out);

}  // namespace tav
