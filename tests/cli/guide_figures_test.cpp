// The figures of the guides and of docs/validation.md are what the program computes. A block of output stands behind
//   <!-- tavplan ARGUMENTS -->  or  <!-- tavplan ARGUMENTS, lines FROM-TO -->
// and the rows of a table behind  <!-- figures NAME -->.  To write them anew:
//   TAV_WRITE_FIGURES=1 build/release/bin/cli_test --gtest_filter='*Guides*'
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/commands.h"
#include "mixer/fill_advice.h"
#include "mixer/fill_steps.h"
#include "model/altitude.h"
#include "model/number_text.h"
#include "persist/text_file.h"
#include "supply/gas_supply.h"
#include "support/scratch_folder.h"
#include "support/source_folder.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using Lines = std::vector<std::string>;
using Table = std::vector<Lines>;

const fs::path kRoot = SourceFolder();

Lines Split(const std::string& text, char at = '\n') {
  Lines parts;
  std::istringstream in(text);
  for (std::string part; std::getline(in, part, at);) parts.push_back(part);
  return parts;
}

/// What the command line prints in a language, run in the folder of the sources.
std::string Printed(Lines arguments, const std::string& language = "C") {
  ::setenv("LC_ALL", language.c_str(), 1);                            // NOLINT(concurrency-mt-unsafe)
  ::setenv("XDG_CONFIG_HOME", (kRoot / "build/no-user").c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
  for (std::string& each : arguments) {
    if (each.starts_with("dives/")) each = (kRoot / each).string();
  }
  std::ostringstream out;
  std::ostringstream err;
  EXPECT_EQ(RunTavplan(arguments, {kRoot, kRoot / "build/no-user"}, out, err), ExitStatus::kFine) << err.str();
  ::setenv("LC_ALL", "C", 1);  // NOLINT(concurrency-mt-unsafe)
  return ReplaceAll(out.str(), kRoot.string() + "/", "");
}

/// A shipped template with some lines changed, and the square dives that are planned on it.
class Planner {
 public:
  Planner(const char* name, const std::map<std::string, std::string>& changes) {
    std::string text;
    for (const std::string& line : Split(ReadTextFile(kRoot / "template" / name))) {
      const std::string key = line.substr(0, line.find('='));
      const auto change = changes.find(key);
      text += (change == changes.end() ? line : key + "=" + change->second) + "\n";
    }
    file_ = scratch_.Path() / "settings.tpl";
    WriteTextFile(file_, text);
  }

  [[nodiscard]] json Dive(Lines arguments) const {
    arguments.insert(arguments.begin(), "new");
    arguments.insert(arguments.end(), {"--json", "--template", file_.string()});
    return json::parse(Printed(arguments))["dives"][0];
  }

  /// The longest whole bottom time without a stop.
  [[nodiscard]] int NoStopLimit(int depth) const {
    int low = 1;
    int high = 1000;
    while (low < high) {
      const int middle = (low + high + 1) / 2;
      const json dive = Dive({"--depth", std::to_string(depth), "--time", std::to_string(middle)});
      const bool stops = std::any_of(dive["rows"].begin(), dive["rows"].end(),
                                     [](const json& row) { return row["stop_time"].get<double>() > 0; });
      (stops ? high : low) = stops ? middle - 1 : middle;
    }
    return low;
  }

 private:
  test::ScratchFolder scratch_;
  fs::path file_;
};

const char* const kDeepAirMetric = " 200:Air,";
const char* const kDeepAirImperial = " 600:Air,";

/// A stay at a PPO2 in ata, on oxygen or, below 1 ata, on EAN50: the row of the stay alone.
json Stay(double ppo2, int minutes) {
  static const Planner planner("Imperial.tpl", {});
  const bool oxygen = ppo2 >= 1.0;
  const double depth = 33 * (oxygen ? ppo2 - 1 : ppo2 / 0.5 - 1);
  const std::string at = FormatFixed(depth, 1);
  const std::string gas = oxygen ? "@Oxygen" : "@EAN50";
  const json dive = planner.Dive({"--leg", at + ":2" + gas, "--leg", at + ":" + std::to_string(minutes) + gas});
  for (const json& row : dive["rows"]) {
    if (row["end_user_profile"].get<bool>()) return row;
  }
  return {};
}

// NOAA Diving Manual: minutes of a single exposure.
constexpr std::pair<double, int> kNOAA[] = {{0.6, 720}, {0.7, 570}, {0.8, 450}, {0.9, 360}, {1.0, 300}, {1.1, 240},
                                            {1.2, 210}, {1.3, 180}, {1.4, 150}, {1.5, 120}, {1.6, 45}};

Table CNSFigures() {
  Table rows;
  for (const auto& [ppo2, minutes] : kNOAA) {
    rows.push_back({FormatFixed(ppo2, 1), std::to_string(minutes),
                    FormatFixed(Stay(ppo2, minutes)["cns"].get<double>() * 100, 1)});
  }
  return rows;
}

Table OTUFigures() {
  Table rows;
  for (const auto& [ppo2, minutes] : kNOAA) {
    rows.push_back({FormatFixed(ppo2, 1), FormatFixed(100 * std::pow((ppo2 - 0.5) / 0.5, 5.0 / 6.0), 0),
                    FormatFixed(Stay(ppo2, 100)["otu"].get<double>(), 0)});
  }
  return rows;
}

Table AltitudeFigures() {
  // ISO 2533, geopotential altitude.
  constexpr std::pair<int, double> kStandard[] = {
      {0, 1.01325}, {1000, 0.898746}, {2000, 0.794952}, {3000, 0.701085}, {4000, 0.616402}};
  Table rows;
  for (const auto& [altitude, standard] : kStandard) {
    const double ours = AltitudeToPressure(altitude, true);
    rows.push_back({std::to_string(altitude), FormatFixed(standard, 3), FormatFixed(ours, 3),
                    FormatFixed(100 * (ours / standard - 1), 1)});
  }
  return rows;
}

Table NoStopFiguresMetric() {
  // A. A. Buehlmann, air table for 0 to 700 m, 1986.
  constexpr std::pair<int, int> kTable[] = {{12, 125}, {15, 75}, {18, 51}, {21, 35}, {24, 25}, {27, 20},
                                            {30, 17},  {33, 14}, {36, 12}, {39, 10}, {42, 9}};
  const Planner bare("Default.tpl", {{"GF", "0, .85, .3"}, {"Change Gas Mixes", kDeepAirMetric}});
  const Planner factors("Default.tpl", {{"Change Gas Mixes", kDeepAirMetric}});
  Table rows;
  for (const auto& [depth, minutes] : kTable) {
    rows.push_back({std::to_string(depth), std::to_string(minutes), std::to_string(bare.NoStopLimit(depth)),
                    std::to_string(factors.NoStopLimit(depth))});
  }
  return rows;
}

Table NoStopFiguresImperial() {
  // US Navy Diving Manual: the table of 1957 (until revision 5), and that of revision 7.
  struct Limits {
    int depth;
    int of1957;
    int revision7;
  };
  constexpr Limits kTable[] = {{40, 200, 163}, {50, 100, 92}, {60, 60, 63},  {70, 50, 48},  {80, 40, 39},
                               {90, 30, 33},   {100, 25, 25}, {110, 20, 20}, {120, 15, 15}, {130, 10, 12}};
  const Planner bare("Imperial.tpl", {{"GF", "0, .85, .3"}, {"Change Gas Mixes", kDeepAirImperial}});
  Table rows;
  for (const Limits& each : kTable) {
    rows.push_back({std::to_string(each.depth), std::to_string(each.of1957), std::to_string(each.revision7),
                    std::to_string(bare.NoStopLimit(each.depth))});
  }
  return rows;
}

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
  std::ifstream in(kRoot / "tests/data/gas/reference_fills.json");
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

/// `new` for the 60 m dive of the examples with two stages and a twinset of cylinders of that many litres.
std::string Twinset(const std::string& litres) {
  return "new --depth 60 --time 25 --gas Tx18/45 --cylinder Tx18/45:2/" + litres +
         "/230/50 --cylinder EAN50:1/11/200/30 --cylinder Oxygen:1/3/200/50";
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

std::string MarkOf(const std::string& verdict) {
  return verdict == "enough" ? "" : verdict.find("reserve") == std::string::npos ? " !!" : " !";
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

Table Figures(const std::string& name) {
  static const std::map<std::string, Table> figures = {{"cns", CNSFigures()},
                                                       {"otu", OTUFigures()},
                                                       {"altitude", AltitudeFigures()},
                                                       {"no-stop-metric", NoStopFiguresMetric()},
                                                       {"no-stop-imperial", NoStopFiguresImperial()},
                                                       {"gradient-factors", GradientFactorFigures()},
                                                       {"mixer", MixerFigures()},
                                                       {"turn", TurnFigures()},
                                                       {"what-if", WhatIfFigures()}};
  return figures.at(name);
}

struct Document {
  std::string file;
  bool html;
  bool comma;            ///< decimal sign of its tables
  std::string language;  ///< of what tavplan prints
};

/// The guides of all languages, and the page of the validation.
std::vector<Document> Documents() {
  std::vector<Document> documents = {{"docs/validation.md", false, false, "C"}};
  for (const auto& entry : fs::directory_iterator(kRoot / "lang")) {
    const fs::path name = entry.path().filename();
    if (name.extension() == ".hlp") {
      const std::string language = name == "TAV_uk.hlp" ? "C" : name.string().substr(4, 2);
      documents.push_back({"lang" / name, true, language != "C", language});
    }
  }
  return documents;
}

/// The lines of the block behind a marker, as they are to stand in the document.
Lines Block(const std::string& marker, const Document& document) {
  Lines block;
  if (marker.starts_with("figures ")) {
    for (const Lines& cells : Figures(marker.substr(8))) {
      std::string row = document.html ? "<tr>" : "|";
      for (const std::string& cell : cells) {
        const std::string text = document.comma ? ReplaceAll(cell, ".", ",") : cell;
        row += document.html ? "<td align=\"right\">" + text + "</td>" : " " + text + " |";
      }
      block.push_back(row + (document.html ? "</tr>" : ""));
    }
    return block;
  }
  const std::size_t comma = marker.find(", lines ");
  const std::string arguments = marker.substr(8, comma == std::string::npos ? comma : comma - 8);
  block = Split(Printed(Split(arguments, ' '), document.language));
  if (comma != std::string::npos) {
    const std::string range = marker.substr(comma + 8);
    const auto from = std::stoul(range);
    const auto to = std::stoul(range.substr(range.find('-') + 1));
    block = {block.begin() + static_cast<std::ptrdiff_t>(from) - 1, block.begin() + static_cast<std::ptrdiff_t>(to)};
  }
  if (document.html) {
    for (std::string& line : block) line = ReplaceAll(ReplaceAll(line, "&", "&amp;"), "<", "&lt;");
  }
  return block;
}

/// The document with all its blocks as they are to stand.
Lines Renewed(const Lines& lines, const Document& document, int& blocks) {
  const std::string open = document.html ? "<pre>" : "```";
  const std::string close = document.html ? "</pre>" : "```";
  Lines renewed;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    renewed.push_back(lines[i]);
    if (!lines[i].starts_with("<!-- tavplan ") && !lines[i].starts_with("<!-- figures ")) continue;
    ++blocks;
    const std::string marker = lines[i].substr(5, lines[i].find(" -->") - 5);
    const Lines block = Block(marker, document);
    if (marker.starts_with("tavplan ")) {
      renewed.push_back(open);
      renewed.insert(renewed.end(), block.begin(), block.end());
      renewed.push_back(close);
      for (i += 2; i < lines.size() && lines[i] != close;) ++i;
      continue;
    }
    // The heads of a table stay.
    const std::string row = document.html ? "<tr><td" : "| ";
    std::size_t heads = document.html ? 2 : 3;
    for (; heads > 0; --heads) renewed.push_back(lines[++i]);
    renewed.insert(renewed.end(), block.begin(), block.end());
    while (i + 1 < lines.size() && lines[i + 1].starts_with(row)) ++i;
  }
  return renewed;
}

class Guides : public testing::TestWithParam<Document> {};

TEST_P(Guides, ShowTheFiguresThatTheProgramComputes) {
  const fs::path file = kRoot / GetParam().file;
  const Lines lines = Split(ReadTextFile(file));
  int blocks = 0;
  const Lines renewed = Renewed(lines, GetParam(), blocks);
  EXPECT_GT(blocks, 5);
  if (std::getenv("TAV_WRITE_FIGURES") != nullptr) {
    std::string text;
    for (const std::string& line : renewed) text += line + "\n";
    if (renewed != lines) WriteTextFile(file, text);
    return;
  }
  for (std::size_t i = 0; i < std::min(lines.size(), renewed.size()); ++i) {
    ASSERT_EQ(lines[i], renewed[i]) << file << ":" << i + 1;
  }
  EXPECT_EQ(lines.size(), renewed.size());
}

INSTANTIATE_TEST_SUITE_P(, Guides, testing::ValuesIn(Documents()),
                         [](const auto& one) { return fs::path(one.param.file).stem().string(); });

}  // namespace
}  // namespace tav
