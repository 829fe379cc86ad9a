#include <CLI/CLI.hpp>
#include <algorithm>
#include <limits>
#include <ostream>

#include "cli/commands.h"
#include "cli/plan_input.h"
#include "cli/usage_fault.h"
#include "start/user_texts.h"

namespace tav {
namespace {

CLI::Option* AddJson(CLI::App& command, OutputOptions& options) {
  return command.add_flag_callback(
      "--json", [&options] { options.form = OutputForm::Json; }, "Print every row as JSON");
}

void AddModelOptions(CLI::App& command, OutputOptions& options) {
  auto* vpm = command.add_flag("--vpm", options.vpm, "Use the bubble model (VPM) for the ceiling");
  auto* hybrid = command.add_flag("--hybrid", options.hybrid, "Use the deeper of both ceilings, ZH-L16 and VPM");
  vpm->excludes(hybrid);
  vpm->excludes(command.add_flag("--zhl16c", options.zhl16c, "Use the C coefficients of ZH-L16 in place of B"));
}

TurnRule TurnRuleOf(const std::string& text) {
  if (text == "all") return TurnRule::AllUsable;
  if (text == "half") return TurnRule::Half;
  if (text == "thirds") return TurnRule::Thirds;
  constexpr int kNoneOf = 7850;
  throw OptionError({kNoneOf, {"--turn", text, "all, half, thirds"}});
}

void AddSupplyOptions(CLI::App& command, OutputOptions& options) {
  SupplyChoice& supply = options.supply;
  const auto add = [&command](const char* name, const char* type, const char* text, auto take) {
    command.add_option_function<std::string>(name, take, text)->type_name(type);
  };
  add("--team", "1-9", "Divers that the minimum gas must bring up; 2 if not given",
      [&supply](const std::string& text) { supply.team = WholeNumberOf(text, "--team", 1, kLargestTeam); });
  add("--stress", "1-10", "Factor on the RMV for it; 2 if not given",
      [&supply](const std::string& text) { supply.stress = NumberOf(text, "--stress", 1, kLargestStress); });
  add("--sort-out", "0-30", "Minutes at depth before the way up; 2 if not given",
      [&supply](const std::string& text) { supply.minutes = NumberOf(text, "--sort-out", 0, kLongestSortingOut); });
  add("--turn", "all|half|thirds", "How much of the rest is breathed before turning; all if not given",
      [&supply](const std::string& text) { supply.rule = TurnRuleOf(text); });
}

void AddOutputOptions(CLI::App& command, OutputOptions& options) {
  CLI::Option* json = AddJson(command, options);
  json->excludes(command.add_flag_callback(
      "--csv", [&options] { options.form = OutputForm::Csv; }, "Print every row as CSV, with a header"));
  AddModelOptions(command, options);
  command.add_flag("--why", options.why, "Tell for each stop which compartment decides its length");
  command.add_flag_callback(
      "--phi", [&options] { options.phi = "phi.log"; },
      "Write the loads after each segment to phi.log in the current folder");
  AddSupplyOptions(command, options);
}

constexpr const char* kPlanExamples = R"(
Examples:
  tavplan plan dives/wreck.tav               the slate of each dive
  tavplan plan --json a.tav b.tav            every row of both files, for a script
  tavplan plan --csv a.tav > rows.csv        the same for a spreadsheet
  tavplan plan --hybrid a.tav                with the deeper of both ceilings
  tavplan plan --why a.tav                   what each stop waits for
  tavplan plan --team 3 --turn thirds a.tav  the gas supply, where the plan tells its cylinders
)";

constexpr const char* kNewExamples = R"(
Examples:
  tavplan new --depth 30 --time 25
  tavplan new --depth 60 --time 25 --gas Tx18/45 -o wreck.tav
  tavplan new --leg 40:15 --leg 25:20@EAN32 --leg 12:10
  tavplan new --depth 130 --time 30 --template Imperial
  tavplan new --depth 30 --time 25 --cylinder Air:2/12/200/50 --cylinder EAN50:1/7/200/20
A cylinder is GAS:COUNT/LITRES/FILL/RESERVE with pressures in bar, or
GAS:COUNT/CUBIC FEET/RATED PRESSURE/FILL/RESERVE with pressures in psi.
A gas that is not in the template is made from its name: EAN36, Tx15/60, H85.
)";

constexpr const char* kReportExamples = R"(
Examples:
  tavplan report dives/trimix-100.tav --pdf plan.pdf
  tavplan report dives/lake-series.tav --dive 2 --pdf second.pdf
  tavplan report dives/wreck.tav --slate --pdf slate.pdf
The PDF is drawn by tav, the desktop program; no display is needed.
)";

