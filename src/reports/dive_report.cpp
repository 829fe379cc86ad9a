#include "reports/dive_report.h"

#include "supply/supply_text.h"

namespace tav {

std::string DiveTitle(const SeriesDive& dive, const TextSource& texts) {
  constexpr int kDive = 7741;
  if (dive.ofDives == 1) return dive.file;
  return dive.file + ", " + texts.Filled(kDive, {std::to_string(dive.number)});
}

void WriteLongReport(GeneralReport& report, const std::vector<SeriesDive>& dives,
                     const std::optional<ReportedSupply>& supply) {
  const TextSource& texts = report.Texts();
  report.InitLongReport();
  for (const SeriesDive& dive : dives) {
    const auto& [record, plan, before] = dive.dive;
    const bool showSeries = dives.size() == 1 ? record.SurfaceInterval != 0 : dive.number != 1;
    report.LongReport({plan.rows, dive.settings, showSeries, showSeries ? dive.number : 1, record.SurfaceInterval,
                       plan.end.Decompresses,
                       supply ? SupplyTablesOf(dive.dive, supply->choice, texts, supply->separators) : SupplyTables(),
                       DiveTitle(dive, texts)});
  }
}

}  // namespace tav
