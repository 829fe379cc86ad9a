#include <algorithm>
#include <filesystem>
#include <ostream>

#include "cli/command_frame.h"
#include "cli/computed_dive.h"
#include "cli/gas_needs.h"
#include "cli/option_values.h"
#include "cli/page_output.h"
#include "cli/row_columns.h"
#include "cli/shown.h"
#include "figures/dive_figures.h"
#include "model/text_id.h"
#include "reports/plan_slate.h"
#include "reports/what_if_table.h"
#include "supply/supply_text.h"

namespace tav {
namespace {

constexpr const char* kDetails =
    "Prints a plan beside what may become of it, in columns: planned; longer and deeper, which change the deepest leg, "
    "of equals the last; both; \"lost GAS\", one for each gas of the change list, and \"lost all\", in the legs, too, "
    "which go on with the gas before; other gradient factors; and for a rebreather the bail-out on open circuit from "
    "the minute that takes longest to come up, and from those that ask most of a gas. A plan without an ascent gets "
    "one.\n"
    "In --json each column has its name, run time, OTU, dangers, rows and gases, these with what the rows have "
    "\"used\", what is \"carried\", what must be there by --team, --stress and --sort-out (\"need\": on open circuit "
    "with the minimum gas of each leg, but for a lost gas, on a rebreather for the dearest way out) and its "
    "\"verdict\": "
    "enough, reserve or short, null where the plan tells no cylinders.";

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
  std::vector<std::string> factors;
  std::vector<std::string> columns;
  std::string pdf;
};

/// The number of an option, 0 or more.
Single Wished(const std::string& text, const char* option, Single usual, double most) {
  return text.empty() ? usual : NumberOf(text, option, 0, most);
}

/// A plan that can't be computed with the change that was asked for is unusable input; a loss or a bail-out that can't
/// be is told, and one column less.
void TakeFaults(std::vector<WhatIfColumn>& columns, const std::string& file, CommandFrame& frame) {
  using Kind = WhatIfColumn::Kind;
  for (const WhatIfColumn& column : columns) {
    if (column.fault.IsEmpty()) continue;
    const std::string why = column.Id() + ": " + frame.Texts().Words(column.fault);
    if (column.kind != Kind::BailOut && column.kind != Kind::Lost && column.kind != Kind::AllLost) {
      throw FileError(file, 0, why);
    }
    frame.Tell(file, why);
  }
  std::erase_if(columns, [](const WhatIfColumn& column) { return !column.fault.IsEmpty(); });
}

/// The plan and the columns of the names that were given.
void KeepPicked(std::vector<WhatIfColumn>& columns, const std::vector<std::string>& names) {
  if (names.empty()) return;
  for (const std::string& name : names) {
    const auto is = [&](const WhatIfColumn& column) { return column.PickName() == name; };
    if (std::ranges::none_of(columns, is)) {
      std::string known;
      for (const WhatIfColumn& column : columns) {
        // The bail-outs have one name.
        if (!known.ends_with(column.PickName())) known += (known.empty() ? "" : ", ") + column.PickName();
      }
      throw OptionError({Text::OptionMustBe, {"--column", name, known}});
    }
  }
  std::erase_if(columns, [&](const WhatIfColumn& column) {
    return column.kind != WhatIfColumn::Kind::Planned && std::ranges::find(names, column.PickName()) == names.end();
  });
}

void WriteColumn(JsonWriter& json, const WhatIfColumn& column, const PlannedDive& plan, const AdviceWords& words) {
  json.Member("name", column.Id());
  json.Member("run_time", column.rows.GetRunTime(column.rows.GetLength()));
  json.Member("decompresses", column.decompresses);
  json.Member("otu", FiguresOf(column.rows).OTU);
  WriteFindings(json, "dangers", DangersOf(column, plan.before, words));
  json.List("warnings", [&] {
    for (const GasWarning& warning : column.warnings) json.Object([&] { WriteWarning(json, warning); });
  });
  WriteRows(json, column.rows, column.record.Template, plan.plan.model);
  WriteGasNeeds(json, column.gas);
}

void WriteColumns(const std::vector<WhatIfColumn>& columns, const PlannedDive& plan, const AdviceWords& words,
                  const ShownOutput& shown, std::ostream& out) {
  JsonWriter json(out);
  json.Object([&] {
    json.List("columns", [&] {
      for (const WhatIfColumn& column : columns) json.Object([&] { WriteColumn(json, column, plan, words); });
    });
    shown.Write(json);
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
  for (const std::string& text : given.factors) {
    const auto factors = FactorsOf(text);
    if (!factors) throw OptionError({Text::OptionGradientFactors, {text}});
    wish.factors.push_back(*factors);
  }
  std::vector<WhatIfColumn> columns = plan.Columns(wish);
  KeepPicked(columns, given.columns);
  TakeFaults(columns, given.file, frame);
  frame.MarkDecompression(columns.front().decompresses);
  if (!given.pdf.empty()) {
    PageOutput pdf(frame, given.pdf);
    Slate slate(pdf.Pages());
    WriteSlates({slate, texts, {".", ""}}, opened.InSeries(dive), columns, wish);
    LongWork work(frame.Terminal());
    pdf.WritePdf(std::filesystem::path(given.file).stem().string(), work);
  }
  const AdviceWords words(texts, {}, metric);
  ShownOutput shown(frame.Common());
  shown.InTerminal(given.file + "\n");
  if (plan.AddsAscent()) shown.Line(words.T(Text::WhatIfWithAscent));
  shown.BlankLine();
  shown.Put(TableOf(columns, wish, plan, words));
  if (frame.Common().json) {
    WriteColumns(columns, opened.Planned(dive), AdviceWords(frame.DataTexts(), {}, metric), shown, frame.Out());
  } else if (given.pdf.empty()) {
    frame.Out() << shown.TakeText();
  }
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
      {"--gf", "LOW/HIGH", "Another column with these gradient factors, in per cent; may be given several times",
       &given->factors},
      {"--column", "NAME",
       "Only the plan and this column, by its name in --json (bail-out without its minute); may be "
       "given several times",
       &given->columns},
      PdfOption(given->pdf, "Write a slate of each column to this file, and no text"),
  };
  command.AddJson("Print the columns, with every row, as JSON");
  command.AddModel();
  command.AddSupply();
  command.run = [given](CommandFrame& frame) { Run(*given, frame); };
  return command;
}

}  // namespace tav
