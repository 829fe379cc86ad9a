#pragma once

#include <string>
#include <vector>

#include "compute/series_dive.h"
#include "reports/slate.h"
#include "reports/what_if_table.h"
#include "supply/gas_supply.h"

namespace tav {

/// The pressure to turn at on the deepest leg, "120 bar"; empty where the plan tells no cylinders of its gas.
std::string TurnText(const GasSupply& supply, const AdviceWords& words);

/// A line for each gas that runs short or goes into its reserve, or of which a leg leaves too little for the way up.
std::vector<std::string> ShortGases(const GasSupply& supply, const AdviceWords& words);

/// What a slate is written with.
struct SlateServices {
  Slate& slate;
  const TextSource& texts;
  LocaleSeparators separators;
};

/// A whole report: a slate for each dive.
void WriteSlates(const SlateServices& services, const std::vector<SeriesDive>& dives);

/// A whole report: a slate for each column of a plan that could be computed.
void WriteSlates(const SlateServices& services, const SeriesDive& planned, const std::vector<WhatIfColumn>& columns,
                 const WhatIfWish& wish);

}  // namespace tav
