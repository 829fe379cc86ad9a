#pragma once

#include <functional>

#include "reports/report_pages.h"

/// The blocks of the long report. Each writes from `y` on, turns the page where it needs to, and those behind which
/// another one follows return where they ended.
namespace tav {

/// The settings of the plan; of a dive of a series its number and surface interval above them.
Single WriteSettings(ReportPages& pages, Single y);

/// Every row of the dive. `goOn` is asked after each; false ends the block at once, and is returned.
bool WriteProfile(ReportPages& pages, Single y, const std::function<bool()>& goOn);

/// The bottom segments, and the stops.
void WriteStops(ReportPages& pages, Single y);

/// Sums and extremes of the dive.
Single WriteSummary(ReportPages& pages, Single y);

/// What was breathed of each gas.
Single WriteGases(ReportPages& pages, Single y);

/// The gas supply, for plans that tell their cylinders.
void WriteSupply(ReportPages& pages, Single y);

}  // namespace tav
