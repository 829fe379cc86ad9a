#include <optional>
#include <ostream>
#include <sstream>

#include "cli/commands.h"
#include "cli/plan_input.h"
#include "cli/plan_output.h"
#include "cli/table_output.h"
#include "cli/table_pdf.h"
#include "compute/square_dives.h"
#include "model/number_text.h"
#include "model/numbers.h"
#include "start/user_texts.h"

namespace tav {
namespace {

// Texts by number.
constexpr int kMustBe = 7959;
constexpr int kHeading = 7984;
constexpr int kDescentCounts = 7985;
constexpr int kDescentLeftOut = 7986;
constexpr int kRounded = 7987;
constexpr int kNotWhole = 7849;

constexpr double kLargestStep = 1000;  // a step beyond it is one of a single dive

struct Axis {
  Single from, to, step;
};

/// "FROM:TO:STEP" in whole numbers; what has decimals is rounded, and `err` told.
Axis AxisOf(const std::string& text, const std::string& option, const TextSource& texts, std::ostream& err) {
  const std::size_t first = text.find(':');
  const std::size_t second = first == std::string::npos ? first : text.find(':', first + 1);
  if (second == std::string::npos) throw OptionError({kMustBe, {option, text, "FROM:TO:STEP"}});
  const auto number = [&](std::size_t from, std::size_t to) {
    const Single value = NumberOf(text.substr(from, to - from), option);
    const Single whole = RoundSingle(value, 0);
    if (whole != value) {
      err << "tavplan tables: " << texts.Filled(kRounded, {option, FormatPlain(value), FormatPlain(whole)}) << "\n";
    }
    return whole;
  };
  const std::string step = text.substr(second + 1);
  const Single asked = NumberOf(step, option);
  if (asked > 0 && asked < 0.5) throw OptionError({kNotWhole, {option, step, "1", FormatPlain(kLargestStep)}});
  return {number(0, first), number(first + 1, second), number(second + 1, text.size())};
}

}  // namespace

int TablesCommand(const TablesOptions& tables, const OutputOptions& options, const ProgramFolders& folders,
                  std::ostream& out, std::ostream& err) {
  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  PlanSession session(texts);
  try {
    ApplyOptions(options, session);
    StartSettings(session.Documents(), tables.templateName, folders, texts, err);
    DiveTemplate& settings = session.Documents()(DocumentStore::DefaultDocument).Template;
    const std::int16_t mix = MixNumber(tables.gas, settings);
    std::ostringstream rounded;
    const Axis depths = AxisOf(tables.depths, "--depths", texts, rounded);
    const Axis times = AxisOf(tables.times, "--times", texts, rounded);
    const TableAxes axes{depths.from, depths.to, depths.step, times.from, times.to, times.step};
    const AxesFault axesFault = FindAxesFault(axes);
    if (axesFault != AxesFault::None) throw OptionError(TextOf(axesFault));

    SquareDives dives(settings, session.Model(), {mix, !tables.descentCounts, axes}, session.Trace());
    if (!dives.Fault().IsEmpty()) throw OptionError(dives.Fault());
    err << rounded.str();
    const std::string unit = settings.Metric ? " m" : " ft";
    std::optional<TablePdf> pdf;
    if (!tables.pdf.empty()) pdf.emplace(folders, tables.pdf, "");
    const bool json = options.form == OutputForm::Json;
    TableOutput output(out, texts,
                       json  ? TableOutput::Form::Data
                       : pdf ? TableOutput::Form::Nothing
                             : TableOutput::Form::Text);
    output.Begin({{"gas", tables.gas}}, "tables",
                 texts.Filled(kHeading, {tables.gas}) + "\n" +
                     texts.GetResString(tables.descentCounts ? kDescentCounts : kDescentLeftOut) + "\n" +
                     SettingsOfTables(settings, session.Model(), false, texts));
    while (const auto table = dives.Next([](int, int) { return true; })) {
      if (pdf) pdf->Print(*table);
      const Single depth = table->dives.back().depth;
      output.Print(*table, {{"depth", Digits(depth)}}, FormatPlain(depth) + unit);
    }
    output.End();
    if (pdf) pdf->Write(texts.Filled(kHeading, {tables.gas}));
    return output.Decompresses() ? ExitStatus::kFine : ExitStatus::kDoesNotDecompress;
  } catch (const std::exception& error) {
    return Refused(error, "tables", texts, err);
  }
}

}  // namespace tav
