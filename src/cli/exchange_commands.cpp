#include <chrono>
#include <filesystem>
#include <ostream>

#include "cli/commands.h"
#include "cli/plan_input.h"
#include "cli/plan_session.h"
#include "exchange/import.h"
#include "exchange/uddf_export.h"
#include "start/user_texts.h"

namespace tav {
namespace {

constexpr int kWithoutLoads = 7785;

}  // namespace

int ExportCommand(const ExportOptions& options, const OutputOptions& model, const ProgramFolders& folders,
                  std::ostream& err) {
  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  try {
    RefuseOwnInput(options.file, options.uddf);
    PlanSession session(texts);
    session.Model() = model.Model();
    const auto documents =
        ChosenDives(options.dive, OpenProfile(session.Forms(), options.file, ReadPlannable(options.file, texts, err)));
    bool decompress = true;
    std::vector<PlannedDive> dives;
    for (const std::int16_t document : documents) {
      dives.push_back(session.Forms()(document).Planned());
      const std::string fault = session.Forms()(document).EvaluationFault();
      if (!fault.empty()) throw FileError(options.file, 0, fault);
      decompress = decompress && session.Documents()(document).Decompresses;
    }
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    TellNotes(options.uddf, WriteTextFile(options.uddf, WriteUddf(dives, {TAV_VERSION, now})), texts, err);
    const frmWaypointEditor& first = session.Forms()(documents.front());
    if (first.PrevProfile != -1) {
      err << options.file << ": " << texts.Filled(kWithoutLoads, {std::to_string(first.DiveNumber)}) << "\n";
    }
    return decompress ? ExitStatus::kFine : ExitStatus::kDoesNotDecompress;
  } catch (const std::exception& error) {
    return Refused(error, "export", texts, err);
  }
}

int ImportCommand(const ImportOptions& options, const ProgramFolders& folders, std::ostream& err) {
  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  try {
    RefuseOwnInput(options.file, options.output);
    DocumentStore documents;
    StartSettings(documents, options.templateName, folders, texts, err);
    const DiveTemplate settings = documents(DocumentStore::DefaultDocument).Template;
    const ImportedDives imported = ImportFile(options.file, settings, options.dive, texts);
    std::string text;
    for (const DiveRecord& dive : imported.profile.dives) {
      text += WriteDiveRecord(dive.Template, dive.SurfaceInterval, dive.UserActions);
    }
    TellNotes(options.output, WriteTextFile(options.output, text), texts, err);
    for (const std::string& remark : imported.remarks) err << options.file << ": " << remark << "\n";
    return ExitStatus::kFine;
  } catch (const std::exception& error) {
    return Refused(error, "import", texts, err);
  }
}

}  // namespace tav
