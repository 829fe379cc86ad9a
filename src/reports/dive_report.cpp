#include "reports/dive_report.h"

namespace tav {

std::string DiveTitle(DocumentForms& forms, std::int16_t document, const TextSource& texts) {
  constexpr int kDive = 7741;
  const std::string& name = forms.Services().documents(document).ProfileName;
  const std::int16_t first = forms(document).getFirstProfile();
  if (forms(first).NextProfile == -1) return name;
  // Numbers tell the place in the series from 1 on, however the series came to be.
  int number = 1;
  for (std::int16_t dive = first; dive != document; dive = forms(dive).NextProfile) ++number;
  return name + ", " + texts.Filled(kDive, {std::to_string(number)});
}

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
                       state.SurfaceInterval, state.Decompresses, supplyOf ? supplyOf(dive) : SupplyTables(),
                       DiveTitle(forms, dive, report.Texts())});
  }
}

}  // namespace tav
