#include "plans/captions.h"

#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {

std::string UntitledName(const TextSource& texts, std::int16_t document) {
  return texts.GetResString(Text::UntitledPlan) + std::to_string(document);
}

std::string DocumentCaption(const TextSource& texts, const DocumentState& document, int diveNumber) {
  const auto t = [&texts](int id) { return texts.GetResString(id); };
  std::string caption = document.ProfileName;
  if (diveNumber > 0) caption += t(Text::DiveNumber) + ":" + std::to_string(diveNumber);
  caption += t(Text::CaptionTemplate) + document.Template.Templatename + "]";
  if (document.PreviousDocument == -1) return caption;
  return caption + t(Text::CaptionInterval) + " " + texts.Words(FormatMinutes(document.SurfaceInterval));
}

}  // namespace tav
