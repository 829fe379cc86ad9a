#include "app/template_files.h"

#include "dialogs/unit_change.h"
#include "model/path_text.h"
#include "model/text_id.h"
#include "persist/template_file.h"
#include "platform/used_folder.h"
#include "start/user_texts.h"

namespace tav {
namespace fs = std::filesystem;

void TemplateFiles::LoadChosen() const {
  const fs::path file =
      services_.platform.files.Open({services_.T(Text::LoadTemplateTitle),
                                     services_.T(Text::TemplateFilter),
                                     FolderUsedLast(services_.platform.settings, kTemplateFolder),
                                     "",
                                     "",
                                     {services_.folders.OwnTemplates(), services_.folders.ShippedTemplates()}});
  if (!file.empty()) Load(file);
}

void TemplateFiles::Load(const fs::path& file) const {
  const auto active = services_.Active();
  if (active && services_.runs.Holds(*active)) {
    services_.Tell(services_.T(Text::HeldByTables), BoxIcon::Information);
    return;
  }
  // The file may tell a part of the settings only; the others stay.
  DocumentState& document = services_.Document(active.value_or(DocumentStore::DefaultDocument));
  DiveTemplate loaded = document.Template;
  try {
    const std::string advice = AdviceText(services_.texts, file, LoadTemplateFile(loaded, file));
    if (!advice.empty()) services_.Tell(advice, BoxIcon::Information);
  } catch (const FileError& error) {
    services_.TellFailure(services_.texts.Filled(Text::TemplateIgnored, {file.string()}), error);
    return;
  }
  KeepFolder(services_.platform.settings, kTemplateFolder, file);
  const bool wasMetric = document.Template.Metric;
  CopyDiveTemplate(loaded, document.Template);
  if (!active) return;
  document.Template.Templatename = SplitPath(file.string(), PathPart::FileName);
  document.TemplateTitle = document.Template.Templatename;
  services_.forms(*active).SetTemplate();
  OfferToConvertDepths(dialogs_, *active, wasMetric);
  services_.platform.screen.ShowHourglass(true);
  dialogs_.applyToProfile();
  services_.platform.screen.ShowHourglass(false);
}

void TemplateFiles::Save() const {
  const auto active = services_.Active();
  DocumentState& document = services_.Document(active.value_or(DocumentStore::DefaultDocument));
  DiveTemplate& diveTemplate = document.Template;
  if (!diveTemplate.TemplateChanged) return;
  const Platform& platform = services_.platform;
  if (platform.boxes.Show(services_.T(Text::SaveTemplateQuestion), "", BoxIcon::Question, BoxButtons::OKCancel) !=
      BoxAnswer::OK) {
    return;
  }
  // One that came with the program becomes one of the user's own, which is found before it.
  const ProgramFolders& folders = services_.folders;
  const bool shipped = fs::path(diveTemplate.TemplateFolder).lexically_normal() == folders.ShippedTemplates() / "";
  const fs::path folder =
      shipped || diveTemplate.TemplateFolder.empty() ? folders.OwnTemplates() : fs::path(diveTemplate.TemplateFolder);
  std::error_code ignored;  // the dialog then starts above it
  fs::create_directories(folder, ignored);
  const fs::path file = platform.files.Save({services_.T(Text::SaveTemplateTitle),
                                             services_.T(Text::TemplateFilter),
                                             folder,
                                             diveTemplate.Templatename,
                                             std::string(kTemplateExtension),
                                             {folders.OwnTemplates()}});
  if (file.empty()) return;
  SaveNotes notes;
  try {
    DiveTemplate named = diveTemplate;
    named.Templatename = SplitPath(file.string(), PathPart::FileName);
    const DiveTemplate before = diveTemplate;
    notes = SaveTemplateFile(named, file);
    diveTemplate.Templatename = named.Templatename;
    diveTemplate.TemplateFolder = SplitPath(file.string(), PathPart::DriveFolder);
    if (active) {
      document.TemplateTitle = named.Templatename;
      services_.history.TemplateNamed(*active, before);
    }
  } catch (const std::exception& error) {
    services_.TellFailure(services_.T(Text::FileNotSaved), error);
    return;
  }
  KeepFolder(platform.settings, kTemplateFolder, file);
  if (active) services_.Changed(*active);
  services_.Status(Text::StatusWritten, file.filename().string());
  services_.TellNotes(file, notes);
}

void TemplateFiles::KeepDefault() const {
  DiveTemplate& settings = services_.Document(DocumentStore::DefaultDocument).Template;
  const fs::path file = OwnDefault();
  std::error_code ignored;  // the write tells
  fs::create_directories(file.parent_path(), ignored);
  try {
    DiveTemplate named = settings;
    named.Templatename = file.filename().string();
    services_.TellNotes(file, SaveTemplateFile(named, file));
    settings.Templatename = named.Templatename;
    settings.TemplateFolder = SplitPath(file.string(), PathPart::DriveFolder);
    settings.TemplateChanged = false;
  } catch (const std::exception& error) {
    services_.TellFailure(services_.T(Text::FileNotSaved), error);
  }
}

}  // namespace tav
