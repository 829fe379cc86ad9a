#include "report/dive_report.h"

namespace tav {

void WriteLongReport(GeneralReport& report, DocumentForms& forms, std::int16_t document, bool wholeSeries,
                     const std::function<SupplyTables(std::int16_t document)>& supplyOf) {
  // Numbers tell the place in the series from 1 on, however the series came to be.
  int number = 0;
  report.InitLongReport();
  const std::int16_t first = forms(document).getFirstProfile();
  for (std::int16_t dive = first; dive != -1; dive = forms(dive).NextProfile) {
    ++number;
    if (!wholeSeries && dive != document) continue;
    DocumentState& state = forms.Services().documents(dive);
    const bool showSeries = wholeSeries ? dive != first : state.SurfaceInterval != 0;
    report.LongReport({forms(dive).InputProfile, state.Template, showSeries, showSeries ? number : 1,
                       state.SurfaceInterval, state.Decompresses, supplyOf ? supplyOf(dive) : SupplyTables()});
  }
}

}  // namespace tav
