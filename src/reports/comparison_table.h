#pragma once

#include <string>
#include <vector>

#include "advice/comparison.h"
#include "pages/print_preview.h"
#include "reports/column_table.h"

namespace tav {

/// Plans side by side: the settings that differ, the legs, stops, run time, doses and gas. Cells that are not as those
/// of the first plan are marked, and totals tell how much they are off. The words have the units of the first plan,
/// which all figures are shown in.
ColumnTable ComparisonTable(const std::vector<ComparedPlan>& plans, const AdviceWords& words);

/// Prints the table on landscape pages and shows them.
void PrintComparison(PrintPreview& out, const ColumnTable& table);

}  // namespace tav
