#pragma once

#include <optional>
#include <vector>

#include "compute/series_dive.h"
#include "reports/long_report.h"
#include "supply/supply_choice.h"

namespace tav {

/// "wreck.tav"; in a series with the number of the dive, from the first on.
std::string DiveTitle(const SeriesDive& dive, const TextSource& texts);

/// What a long report tells of the gas supply.
struct ReportedSupply {
  SupplyChoice choice;
  LocaleSeparators separators;
};

/// Writes the long report of one dive of a series, or of all of them. Without a `supply` it tells none.
void WriteLongReport(GeneralReport& report, const std::vector<SeriesDive>& dives,
                     const std::optional<ReportedSupply>& supply = {});

}  // namespace tav
