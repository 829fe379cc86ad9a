#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "compute/gas_warnings.h"
#include "model/profile.h"

namespace tav {

/// The parts that the JSON of all commands is made of.
using Json = nlohmann::ordered_json;

/// The 7 significant digits of a 32-bit value, not the 17 of its promotion.
double Digits(Single value);
Json ArrayJson(const Compartments& values);

/// The rows of a dive, row 0 included.
Json RowsJson(const ClassProfile& profile);

/// The text of a document, in one line; what is not UTF-8 in a name is replaced.
std::string Written(const Json& json);

/// {"what": "low_ppo2", "gas", "from", "to", "ppo2"}
Json WarningJson(const GasWarning& warning);

}  // namespace tav
