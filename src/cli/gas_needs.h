#pragma once

#include <vector>

#include "advice/what_if.h"
#include "cli/json_writer.h"

namespace tav {

/// What a dive asks for of each gas, and its verdict, as the member "gas".
void WriteGasNeeds(JsonWriter& json, const std::vector<GasNeed>& gases);

}  // namespace tav
