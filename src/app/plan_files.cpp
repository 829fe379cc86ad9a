#include "app/plan_files.h"

#include "model/text_id.h"
#include "plans/profile_commands.h"
#include "platform/used_folder.h"
#include "start/user_texts.h"

namespace tav {
namespace fs = std::filesystem;

fs::path PlanFiles::Choose() const {
  const Platform& platform = services_.platform;
  return platform.files.Open({services_.T(Text::OpenTitle),
                              services_.T(Text::PlanFilter),
                              FolderUsedLast(platform.settings, kPlanFolder),
                              "",
                              "",
                              {}});
}

bool PlanFiles::Open(const fs::path& file) {
  Screen& screen = services_.platform.screen;
  try {
    screen.ShowHourglass(true);
    const ProfileText profile = ReadProfileFile(file);
    const auto opened = OpenProfile(services_.forms, file, profile);
    if (!opened.empty()) services_.history.MarkSaved(opened.front());
    screen.ShowHourglass(false);
    const std::string advice = AdviceText(services_.texts, file, profile.advice);
    if (!advice.empty()) services_.Tell(advice, BoxIcon::Information);
  } catch (const std::exception& error) {
    screen.ShowHourglass(false);
    recent_.Remove(file);
    services_.TellFailure(services_.T(Text::FileNotOpened), error);
    return false;
  }
  KeepFolder(services_.platform.settings, kPlanFolder, file);
  recent_.Add(file);
  return true;
}

bool PlanFiles::SaveActive(bool saveAs) {
  const auto active = services_.Active();
  if (!active || !Save(*active, saveAs)) return false;
  const std::string cells = panes_.MarkedCells(*active);
  if (!cells.empty()) services_.Tell(services_.T(Text::SavedWithoutEntry) + "\r\n\r\n" + cells, BoxIcon::Exclamation);
  return true;
}

bool PlanFiles::Save(std::int16_t document, bool saveAs) {
  const std::int16_t first = services_.forms(document).getFirstProfile();
  const DocumentState& dive = services_.Document(first);
  if (!saveAs && !dive.ProfileFolder.empty()) return SaveSeries(first, fs::path(dive.ProfileFolder) / dive.ProfileName);
  const Platform& platform = services_.platform;
  const fs::path folder =
      dive.ProfileFolder.empty() ? FolderUsedLast(platform.settings, kPlanFolder) : fs::path(dive.ProfileFolder);
  const fs::path file = platform.files.Save({services_.T(Text::SaveTitle),
                                             services_.T(Text::PlanFilter),
                                             folder,
                                             dive.ProfileName,
                                             std::string(kProfileExtension),
                                             {}});
  return !file.empty() && SaveSeries(first, file);
}

bool PlanFiles::SaveSeries(std::int16_t document, const fs::path& file) {
  SaveNotes notes;
  try {
    notes = SaveProfile(services_.forms, document, file);
  } catch (const std::exception& error) {
    services_.TellFailure(services_.T(Text::FileNotSaved), error);
    return false;
  }
  services_.history.MarkSaved(document);
  panes_.PlanPane().MarkUnfinished();
  services_.Changed(services_.Active().value_or(document));
  KeepFolder(services_.platform.settings, kPlanFolder, file);
  services_.recovery.Drop(document);
  recent_.Add(file);
  services_.TellNotes(file, notes);
  return true;
}

}  // namespace tav
