#pragma once

#include <cstdint>
#include <functional>

#include "plans/document_forms.h"
#include "reports/long_report.h"

namespace tav {

/// "wreck.tav"; in a series with the number of the dive, from the first on.
std::string DiveTitle(DocumentForms& forms, std::int16_t document, const TextSource& texts);

/// Writes the long report of a dive, or of all dives of its series from the first on. `supplyOf` gives the gas supply
/// of a dive; without it, reports tell none.
void WriteLongReport(GeneralReport& report, DocumentForms& forms, std::int16_t document, bool wholeSeries,
                     const std::function<SupplyTables(std::int16_t document)>& supplyOf = {});

}  // namespace tav
