#include <algorithm>
#include <fstream>

#include "cli/figure_tables.h"
#include "mixer/fill_advice.h"
#include "mixer/fill_steps.h"
#include "model/number_text.h"
#include "supply/gas_supply.h"
#include "support/source_folder.h"

namespace tav::test {
namespace {

using nlohmann::json;

/// `new` for the 60 m dive of the examples with two stages and a twinset of cylinders of that many litres.
std::string Twinset(const std::string& litres) {
  return "new --depth 60 --time 25 --gas Tx18/45 --cylinder Tx18/45:2/" + litres +
         "/230/50 --cylinder EAN50:1/11/200/30 --cylinder Oxygen:1/3/200/50";
}

std::string MarkOf(const std::string& verdict) {
  return verdict == "enough" ? "" : verdict.find("reserve") == std::string::npos ? " !!" : " !";
}

}  // namespace

Table GradientFactorFigures() {
  const std::pair<const char*, const char*> settings[] = {{"30/85", "1, .85, .3"},
                                                          {"30/70", "1, .7, .3"},
                                                          {"50/85", "1, .85, .5"},
                                                          {"30/100", "1, 1, .3"},
                                                          {"-", "0, 1, .3"}};
  Table rows;
  for (const auto& [name, line] : settings) {
    const Planner planner("Default.tpl", {{"GF", line}});
    const json dive = planner.Dive({"--depth", "60", "--time", "25", "--gas", "Tx18/45"});
    double first = 0;
    double stops = 0;
    for (const json& row : dive["rows"]) {
      first = std::max(first, row["stop_depth"].get<double>());
      stops += row["stop_time"].get<double>();
    }
    rows.push_back({name, FormatFixed(first, 0), FormatFixed(stops, 0),
                    FormatFixed(dive["rows"].back()["run_time"].get<double>(), 0),
                    FormatFixed(dive["total_cns"].get<double>() * 100, 0)});
  }
  return rows;
}

/// Fills into an empty cylinder: pressures after helium / oxygen, and what comes out of them.
Table MixerFigures() {
  std::ifstream in(SourceFolder() / "tests/data/gas/reference_fills.json");
  const json known = json::parse(in)["fills"];
  Table rows;
  for (const auto& [o2, he, bar] :
       {std::tuple(32, 0, 200), {21, 35, 220}, {18, 45, 200}, {18, 45, 300}, {10, 70, 200}}) {
    const FillRequest request{kAir, 1, MixOf(o2, he), bar};
    const auto text = [&, he = he](double helium, double oxygen, int decimals) {
      return (he > 0 ? FormatFixed(helium, decimals) + " / " : "") + FormatFixed(oxygen, decimals);
    };
    const auto listed = [&](const std::vector<FillStep>& steps) {
      return text(steps.front().to, steps[steps.size() - 2].to, 0);
    };
    const auto gives = [](const MixShares& mix) { return FormatFixed(mix.O2, 1) + "/" + FormatFixed(mix.He, 1); };
    const GaugeList list = GaugeListOf(request, 1);
    const FillResult block = Recalculate(request);
    const double helium = ParseLenient(block.IdealTopHe);
    const double oxygen = ParseLenient(block.IdealTopO2) + 1 + helium;
    std::vector<DoneStep> steps = {{"", {100, 0, 0}, oxygen}, {"", kAir, bar}};
    if (he > 0) steps.insert(steps.begin(), {"", {0, 100, 0}, helium});
    const auto reference = std::ranges::find_if(known, [&, o2 = o2, he = he, bar = bar](const json& fill) {
      return fill["want"] == json{o2, he} && fill["end"] == bar && fill["start"] == 1 && fill["celsius"] == 20 &&
             fill["top"] == json{21, 0};
    });
    const json& exact = (*reference)["steps"];
    rows.push_back({std::to_string(o2) + "/" + std::to_string(he) + ", " + std::to_string(bar) + " bar",
                    listed(IdealSteps(request, 1)), text(helium, oxygen, 0), listed(list.steps),
                    text(exact[0][1].get<double>(), exact[exact.size() - 2][1].get<double>(), 1),
                    gives(list.byIdealSteps), gives(MixesAfter(steps, request).back()), gives(list.comesOut)});
  }
  return rows;
}

Table TurnFigures() {
  Table rows;
  for (const auto& [rule, share] : {std::pair("all", "1"), {"half", "1/2"}, {"thirds", "1/3"}}) {
    const json plan = json::parse(Printed(Split(Twinset("18") + " --json --turn " + rule, ' ')));
    const double bar = plan["dives"][0]["gas_supply"]["legs"][0]["turn_pressure"];
    rows.push_back({share, FormatFixed(bar, 1), FormatFixed(PressureToActBy(bar, true), 0)});
  }
  return rows;
}

/// "!" stands behind a gas that goes into its reserve, "!!" behind one that runs out.
Table WhatIfFigures() {
  const test::ScratchFolder scratch;
  const std::string file = (scratch.Path() / "twinset.tav").string();
  Printed(Split(Twinset("12") + " -o " + file, ' '));
  const json columns = json::parse(Printed({"whatif", file, "--gf", "40/85", "--json"}))["columns"];
  const std::map<std::string, std::string> changes = {{"planned", "0"},          {"longer", "+5 min"},
                                                      {"deeper", "+3 m"},        {"both", "+5 min, +3 m"},
                                                      {"gf 40/85", "GF 40/85"},  {"lost Oxygen", "- Oxygen"},
                                                      {"lost EAN50", "- EAN50"}, {"lost all", "- Oxygen, EAN50"}};
  Table rows;
  for (const json& column : columns) {
    Lines cells = {changes.at(column["name"]), FormatFixed(column["run_time"].get<double>(), 0),
                   FormatFixed(column["rows"].back()["total_cns"].get<double>() * 100, 0),
                   FormatFixed(column["otu"].get<double>(), 0)};
    for (const char* mix : {"Tx18/45", "EAN50", "Oxygen"}) {
      std::string& cell = cells.emplace_back();
      for (const json& gas : column["gas"]) {
        if (gas["mix"] == mix) cell = FormatFixed(gas["used"].get<double>(), 0) + MarkOf(gas["verdict"]);
      }
    }
    rows.push_back(cells);
  }
  return rows;
}

}  // namespace tav::test
