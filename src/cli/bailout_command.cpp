#include "cli/command_frame.h"
#include "cli/option_values.h"
#include "cli/table_output.h"
#include "compute/bailout_cuts.h"
#include "model/number_text.h"
#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Cuts a plan off at regular moments of its run time and prints the ascent from each of them on open circuit as "
    "tables: one for the loss of each gas of the change list, the last with all of them. The head of a column is the "
    "minute at which the ascent begins.\n"
    "Rows are the depths at which the last dive of a table stops or changes its gas, with that gas as oxygen and "
    "helium "
    "per cent, and cells are minutes of stop. What a table so leaves out, or gives with another gas than a dive "
    "breathes "
    "there, is told right below it behind a \"!\". --json has every row of every dive, too, and the places of the "
    "tables on paper, where those stand behind the ways out that take longest and most gas.\n"
    "With --leg-ends the moments are those at which a leg ends under water: few, and the dearest of a plan on open "
    "circuit.";

constexpr const char* kExamples = R"(
  tavplan bailout dives/trimix-100.tav       the way out from every fifth minute of the dive
  tavplan bailout --interval 1 --json a.tav  from every minute, for a script
  tavplan bailout a.tav --pdf a.pdf          tables and cards to cut out; tav draws the PDF, without a display
)";

struct Given {
  std::string file;
  std::string dive;
  std::string interval = "5";
  std::string pdf;
  bool legEnds = false;
};

/// Which dive of a series it is, to be put behind the name of the file: two sheets of one file must not be mistaken for
/// each other. Empty for a single dive.
std::string DiveOf(std::size_t dive, const OpenedPlan& plan, const TextSource& texts) {
  if (plan.Dives() == 1) return {};
  return texts.Filled(Text::ReportDiveOf, {std::to_string(dive + 1), std::to_string(plan.Dives())});
}

Single ChosenInterval(const std::string& text) {
  const Single interval = NumberOf(text, "--interval", 0, BailoutCuts::kLongestInterval);
  if (interval == RoundSingle(interval, 0)) return interval;
  return static_cast<double>(WholeNumberOf(text, "--interval", 0, BailoutCuts::kLongestInterval));  // says so
}

void Run(const Given& given, CommandFrame& frame) {
  const TextSource& texts = frame.Texts();
  const Single interval = ChosenInterval(given.interval);
  OpenedPlan& plan = frame.OpenPlan(given.file);
  const std::size_t number = CommandFrame::OneDive(given.dive, plan);
  const BailoutCuts cuts(plan.Planned(number), frame.Model(), interval, frame.Observer(),
                         given.legEnds ? CutMoments::LegEnds : CutMoments::Regular);
  if (!cuts.Fault().IsEmpty()) throw FileError(given.file, 0, cuts.Fault());

  const std::string dive = DiveOf(number, plan, texts);
  TableOutput output(frame, given.pdf, plan.InSeries(number).file + dive);
  const std::string title = given.legEnds
                                ? texts.Filled(Text::BailoutLegEndsHeading, {given.file + dive})
                                : texts.Filled(Text::BailoutHeading, {given.file + dive, FormatPlain(cuts.Interval())});
  const std::vector<std::string> heading{title,
                                         SettingsOfTables(plan.records[number].Template, frame.Model(), true, texts)};
  const std::optional<Single> regular = given.legEnds ? std::nullopt : std::optional(cuts.Interval());
  output.Write({[&](JsonWriter& json) { json.Member("interval", regular); }, "scenarios", heading,
                std::filesystem::path(given.file).stem().string() + dive},
               [&] {
                 output.PrintWaysOut(plan.Planned(number));
                 for (int i = 0; i < cuts.Scenarios(); ++i) {
                   const auto scenario = cuts.Compute(i, output.Progress());
                   const std::optional<std::string>& lost = scenario->lost;
                   output.Print(
                       *scenario, [&](JsonWriter& json) { json.Member("lost", lost); },
                       lost ? texts.Filled(Text::BailoutLost, {*lost}) : texts.GetResString(Text::BailoutAllGases));
                 }
               });
}

}  // namespace

Command BailoutCommand() {
  const auto given = std::make_shared<Given>();
  Command command{"bailout", "Print the ascents from any moment of a plan, gases lost in turn", kDetails, kExamples};
  command.options = {
      PlanFile(given->file),
      DiveOption(given->dive, "the last"),
      {"--interval", "MINUTES", "Whole minutes between two moments, 0 to 99; 5 if not given, 0 counts as 1",
       &given->interval},
      {.name = "--leg-ends",
       .text = "Only from the end of each leg, in place of every few minutes",
       .place = &given->legEnds,
       .excludes = {"--interval"}},
      PdfOption(given->pdf, "Write the tables and cards, with cut marks, to this file, and no text"),
  };
  command.AddJson("Print the tables, and every row of every ascent, as JSON");
  command.AddModel();
  command.AddSupply();
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
