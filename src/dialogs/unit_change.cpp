#include "dialogs/unit_change.h"

#include "model/text_id.h"

namespace tav {

void OfferToConvertDepths(const DialogServices& services, std::int16_t document, bool wasMetric) {
  const bool metric = services.Documents()(document).Template.Metric;
  frmWaypointEditor& editor = services.forms(document);
  if (metric == wasMetric || editor.UserActions.GetLength() == 0) return;
  const TextSource& texts = services.texts;
  if (services.platform.boxes.Show(texts.GetResString(metric ? Text::ConvertToMetres : Text::ConvertToFeet),
                                   texts.GetResString(Text::TemplateUnits), BoxIcon::Question,
                                   BoxButtons::YesNo) == BoxAnswer::Yes) {
    editor.ConvertDepths(metric);
  }
}

}  // namespace tav
