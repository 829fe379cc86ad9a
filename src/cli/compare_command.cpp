#include <filesystem>
#include <ostream>

#include "advice/comparison.h"
#include "cli/command_frame.h"
#include "cli/gas_needs.h"
#include "cli/option_values.h"
#include "cli/page_output.h"
#include "cli/row_columns.h"
#include "cli/shown.h"
#include "figures/dive_figures.h"
#include "figures/model_name.h"
#include "model/number_text.h"
#include "model/text_id.h"
#include "reports/comparison_table.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Prints plans beside each other, in columns: the settings that are not the same in all of them, their legs, stops, "
    "run time, doses and gas. Totals tell how much they differ from those of the first plan. Plans in other units than "
    "the first are shown in its units. A plan without an ascent gets one.\n"
    "In --json each plan has its \"name\", \"dive\", whether it is \"metric\", its \"model\", those of its "
    "\"settings\" that differ, by their key in the file, its \"run_time\", \"stops\", \"cns\", \"otu\", "
    "\"rows\" and \"gas\" as whatif has it, each in the units of the plan.";

constexpr const char* kExamples = R"(
  tavplan compare short.tav long.tav         what is different in the second plan
  tavplan compare a.tav b.tav c.tav --pdf abc.pdf
)";

struct Given {
  std::vector<std::string> files;
  std::string dive;
  std::string pdf;
};

void WritePlan(JsonWriter& json, const ComparedPlan& plan, const std::vector<DifferingSetting>& settings,
               std::size_t place) {
  const DiveFigures figures = FiguresOf(plan.column.rows);
  json.Member("name", plan.name);
  json.Member("dive", plan.dive);
  json.Member("metric", plan.Settings().Metric);
  json.Member("model", ModelName(plan.model));
  json.Object("settings", [&] {
    for (const DifferingSetting& setting : settings) {
      const std::string& value = setting.values[place];
      if (const auto number = ParseStrict(value)) {
        json.Member(setting.key, *number);
      } else {
        json.Member(setting.key, value);
      }
    }
  });
  json.Member("run_time", figures.runTime);
  json.Member("stops", figures.stopTime);
  json.Member("cns", figures.CNS);
  json.Member("otu", figures.OTU);
  json.Member("decompresses", plan.column.decompresses);
  WriteRows(json, plan.column.rows, plan.Settings(), plan.model);
  WriteGasNeeds(json, plan.column.gas);
}

void WriteJson(const std::vector<ComparedPlan>& plans, const ShownOutput& shown, std::ostream& out) {
  const std::vector<DifferingSetting> settings = DifferingSettings(plans);
  JsonWriter json(out);
  json.Object([&] {
    json.List("plans", [&] {
      for (std::size_t i = 0; i < plans.size(); ++i) json.Object([&] { WritePlan(json, plans[i], settings, i); });
    });
    shown.Write(json);
  });
  out << "\n";
}

std::vector<ComparedPlan> Plans(const Given& given, CommandFrame& frame) {
  if (given.files.size() < 2) throw UsageError(Text::CompareTwoPlans);
  std::vector<ComparedPlan> plans;
  for (const std::string& file : given.files) {
    OpenedPlan& opened = frame.OpenPlan(file);
    const std::size_t dive = CommandFrame::OneDive(given.dive, opened);
    ComparedPlan& plan = plans.emplace_back(std::filesystem::path(file).filename().string(), opened.Planned(dive),
                                            static_cast<int>(dive) + 1);
    if (!plan.column.fault.IsEmpty()) throw FileError(file, 0, plan.column.fault);
    if (opened.Dives() > 1) {
      plan.detail = frame.Texts().Filled(Text::DiveOfSeries, {std::to_string(plan.dive)}) + ": ";
    }
    plan.detail += DeepestLeg(plan, AdviceWords(frame.Texts(), {}, plan.Settings().Metric));
    frame.MarkDecompression(plan.column.decompresses);
  }
  return plans;
}

void Run(const Given& given, CommandFrame& frame) {
  const std::vector<ComparedPlan> plans = Plans(given, frame);
  const AdviceWords words(frame.Texts(), {}, plans.front().Settings().Metric);
  if (!given.pdf.empty()) {
    PageOutput pdf(frame, given.pdf);
    PrintComparison(pdf.Pages(), ComparisonTable(plans, words));
    LongWork work(frame.Terminal());
    pdf.WritePdf(frame.Texts().GetResString(Text::CompareTitle), work);
  }
  ShownOutput shown(frame.Common());
  shown.Put(ComparisonTable(plans, words));
  if (frame.Common().json) {
    WriteJson(plans, shown, frame.Out());
  } else if (given.pdf.empty()) {
    frame.Out() << shown.TakeText();
  }
}

}  // namespace

Command CompareCommand() {
  const auto given = std::make_shared<Given>();
  Command command{"compare", "Print plans beside each other with what differs", kDetails, kExamples};
  command.options = {
      {"FILE", "", "Profiles (.tav), two at least", &given->files, true, Option::Role::FileToRead, "tav"},
      DiveOption(given->dive, "the last"),
      PdfOption(given->pdf, "Write the columns to this file, and no text"),
  };
  command.AddJson("Print the plans, with every row, as JSON");
  command.AddModel();
  command.AddSupply();
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
