#include "app/plan_recovery.h"

#include "model/text_id.h"
#include "plans/captions.h"
#include "plans/profile_commands.h"

namespace tav {
namespace fs = std::filesystem;

namespace {

/// The file of the plan was written after the copy.
bool IsSavedSince(const Recovery::Copy& copy) {
  std::error_code error;
  if (!copy.original.has_parent_path()) return false;  // it never had a file
  const auto saved = fs::last_write_time(copy.original, error);
  return !error && saved > fs::last_write_time(copy.file, error) && !error;
}

}  // namespace

bool PlanRecovery::IsUnsaved(std::int16_t document) const {
  bool unsaved = services_.Document(document).Modified;
  for (std::int16_t n = document; n != -1; n = services_.forms(n).NextProfile)
    unsaved = unsaved || services_.history.OnTrial(n);
  return unsaved;
}

bool PlanRecovery::KeepCopyOf(std::int16_t document) const {
  const DocumentState& dive = services_.Document(document);
  fs::path original = dive.ProfileName;
  std::error_code error;
  if (!dive.ProfileFolder.empty()) original = fs::absolute(fs::path(dive.ProfileFolder) / dive.ProfileName, error);
  return services_.recovery.Keep(document, ProfileFileText(services_.forms, document), original);
}

void PlanRecovery::Keep() const {
  for (const std::int16_t document : services_.OpenDocuments()) {
    if (services_.forms(document).PrevProfile != -1) continue;  // the first dive keeps the whole series
    if (IsUnsaved(document)) {
      static_cast<void>(KeepCopyOf(document));  // the next time, when the disk has room
    } else {
      services_.recovery.Drop(document);
    }
  }
}

void PlanRecovery::Offer() const {
  const auto copies = services_.recovery.Orphans();
  if (copies.empty()) return;
  std::string question = services_.T(Text::RecoveryQuestion) + "\r\n";
  for (const Recovery::Copy& copy : copies) {
    const std::string name = copy.original.empty() ? services_.T(Text::RecoveryNameless) : copy.original.string();
    question += "\r\n" + (IsSavedSince(copy) ? services_.texts.Filled(Text::RecoverySavedSince, {name}) : name);
  }
  const BoxAnswer answer = services_.platform.boxes.Show(question, services_.T(Text::RecoveryTitle), BoxIcon::Question,
                                                         BoxButtons::YesNoCancel);
  if (answer == BoxAnswer::Cancel) return;  // they are offered again at the next start
  for (const Recovery::Copy& copy : copies) {
    if (answer == BoxAnswer::No || Recover(copy)) Recovery::Remove(copy);
  }
}

bool PlanRecovery::Recover(const Recovery::Copy& copy) const {
  try {
    const auto opened = OpenProfile(services_.forms, copy.original, ReadProfileFile(copy.file));
    for (const std::int16_t document : opened) {
      DocumentState& dive = services_.Document(document);
      if (copy.original.empty()) dive.ProfileName = UntitledName(services_.texts, opened.front());
      if (!copy.original.has_parent_path()) dive.ProfileFolder.clear();  // it never had a file
      dive.Modified = document == opened.front();
      services_.Changed(document);
    }
    if (copy.original.has_parent_path()) files_.Recovered(copy.original, IsSavedSince(copy));
    return KeepCopyOf(opened.front());  // on a full disk the old copy stays
  } catch (const std::exception& error) {
    services_.TellFailure(services_.T(Text::FileNotOpened), error);
    return false;
  }
}

}  // namespace tav
