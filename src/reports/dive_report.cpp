#include "reports/dive_report.h"

#include <algorithm>

#include "model/text_id.h"

namespace tav {

std::string DiveTitle(const SeriesDive& dive, const TextSource& texts) {
  if (dive.ofDives == 1) return dive.file;
  return dive.file + ", " + texts.Filled(Text::DiveOfSeries, {std::to_string(dive.number)});
}

bool WriteLongReport(GeneralReport& report, const std::vector<SeriesDive>& dives) {
  int rows = 0;
  for (const SeriesDive& dive : dives) rows += dive.dive.plan.rows.GetLength() + 1;
  report.InitLongReport(rows);
  return std::ranges::all_of(dives, [&](const SeriesDive& dive) {
    const auto& [record, plan, before] = dive.dive;
    const bool showSeries = dives.size() == 1 ? record.SurfaceInterval != 0 : dive.number != 1;
    return report.LongReport({plan.rows, dive.settings, plan.model, before != nullptr, showSeries,
                              showSeries ? dive.number : 1, record.SurfaceInterval, plan.end.Decompresses,
                              SupplyOf(dive.dive), DiveTitle(dive, report.Texts())});
  });
}

}  // namespace tav
