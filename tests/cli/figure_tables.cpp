#include "cli/figure_tables.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>

#include "cli/commands.h"
#include "model/number_text.h"
#include "persist/text_file.h"
#include "support/source_folder.h"

namespace tav::test {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

const fs::path kRoot = SourceFolder();

}  // namespace

Lines Split(const std::string& text, char at) {
  Lines parts;
  std::istringstream in(text);
  for (std::string part; std::getline(in, part, at);) parts.push_back(part);
  return parts;
}

std::string Printed(Lines arguments, const std::string& language) {
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

Planner::Planner(const char* name, const std::map<std::string, std::string>& changes, const Lines& mixes) {
  std::string text;
  for (const std::string& line : Split(ReadTextFile(kRoot / "template" / name))) {
    const std::string key = line.substr(0, line.find('='));
    if (key.starts_with("# ChangeGasMix")) {
      for (const std::string& mix : mixes) text += "Blends Available=" + mix + "\n";
    }
    const auto change = changes.find(key);
    text += (change == changes.end() ? line : key + "=" + change->second) + "\n";
  }
  file_ = scratch_.Path() / "settings.tpl";
  WriteTextFile(file_, text);
}

nlohmann::json Planner::Dive(Lines arguments) const {
  arguments.insert(arguments.begin(), "new");
  arguments.insert(arguments.end(), {"--json", "--template", file_.string()});
  nlohmann::json printed = nlohmann::json::parse(Printed(arguments));
  return std::move(printed["dives"][0]);
}

int Planner::NoStopLimit(int depth) const {
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

Table Figures(const std::string& name) {
  static const std::map<std::string, std::function<Table()>> figures = {{"cns", CNSFigures},
                                                                        {"otu", OTUFigures},
                                                                        {"altitude", AltitudeFigures},
                                                                        {"no-stop-metric", NoStopFiguresMetric},
                                                                        {"no-stop-imperial", NoStopFiguresImperial},
                                                                        {"baker", BakerFigures},
                                                                        {"schedules", ScheduleFigures},
                                                                        {"first-stops", FirstStopFigures},
                                                                        {"m-values", MValueFigures},
                                                                        {"planners", PlannerFigures},
                                                                        {"bubbles", BubbleFigures},
                                                                        {"gradient-factors", GradientFactorFigures},
                                                                        {"mixer", MixerFigures},
                                                                        {"turn", TurnFigures},
                                                                        {"what-if", WhatIfFigures}};
  static std::map<std::string, Table> computed;
  const auto known = computed.find(name);
  return known != computed.end() ? known->second : computed[name] = figures.at(name)();
}

}  // namespace tav::test
