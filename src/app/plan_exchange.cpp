#include "app/plan_exchange.h"

#include <cctype>
#include <chrono>

#include "exchange/import.h"
#include "exchange/uddf_export.h"
#include "model/text_id.h"
#include "plans/profile_commands.h"
#include "platform/used_folder.h"

namespace tav {
namespace fs = std::filesystem;

namespace {

constexpr const char* kExchangeFolder = "ExchangeFolder";

}  // namespace

void PlanExchange::ImportChosen() const {
  const fs::path file = services_.platform.files.Open({services_.T(Text::ImportTitle),
                                                       services_.T(Text::ImportFilter),
                                                       FolderUsedLast(services_.platform.settings, kExchangeFolder),
                                                       "",
                                                       "",
                                                       {}});
  if (!file.empty()) static_cast<void>(Import(file));  // it has told what is wrong
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
    services_.TellFailure(services_.T(Text::FileNotOpened), error);
    return false;
  }
  KeepFolder(services_.platform.settings, kExchangeFolder, file);
  if (imported.remarks.empty()) return true;
  constexpr std::size_t kMostShown = 20;
  std::string told = services_.T(Text::ImportRemarks) + "\r\n";
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
    if (!fault.empty()) return services_.Tell(services_.T(Text::FileNotSaved) + "\r\n" + fault, BoxIcon::Stop);
    dives.push_back(forms(n).Planned());
  }
  const std::string name = fs::path(services_.Document(*active).ProfileName).stem().string();
  SettingsStore& settings = services_.platform.settings;
  const fs::path file = services_.platform.files.Save({services_.T(Text::ExportTitle),
                                                       services_.T(Text::ExportFilter),
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
    services_.TellFailure(services_.T(Text::FileNotSaved), error);
    return;
  }
  KeepFolder(settings, kExchangeFolder, file);
  services_.Status(Text::StatusWritten, file.filename().string());
  services_.TellNotes(file, notes);
}

fs::path PlanExchange::AskForPicture(std::int16_t document, int title, const std::string& filter,
                                     const std::string& extension) const {
  const fs::path name = fs::path(services_.Document(document).ProfileName).replace_extension(extension);
  SettingsStore& settings = services_.platform.settings;
  fs::path file = services_.platform.files.Save(
      {services_.T(title), filter, FolderUsedLast(settings, kPlanFolder), name.string(), extension, {}});
  if (!file.empty()) KeepFolder(settings, kPlanFolder, file);
  return file;
}

void PlanExchange::TellWritten(const fs::path& file, bool written) const {
  if (written) {
    services_.Status(Text::StatusWritten, file.filename().string());
  } else {
    services_.Tell(services_.T(Text::FileNotSaved) + "\r\n" + file.string(), BoxIcon::Stop);
  }
}

void PlanExchange::ExportGraph(bool svg) const {
  const auto active = services_.Active();
  if (!active) return;
  const fs::path file = AskForPicture(*active, svg ? Text::ExportSvg : Text::ExportPng,
                                      services_.T(svg ? Text::SvgFilter : Text::PngFilter), svg ? ".svg" : ".png");
  if (!file.empty()) TellWritten(file, services_.view.ExportGraph(*active, file.string(), svg));
}

void PlanExchange::ExportPicture(const FilePicture& picture) const {
  const auto active = services_.Active();
  if (!active) return;
  const std::string filter = services_.T(Text::PngFilter) + ";;" + services_.T(Text::SvgFilter);
  const fs::path file = AskForPicture(*active, Text::MarginsExportTitle, filter, ".png");
  if (file.empty()) return;
  std::string ending = file.extension().string();
  for (char& c : ending) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  TellWritten(file, services_.view.SavePicture(file.string(), picture, ending == ".svg"));
}

}  // namespace tav