constexpr const char* kGraphExamples = R"(
Examples:
  tavplan graph dives/wreck.tav -o wreck.svg
  tavplan graph dives/lake-series.tav --dive 2 --tissues -o second.svg
  tavplan graph dives/wreck.tav --width 180mm -o handout.svg
)";

constexpr const char* kBailoutExamples = R"(
Examples:
  tavplan bailout dives/trimix-100.tav       the way out from every fifth minute of the dive
  tavplan bailout --interval 1 --json a.tav  from every minute, for a script
  tavplan bailout a.tav --pdf a.pdf          tables and cards to cut out; tav draws the PDF, without a display
)";

constexpr const char* kWhatIfExamples = R"(
Examples:
  tavplan whatif dives/wreck.tav             5 min longer, 3 m (10 ft) deeper, each gas lost
  tavplan whatif a.tav --longer 10 --deeper 6
  tavplan whatif a.tav --pdf a.pdf           a slate for each column; tav draws the PDF, without a display
On a rebreather the last column is the bail-out at the worst moment.
)";

constexpr const char* kTablesExamples = R"(
Examples:
  tavplan tables --gas Air --depths 9:54:3 --times 5:45:5
  tavplan tables --gas EAN32 --depths 60:130:10 --times 10:60:10 --template Imperial
)";

