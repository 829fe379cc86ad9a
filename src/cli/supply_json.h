#pragma once

#include "cli/row_json.h"
#include "supply/gas_supply.h"

namespace tav {

/// The gas supply of a dive: the diver's choice, gases and legs; null when no cylinders are told.
Json SupplyJson(const GasSupply& supply);

}  // namespace tav
