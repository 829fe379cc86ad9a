#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>

#include "cli/figure_tables.h"
#include "engine/zhl16.h"
#include "model/altitude.h"
#include "model/number_text.h"
#include "support/source_folder.h"

namespace tav::test {
namespace {

using nlohmann::json;

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

/// A stop of a schedule: its depth, and minutes or a run time.
using Stops = std::vector<std::pair<double, double>>;

/// Depth and run time at the end of each stop.
Stops StopsOf(const json& dive) {
  Stops stops;
  for (const json& row : dive["rows"]) {
    if (row["stop_time"].get<double>() > 0) stops.emplace_back(row["stop_depth"], row["run_time"]);
  }
  return stops;
}

double RunTime(const json& dive) { return dive["rows"].back()["run_time"]; }

/// "9:1 6:11": minutes at each depth.
std::string Minutes(const json& dive) {
  std::string text;
  for (const json& row : dive["rows"]) {
    const double minutes = row["stop_time"];
    if (minutes == 0) continue;
    text += (text.empty() ? "" : " ") + FormatFixed(row["stop_depth"].get<double>(), 0) + ":" + FormatFixed(minutes, 0);
  }
  return text;
}

/// Minutes of the stops from a depth up, by run time: a begun minute counts as what it is, not as the whole one that is
/// listed.
std::string Stopped(const json& dive, double from = 1000) {
  double sum = 0;
  double before = 0;
  for (const json& row : dive["rows"]) {
    const double run = row["run_time"];
    if (row["stop_time"].get<double>() > 0 && row["stop_depth"].get<double>() <= from) sum += run - before;
    before = run;
  }
  return FormatFixed(sum, 1);
}

const json& Schedules() {
  static const json dives = [] {
    std::ifstream in(SourceFolder() / "tests/data/published/gfdeco.json");
    json file = json::parse(in);
    return std::move(file["dives"]);
  }();
  return dives;
}

/// One of the schedules as this program plans it.
json Planned(const json& dive) {
  const bool metric = dive["units"] == "metres";
  std::string changes;
  for (const json& change : dive["changes"]) {  // the shallowest is to be the first
    changes.insert(0, " " + change[0].dump() + ":" + change[1].get<std::string>() + ",");
  }
  if (changes.empty()) changes = metric ? kDeepAirMetric : kDeepAirImperial;
  const auto plain = [&](const char* name) { return dive[name].dump(); };
  const Planner planner(metric ? "Default.tpl" : "Imperial.tpl",
                        {{"GF", "1, " + plain("gf_high") + ", " + plain("gf_low")},
                         {"AscendRates", " 0: " + plain("ascent") + ","},
                         {"DescendRates", " 0: " + plain("descent") + ","},
                         {"StepSize", plain("step")},
                         {"LastStop", plain("last_stop")},
                         {"StartPressure", "1"},
                         {"EndPressure", "1"},
                         {"Change Gas Mixes", changes}});
  return planner.Dive({"--depth", plain("depth"), "--time", plain("time"), "--gas", dive["gas"]});
}

/// Of every schedule: ours later at the last stop, minutes, and our first stop deeper, steps.
struct Difference {
  bool metric = true;
  double minutes = 0;
  double steps = 0;
};

const std::vector<Difference>& Differences() {
  static const std::vector<Difference> differences = [] {
    std::vector<Difference> found;
    for (const json& dive : Schedules()) {
      const Stops ours = StopsOf(Planned(dive));
      const json& theirs = dive["stops"];
      // A dive without a stop has its first at the surface, where it is when it would be without stops.
      const auto minutes = [](const Stops& stops, const json& others) {
        if (!stops.empty() && !others.empty()) return stops.back().second - others.back()[2].get<double>();
        double sum = 0;
        for (const json& stop : others) sum -= stop[1].get<double>();
        return sum;
      };
      const double first = ours.empty() ? 0 : ours.front().first;
      const double theirFirst = theirs.empty() ? 0 : theirs.front()[0].get<double>();
      EXPECT_FALSE(theirs.empty() && !ours.empty()) << dive;
      found.push_back({dive["units"] == "metres", std::round(minutes(ours, theirs)),
                       (first - theirFirst) / dive["step"].get<double>()});
    }
    return found;
  }();
  return differences;
}

}  // namespace

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

Table BakerFigures() {
  // E. C. Baker, "Clearing Up the Confusion About 'Deep Stops'", figure 3: run time at the end of each stop.
  constexpr std::pair<int, int> kFigure[] = {{54, 24}, {51, 25}, {48, 26}, {45, 27}, {42, 28}, {39, 30},
                                             {36, 33}, {33, 34}, {30, 36}, {27, 38}, {24, 40}, {21, 44},
                                             {18, 47}, {15, 53}, {12, 61}, {9, 71},  {6, 87},  {3, 119}};
  const Planner planner("Default.tpl",
                        {{"GF", "1, .75, .2"},
                         {"AscendRates", " 0: 10,"},
                         {"DescendRates", " 0: 20,"},
                         {"StartPressure", "1"},
                         {"EndPressure", "1"},
                         {"Change Gas Mixes", " 9:EAN80, 21:EAN50, 33:EAN36,"}},
                        {"EAN36: 36/64/0/", "EAN80: 80/20/0/"});
  const Stops ours = StopsOf(planner.Dive({"--depth", "90", "--time", "20", "--gas", "Tx13/50"}));
  Table rows;
  for (std::size_t i = 0; i < std::max(ours.size(), std::size(kFigure)); ++i) {
    const auto& [depth, run] = kFigure[std::min(i, std::size(kFigure) - 1)];
    const bool same = i < ours.size() && ours[i].first == depth;
    rows.push_back({std::to_string(depth), std::to_string(run), same ? FormatFixed(ours[i].second, 0) : "-"});
  }
  return rows;
}

namespace {

/// How often each value from the least to the most comes, in metres and in feet.
Table Counted(double Difference::*value) {
  const auto of = [value](const Difference& each) { return static_cast<int>(std::lround(each.*value)); };
  const auto [least, most] = std::ranges::minmax(Differences(), {}, of);
  Table rows;
  for (int at = of(least); at <= of(most); ++at) {
    const auto count = [&](bool metric) {
      return std::ranges::count_if(Differences(),
                                   [&](const Difference& each) { return each.metric == metric && of(each) == at; });
    };
    rows.push_back({std::to_string(at), std::to_string(count(true)), std::to_string(count(false))});
  }
  return rows;
}

}  // namespace

Table ScheduleFigures() { return Counted(&Difference::minutes); }

Table FirstStopFigures() { return Counted(&Difference::steps); }

Table MValueFigures() {
  // E. C. Baker, "Understanding M-values", tables 2 and 3: surfacing M-values of nitrogen, ZH-L16B, msw.
  constexpr std::array<double, 16> kPrinted = {29.6, 25.4, 22.5, 20.3, 19.0, 17.5, 16.5, 15.7,
                                               15.2, 14.6, 14.2, 13.9, 13.4, 13.2, 12.9, 12.7};
  Table rows;
  for (std::size_t i = 0; i < kPrinted.size(); ++i) {
    const double slope = 1 / zhl16::kN2B[i];
    rows.push_back({FormatPlain(zhl16::kN2HalfTimes[i]), FormatFixed(kPrinted[i], 1),
                    FormatFixed(zhl16::kN2A_B[i] + 10 * slope, 1), FormatFixed(slope, 4)});
  }
  return rows;
}

Table PlannerFigures() {
  using Changes = std::map<std::string, std::string>;
  const auto settings = [](const char* factors, const char* lastStop, const char* rates, const char* changes,
                           const char* pressure = "1.01325") {
    return Changes{{"GF", factors},
                   {"LastStop", lastStop},
                   {"AscendRates", rates},
                   {"DescendRates", rates[4] == '5' ? " 0: 5," : " 0: 20,"},
                   {"StartPressure", pressure},
                   {"EndPressure", pressure},
                   {"Change Gas Mixes", changes}};
  };
  const auto dive = [](const Changes& changes, int depth, int time, const char* gas, Lines more = {}) {
    Lines words = {"--depth", std::to_string(depth), "--time", std::to_string(time), "--gas", gas};
    words.insert(words.end(), more.begin(), more.end());
    return Planner("Default.tpl", changes, {"EAN36: 36/64/0/"}).Dive(words);
  };
  const Lines c = {"--zhl16c"};
  const auto run = [](const json& plan) { return "(" + FormatFixed(RunTime(plan), 0) + ")"; };
  Table rows;
  const auto add = [&](const char* conditions, const char* theirs, const std::string& ours) {
    rows.push_back({conditions, theirs, ours});
  };
  json plan = dive(settings("1, .85, .3", "3", " 0: 10,", kDeepAirMetric), 45, 25, "Air");
  add("B, Air 45 m 25 min, 30/85", "6 m + 3 m: 25", "6 m + 3 m: " + Stopped(plan, 6));
  plan = dive(settings("1, .85, .3", "6", " 0: 10,", kDeepAirMetric), 45, 25, "Air");
  add("B, Air 45 m 25 min, 30/85, 6 m", "6 m: 33", "6 m: " + Stopped(plan, 6));
  plan = dive(settings("1, .9, .2", "3", " 0: 10,", " 6:Oxygen, 22:EAN50,"), 40, 35, "Air");
  add("B, Air 40 m 35 min, EAN50 22 m, O2 6 m, 20/90", "20", Stopped(plan));
  plan = dive(settings("1, .9, .2", "3", " 0: 10,", " 6:Oxygen, 24:EAN50,"), 40, 35, "EAN27");
  add("B, EAN27 40 m 35 min, EAN50 24 m, O2 6 m, 20/90", "15", Stopped(plan));
  plan = dive(settings("0, 1, 1", "6", " 0: 9,", " 6:Oxygen, 33:EAN36,"), 79, 30, "Tx15/45", c);
  add("C, Tx15/45 79 m 30 min, EAN36 33 m, O2 6 m, 100/100, 6 m", "(109)", run(plan));
  plan = dive(settings("1, .85, .85", "3", " 0: 5,", kDeepAirMetric), 30, 30, "Air", c);
  add("C, Air 30 m 30 min, 85/85", "3:8 (45)", Minutes(plan) + " " + run(plan));
  plan = dive(settings("1, .7, .3", "6", " 0: 5,", " 21:EAN50,"), 30, 30, "Air", c);
  add("C, Air 30 m 30 min, EAN50 21 m, 30/70, 6 m", "9:1 6:11 (50); 9:3 6:11 (48)", Minutes(plan) + " " + run(plan));
  plan = dive(settings("1, .7, .3", "3", " 0: 5,", " 21:EAN50,"), 45, 15, "Tx21/35", c);
  add("C, Tx21/35 45 m 15 min, EAN50 21 m, 30/70", "6:2 3:6 (33); 6:5 3:5 (32)", Minutes(plan) + " " + run(plan));
  plan = dive(settings("1, .85, .4", "3", " 0: 5,", " 21:EAN50,", ".9"), 60, 20, "Tx18/45", c);
  add("C, Tx18/45 60 m 20 min, EAN50 21 m, 40/85, 0.9 bar", "(59); (63)", run(plan));
  return rows;
}

Table BubbleFigures() {
  const Planner planner("Default.tpl", {{"Change Gas Mixes", ""}});  // the gas of the bottom alone
  Table rows;
  for (const auto& [gas, depth, time, theirs] :
       {std::tuple("Tx15/45", 80, 30, "311"), std::tuple("Air", 50, 25, "89")}) {
    const json plan =
        planner.Dive({"--vpm", "--depth", std::to_string(depth), "--time", std::to_string(time), "--gas", gas});
    rows.push_back({std::string(gas) + ", " + std::to_string(depth) + " m, " + std::to_string(time) + " min", theirs,
                    FormatFixed(RunTime(plan), 0)});
  }
  return rows;
}

}  // namespace tav::test
