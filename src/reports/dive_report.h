#pragma once

#include <vector>

#include "compute/series_dive.h"
#include "reports/long_report.h"

namespace tav {

/// "wreck.tav"; in a series with the number of the dive, from the first on.
std::string DiveTitle(const SeriesDive& dive, const TextSource& texts);

/// Writes the long report of one dive of a series, or of all of them. False when the progress of the report has ended
/// it: then there is nothing to show.
bool WriteLongReport(GeneralReport& report, const std::vector<SeriesDive>& dives);

}  // namespace tav
