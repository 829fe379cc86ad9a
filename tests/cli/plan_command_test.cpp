#include <cmath>
#include <fstream>

#include "cli/tavplan_fixture.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST_F(Tavplan, PrintsTheSlateOfADive) {
  EXPECT_EQ(Run({"plan", Dive("air-no-stop.tav")}), ExitStatus::kFine);
  EXPECT_EQ(Out(), Dive("air-no-stop.tav") + R"(
ZH-L16B, GF 30/85, open circuit, sea level, stops every 3 m, last 3 m

            Depth   Time    Run  Gas   PPO2
                m    min    min         bar
  descent      18      1      1  Air   0.59
  level        18     19     20  Air   0.59
  stop          6      1     22  Air   0.34
  stop          3      1     24  Air   0.28
  surface       0            25  Air   0.21

  Run time 25 min, stops 2 min, CNS 3 %, OTU 4
  Gas Air 1240 l
)");
  EXPECT_EQ(Err(), "");
  EXPECT_EQ(Run({"plan", Dive("lake-series.tav")}), ExitStatus::kFine);
  EXPECT_THAT(Out(), AllOf(HasSubstr(", dive 1 of 2\n"), HasSubstr(", dive 2 of 2 after 120 min at the surface\n"),
                           HasSubstr("1600 m (0.842 bar) (not adapted)")));
}

std::string Known(const char* name) { return (SourceFolder() / "tests/data/vectors" / name).string(); }

void ExpectSame(const json& computed, const json& expected, const std::string& where) {
  if (expected.is_number_float()) {
    const double value = expected.get<double>();
    EXPECT_NEAR(computed.get<double>(), value, std::max(2e-3, 2e-4 * std::fabs(value))) << where;
  } else if (expected.is_structured()) {
    // What is known of a dive stays; there may be more.
    if (expected.is_array()) {
      ASSERT_EQ(computed.size(), expected.size()) << where;
    }
    for (const auto& [key, item] : expected.items()) {
      const auto found = computed.is_array() ? computed.at(std::stoul(key)) : computed.value(key, json());
      ExpectSame(found, item, where + "/" + key);
    }
  } else {
    EXPECT_EQ(computed, expected) << where;
  }
}

TEST_F(Tavplan, PrintsEveryRowAsJsonInTheFormOfTheKnownDives) {
  for (const char* name : {"series-ccr", "ascent-then-on"}) {
    EXPECT_EQ(Run({"plan", "--json", Known((std::string(name) + ".tav").c_str())}), ExitStatus::kFine);
    const std::string expected = Known((std::string(name) + ".expected.json").c_str());
    ExpectSame(OutJson(), json::parse(std::ifstream(expected)), name);
  }
}

/// The cells of a line without quotes.
std::vector<std::string> CellsOf(const std::string& line) {
  std::vector<std::string> cells;
  std::istringstream rest(line + ",");
  for (std::string cell; std::getline(rest, cell, ',');) cells.push_back(cell);
  return cells;
}

/// What JSON tells under the name of a column of CSV.
json Told(const json& row, const std::string& column) {
  if (column.starts_with("percent_")) return row["percent_compartments"][std::stoul(column.substr(8)) - 1];
  if (column.starts_with("why_")) return row.contains("why") ? row["why"].at(column.substr(4)) : json("");
  return row.at(column);
}

TEST_F(Tavplan, PrintsTheSameRowsAsCsvAndAsJson) {
  EXPECT_EQ(Run({"plan", "--json", Dive("lake-series.tav"), Dive("wreck.tav")}), ExitStatus::kFine);
  const json dives = OutJson()["dives"];
  EXPECT_EQ(Run({"plan", "--csv", Dive("lake-series.tav"), Dive("wreck.tav")}), ExitStatus::kFine);
  std::istringstream lines(Out());
  std::string line;
  ASSERT_TRUE(std::getline(lines, line));
  EXPECT_THAT(line, StartsWith("file,dive,row,depth,segment_time,run_time,rate,status,mix,"));
  const auto columns = CellsOf(line);
  for (std::size_t d = 0; d < dives.size(); ++d) {
    for (std::size_t r = 0; r < dives[d]["rows"].size(); ++r) {
      ASSERT_TRUE(std::getline(lines, line));
      const auto cells = CellsOf(line);
      ASSERT_EQ(cells.size(), columns.size()) << line;
      EXPECT_EQ(cells[1], d == 1 ? "2" : "1");
      EXPECT_EQ(cells[2], std::to_string(r));
      for (std::size_t i = 3; i < columns.size(); ++i) {
        const json told = Told(dives[d]["rows"][r], columns[i]);
        if (told.is_number()) {
          EXPECT_EQ(ParseLenient(cells[i]), told.get<double>()) << columns[i];
        } else {
          EXPECT_EQ(cells[i], told.is_boolean() ? std::string(told ? "1" : "0") : told.get<std::string>());
        }
      }
    }
  }
  EXPECT_FALSE(std::getline(lines, line));
}

