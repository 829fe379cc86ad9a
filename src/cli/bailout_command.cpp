#include <algorithm>
#include <optional>
#include <ostream>

#include "cli/commands.h"
#include "cli/plan_input.h"
#include "cli/plan_output.h"
#include "cli/table_output.h"
#include "cli/table_pdf.h"
#include "compute/bailout_cuts.h"
#include "model/number_text.h"
#include "model/numbers.h"
#include "start/user_texts.h"

namespace tav {
namespace {

// Texts by number.
constexpr int kHeading = 7981;
constexpr int kLost = 7982;
constexpr int kAllGases = 7983;
constexpr int kDiveOf = 7336;

/// Which dive of a series it is, to be put behind the name of the file: two sheets of one file must not be mistaken for
/// each other. Empty for a single dive.
std::string DiveOf(std::int16_t document, const std::vector<std::int16_t>& documents, const TextSource& texts) {
  if (documents.size() == 1) return {};
  const auto place = std::find(documents.begin(), documents.end(), document) - documents.begin();
  return texts.Filled(kDiveOf, {std::to_string(place + 1), std::to_string(documents.size())});
}

Single ChosenInterval(const std::string& text) {
  const Single interval = NumberOf(text, "--interval", 0, BailoutCuts::kLongestInterval);
  if (interval == RoundSingle(interval, 0)) return interval;
  return static_cast<double>(WholeNumberOf(text, "--interval", 0, BailoutCuts::kLongestInterval));  // says so
}

}  // namespace

int BailoutCommand(const BailoutOptions& bailout, const OutputOptions& options, const ProgramFolders& folders,
                   std::ostream& out, std::ostream& err) {
  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  PlanSession session(texts);
  try {
    ApplyOptions(options, session);
    const Single interval = ChosenInterval(bailout.interval);
    const auto documents = OpenProfile(session.Forms(), bailout.file, ReadPlannable(bailout.file, texts, err));
    const std::int16_t document = ChosenDive(bailout.dive, documents);
    const BailoutCuts cuts(session.Forms()(document).Planned(), session.Model(), interval, session.Trace());
    if (!cuts.Fault().IsEmpty()) throw FileError(bailout.file, 0, cuts.Fault());

    const bool json = options.form == OutputForm::Json;
    std::optional<TablePdf> pdf;
    const std::string dive = DiveOf(document, documents, texts);
    if (!bailout.pdf.empty()) pdf.emplace(folders, bailout.pdf, session.Documents()(document).ProfileName + dive);
    TableOutput output(out, texts,
                       json  ? TableOutput::Form::Data
                       : pdf ? TableOutput::Form::Nothing
                             : TableOutput::Form::Text);
    output.Begin({{"interval", Digits(cuts.Interval())}}, "scenarios",
                 texts.Filled(kHeading, {bailout.file + dive, FormatPlain(cuts.Interval())}) + "\n" +
                     SettingsOfTables(session.Documents()(document).Template, session.Model(), true, texts));
    for (int i = 0; i < cuts.Scenarios(); ++i) {
      const auto scenario = cuts.Compute(i, [](int, int) { return true; });
      if (pdf) pdf->Print(*scenario);
      const std::optional<std::string>& lost = scenario->lost;
      output.Print(*scenario, {{"lost", lost ? Json(*lost) : Json()}},
                   lost ? texts.Filled(kLost, {*lost}) : texts.GetResString(kAllGases));
    }
    output.End();
    if (pdf) pdf->Write(std::filesystem::path(bailout.file).stem().string() + dive);
    return output.Decompresses() ? ExitStatus::kFine : ExitStatus::kDoesNotDecompress;
  } catch (const std::exception& error) {
    return Refused(error, "bailout", texts, err);
  }
}

}  // namespace tav
