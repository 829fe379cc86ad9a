#include "app/warning_memory.h"

#include <utility>

namespace tav {

bool WarningMemory::IsNews(std::int16_t document, const std::string& warning, bool returning) {
  Plan& plan = Of(document);
  const bool first = plan.seen.insert(warning).second;
  const bool neverBefore = plan.ever.insert(warning).second;
  return first && !plan.known.contains(warning) && (neverBefore || !returning);
}

void WarningMemory::EvaluationEnded(std::int16_t document) {
  Plan& plan = Of(document);
  plan.known = std::exchange(plan.seen, {});
  if (const std::string file = FileOf(document); !file.empty()) knownOfFiles_[file] = plan.known;
}

WarningMemory::Plan& WarningMemory::Of(std::int16_t document) {
  const auto [place, isNew] = plans_.try_emplace(document);
  if (isNew) {
    const auto known = knownOfFiles_.find(FileOf(document));
    if (known != knownOfFiles_.end()) place->second.known = known->second;
  }
  return place->second;
}

std::string WarningMemory::FileOf(std::int16_t document) const {
  const DocumentState& dive = documents_(document);
  if (dive.ProfileFolder.empty()) return {};
  int place = 1;
  for (std::int16_t n = dive.PreviousDocument; n != -1; n = documents_(n).PreviousDocument) ++place;
  return dive.ProfileFolder + dive.ProfileName + ":" + std::to_string(place);
}

}  // namespace tav
