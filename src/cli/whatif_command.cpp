#include <filesystem>
#include <ostream>

#include "cli/command_frame.h"
#include "cli/option_values.h"
#include "cli/page_output.h"
#include "cli/row_columns.h"
#include "cli/terminal_text.h"
#include "model/text_id.h"
#include "reports/plan_slate.h"
#include "reports/what_if_table.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Prints a plan beside what may become of it, in columns: planned; longer and deeper, which change the deepest leg, "
    "of "
    "equals the last; both; \"lost GAS\", one for each gas of the change list; and for a rebreather the bail-out on "
    "open "
    "circuit at its worst moment: of all whole minutes the one that asks for the most gas in relation to what the "
    "cylinders of the plan hold, or takes longest where the plan tells no cylinders. A plan without an ascent gets "
    "one.\n"
    "In --json each column has its name, run time, rows and gases, these with what is \"used\", what is \"carried\" "
    "and "
    "whether that is \"enough\", null where the plan tells no cylinders. --team, --stress, --sort-out and --turn "
    "matter for "
    "the slates.";

constexpr const char* kExamples = R"(
  tavplan whatif dives/wreck.tav             5 min longer, 3 m (10 ft) deeper, each gas lost
  tavplan whatif a.tav --longer 10 --deeper 6
  tavplan whatif a.tav --pdf a.pdf           a slate for each column; tav draws the PDF, without a display
)";

struct Given {
  std::string file;
  std::string dive;
  std::string longer;
  std::string deeper;
  std::string pdf;
};

/// The number of an option, 0 or more.
Single Wished(const std::string& text, const char* option, Single usual, double most) {
  return text.empty() ? usual : NumberOf(text, option, 0, most);
}

/// A plan that can't be computed with the change that was asked for is unusable input; a bail-out that can't be is only
/// one column less.
void RefuseFaults(const std::vector<WhatIfColumn>& columns, const std::string& file, const TextSource& texts) {
  for (const WhatIfColumn& column : columns) {
    if (column.fault.IsEmpty() || column.kind == WhatIfColumn::Kind::BailOut) continue;
    throw FileError(file, 0, column.Id() + ": " + texts.Words(column.fault));
  }
}

void WriteColumn(JsonWriter& json, const WhatIfColumn& column, const PlannedDive& plan) {
  json.Member("name", column.Id());
  json.Member("run_time", column.rows.GetRunTime(column.rows.GetLength()));
  json.Member("decompresses", column.decompresses);
  json.List("warnings", [&] {
    for (const GasWarning& warning : column.warnings) json.Object([&] { WriteWarning(json, warning); });
  });
  WriteRows(json, column.rows, plan.record.Template, plan.plan.model);
  json.List("gas", [&] {
    for (const GasNeed& gas : column.gas) {
      json.Object([&] {
        json.Member("mix", gas.mix);
        json.Member("used", gas.used);
        json.Member("carried", gas.carried);
        json.Member("enough", gas.enough);
      });
    }
  });
}

void WriteColumns(const std::vector<WhatIfColumn>& columns, const PlannedDive& plan, std::ostream& out) {
  JsonWriter json(out);
  json.Object([&] {
    json.List("columns", [&] {
      for (const WhatIfColumn& column : columns) json.Object([&] { WriteColumn(json, column, plan); });
    });
  });
  out << "\n";
}

void Run(const Given& given, CommandFrame& frame) {
  const TextSource& texts = frame.Texts();
  OpenedPlan& opened = frame.OpenPlan(given.file);
  const std::size_t dive = CommandFrame::OneDive(given.dive, opened);
  WhatIf plan(opened.Planned(dive));
  if (!plan.Fault().IsEmpty()) throw FileError(given.file, 0, plan.Fault());
  const bool metric = plan.Settings().Metric;
  WhatIfWish wish = WhatIfWish::Usual(metric);
  wish.minutes = Wished(given.longer, "--longer", wish.minutes, WhatIfWish::kMostMinutes);
  wish.depth = Wished(given.deeper, "--deeper", wish.depth, WhatIfWish::kMostDepth);
  std::vector<WhatIfColumn> columns = plan.Columns(wish);
  RefuseFaults(columns, given.file, texts);
  if (!columns.back().fault.IsEmpty()) {
    frame.Tell(given.file, columns.back().Id() + ": " + texts.Words(columns.back().fault));
    columns.pop_back();
  }
  frame.MarkDecompression(columns.front().decompresses);
  if (!given.pdf.empty()) {
    PageOutput pdf(frame, given.pdf);
    Slate slate(pdf.Pages());
    WriteSlates({slate, texts, {".", ""}, frame.Common().supply}, opened.InSeries(dive), columns, wish);
    LongWork work(frame.Terminal());
    pdf.WritePdf(std::filesystem::path(given.file).stem().string(), work);
  }
  if (frame.Common().json) return WriteColumns(columns, opened.Planned(dive), frame.Out());
  if (!given.pdf.empty()) return;
  const AdviceWords words(texts, {}, metric);
  frame.Out() << given.file << "\n";
  if (plan.AddsAscent()) frame.Out() << words.T(Text::WhatIfWithAscent) << "\n";
  frame.Out() << "\n" << AlignedText(TableOf(columns, wish, plan.Settings(), words), kLineWidth);
}

}  // namespace

Command WhatIfCommand() {
  const auto given = std::make_shared<Given>();
  Command command{"whatif", "Print a plan beside longer and deeper ones, and with lost gases", kDetails, kExamples};
  command.options = {
      PlanFile(given->file),
      DiveOption(given->dive, "the last"),
      {"--longer", "MINUTES", "Added to the deepest leg, 0 to 999; 5 if not given", &given->longer},
      {"--deeper", "DEPTH", "Added to the deepest leg, 0 to 999; 3 m or 10 ft if not given", &given->deeper},
      PdfOption(given->pdf, "Write a slate of each column to this file, and no text"),
  };
  command.AddJson("Print the columns, with every row, as JSON");
  command.AddModel();
  command.AddSupply();
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
