#include "cli/tavplan_fixture.h"

namespace tav {
namespace {

using nlohmann::json;
using testing::HasSubstr;

constexpr std::size_t kWidth = 80;  ///< letters of a terminal

/// A dive whose gas is carried: 60 m for 25 minutes.
class MarginsOf : public Tavplan {
 protected:
  std::string Carried() {
    const std::string file = Scratch("carried.tav");
    EXPECT_EQ(Run({"new", "--leg", "60:25@Tx18/45", "--cylinder", "Tx18/45:2/18/200/40", "--cylinder",
                   "EAN50:1/11.1/200/20", "--cylinder", "Oxygen:1/5.7/200/20", "-o", file}),
              ExitStatus::kFine)
        << Err();
    return file;
  }
};

// The maps have been read cell by cell against the plans that they are made of.
TEST_F(MarginsOf, AreThoseThatWereLookedAt) {
  const std::pair<std::string, std::string> maps[] = {{Carried(), "carried"},
                                                      {Dive("wreck.tav"), "wreck"},
                                                      {Dive("rebreather.tav"), "rebreather"},
                                                      {Dive("lake-series.tav"), "lake-series"}};
  for (const auto& [file, name] : maps) {
    std::vector<std::string> arguments{"margins", file};
    if (name == "rebreather") arguments.insert(arguments.end(), {"--longer", "-5:20:5", "--deeper", "-6:12:3"});
    ASSERT_EQ(Run(arguments), ExitStatus::kFine) << Err();
    std::string map = Out();
    map.erase(0, map.find('\n') + 1);
    EXPECT_EQ(map, ReadTextFile(SourceFolder() / "tests/data/margins" / (name + ".txt"))) << name;
    const std::string cells = map.substr(0, map.find("\n\n"));
    for (std::size_t at = 0; at < cells.size(); at = std::min(cells.find('\n', at), cells.size()) + 1) {
      EXPECT_LE(std::min(cells.find('\n', at), cells.size()) - at, kWidth) << name;
    }
  }
}

TEST_F(MarginsOf, TellOfEachCellWhatPlanTellsOfTheChangedDive) {
  const std::string file = Carried();
  ASSERT_EQ(Run({"margins", file, "--longer", "8:11:3", "--deeper", "0:0:1", "--json"}), ExitStatus::kFine) << Err();
  const json map = OutJson();
  EXPECT_EQ(map["leg"], json({{"action", 1}, {"depth", 60}, {"time", 25}}));
  EXPECT_EQ(map["limits"], json({{"run", nullptr}, {"stops", nullptr}, {"cns", 100}, {"gas", true}}));
  EXPECT_EQ(map["gas_judged"], true);
  ASSERT_EQ(map["cells"].size(), 2U);
  EXPECT_EQ(map["cells"][0]["limit"], "lost EAN50");
  EXPECT_EQ(map["cells"][1]["limit"], "gas Tx18/45");
  ASSERT_EQ(Run({"new", "--leg", "60:33@Tx18/45", "--json"}), ExitStatus::kFine);
  const json totals = OutJson()["dives"][0]["totals"];
  for (const char* figure : {"run_time", "stops", "cns", "otu"}) EXPECT_EQ(map["cells"][0][figure], totals[figure]);

  ASSERT_EQ(Run({"margins", file, "--svg", Scratch("map.svg")}), ExitStatus::kFine) << Err();
  EXPECT_EQ(Out(), "");
  EXPECT_THAT(ReadTextFile(Scratch("map.svg")), HasSubstr("EAN50 lost: a gas runs short"));
  EXPECT_EQ(Run({"margins", file, "--svg", file}), ExitStatus::kUnusableInput) << "over its own plan";

  ASSERT_EQ(Run({"longest", file, "--json"}), ExitStatus::kFine) << Err();
  const json longest = OutJson();
  EXPECT_EQ(longest["minutes"], 32);
  EXPECT_EQ(longest["binds"], "lost EAN50");
  EXPECT_EQ(longest["next"], json({{"minutes", 33}, {"run_time", totals["run_time"]}}));
  ASSERT_EQ(Run({"longest", file, "--max-run", "90", "--no-gas", "--json"}), ExitStatus::kFine);
  EXPECT_EQ(OutJson()["binds"], "run");
}

TEST_F(MarginsOf, KeepTheLimitsThatAPlanTells) {
  const std::string limited = Changed("wreck.tav", "GF=1, .85, .3", "GF=1, .85, .3\n# Limits=75/ / 90/ /");
  ASSERT_EQ(Run({"margins", limited, "--longer", "0:5:5", "--deeper", "0:0:1", "--json"}), ExitStatus::kFine) << Err();
  EXPECT_EQ(OutJson()["limits"], json({{"run", 75}, {"stops", nullptr}, {"cns", 90}, {"gas", false}}));
  EXPECT_EQ(OutJson()["cells"][1]["limit"], "run");
  ASSERT_EQ(Run({"longest", limited}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr("run time above the limit"));
}

TEST_F(MarginsOf, AreRefusedInALine) {
  const std::string wreck = Dive("wreck.tav");
  for (const auto& arguments :
       std::initializer_list<std::vector<std::string>>{{"margins", wreck, "--longer", "0:10"},
                                                       {"margins", wreck, "--longer", "0:10:0"},
                                                       {"margins", wreck, "--deeper", "10:0:1"},
                                                       {"margins", wreck, "--longer", "0:999:1", "--deeper", "0:99:1"},
                                                       {"margins", wreck, "--leg", "3"},
                                                       {"longest", wreck, "--max-run", "0"},
                                                       {"longest", wreck, "--max-cns", "many"}}) {
    EXPECT_EQ(Run(arguments), ExitStatus::kUnusableInput) << arguments.back();
    EXPECT_EQ(std::ranges::count(Err(), '\n'), 1) << Err();
  }
  ASSERT_EQ(Run({"longest", wreck, "--max-run", "5"}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr("Not even 4 min at 57 m"));
  ASSERT_EQ(Run({"longest", wreck, "--max-run", "5", "--json"}), ExitStatus::kFine);
  EXPECT_EQ(OutJson()["minutes"], 0);
}

TEST_F(MarginsOf, TellHowLongOneMayStayWithoutAStopInTheUnitsOfThePlan) {
  ASSERT_EQ(Run({"new", "--template", "Imperial", "--leg", "100:20", "-o", Scratch("feet.tav")}), ExitStatus::kFine);
  ASSERT_EQ(Run({"longest", Scratch("feet.tav"), "--no-stop", "--json"}), ExitStatus::kFine) << Err();
  const json times = OutJson();
  EXPECT_EQ(times["gas"], "Air");
  EXPECT_EQ(times["rows"][0]["depth"], 30);
  EXPECT_EQ(times["rows"][1]["depth"], 40);
  ASSERT_EQ(Run({"longest", Scratch("feet.tav"), "--no-stop"}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr("no table of an agency"));
}

}  // namespace
}  // namespace tav
