#pragma once

#include <string>
#include <vector>

#include "model/dive_record.h"
#include "model/message.h"

namespace tav {

/// The gases of the change list that the template knows, each once, in its order: those that may be lost.
std::vector<std::string> GasesToLose(const DiveTemplate& settings);

/// Takes gases out of a dive: all entries of the change list, their cylinders, and the legs, which go on with the gas
/// before. Returns why a leg can't; the dive is then of no use.
Message LoseGases(const std::vector<std::string>& gases, DiveRecord& dive);

}  // namespace tav
