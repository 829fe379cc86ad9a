#include "app/plan_files.h"

#include <algorithm>
#include <functional>
#include <utility>

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
  // One window for each file: of two, one would save over what the other has.
  for (const std::int16_t document : services_.OpenDocuments()) {
    if (FileOf(document) != Whole(file)) continue;
    services_.forms.Activate(document);
    return true;
  }
  if (!Read(file, true)) return false;
  KeepFolder(services_.platform.settings, kPlanFolder, file);
  recent_.Add(file);
  return true;
}

bool PlanFiles::Read(const fs::path& file, bool withAdvice) {
  Screen& screen = services_.platform.screen;
  try {
    screen.ShowHourglass(true);
    KnowsNow(file);  // ahead of the plan: what is written between the two is a change
    const ProfileText profile = ReadProfileFile(file);
    const auto opened = OpenProfile(services_.forms, file, profile);
    if (!opened.empty()) services_.history.MarkSaved(opened.front());
    screen.ShowHourglass(false);
    const std::string advice = AdviceText(services_.texts, file, profile.advice);
    if (withAdvice && !advice.empty()) services_.Tell(advice, BoxIcon::Information);
  } catch (const std::exception& error) {
    screen.ShowHourglass(false);
    recent_.Remove(file);
    services_.TellFailure(services_.T(Text::FileNotOpened), error);
    return false;
  }
  return true;
}

fs::path PlanFiles::Whole(const fs::path& file) {
  std::error_code error;
  const fs::path whole = fs::absolute(file, error).lexically_normal();
  return error ? file : whole;
}

PlanFiles::Content PlanFiles::ContentOf(const fs::path& file) {
  try {
    return std::hash<std::string>()(ReadTextFile(file));
  } catch (const FileError&) {
    return std::nullopt;
  }
}

void PlanFiles::KnowsNow(const fs::path& file) {
  const Content now = ContentOf(file);
  known_[Whole(file)] = {now, now};
}

void PlanFiles::Recovered(const fs::path& file, bool newer) {
  KnowsNow(file);
  if (newer) known_[Whole(file)].mine.reset();
}

fs::path PlanFiles::FileOf(std::int16_t first) const {
  const DocumentState& dive = services_.Document(first);
  if (services_.forms(first).PrevProfile != -1 || dive.ProfileFolder.empty()) return {};
  return Whole(fs::path(dive.ProfileFolder) / dive.ProfileName);
}

std::vector<fs::path> PlanFiles::OpenFiles() const {
  std::vector<fs::path> files;
  for (const std::int16_t document : services_.OpenDocuments()) {
    if (fs::path file = FileOf(document); !file.empty()) files.push_back(std::move(file));
  }
  return files;
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
  const auto known = known_.find(Whole(file));
  const Content there = ContentOf(file);
  if (known != known_.end() && there && there != known->second.mine) {
    const BoxAnswer answer = services_.platform.boxes.ShowWithChoices(
        services_.texts.Filled(Text::FileChangedQuestion, {file.string()}), "", BoxIcon::Exclamation,
        {services_.T(Text::FileOverwrite), services_.T(Text::FileSaveAs), services_.T(Text::Cancel)});
    if (answer == BoxAnswer::No) return Save(document, true);
    if (answer != BoxAnswer::Yes) return false;
  }
  SaveNotes notes;
  try {
    notes = SaveProfile(services_.forms, document, file);
  } catch (const std::exception& error) {
    services_.TellFailure(services_.T(Text::FileNotSaved), error);
    return false;
  }
  KnowsNow(file);
  services_.history.MarkSaved(document);
  panes_.PlanPane().MarkUnfinished();
  services_.Changed(services_.Active().value_or(document));
  KeepFolder(services_.platform.settings, kPlanFolder, file);
  services_.recovery.Drop(document);
  recent_.Add(file);
  services_.Status(Text::StatusSaved);
  services_.TellNotes(file, notes);
  return true;
}

void PlanFiles::LookAgain() {
  for (const std::int16_t document : services_.OpenDocuments()) {
    if (services_.IsOpen(document)) LookAgainAt(document);
  }
}

void PlanFiles::LookAgainAt(std::int16_t first) {
  const fs::path file = FileOf(first);
  const auto known = known_.find(file);
  if (known == known_.end()) return;
  const Content now = ContentOf(file);
  if (std::exchange(known->second.seen, now) == now || now == known->second.mine) return;
  const std::string name = file.filename().string();
  if (!now) {
    services_.history.ForgetSaved(first);
    services_.Changed(first);
    services_.Status(Text::FileGone, name);
  } else if (HasUnsaved(first)) {
    services_.Status(Text::FileChangedUnsaved, name);
  } else {
    ReadAgain(first, file);
  }
}

bool PlanFiles::HasUnsaved(std::int16_t first) const {
  bool unsaved = services_.Document(first).Modified || !panes_.MarkedCells(first).empty();
  for (std::int16_t n = first; n != -1; n = services_.forms(n).NextProfile) {
    unsaved = unsaved || services_.history.OnTrial(n) || services_.runs.Holds(n);
  }
  return unsaved;
}

void PlanFiles::ReadAgain(std::int16_t first, const fs::path& file) {
  const Known before = known_[file];
  ProfileText profile;
  const auto front = services_.Active();
  try {
    KnowsNow(file);  // ahead of the plan: what is written between the two is a change
    profile = ReadProfileFile(file);
  } catch (const std::exception& error) {
    known_[file] = {before.mine, std::nullopt};  // it may be half written: the next look is another one
    return services_.Status(services_.texts.Words(error));
  }
  std::size_t place = 0;
  bool wasFront = false;
  std::vector<std::int16_t> dives;
  for (std::int16_t n = first; n != -1; n = services_.forms(n).NextProfile) {
    if (n == front) place = dives.size();
    wasFront = wasFront || n == front;
    dives.push_back(n);
  }
  for (const std::int16_t n : dives) services_.forms.Unload(n);
  const auto opened = OpenProfile(services_.forms, file, profile);
  services_.history.MarkSaved(opened.front());
  if (wasFront) {
    services_.forms.Activate(opened[std::min(place, opened.size() - 1)]);
  } else if (front) {
    services_.forms.Activate(*front);
  }
  services_.Status(Text::FileReadAgain, file.filename().string());
}

}  // namespace tav
