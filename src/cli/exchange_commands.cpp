#include <chrono>
#include <ostream>

#include "app/start_up.h"
#include "app/user_texts.h"
#include "cli/commands.h"
#include "cli/plan_input.h"
#include "cli/plan_session.h"
#include "exchange/import.h"
#include "exchange/uddf_export.h"

namespace tav {

int ExportCommand(const ExportOptions& options, const OutputOptions& model, const ProgramFolders& folders,
                  std::ostream& err) {
  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  try {
    PlanSession session(texts);
    session.Model() = {model.vpm, model.hybrid};
    auto documents = OpenProfile(session.Forms(), options.file, ReadPlannable(options.file));
    const int dives = static_cast<int>(documents.size());
    if (options.dive < 0 || options.dive > dives) {
      throw FileError(
          options.file, 0,
          "--dive " + std::to_string(options.dive) + " is not among its " + std::to_string(dives) + " dives");
    }
    if (options.dive > 0) documents = {documents[static_cast<std::size_t>(options.dive) - 1]};
    bool decompress = true;
    for (const std::int16_t document : documents) {
      const std::string& fault = session.Forms()(document).EvaluationFault();
      if (!fault.empty()) throw FileError(options.file, 0, fault);
      decompress = decompress && session.Documents()(document).Decompresses;
    }
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    WriteTextFile(options.uddf, WriteUddf(session.Forms(), documents, {TAV_VERSION, now}));
    return decompress ? ExitStatus::kFine : ExitStatus::kDoesNotDecompress;
  } catch (const std::exception& error) {
    err << texts.Words(error) << "\n";
    return ExitStatus::kUnusableInput;
  }
}

int ImportCommand(const ImportOptions& options, const ProgramFolders& folders, std::ostream& err) {
  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  try {
    DocumentStore documents;
    const auto fault = InitDocuments(documents, folders);
    DiveTemplate settings = documents(DocumentStore::DefaultDocument).Template;
    if (!options.templateName.empty()) {
      LoadPlannable(settings, options.templateName, folders);
    } else if (fault) {
      err << texts.Words(*fault) << "; the built-in settings stand in\n";
    }
    const ImportedDives imported = ImportFile(options.file, settings, options.dive, texts);
    std::string text;
    for (const DiveRecord& dive : imported.profile.dives) {
      text += WriteDiveRecord(dive.Template, dive.SurfaceInterval, dive.UserActions);
    }
    WriteTextFile(options.output, text);
    for (const std::string& remark : imported.remarks) err << options.file << ": " << remark << "\n";
    return ExitStatus::kFine;
  } catch (const std::exception& error) {
    err << texts.Words(error) << "\n";
    return ExitStatus::kUnusableInput;
  }
}

}  // namespace tav
