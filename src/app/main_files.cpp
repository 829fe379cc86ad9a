// The file commands of the main window, and what keeps plans from being lost.

#include <cstdlib>

#include "app/main_form.h"
#include "dialogs/unit_change.h"
#include "exchange/import.h"
#include "model/path_text.h"
#include "persist/template_file.h"
#include "plans/captions.h"
#include "plans/profile_commands.h"
#include "platform/used_folder.h"
#include "start/user_texts.h"

namespace tav {
namespace fs = std::filesystem;

namespace {

constexpr int kOpenTitle = 2303;
constexpr int kSaveTitle = 2305;
constexpr int kProfileFilter = 2306;
constexpr int kTemplateFilter = 2307;
constexpr int kLoadTemplateTitle = 2308;
constexpr int kSaveTemplateTitle = 2301;
constexpr int kSaveTemplateQuestion = 2300;
constexpr int kNotOpened = 7022;
constexpr int kNotSaved = 7023;
constexpr int kSavedBut = 8066;
constexpr int kTemplateIgnored = 7953;
constexpr int kHeldByTables = 8001;
constexpr int kSavedWithout = 8003;
constexpr int kClosedWithout = 8004;
constexpr int kCloseLaterDive = 8050;
constexpr int kCloseLaterDiveTitle = 8051;
constexpr int kTakeOut = 8052;
constexpr int kCloseSeries = 8053;
constexpr int kStay = 8054;

// Settings: the folders used last.
constexpr const char* kPlanFolder = "PlanFolder";
constexpr const char* kTemplateFolder = "TemplateFolder";

}  // namespace

fs::path frmMain::FolderUsedLast(const char* setting) const {
  return tav::FolderUsedLast(services_.platform.settings, setting);
}

void frmMain::KeepFolder(const char* setting, const fs::path& file) {
  tav::KeepFolder(services_.platform.settings, setting, file);
}

void frmMain::OpenProfileCommand() {
  const fs::path file =
      services_.platform.files.Open({T(kOpenTitle), T(kProfileFilter), FolderUsedLast(kPlanFolder), "", "", {}});
  if (!file.empty()) OpenFile(file);
}

bool frmMain::OpenFile(const fs::path& file) {
  FinishEdits();
  if (file.extension() == kTemplateExtension) {
    LoadTemplateFrom(file);
    return true;
  }
  if (file.extension() == kUddfExtension || file.extension() == kCsvExtension) return ImportPlan(file);
  try {
    services_.platform.screen.ShowHourglass(true);
    const ProfileText profile = ReadProfileFile(file);
    const auto opened = OpenProfile(services_.forms, file, profile);
    if (!opened.empty()) services_.history.MarkSaved(opened.front());
    services_.platform.screen.ShowHourglass(false);
    ShowAdvice(file, profile.advice);
  } catch (const std::exception& error) {
    services_.platform.screen.ShowHourglass(false);
    services_.recent.Remove(file);
    FillRecent();
    services_.platform.boxes.Show(T(kNotOpened) + "\r\n" + services_.texts.Words(error), "", BoxIcon::Stop,
                                  BoxButtons::OK);
    return false;
  }
  KeepFolder(kPlanFolder, file);
  services_.recent.Add(file);
  FillRecent();
  DocumentActivated();
  return true;
}

bool frmMain::SaveProfileCommand(bool saveAs) {
  FinishEdits();
  const auto active = Active();
  if (!active || !SaveDocument(*active, saveAs)) return false;
  const std::string cells = MarkedCells(*active);
  if (!cells.empty()) {
    services_.platform.boxes.Show(T(kSavedWithout) + "\r\n\r\n" + cells, "", BoxIcon::Exclamation, BoxButtons::OK);
  }
  return true;
}

bool frmMain::SaveDocument(std::int16_t document, bool saveAs) {
  const std::int16_t first = services_.forms(document).getFirstProfile();
  const DocumentState& dive = Document(first);
  if (!saveAs && !dive.ProfileFolder.empty()) return SaveSeries(first, fs::path(dive.ProfileFolder) / dive.ProfileName);
  const fs::path folder = dive.ProfileFolder.empty() ? FolderUsedLast(kPlanFolder) : fs::path(dive.ProfileFolder);
  const fs::path file = services_.platform.files.Save(
      {T(kSaveTitle), T(kProfileFilter), folder, dive.ProfileName, std::string(kProfileExtension), {}});
  return !file.empty() && SaveSeries(first, file);
}

bool frmMain::SaveSeries(std::int16_t document, const fs::path& file) {
  SaveNotes notes;
  try {
    notes = SaveProfile(services_.forms, document, file);
  } catch (const std::exception& error) {
    services_.platform.boxes.Show(T(kNotSaved) + "\r\n" + services_.texts.Words(error), "", BoxIcon::Stop,
                                  BoxButtons::OK);
    return false;
  }
  services_.history.MarkSaved(document);
  planPane_.MarkUnfinished();
  KeepFolder(kPlanFolder, file);
  services_.recovery.Drop(document);
  services_.recent.Add(file);
  FillRecent();
  SyncCommands();
  TellNotes(file, notes);
  return true;
}

void frmMain::TellNotes(const fs::path& file, const SaveNotes& notes) {
  if (notes.empty()) return;
  std::string told = services_.texts.Filled(kSavedBut, {file.string()}) + "\r\n";
  for (const Message& note : notes) told += "\r\n" + services_.texts.Words(note);
  services_.platform.boxes.Show(told, "", BoxIcon::Information, BoxButtons::OK);
}

void frmMain::LoadTemplateCommand() {
  const fs::path file =
      services_.platform.files.Open({T(kLoadTemplateTitle),
                                     T(kTemplateFilter),
                                     FolderUsedLast(kTemplateFolder),
                                     "",
                                     "",
                                     {services_.folders.OwnTemplates(), services_.folders.ShippedTemplates()}});
  if (!file.empty()) LoadTemplateFrom(file);
}

void frmMain::ShowAdvice(const fs::path& file, const std::vector<FormatFault>& advice) {
  const std::string text = AdviceText(services_.texts, file, advice);
  if (!text.empty()) services_.platform.boxes.Show(text, "", BoxIcon::Information, BoxButtons::OK);
}

void frmMain::LoadTemplateFrom(const fs::path& file) {
  const auto active = Active();
  if (active && services_.runs.Holds(*active)) {
    services_.platform.boxes.Show(T(kHeldByTables), "", BoxIcon::Information, BoxButtons::OK);
    return;
  }
  // The file may tell a part of the settings only; the others stay.
  DiveTemplate loaded = Document(active.value_or(DocumentStore::DefaultDocument)).Template;
  try {
    ShowAdvice(file, LoadTemplateFile(loaded, file));
  } catch (const FileError& error) {
    services_.platform.boxes.Show(
        services_.texts.Filled(kTemplateIgnored, {file.string()}) + "\r\n" + services_.texts.Words(error), "",
        BoxIcon::Stop, BoxButtons::OK);
    return;
  }
  KeepFolder(kTemplateFolder, file);
  if (!active) {
    CopyDiveTemplate(loaded, Document(DocumentStore::DefaultDocument).Template);
    return;
  }
  DocumentState& document = Document(*active);
  const bool wasMetric = document.Template.Metric;
  CopyDiveTemplate(loaded, document.Template);
  document.Template.Templatename = SplitPath(file.string(), PathPart::FileName);
  document.TemplateTitle = document.Template.Templatename;
  services_.forms.ShowCaption(*active);
  services_.forms(*active).SetTemplate();
  OfferToConvertDepths(Dialogs(), *active, wasMetric);
  services_.platform.screen.ShowHourglass(true);
  ApplyToProfile();
  services_.platform.screen.ShowHourglass(false);
  SyncCommands();
}

void frmMain::SaveTemplateCommand() {
  const auto active = Active();
  DocumentState& document = Document(active.value_or(DocumentStore::DefaultDocument));
  DiveTemplate& diveTemplate = document.Template;
  if (!diveTemplate.TemplateChanged) return;
  const TextSource& texts = services_.texts;
  if (services_.platform.boxes.Show(texts.GetResString(kSaveTemplateQuestion), "", BoxIcon::Question,
                                    BoxButtons::OKCancel) != BoxAnswer::OK) {
    return;
  }
  // One that came with the program becomes one of the user's own, which is found before it.
  const ProgramFolders& folders = services_.folders;
  const bool shipped = fs::path(diveTemplate.TemplateFolder).lexically_normal() == folders.ShippedTemplates() / "";
  const fs::path folder =
      shipped || diveTemplate.TemplateFolder.empty() ? folders.OwnTemplates() : fs::path(diveTemplate.TemplateFolder);
  std::error_code ignored;  // the dialog then starts above it
  fs::create_directories(folder, ignored);
  const fs::path file = services_.platform.files.Save({T(kSaveTemplateTitle),
                                                       T(kTemplateFilter),
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
    KeepFolder(kTemplateFolder, file);
  } catch (const std::exception& error) {
    services_.platform.boxes.Show(T(kNotSaved) + "\r\n" + services_.texts.Words(error), "", BoxIcon::Stop,
                                  BoxButtons::OK);
    return;
  }
  if (active) services_.forms.ShowCaption(*active);
  TellNotes(file, notes);
}

fs::path frmMain::OwnDefaultTemplate() const { return services_.folders.OwnTemplates() / "Default.tpl"; }

void frmMain::KeepDefaultTemplate() {
  DiveTemplate& settings = Document(DocumentStore::DefaultDocument).Template;
  const fs::path file = OwnDefaultTemplate();
  std::error_code ignored;  // the write tells
  fs::create_directories(file.parent_path(), ignored);
  try {
    DiveTemplate named = settings;
    named.Templatename = file.filename().string();
    TellNotes(file, SaveTemplateFile(named, file));
    settings.Templatename = named.Templatename;
    settings.TemplateFolder = SplitPath(file.string(), PathPart::DriveFolder);
    settings.TemplateChanged = false;
  } catch (const std::exception& error) {
    services_.platform.boxes.Show(T(kNotSaved) + "\r\n" + services_.texts.Words(error), "", BoxIcon::Stop,
                                  BoxButtons::OK);
  }
}

bool frmMain::CloseDocument(std::int16_t document) {
  FinishEdits();
  frmWaypointEditor& editor = services_.forms(document);
  if (editor.PrevProfile != -1) return CloseLaterDive(document);
  const auto save = [&] { return SaveDocument(document, true); };
  if (!editor.Form_QueryUnload(true, save, LostCells(document))) return false;
  EndDocument(document);
  DocumentActivated();
  return true;
}

std::string frmMain::LostCells(std::int16_t document) {
  const std::string cells = MarkedCells(document);
  return cells.empty() ? "" : T(kClosedWithout) + "\r\n" + cells;
}

bool frmMain::CloseLaterDive(std::int16_t document) {
  const frmWaypointEditor& editor = services_.forms(document);
  const std::int16_t before = editor.PrevProfile;
  const std::string lost = LostCells(document);
  const std::string question =
      (lost.empty() ? "" : lost + "\r\n\r\n") +
      services_.texts.Filled(kCloseLaterDive, {Document(document).ProfileName, std::to_string(editor.DiveNumber),
                                               std::to_string(services_.forms(before).DiveNumber)});
  const BoxAnswer answer = services_.platform.boxes.ShowWithChoices(
      question, T(kCloseLaterDiveTitle), BoxIcon::Question, {T(kTakeOut), T(kCloseSeries), T(kStay)});
  if (answer == BoxAnswer::No) return CloseDocument(editor.getFirstProfile());
  if (answer != BoxAnswer::Yes) return false;
  services_.history.TakeOut(document);
  services_.platform.documentWindows.ActivateWindow(before);
  DocumentActivated();
  return true;
}

void frmMain::EndDocument(std::int16_t document) {
  services_.recovery.Drop(document);
  services_.history.Forget(document);
  services_.forms.Unload(document);
  services_.platform.documentWindows.RemoveWindow(document);
}

std::vector<std::int16_t> frmMain::OpenDocuments() const {
  std::vector<std::int16_t> open;
  const DocumentStore& documents = services_.forms.Services().documents;
  for (std::int16_t n = 1; n <= documents.UpperBound(); ++n) {
    if (!documents(n).SlotFree) open.push_back(n);
  }
  return open;
}

bool frmMain::Form_QueryUnload(bool /*byUser*/) {
  FinishEdits();
  // All questions first: a Cancel leaves every plan open.
  for (const std::int16_t document : OpenDocuments()) {
    if (services_.forms(document).PrevProfile != -1) continue;
    const auto save = [&] { return SaveDocument(document, true); };
    if (!services_.forms(document).ConfirmClose(save, LostCells(document))) return false;
  }
  return true;
}

void frmMain::Form_Unload() {
  services_.runs.EndAll();
  KeepPanes();
  for (const std::int16_t document : OpenDocuments()) {
    services_.forms(document).LeaveDocument(false);
    EndDocument(document);
  }
  if (services_.view.IsMinimised()) return;
  const Placement place = services_.view.PlaceNow();
  SettingsStore& settings = services_.platform.settings;
  settings.WriteSetting("Settings", "MainLeft", std::to_string(place.left));
  settings.WriteSetting("Settings", "MainTop", std::to_string(place.top));
  settings.WriteSetting("Settings", "MainWidth", std::to_string(place.width));
  settings.WriteSetting("Settings", "MainHeight", std::to_string(place.height));
}

void frmMain::ExportGraph(bool svg) {
  const auto active = Active();
  if (!active) return;
  const std::string extension = svg ? ".svg" : ".png";
  const fs::path name = fs::path(Document(*active).ProfileName).replace_extension(extension);
  const fs::path file = services_.platform.files.Save(
      {T(svg ? 7006 : 7005), T(svg ? 7027 : 7026), FolderUsedLast(kPlanFolder), name.string(), extension, {}});
  if (file.empty()) return;
  KeepFolder(kPlanFolder, file);
  if (!services_.view.ExportGraph(*active, file.string(), svg)) {
    services_.platform.boxes.Show(T(kNotSaved) + "\r\n" + file.string(), "", BoxIcon::Stop, BoxButtons::OK);
  }
}

}  // namespace tav
