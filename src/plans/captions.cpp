#include "plans/captions.h"

#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {
namespace {

std::string TemplatePart(const TextSource& texts, const DocumentState& document) {
  return texts.GetResString(Text::CaptionTemplate) + document.Template.Templatename + "]";
}

}  // namespace

std::string UntitledName(const TextSource& texts, std::int16_t document) {
  return texts.GetResString(Text::UntitledPlan) + std::to_string(document);
}

std::string DocumentCaption(const TextSource& texts, const DocumentState& document) {
  return document.ProfileName + TemplatePart(texts, document);
}

std::string RepetitiveCaption(const TextSource& texts, const DocumentState& document, std::int16_t diveNumber) {
  return document.ProfileName + texts.GetResString(Text::DiveNumber) + ":" + std::to_string(diveNumber) +
         TemplatePart(texts, document) + texts.GetResString(Text::CaptionInterval) + " " +
         texts.Words(FormatMinutes(document.SurfaceInterval));
}

}  // namespace tav
