#pragma once

#include <cstdint>

#include "plan/document_forms.h"
#include "report/long_report.h"

namespace tav {

/// Writes the long report of a dive, or of all dives of its series from the first on.
void WriteLongReport(GeneralReport& report, DocumentForms& forms, std::int16_t document, bool wholeSeries);

}  // namespace tav
