// Import and export: plans from dive logs and waypoints, plans for dive logs.

#include <chrono>

#include "app/main_form.h"
#include "exchange/import.h"
#include "exchange/uddf_export.h"
#include "persist/text_file.h"
#include "plans/profile_commands.h"

namespace tav {
namespace fs = std::filesystem;

namespace {

constexpr int kImportTitle = 7802;
constexpr int kExportTitle = 7803;
constexpr int kImportFilter = 7804;
constexpr int kExportFilter = 7805;
constexpr int kImportRemarks = 7806;
constexpr int kNotOpened = 7022;
constexpr int kNotSaved = 7023;
constexpr const char* kExchangeFolder = "ExchangeFolder";

}  // namespace

void frmMain::ImportCommand() {
  const fs::path file =
      services_.platform.files.Open({T(kImportTitle), T(kImportFilter), FolderUsedLast(kExchangeFolder), "", "", {}});
  if (!file.empty()) ImportPlan(file);
}

bool frmMain::ImportPlan(const fs::path& file) {
  ImportedDives imported;
  services_.platform.screen.ShowHourglass(true);
  try {
    imported = ImportFile(file, Document(DocumentStore::DefaultDocument).Template, 0, services_.texts);
    const auto opened = OpenProfile(services_.forms, file, imported.profile);
    // It has a name, but no file until the user saves it.
    for (const std::int16_t document : opened) {
      Document(document).ProfileName = file.stem().string() + std::string(kProfileExtension);
      Document(document).ProfileFolder.clear();
      Document(document).Modified = document == opened.front();
      services_.forms.ShowCaption(document);
    }
    services_.platform.screen.ShowHourglass(false);
  } catch (const std::exception& error) {
    services_.platform.screen.ShowHourglass(false);
    services_.platform.boxes.Show(T(kNotOpened) + "\r\n" + services_.texts.Words(error), "", BoxIcon::Stop,
                                  BoxButtons::OK);
    return false;
  }
  KeepFolder(kExchangeFolder, file);
  DocumentActivated();
  if (imported.remarks.empty()) return true;
  constexpr std::size_t kMostShown = 20;
  std::string told = T(kImportRemarks) + "\r\n";
  for (std::size_t i = 0; i < imported.remarks.size() && i < kMostShown; ++i) told += "\r\n" + imported.remarks[i];
  if (imported.remarks.size() > kMostShown) told += "\r\n...";
  services_.platform.boxes.Show(told, "", BoxIcon::Information, BoxButtons::OK);
  return true;
}

void frmMain::ExportCommand() {
  const auto active = Active();
  if (!active) return;
  std::vector<PlannedDive> dives;
  for (std::int16_t n = services_.forms(*active).getFirstProfile(); n != -1; n = services_.forms(n).NextProfile) {
    const std::string fault = services_.forms(n).EvaluationFault();
    if (!fault.empty()) {
      services_.platform.boxes.Show(T(kNotSaved) + "\r\n" + fault, "", BoxIcon::Stop, BoxButtons::OK);
      return;
    }
    dives.push_back(services_.forms(n).Planned());
  }
  const std::string name = fs::path(Document(*active).ProfileName).stem().string();
  const fs::path file = services_.platform.files.Save({T(kExportTitle),
                                                       T(kExportFilter),
                                                       FolderUsedLast(kExchangeFolder),
                                                       name + std::string(kUddfExtension),
                                                       std::string(kUddfExtension),
                                                       {}});
  if (file.empty()) return;
  SaveNotes notes;
  try {
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    notes = WriteTextFile(file, WriteUddf(dives, {TAV_VERSION, now}));
  } catch (const std::exception& error) {
    services_.platform.boxes.Show(T(kNotSaved) + "\r\n" + services_.texts.Words(error), "", BoxIcon::Stop,
                                  BoxButtons::OK);
    return;
  }
  KeepFolder(kExchangeFolder, file);
  TellNotes(file, notes);
}

}  // namespace tav
