#include "reports/dive_report.h"

#include <algorithm>
#include <vector>

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

bool WriteLongReport(GeneralReport& report, DocumentForms& forms, std::int16_t document, bool wholeSeries,
                     const SupplyChoice& choice) {
  // Numbers tell the place in the series from 1 on, however the series came to be.
  int number = 0;
  int rows = 0;
  std::vector<GeneralReport::Dive> dives;
  const std::int16_t first = forms(document).getFirstProfile();
  for (std::int16_t dive = first; dive != -1; dive = forms(dive).NextProfile) {
    ++number;
    if (!wholeSeries && dive != document) continue;
    DocumentState& state = forms.Services().documents(dive);
    const bool showSeries = wholeSeries ? dive != first : state.SurfaceInterval != 0;
    dives.push_back({forms(dive).InputProfile, state.Template, showSeries, showSeries ? number : 1,
                     state.SurfaceInterval, state.Decompresses, SupplyOf(forms, dive, choice),
                     DiveTitle(forms, dive, report.Texts())});
    rows += dives.back().profile.GetLength() + 1;
  }
  report.InitLongReport(rows);
  return std::ranges::all_of(dives, [&](const GeneralReport::Dive& dive) { return report.LongReport(dive); });
}

}  // namespace tav
