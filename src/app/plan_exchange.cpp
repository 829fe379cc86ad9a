#include "app/plan_exchange.h"

#include <chrono>

#include "exchange/import.h"
#include "exchange/uddf_export.h"
#include "plans/profile_commands.h"
#include "platform/used_folder.h"

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

void PlanExchange::ImportChosen() const {
  const fs::path file = services_.platform.files.Open({services_.T(kImportTitle),
                                                       services_.T(kImportFilter),
                                                       FolderUsedLast(services_.platform.settings, kExchangeFolder),
                                                       "",
                                                       "",
                                                       {}});
  if (!file.empty()) Import(file);
}

bool PlanExchange::Import(const fs::path& file) const {
  ImportedDives imported;
  Screen& screen = services_.platform.screen;
  screen.ShowHourglass(true);
  try {
    imported = ImportFile(file, services_.Document(DocumentStore::DefaultDocument).Template, 0, services_.texts);
    const auto opened = OpenProfile(services_.forms, file, imported.profile);
    // It has a name, but no file until the user saves it.
    for (const std::int16_t n : opened) {
      DocumentState& document = services_.Document(n);
      document.ProfileName = file.stem().string() + std::string(kProfileExtension);
      document.ProfileFolder.clear();
      document.Modified = n == opened.front();
      services_.Changed(n);
    }
    screen.ShowHourglass(false);
  } catch (const std::exception& error) {
    screen.ShowHourglass(false);
    services_.TellFailure(services_.T(kNotOpened), error);
    return false;
  }
  KeepFolder(services_.platform.settings, kExchangeFolder, file);
  if (imported.remarks.empty()) return true;
  constexpr std::size_t kMostShown = 20;
  std::string told = services_.T(kImportRemarks) + "\r\n";
  for (std::size_t i = 0; i < imported.remarks.size() && i < kMostShown; ++i) told += "\r\n" + imported.remarks[i];
  if (imported.remarks.size() > kMostShown) told += "\r\n...";
  services_.Tell(told, BoxIcon::Information);
  return true;
}

void PlanExchange::Export() const {
  const auto active = services_.Active();
  if (!active) return;
  DocumentForms& forms = services_.forms;
  std::vector<PlannedDive> dives;
  for (std::int16_t n = forms(*active).getFirstProfile(); n != -1; n = forms(n).NextProfile) {
    const std::string fault = forms(n).EvaluationFault();
    if (!fault.empty()) return services_.Tell(services_.T(kNotSaved) + "\r\n" + fault, BoxIcon::Stop);
    dives.push_back(forms(n).Planned());
  }
  const std::string name = fs::path(services_.Document(*active).ProfileName).stem().string();
  SettingsStore& settings = services_.platform.settings;
  const fs::path file = services_.platform.files.Save({services_.T(kExportTitle),
                                                       services_.T(kExportFilter),
                                                       FolderUsedLast(settings, kExchangeFolder),
                                                       name + std::string(kUddfExtension),
                                                       std::string(kUddfExtension),
                                                       {}});
  if (file.empty()) return;
  SaveNotes notes;
  try {
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    notes = WriteTextFile(file, WriteUddf(dives, {TAV_VERSION, now}));
  } catch (const std::exception& error) {
    services_.TellFailure(services_.T(kNotSaved), error);
    return;
  }
  KeepFolder(settings, kExchangeFolder, file);
  services_.TellNotes(file, notes);
}

void PlanExchange::ExportGraph(bool svg) const {
  const auto active = services_.Active();
  if (!active) return;
  const std::string extension = svg ? ".svg" : ".png";
  const fs::path name = fs::path(services_.Document(*active).ProfileName).replace_extension(extension);
  SettingsStore& settings = services_.platform.settings;
  const fs::path file = services_.platform.files.Save({services_.T(svg ? 7006 : 7005),
                                                       services_.T(svg ? 7027 : 7026),
                                                       FolderUsedLast(settings, kPlanFolder),
                                                       name.string(),
                                                       extension,
                                                       {}});
  if (file.empty()) return;
  KeepFolder(settings, kPlanFolder, file);
  if (!services_.view.ExportGraph(*active, file.string(), svg)) {
    services_.Tell(services_.T(kNotSaved) + "\r\n" + file.string(), BoxIcon::Stop);
  }
}

}  // namespace tav