constexpr const char* kCheckExamples = R"(
Examples:
  tavplan check my.tpl                       all faults of a template, with line numbers
  tavplan check dives/*.tav
)";

constexpr const char* kMixExamples = R"(
Examples:
  tavplan mix --have 21/0@1 --want 32/0@200             EAN32 into an empty cylinder
  tavplan mix --have 21/35@80 --want 18/45@220          topping up trimix
  tavplan mix --have 21/0@14.7 --want 32/0@3000 --imperial
  tavplan mix --have 21/35@80 --want 21/35@220 --top 32/0   with EAN32 from a bank on top
  tavplan mix --have 21/0@1 --want 18/45@210 --warm 45  what the gauge shows while the cylinder is warm
  tavplan mix --have 21/0@1 --steps "he@67 o2@86 air@220" --want 21/35@230
                                                        what came out of a fill, and what mends it
An empty cylinder holds air at 1 bar (14.7 psi): pressures are absolute.
)";

constexpr const char* kExportExamples = R"(
Examples:
  tavplan export dives/lake-series.tav --uddf series.uddf
  tavplan export dives/lake-series.tav --uddf second.uddf --dive 2
    the second dive alone: the plan that comes back begins without the loads of the first
)";

constexpr const char* kImportExamples = R"(
Examples:
  tavplan import series.uddf -o series.tav   a plan that was exported, as it was
  tavplan import log.uddf -o log.tav --dive 12 --template Imperial
  tavplan import legs.csv -o legs.tav        depth,minutes,gas in each line
A dive of a log becomes legs, and the ascent. The legs keep within a metre of its samples where the rates of the
settings can follow them; how far they stray, and what else is simplified or assumed, is told. Gradient factors, rates
and the diver's adaptation to altitude are those of the settings.
)";

constexpr const char* kFooter = R"(
Exit status: 0, 1 for a plan that does not decompress, 2 for unusable input.
"tavplan COMMAND --help" gives the options and examples of a command.
)";

}  // namespace

int RunTavplan(const std::vector<std::string>& arguments, const ProgramFolders& folders, std::ostream& out,
               std::ostream& err) {
  CLI::App app("TAV: decompression planning on the command line", "tavplan");
  app.set_version_flag("--version", "tavplan " TAV_VERSION);
  app.require_subcommand(1);
  app.footer(kFooter);
  int status = ExitStatus::kFine;

  OutputOptions planOptions;
  std::vector<std::string> planFiles;
  CLI::App* plan = app.add_subcommand("plan", "Print the schedule of each dive of profile files");
  plan->add_option("FILE", planFiles, "Profile files (.tav)")->required();
  AddOutputOptions(*plan, planOptions);
  plan->footer(kPlanExamples);
  plan->callback([&] { status = PlanCommand(planFiles, planOptions, folders, out, err); });

  OutputOptions newOptions;
  NewPlanOptions newPlan;
  std::string depth;
  std::string time;
  CLI::App* make = app.add_subcommand("new", "Make a plan with its ascent and print it");
  auto* depthOption = make->add_option("--depth", depth, "Depth of a square dive, in the units of the template");
  auto* timeOption = make->add_option("--time", time, "Minutes from leaving the surface to leaving that depth");
  depthOption->needs(timeOption);
  timeOption->needs(depthOption);
  auto* legs = make->add_option("--leg", newPlan.legs, "A leg of a multi-level dive: DEPTH:TIME or DEPTH:TIME@GAS");
  legs->excludes(depthOption);
  make->add_option("--gas", newPlan.gas, "Gas of the legs that name none; Air if not given");
  make->add_option("--template", newPlan.templateName, "Template file, or a name in the template folder");
  make->add_option("--cylinder", newPlan.cylinders, "Cylinders of a gas; in place of those of the template");
  make->add_option("-o,--output", newPlan.output, "Profile file to write");
  AddOutputOptions(*make, newOptions);
  make->footer(kNewExamples);
  make->callback([&] {
    if (!depth.empty()) newPlan.legs = {depth + ":" + time};
    constexpr int kNoLegs = 7855;
    if (newPlan.legs.empty()) throw OptionError(Message(kNoLegs));
    status = NewCommand(newPlan, newOptions, folders, out, err);
  });

  ReportOptions reportDive;
  OutputOptions reportOptions;
  CLI::App* report = app.add_subcommand("report", "Write the long report or the slates of a profile file as a PDF");
  report->add_option("FILE", reportDive.file, "Profile file (.tav)")->required();
  report->add_option("--pdf", reportDive.pdf, "The file to write")->required();
  report->add_option("--dive", reportDive.dive, "One dive of a series, from 1; all if not given");
  report->add_flag("--slate", reportDive.slate, "Write the slates to dive by: cards of the size A6, four to a page");
  AddModelOptions(*report, reportOptions);
  AddSupplyOptions(*report, reportOptions);
  report->footer(kReportExamples);
  report->callback([&] { status = ReportCommand(reportDive, reportOptions, folders, err); });

  GraphOptions graphPicture;
  OutputOptions graphOptions;
  CLI::App* graph = app.add_subcommand("graph", "Write the graph of a plan as an SVG picture");
  graph->add_option("FILE", graphPicture.file, "Profile file (.tav)")->required();
  graph->add_option("-o,--svg", graphPicture.svg, "The file to write")->required();
  graph->add_option("--dive", graphPicture.dive, "Number of the dive, from 1; the last if not given");
  graph->add_flag("--tissues", graphPicture.tissues, "Add the map of the loads of the compartments");
  graph->add_option("--width", graphPicture.width, "Such as 1000px or 180mm; 1000px if not given");
  graph->add_option("--height", graphPicture.height, "The same; 700px if not given, or in that proportion");
  AddModelOptions(*graph, graphOptions);
  graph->footer(kGraphExamples);
  graph->callback([&] { status = GraphCommand(graphPicture, graphOptions, folders, err); });

  OutputOptions bailoutOptions;
  BailoutOptions bailoutPlan;
  CLI::App* bailout = app.add_subcommand("bailout", "Print the ascents from any moment of a plan, gases lost in turn");
  bailout->add_option("FILE", bailoutPlan.file, "Profile file (.tav)")->required();
  bailout->add_option("--dive", bailoutPlan.dive, "Number of the dive, from 1; the last if not given");
  bailout->add_option("--interval", bailoutPlan.interval, "Minutes between two moments; 5 if not given");
  bailout->add_option("--pdf", bailoutPlan.pdf, "Write the tables and cards to this file, and no text");
  AddJson(*bailout, bailoutOptions);
  AddModelOptions(*bailout, bailoutOptions);
  bailout->footer(kBailoutExamples);
  bailout->callback([&] { status = BailoutCommand(bailoutPlan, bailoutOptions, folders, out, err); });

  OutputOptions whatIfOptions;
  WhatIfOptions whatIfPlan;
  CLI::App* whatIf = app.add_subcommand("whatif", "Print a plan beside longer and deeper ones, and with lost gases");
  whatIf->add_option("FILE", whatIfPlan.file, "Profile file (.tav)")->required();
  whatIf->add_option("--dive", whatIfPlan.dive, "Number of the dive, from 1; the last if not given");
  whatIf->add_option("--longer", whatIfPlan.longer, "Minutes added to the deepest leg; 5 if not given");
  whatIf->add_option("--deeper", whatIfPlan.deeper, "Depth added to the deepest leg; 3 m or 10 ft if not given");
  whatIf->add_option("--pdf", whatIfPlan.pdf, "Write a slate of each column to this file, and no text");
  AddJson(*whatIf, whatIfOptions);
  AddModelOptions(*whatIf, whatIfOptions);
  AddSupplyOptions(*whatIf, whatIfOptions);
  whatIf->footer(kWhatIfExamples);
  whatIf->callback([&] { status = WhatIfCommand(whatIfPlan, whatIfOptions, folders, out, err); });

  OutputOptions tablesOptions;
  TablesOptions tableSet;
  CLI::App* tables = app.add_subcommand("tables", "Print deco tables for depths and bottom times on one gas");
  tables->add_option("--template", tableSet.templateName, "Template file, or a name in the template folder");
  tables->add_option("--gas", tableSet.gas, "Gas of the dives")->required();
  tables->add_option("--depths", tableSet.depths, "FROM:TO:STEP in the units of the template")->required();
  tables->add_option("--times", tableSet.times, "FROM:TO:STEP in minutes")->required();
  tables->add_flag("--descent-counts", tableSet.descentCounts, "Bottom times count from leaving the surface");
  tables->add_option("--pdf", tableSet.pdf, "Write the tables to this file, and no text");
  AddJson(*tables, tablesOptions);
  AddModelOptions(*tables, tablesOptions);
  tables->footer(kTablesExamples);
  tables->callback([&] { status = TablesCommand(tableSet, tablesOptions, folders, out, err); });

  std::vector<std::string> checkFiles;
  CLI::App* check = app.add_subcommand("check", "List all faults of templates and profiles");
  check->add_option("FILE", checkFiles, "Template (.tpl) and profile (.tav) files")->required();
  check->footer(kCheckExamples);
  check->callback([&] { status = CheckCommand(checkFiles, folders, out, err); });

  MixOptions mixOptions;
  CLI::App* mix = app.add_subcommand("mix", "Print what to fill into a cylinder to make a mix");
  mix->add_option("--have", mixOptions.have, "What is in the cylinder: O2/HE@PRESSURE, in percent and bar")->required();
  // What came out of a fill can be asked without a wish.
  const bool stepsGiven = std::ranges::any_of(arguments, [](const auto& each) { return each.starts_with("--steps"); });
  mix->add_option("--want", mixOptions.want, "What shall be in it: O2/HE@PRESSURE")->required(!stepsGiven);
  mix->add_option("--top", mixOptions.top, "The gas on top: O2/HE; air if not given");
  mix->add_option("--temperature", mixOptions.temperature,
                  "Degrees Celsius at which the gauge is read; 20 if not given");
  mix->add_option("--warm", mixOptions.warm, "Degrees Celsius of the cylinder while it is filled");
  mix->add_option("--steps", mixOptions.steps, "A fill as it was done, from --have: \"he@67 o2@86 air@220\"");
  mix->add_flag("--imperial", mixOptions.imperial, "Pressures are in psi");
  mix->add_flag("--json", mixOptions.json, "Print the figures as JSON");
  mix->footer(kMixExamples);
  mix->callback([&] { status = MixCommand(mixOptions, folders, out, err); });

  ExportOptions exportPlan;
  OutputOptions exportOptions;
  CLI::App* exports = app.add_subcommand("export", "Write a plan as UDDF, for a dive log");
  exports->add_option("FILE", exportPlan.file, "Profile file (.tav)")->required();
  exports->add_option("--uddf", exportPlan.uddf, "The file to write")->required();
  exports->add_option("--dive", exportPlan.dive, "One dive of a series, from 1; all if not given");
  AddModelOptions(*exports, exportOptions);
  exports->footer(kExportExamples);
  exports->callback([&] { status = ExportCommand(exportPlan, exportOptions, folders, err); });

  ImportOptions importLog;
  CLI::App* imports = app.add_subcommand("import", "Make a plan of a dive log (UDDF) or of waypoints (CSV)");
  imports->add_option("LOG", importLog.file, "UDDF, or CSV where the file's name ends in .csv")->required();
  imports->add_option("-o,--output", importLog.output, "Profile file to write")->required();
  imports->add_option("--template", importLog.templateName, "Template file, or a name in the template folder");
  imports->add_option_function<std::string>(
      "--dive",
      [&importLog](const std::string& text) {
        importLog.dive = WholeNumberOf(text, "--dive", 1, std::numeric_limits<std::int16_t>::max());
      },
      "One dive of the log, from 1; all if not given");
  imports->footer(kImportExamples);
  imports->callback([&] { status = ImportCommand(importLog, folders, err); });

  const LazyTexts texts(folders.ProgramFolder(), LazyTexts::Language::User);
  const auto command = [&app] {
    return app.get_subcommands().empty() ? std::string() : app.get_subcommands().front()->get_name();
  };
  const auto refuse = [&](const Message& fault, const std::string& of) {
    constexpr int kUsage = 7995;
    const std::string program = of.empty() ? "tavplan" : "tavplan " + of;
    err << program << ": " << texts.Filled(kUsage, {texts.Words(fault), program + " --help"}) << "\n";
    return ExitStatus::kUnusableInput;
  };
  // The parser would take an option for the value of the one ahead of it.
  if (const auto fault = ValueFault(app, arguments)) return refuse(*fault, arguments.front());
  try {
    std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
    app.parse(std::move(reversed));
  } catch (const CLI::ParseError& error) {
    // Help and version are "errors" of status 0 to the library; all others are usage errors.
    if (error.get_exit_code() == 0) return app.exit(error, out, err);
    return refuse(UsageFault(app, error), command());
  } catch (const OptionError& error) {
    return Refused(error, command(), texts, err);
  }
  return status;
}

}  // namespace tav
