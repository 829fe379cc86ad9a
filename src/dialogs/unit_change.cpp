#include "dialogs/unit_change.h"

namespace tav {

void OfferToConvertDepths(const DialogServices& services, std::int16_t document, bool wasMetric) {
  constexpr int kUnits = 1602;
  constexpr int kToFeet = 7052;
  constexpr int kToMetres = 7053;
  const bool metric = services.Documents()(document).Template.Metric;
  frmWaypointEditor& editor = services.forms(document);
  if (metric == wasMetric || editor.UserActions.GetLength() == 0) return;
  const TextSource& texts = services.texts;
  if (services.platform.boxes.Show(texts.GetResString(metric ? kToMetres : kToFeet), texts.GetResString(kUnits),
                                   BoxIcon::Question, BoxButtons::YesNo) == BoxAnswer::Yes) {
    editor.ConvertDepths(metric);
  }
}

}  // namespace tav
