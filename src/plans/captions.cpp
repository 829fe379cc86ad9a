#include "plans/captions.h"

#include "model/numbers.h"

namespace tav {
namespace {

constexpr int kUntitled = 1060;
constexpr int kBeforeTemplate = 6163;
constexpr int kDive = 3013;
constexpr int kSurfaceInterval = 3016;

std::string TemplatePart(const TextSource& texts, const DocumentState& document) {
  return texts.GetResString(kBeforeTemplate) + document.Template.Templatename + "]";
}

}  // namespace

std::string UntitledName(const TextSource& texts, std::int16_t document) {
  return texts.GetResString(kUntitled) + std::to_string(document);
}

std::string DocumentCaption(const TextSource& texts, const DocumentState& document) {
  return document.ProfileName + TemplatePart(texts, document);
}

std::string RepetitiveCaption(const TextSource& texts, const DocumentState& document, std::int16_t diveNumber) {
  return document.ProfileName + texts.GetResString(kDive) + ":" + std::to_string(diveNumber) +
         TemplatePart(texts, document) + texts.GetResString(kSurfaceInterval) + " " +
         texts.Words(FormatMinutes(document.SurfaceInterval));
}

}  // namespace tav