/// Leaving at the end of the last leg is the ascent of the plan itself.
TEST_F(Tavplan, TellsBesideEachRowWhatLeavingThenTakes) {
  for (const char* name : {"wreck.tav", "rebreather.tav"}) {
    SCOPED_TRACE(name);
    const bool loop = name == std::string("rebreather.tav");
    EXPECT_EQ(Run({"plan", "--json", "--moments", Dive(name)}), ExitStatus::kFine);
    const json rows = OutJson()["dives"][0]["rows"];
    std::size_t last = rows.size() - 1;
    EXPECT_EQ(rows[last]["surfacing"]["open"], json::parse(R"({"time": 0, "gas": []})"));
    while (!rows[last]["end_user_profile"].get<bool>()) --last;
    std::map<std::string, double> gas;
    for (std::size_t i = last + 1; i < rows.size(); ++i) gas[rows[i]["mix"]] += rows[i]["gas_used"].get<double>();
    const double minutes = rows.back()["run_time"].get<double>() - rows[last]["run_time"].get<double>();
    const json& surfacing = rows[last]["surfacing"];
    EXPECT_NEAR(surfacing[loop ? "loop" : "open"]["time"].get<double>(), minutes, 1e-3);
    EXPECT_EQ(surfacing["loop"].is_null(), !loop);
    EXPECT_FALSE(surfacing["open"]["gas"].empty());
    for (const json& told : surfacing["open"]["gas"]) {
      if (!loop) {
        EXPECT_NEAR(told["volume"].get<double>(), gas.at(told["mix"]), 0.05);
      }
    }

    EXPECT_EQ(Run({"plan", "--csv", "--moments", Dive(name)}), ExitStatus::kFine);
    std::istringstream lines(Out());
    std::string line;
    for (std::size_t i = 0; i <= last + 1; ++i) std::getline(lines, line);
    const auto cells = CellsOf(line);
    EXPECT_EQ(ParseLenient(cells.at(cells.size() - 3)), surfacing["open"]["time"].get<double>());
    EXPECT_THAT(cells.at(cells.size() - 2), StartsWith(surfacing["open"]["gas"][0]["mix"].get<std::string>() + " "));
    EXPECT_EQ(cells.back().empty(), !loop);
  }
  EXPECT_EQ(Run({"plan", "--moments", Dive("air-no-stop.tav")}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr(R"(
            Depth   Time    Run  Gas   PPO2   To surface  Gas for the way up
                m    min    min         bar          min
)"));
  EXPECT_THAT(Out(), HasSubstr("  surface       0            25  Air   0.21            0\n"));
}

TEST_F(Tavplan, QuotesCsvFieldsThatHoldACommaOrAQuote) {
  const fs::path file = scratch_.Path() / "a \"b\", c.tav";
  fs::copy_file(Dive("air-no-stop.tav"), file);
  EXPECT_EQ(Run({"plan", "--csv", file.string()}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr("\n\"" + scratch_.Path().string() + "/a \"\"b\"\", c.tav\",1,0,0,"));
}

TEST_F(Tavplan, ListsFindingsWorstFirst) {
  // The bottom gas is breathed from the surface, and the change to oxygen can never be made.
  std::string text = ReadTextFile(Dive("trimix-100.tav"));
  text = ReplaceAll(text, "30,3,1,0,\r\n", "");
  text = ReplaceAll(text, "6:Oxygen, 21:EAN50,", "21:EAN50, 6:Oxygen,");
  const std::string file = Scratch("changed.tav");
  WriteTextFile(file, text);
  Run({"plan", "--json", file});
  const json findings = OutJson()["dives"][0]["findings"];
  ASSERT_GE(findings.size(), 4U);
  EXPECT_EQ(findings[0]["rule"], "hypoxic");
  EXPECT_EQ(findings[0]["severity"], "danger");
  EXPECT_EQ(findings[0]["rows"], json({1, 1}));
  EXPECT_EQ(Err(), "");
  Run({"plan", file});
  const std::string slate = ReplaceAll(Out(), "\n  ", " ");  // as one line each
  for (const json& finding : findings) {
    const char* mark = finding["severity"] == "note" ? "\n- " : "\n! ";
    EXPECT_THAT(slate, HasSubstr(mark + finding["text"].get<std::string>()));
  }
  Run({"new", "--depth", "60", "--time", "20"});
  EXPECT_THAT(Out(), HasSubstr("\n! Air at 60 m (run time 3.3 min): PPO2 1.47 bar is 0.07 over the limit of 1.40."));
}

TEST_F(Tavplan, TellsWhyEachStopLasts) {
  Run({"plan", "--json", Dive("wreck.tav")});
  const json dives = OutJson();
  for (const json& row : dives["dives"][0]["rows"]) {
    EXPECT_EQ(row.contains("why"), row["status"] == 4);
    if (!row.contains("why")) continue;
    EXPECT_LE(row["why"]["load"], row["why"]["tolerated"]);
    EXPECT_EQ(row["why"]["model"], "ZH-L16B");
    EXPECT_EQ(row["why"]["gf"], row["gf"]);
  }
  Run({"plan", Dive("wreck.tav")});
  EXPECT_THAT(Out(), Not(HasSubstr("Compartment")));
  Run({"plan", "--why", Dive("wreck.tav")});
  EXPECT_THAT(Out(), HasSubstr("\n  stop   24 m  Compartment 4 (N2 18.5, He 7 min) holds 3.921, and 3.945 bar"));
}

TEST_F(Tavplan, ChoosesTheModel) {
  // Gradient factors do not act on the bubble model alone.
  const std::pair<const char*, std::string> models[] = {
      {"--vpm", "VPM, open circuit, "}, {"--zhl16c", "ZH-L16C, GF "}, {"--hybrid", "ZH-L16B + VPM, GF "}};
  for (const auto& [option, name] : models) {
    EXPECT_EQ(Run({"plan", option, Dive("wreck.tav")}), ExitStatus::kFine);
    EXPECT_THAT(Out(), HasSubstr("\n" + name));
  }
}

TEST_F(Tavplan, TellsTheGasSupplyWhereCylindersAreTold) {
  const std::string file = Scratch("supply.tav");
  Run({"new", "--depth", "30", "--time", "25", "--cylinder", "Air:2/12/200/50", "--cylinder",
       "EAN50:1/80/3000/2900/500", "--cylinder", "Oxygen:1/80/3000/2900/500", "--cylinder", "Oxygen:1/7/200/20/",
       "--turn", "thirds", "-o", file});
  EXPECT_EQ(Err(), "");
  EXPECT_THAT(Out(), HasSubstr("\nMinimum gas at the end of each leg\n"));
  EXPECT_THAT(Out(), HasSubstr("2 divers x 2 x 20 l/min x 4.013 bar x 2 min = 642 l, + ascent "));
  Run({"plan", "--json", "--team", "3", "--sort-out", "1", "--turn", "thirds", file});
  const json supply = OutJson()["dives"][0]["gas_supply"];
  EXPECT_EQ(supply["team"], 3);
  EXPECT_EQ(supply["rule"], "thirds");
  ASSERT_EQ(supply["gases"].size(), 3U);
  EXPECT_EQ(supply["gases"][0]["mix"], "Air");
  EXPECT_EQ(supply["gases"][0]["carried"], 4800);
  EXPECT_EQ(supply["gases"][1]["pressure_unit"], "psi");
  // Gauges in psi and in bar: a pressure for both is in the unit of the plan, 2900 / 14.50377.
  const json& oxygen = supply["gases"][2];
  EXPECT_EQ(oxygen["pressure_unit"], "bar");
  EXPECT_NEAR(oxygen["start_pressure"].get<double>(), 199.95, 0.01);
  EXPECT_NEAR(oxygen["start_pressures"].at(0).get<double>(), 2900, 0.01);
  EXPECT_NEAR(oxygen["start_pressures"].at(1).get<double>(), 200, 0.01);
  const json& leg = supply["legs"][0];
  // 3 x 2 x 20 x 4.01325 bar x 1 min
  EXPECT_NEAR(leg["sorting_out"].get<double>(), 481.59, 0.01);
  EXPECT_NEAR(leg["minimum_pressure"].get<double>() * 24, leg["minimum_gas"].get<double>(), 0.01);
  const double kept = std::max(50.0, leg["minimum_pressure"].get<double>());
  EXPECT_NEAR(leg["turn_pressure"].get<double>(), 200 - (200 - kept) / 3, 0.01);
  // A plan that tells no cylinders has no supply, and nothing is said.
  Run({"plan", "--json", Dive("wreck.tav")});
  EXPECT_TRUE(OutJson()["dives"][0]["gas_supply"].is_null());
}

TEST_F(Tavplan, TellsAPlanThatDoesNotDecompress) {
  // On air at 9 m the tissues never come down to what 5 % of the gradient allow at the surface.
  const std::string text = ReadTextFile(Dive("air-deco.tav"));
  std::string deep = Changed("air-deco.tav", "LastStop= 3", "LastStop= 9");
  deep = ReplaceAll(ReadTextFile(deep), text.substr(text.find("GF="), 12), "GF=1, .05, .05\r\n#");
  deep = ReplaceAll(deep, "Change Gas Mixes=", "Change Gas Mixes=\r\n# ");
  const std::string file = Scratch("deep.tav");
  WriteTextFile(file, deep);
  EXPECT_EQ(Run({"plan", file}), ExitStatus::kDoesNotDecompress) << Out() << Err();
  EXPECT_THAT(Out(), HasSubstr("! This plan never ends its decompression: the stop at 9 m on Air does not clear"));
  EXPECT_EQ(Run({"plan", "--csv", file}), ExitStatus::kDoesNotDecompress);
  EXPECT_THAT(Err(), HasSubstr(file + ": Dive 1: This plan never ends its decompression"));
  const std::string rows = Out();
  Speak("de_DE.UTF-8");
  EXPECT_EQ(Run({"plan", "--csv", file}), ExitStatus::kDoesNotDecompress);
  EXPECT_THAT(Err(), HasSubstr(file + ": Tauchgang 1: Die Deko dieses Plans endet nie"));
  EXPECT_EQ(Out(), rows);
}

}  // namespace
}  // namespace tav
