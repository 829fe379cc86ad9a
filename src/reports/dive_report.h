#pragma once

#include <cstdint>

#include "plans/document_forms.h"
#include "reports/long_report.h"

namespace tav {

/// "wreck.tav"; in a series with the number of the dive, from the first on.
std::string DiveTitle(DocumentForms& forms, std::int16_t document, const TextSource& texts);

/// Writes the long report of a dive, or of all dives of its series from the first on. False when the progress of the
/// report has ended it: then there is nothing to show.
bool WriteLongReport(GeneralReport& report, DocumentForms& forms, std::int16_t document, bool wholeSeries,
                     const SupplyChoice& choice = {});

}  // namespace tav
