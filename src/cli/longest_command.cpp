#include <filesystem>
#include <ostream>

#include "cli/command_frame.h"
#include "cli/limit_options.h"
#include "cli/long_work.h"
#include "cli/option_values.h"
#include "cli/page_output.h"
#include "cli/shown.h"
#include "figures/settings_words.h"
#include "model/text_id.h"
#include "reports/margin_map.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Prints the longest stay of a leg: counted up in whole minutes from the shortest that its way allows, the first "
    "whose next minute breaks a limit, and which. The limits are those of margins: decompression, ceiling, PPO2, gas "
    "with every single loss, oxygen clock, and run time and stops where they are told. A minute more may break a "
    "limit that still another minute keeps, where the first stop moves; counting ends at the first.\n"
    "With --no-stop it prints how long one may stay without a stop, for square dives on the gas of the leg in steps of "
    "3 m or 10 ft, as far as the gas and a whole minute allow. These are times of the plan's model and gradient "
    "factors, "
    "not of an agency's table.\n"
    "In --json: \"minutes\" (0 when not even the shortest keeps the limits), \"run_time\", \"stops\", \"cns\" as a "
    "fraction, what \"binds\" (null when 600 minutes keep all limits), and the \"next\" minute that breaks it; with "
    "--no-stop \"gas\" and \"rows\" of \"depth\" and \"minutes\".";

constexpr const char* kExamples = R"(
  tavplan longest dives/wreck.tav            with the limits that the plan tells
  tavplan longest a.tav --max-run 90 --max-cns 80
  tavplan longest a.tav --no-stop
  tavplan longest a.tav --pdf a.pdf
)";

struct Given {
  std::string file;
  std::string dive;
  bool noStop = false;
  std::string pdf;
  LimitWish limits;
};

void WriteStay(const LongestStay& stay, const ShownOutput& shown, std::ostream& out) {
  JsonWriter json(out);
  json.Object([&] {
    json.Member("minutes", stay.minutes);
    json.Member("run_time", stay.at.runTime);
    json.Member("stops", stay.at.stops);
    json.Member("cns", stay.at.cns);
    if (stay.binds.IsBroken()) {
      json.Member("binds", stay.binds.Id());
      json.Object("next", [&] {
        json.Member("minutes", stay.next);
        json.Member("run_time", stay.beyond.runTime);
      });
    } else {
      json.Member("binds", std::nullopt);
      json.Member("next", std::nullopt);
    }
    shown.Write(json);
  });
  out << "\n";
}

void WriteTimes(const std::string& gas, const std::vector<NoStopTime>& times, const ShownOutput& shown,
                std::ostream& out) {
  JsonWriter json(out);
  json.Object([&] {
    json.Member("gas", gas);
    json.List("rows", [&] {
      for (const NoStopTime& time : times) {
        json.Object([&] {
          json.Member("depth", time.depth);
          json.Member("minutes", time.minutes);
        });
      }
    });
    shown.Write(json);
  });
  out << "\n";
}

void ShowTimes(const std::vector<NoStopTime>& times, const Margins& margins, const AdviceWords& words,
               ShownOutput& shown) {
  const std::vector<std::string> lines = NoStopLines(times, margins, words);
  if (times.empty()) return shown.Text(lines.front());
  shown.Heading(lines.front());
  ShownOutput::Table table{"no-stop", {}, {}};
  for (const auto& row : NoStopRows(times, words)) table.rows.push_back({"", {row.begin(), row.end()}, {}});
  std::string text;
  for (std::size_t i = 1; i + 1 < lines.size(); ++i) text += lines[i] + "\n";
  shown.Put(table, text);
  shown.Text(lines.back());
}

void Run(const Given& given, CommandFrame& frame) {
  OpenedPlan& opened = frame.OpenPlan(given.file);
  const PlannedDive planned = opened.Planned(CommandFrame::OneDive(given.dive, opened));
  const DiveTemplate& settings = planned.record.Template;
  const AdviceWords words(frame.Texts(), {}, settings.Metric);
  const Margins margins(planned, given.limits.On(settings), words, LegOf(given.limits, planned.record.UserActions));
  if (!margins.Fault().IsEmpty()) throw FileError(given.file, 0, margins.Fault());
  frame.MarkDecompression(margins.Decompresses());
  std::ostream& out = frame.Out();
  LongWork work(frame.Terminal());
  const auto print = [&](const std::optional<LongestStay>& stay, const std::vector<NoStopTime>& times) {
    PageOutput pdf(frame, given.pdf);
    PrintLongest(pdf.Pages(), std::filesystem::path(given.file).filename().string(), margins, stay, times, words);
    pdf.WritePdf(stay ? words.T(Text::LongestTitle) : words.T(Text::NoStopTitle, {margins.LegGas()}), work);
  };
  const bool text = given.pdf.empty();
  ShownOutput shown(frame.Common());
  if (given.noStop) {
    const std::vector<NoStopTime> times = margins.NoStopTimes();
    if (!text) print(std::nullopt, times);
    ShowTimes(times, margins, words, shown);
    if (frame.Common().json) return WriteTimes(margins.LegGas(), times, shown, out);
    if (text) out << shown.TakeText();
    return;
  }
  int done = 0;
  LongestStay stay;
  while (margins.Lengthen(stay)) work.Step(++done, LongestStay::kMost);
  if (!text) print(stay, {});
  shown.Heading(MarginHead(given.file, margins, words));
  shown.BlankLine();
  for (const std::string& line : LongestStayWords(stay, margins, words)) shown.Text(line);
  for (const std::string& note : JudgeNotes(margins, words)) shown.Text(note);
  if (frame.Common().json) return WriteStay(stay, shown, out);
  if (text) out << shown.TakeText();
}

}  // namespace

Command LongestCommand() {
  const auto given = std::make_shared<Given>();
  Command command{"longest", "Print how long one may stay", kDetails, kExamples};
  command.options = {
      PlanFile(given->file),
      DiveOption(given->dive, "the last"),
      {"--no-stop", "", "How long without a stop, by depth", &given->noStop},
      PdfOption(given->pdf, "Write the same to this file, and no text"),
  };
  AddLimits(command, given->limits);
  command.AddJson("Print the same as JSON");
  command.AddModel();
  command.AddSupply();
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
