#include <algorithm>
#include <regex>

#include "cli/tavplan_fixture.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Words = std::vector<std::string>;

/// "1: 57 8 Tx18/45; 2: 52 20 Tx18/45; 3: ascent"
std::string LegsOf(const json& dive) {
  std::string legs;
  for (const json& leg : dive["legs"]) {
    legs += (legs.empty() ? "" : "; ") + leg["action"].dump() + ": ";
    if (leg["ascent"] == true) {
      legs += "ascent";
    } else {
      legs += FormatPlain(leg["depth"].get<double>()) + " " + FormatPlain(leg["time"].get<double>()) + " " +
              leg["gas"].get<std::string>();
    }
  }
  return legs;
}

class EditCommandTest : public Tavplan {
 protected:
  int Edit(const std::string& file, const Words& edits, const std::string& output = "") {
    Words arguments{"edit", file, "--json"};
    if (!output.empty()) arguments.insert(arguments.end(), {"-o", output});
    arguments.insert(arguments.end(), edits.begin(), edits.end());
    return Run(arguments);
  }

  std::string Schedule(const std::string& file) {
    Run({"plan", "--json", file});
    return Out();
  }

  /// The wreck with cylinders, and a line that another program keeps there.
  std::string Wreck() {
    return Changed("wreck.tav", "Templatename=",
                   "# Plan name=Old\r\n# Cylinder=Tx18/45: 2/ 12/ 200/ 50/\r\n# Mark= 7\r\nTemplatename=", "wreck.tav");
  }
};

TEST_F(EditCommandTest, APlanThatIsOnlyReadAndWrittenComputesTheSame) {
  Words files;
  for (const auto& entry : fs::directory_iterator(SourceFolder() / "dives")) {
    if (entry.path().extension() == ".tav") files.push_back(entry.path());
  }
  ASSERT_GE(files.size(), 7U);
  files.push_back(Wreck());
  files.push_back(Changed("wreck.tav", "RMV= 20", "RMV=20 litres", "odd.tav"));
  const std::string copy = Scratch("copy.tav");
  for (const std::string& file : files) {
    ASSERT_EQ(Edit(file, {}, copy), ExitStatus::kFine) << Err();
    const json plan = OutJson();
    EXPECT_EQ(Schedule(copy), Schedule(file)) << file;
    const std::string text = ReadTextFile(copy);
    // So it does when every setting that is told is set to just that, which must leave the gases alone.
    for (std::size_t dive = 0; dive < plan["dives"].size(); ++dive) {
      Words edits{"--dive", std::to_string(dive + 1)};
      for (const auto& [key, value] : plan["dives"][dive]["settings"].items()) {
        edits.insert(edits.end(), {"--set", key + "=" + value.get<std::string>()});
      }
      ASSERT_EQ(Edit(copy, edits, copy), ExitStatus::kFine) << file << Err();
    }
    EXPECT_EQ(ReadTextFile(copy), text) << file;
  }
  ASSERT_EQ(Edit(copy, {"--no-changes"}, copy), ExitStatus::kFine);
  // A file that lacks one of these keys alone means something by it; a change does not.
  const json bare = OutJson()["dives"][0];
  for (const bool lacksGases : {true, false}) {
    Words all;
    for (const auto& [key, value] : bare["settings"].items()) {
      if (lacksGases || key != "DecoRMV") all.insert(all.end(), {"--set", key + "=" + value.get<std::string>()});
    }
    std::istringstream lines(ReadTextFile(copy));
    for (std::string line; !lacksGases && std::getline(lines, line);) {
      if (line.starts_with("Blends")) all.insert(all.end(), {"--set", line.substr(0, line.find('\r'))});
    }
    ASSERT_EQ(Edit(copy, all), ExitStatus::kFine) << Err();
    EXPECT_EQ(OutJson()["dives"][0], bare);
  }
}

struct Change {
  Words edits;
  std::string legs;  ///< of the last dive; empty for those of before
  Words holds;       ///< what stands in the file
  Words lacks;
};

TEST_F(EditCommandTest, ChangesWhatItIsTold) {
  const std::string legs = "1: 57 8 Tx18/45; 2: 52 20 Tx18/45; 3: ascent";
  const Change changes[] = {
      {{"--leg", "2=48:25"}, "1: 57 8 Tx18/45; 2: 48 25 Tx18/45; 3: ascent", {"\n48,25,5,0,", "# Mark= 7"}, {}},
      {{"--leg", "1=40:9@tx21/35"}, "1: 40 9 Tx21/35; 2: 52 20 Tx18/45; 3: ascent", {}, {}},
      {{"--remove-leg", "1"}, "1: 52 20 Tx18/45; 2: ascent", {}, {"57,8"}},
      {{"--add-leg", "21:5@EAN50", "18:2"},
       "1: 57 8 Tx18/45; 2: 52 20 Tx18/45; 3: 21 5 EAN50; 4: 18 2 EAN50; 5: ascent",
       {"\n-1,-1,2,1,"},
       {}},
      {{"--insert-leg", "3=9:3", "1=10:1"},
       "1: 10 1 Tx18/45; 2: 57 8 Tx18/45; 3: 52 20 Tx18/45; 4: 9 3 Tx18/45; 5: ascent",
       {},
       {}},
      {{"--move-leg", "1=2"}, "1: 52 20 Tx18/45; 2: 57 8 Tx18/45; 3: ascent", {}, {}},
      {{"--move-leg", "2=1"}, "1: 52 20 Tx18/45; 2: 57 8 Tx18/45; 3: ascent", {}, {}},
      // Numbers stay those of before, in the order of the help.
      {{"--add-leg", "6:4", "--leg", "2=50:20@H85", "--insert-leg", "1=9:2", "--remove-leg", "1"},
       "1: 9 2 H85; 2: 50 20 H85; 3: 6 4 H85; 4: ascent",
       {"Blends Available=H85: 15/ 0/ 85/"},
       {}},
      {{"--gas", "EAN36", "Foo:30/20", "Thin:.5/99.5", "EAN32:33/0"},
       "",
       {"Blends Available=EAN36: 36/ 64/ 0/", "Blends Available=Foo: 30/ 50/ 20/",
        "Blends Available=Thin: .5/ 0/ 99.5/", "Blends Available=EAN32: 33/ 67/ 0/"},
       {"EAN32: 32"}},
      {{"--rename-gas", "Tx18/45=Bottom", "EAN50=Deco"},
       "1: 57 8 Bottom; 2: 52 20 Bottom; 3: ascent",
       {"# Cylinder=Bottom: 2/", " 21:Deco,", "Blends Available=Bottom: 18/ 37/ 45/"},
       {"Tx18/45", "EAN50"}},
      {{"--remove-gas", "EAN32", "Tx15/55"}, legs, {"\n57,8,4,0,"}, {"EAN32", "Tx15/55"}},
      {{"--change", "21:ean50", "6:Oxygen", "36:Tx21/35"}, "", {"Mixes= 6:Oxygen, 21:EAN50, 36:Tx21/35,"}, {}},
      {{"--no-changes"}, "", {"Change Gas Mixes=\r\n"}, {"6:Oxygen"}},
      {{"--from", "ean50=18"}, "", {"Mixes= 6:Oxygen, 18:EAN50,", "AutoDecoGas=0"}, {}},
      {{"--from", "EAN50=3", "Tx21/35=36"}, "", {"Mixes= 3:EAN50, 6:Oxygen, 36:Tx21/35,"}, {}},
      // What stands there otherwise is left as it is, also what can't be breathed.
      {{"--set", "Change Gas Mixes=9:EAN32,1:EAN50,6:Oxygen,", "--from", "EAN32=5"},
       "",
       {"Mixes= 1:EAN50, 5:EAN32, 6:Oxygen,"},
       {}},
      {{"--not-from", "oxygen"}, "", {"Mixes= 21:EAN50,\r\n"}, {}},
      {{"--gas", "a=b:40/0", "--from", "a=b=12"}, "", {"Mixes= 6:Oxygen, 12:a=b, 21:EAN50,"}, {}},
      {{"--gas", "a:40/0", "a=b:41/0", "--rename-gas", "a=b=c"},
       "",
       {"Available=a: 40/", "Available=c: 41/"},
       {"Available=a=b"}},
      {{"--alter-cylinder", "1:fill=40", "1:count=3", "1:reserve=30", "1:gas=EAN32"},
       "",
       {"# Cylinder=EAN32: 3/ 12/ 40/ 30/\r\n"},
       {"Cylinder=Tx18/45"}},
      {{"--add-cylinder", "EAN50", "oxygen", "--remove-cylinder", "1"},
       "",
       {"# Cylinder=EAN50: 2/ 12/ 200/ 50/\r\n# Cylinder=Oxygen: 2/ 12/ 200/ 50/\r\n"},
       {"Cylinder=Tx18/45"}},
      {{"--altitude", "1500"},
       "",
       {"StartAltitude= 1500\r\nStartPressure= .85", "EndAltitude= 1500\r\nEndPressure= .85"},
       {}},
      {{"--end-altitude", "3000", "--altitude", "1500"},
       "",
       {"StartAltitude= 1500\r\nStartPressure= .85", "EndAltitude= 3000\r\nEndPressure= .71"},
       {}},
      {{"--set", "# Mark=8", "# Mark=9", "# Plan name=New", "# Plan name="},
       "",
       {"# Mark=9\r\n"},
       {"Mark=8", "Plan name"}},
      {{"--set", "# Cylinder=", "# Cylinder=Oxygen: 1/ 3/ 200/ 20/", "# Cylinder=EAN50: 1/ 7/ 200/ 20/"},
       "",
       {"# Cylinder=Oxygen: 1/ 3/", "# Cylinder=EAN50: 1/ 7/"},
       {"Cylinder=Tx18/45"}},
      {{"--cylinder", "ean50:1/80/3000/2900/500", "Oxygen:1/3/200/20/bail-out"},
       "",
       {"# Cylinder=EAN50: 1/ 80/ 3000/ 2900/ 500/\r\n# Cylinder=Oxygen: 1/ 3/ 200/ 20/ bail-out\r\n"},
       {"Cylinder=Tx18/45"}},
      {{"--no-cylinders"}, "", {"# Mark= 7"}, {"# Cylinder"}},
      {{"--set", "GF=1,.8,.3", "LastStop=6", "# Team=3/2/1/all/", "# Plan name=New", "# Mark=8"},
       "",
       {"GF=1, .8, .3\r\n", "LastStop= 6\r\n", "# Team= 3/ 2/ 1/ all/\r\n", "# Plan name=New\r\n", "# Mark=8\r\n"},
       {"Old", "# Mark= 7"}},
      {{"--set", "# Mark=", "# Plan name=", "# Cylinder="},
       legs,
       {"Blends Available=EAN32"},
       {"# Mark", "# Plan", "# Cyl"}},
      // A new rebreather plan keeps its diluent.
      {{"--set", "Open Circuit=0"}, "", {"# Loop=diluent\r\n# Surface interval=air\r\n"}, {}},
      {{"--set", "# Loop=", "Open Circuit=0"}, "", {"# Surface interval=air\r\n"}, {"# Loop"}},
      {{"--add-dive", "90", "--add-leg", "18:40@EAN32", "--set", "LastStop=6"},
       "1: 18 40 EAN32; 2: ascent",
       {"LastStop= 3\r\n", "SurfTime = 90\r\n18,40,1,0,\r\n-1,-1,1,1,\r\n"},
       {}},
  };
  for (const Change& change : changes) {
    const std::string name = testing::PrintToString(change.edits);
    const std::string file = Wreck();
    ASSERT_EQ(Edit(file, change.edits, file), ExitStatus::kFine) << name << Err();
    EXPECT_EQ(Err(), "");
    EXPECT_EQ(LegsOf(OutJson()["dives"].back()), change.legs.empty() ? legs : change.legs) << name;
    const std::string text = ReadTextFile(file);
    for (const std::string& part : change.holds) EXPECT_THAT(text, HasSubstr(part)) << name;
    for (const std::string& part : change.lacks) EXPECT_THAT(text, Not(HasSubstr(part))) << name;
    EXPECT_NE(Run({"plan", file}), ExitStatus::kUnusableInput) << name << Err();
  }
}

TEST_F(EditCommandTest, LegsKeepTheirGasesInAnotherList) {
  const std::string file = Wreck();
  const std::string before = Schedule(file);
  ASSERT_EQ(Edit(file,
                 {"--set", "Change Gas Mixes=6:O2,21:EAN50,", "Blends Available=Tx18/45:18/37/45/",
                  "Blends Available=O2:100/0/0/", "Blends Available=EAN50:50/50/0/"},
                 file),
            ExitStatus::kFine)
      << Err();
  const json dive = OutJson()["dives"][0];
  EXPECT_EQ(dive["gases"].size(), 4U);
  EXPECT_EQ(dive["gases"][0]["used"], false);
  EXPECT_EQ(dive["gases"][1], (json{{"name", "Tx18/45"}, {"o2", 18}, {"n2", 37}, {"he", 45}, {"used", true}}));
  ASSERT_EQ(Edit(file, {"--rename-gas", "O2=Oxygen"}, file), ExitStatus::kFine);
  const json rows = json::parse(Schedule(file))["dives"][0]["rows"];
  const json old = json::parse(before)["dives"][0]["rows"];
  ASSERT_EQ(rows.size(), old.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (const char* figure : {"mix", "depth", "run_time", "ppo2"}) EXPECT_EQ(rows[i].at(figure), old[i].at(figure));
  }
}

TEST_F(EditCommandTest, TheOtherCircuitAndBackChangesNothing) {
  // A file may say nothing of its loop, which then takes the gases of the changes.
  const std::string old = Dive("rebreather.tav");
  const std::string kept = Changed(
      "rebreather.tav", "Templatename=", "# Loop=diluent\r\n# Surface interval=air\r\nTemplatename=", "kept.tav");
  const auto with = [this](const char* dive, const std::string& team) {
    return Changed(dive, "Templatename=", "# Team= " + team + "/ 3/ 2/ all/\r\nTemplatename=", team + dive);
  };
  // A team that is usual for the circuit becomes that of the other.
  const std::pair<std::string, int> plans[] = {{kept, 2},
                                               {old, 2},
                                               {Wreck(), 1},
                                               {with("wreck.tav", "2"), 1},
                                               {with("wreck.tav", "1"), 1},
                                               {with("wreck.tav", "3"), 3},
                                               {with("rebreather.tav", "1"), 2},
                                               {with("rebreather.tav", "2"), 2}};
  for (const auto& [file, team] : plans) {
    ASSERT_EQ(Edit(file, {}), ExitStatus::kFine) << Err();
    const json before = OutJson()["dives"];
    const bool isOpen = before[0]["circuit"] == "open";
    const std::string copy = Scratch("copy.tav");
    ASSERT_EQ(Edit(file, {"--circuit", isOpen ? "closed" : "open"}, copy), ExitStatus::kFine) << Err();
    EXPECT_EQ(OutJson()["dives"][0]["circuit"], isOpen ? "closed" : "open");
    EXPECT_EQ(OutJson()["dives"][0]["values"]["Team"]["team"], team) << file;
    ASSERT_EQ(Edit(copy, {"--set", "LastStop=3"}, copy), ExitStatus::kFine) << Err();
    ASSERT_EQ(Edit(copy, {"--circuit", isOpen ? "open" : "closed"}, copy), ExitStatus::kFine) << Err();
    EXPECT_EQ(OutJson()["dives"], before) << file;
    EXPECT_EQ(Schedule(copy), Schedule(file));
  }
}

TEST_F(EditCommandTest, TakesAwayAnAscentInTheMiddle) {
  const std::string file = Changed("wreck.tav", "52,20,5,0,\r\n", "-1,-1,5,1,\r\n52,20,5,0,\r\n", "wreck.tav");
  const std::pair<Words, const char*> edits[] = {
      {{"--move-leg", "3=2"}, "1: 57 8 Tx18/45; 2: 52 20 Tx18/45; 3: ascent; 4: ascent"},
      {{"--move-leg", "1=2"}, "1: ascent; 2: 57 8 Tx18/45; 3: 52 20 Tx18/45; 4: ascent"},
      {{"--remove-leg", "2"}, "1: 57 8 Tx18/45; 2: 52 20 Tx18/45; 3: ascent"},
  };
  for (const auto& [words, legs] : edits) {
    ASSERT_EQ(Edit(file, words), ExitStatus::kFine) << Err();
    EXPECT_EQ(LegsOf(OutJson()["dives"][0]), legs);
  }
  for (const char* option : {"--remove-leg", "--move-leg"}) {
    EXPECT_EQ(Edit(file, {option, option == edits[2].first[0] ? "4" : "1=4"}), ExitStatus::kUnusableInput);
  }
}

/// A list that is full: the numbers of its actions have 16 bits.
TEST_F(EditCommandTest, EditsTheLongestPlan) {
  std::string legs;
  for (int i = 1; i < INT16_MAX - 2; ++i) legs += "0,0,5,0,\r\n";
  const std::string file = Changed("wreck.tav", "52,20,5,0,\r\n", legs + "52,20,5,0,\r\n", "long.tav");
  ASSERT_EQ(Edit(file, {"--remove-leg", "1"}), ExitStatus::kFine) << Err();
  EXPECT_EQ(OutJson()["dives"][0]["legs"].size(), INT16_MAX - 1U);
  ASSERT_EQ(Edit(file, {"--remove-gas", "EAN32"}), ExitStatus::kFine) << Err();
  EXPECT_EQ(OutJson()["dives"][0]["legs"].size(), static_cast<std::size_t>(INT16_MAX));
  EXPECT_EQ(Edit(file, {"--add-leg", "9:9"}), ExitStatus::kUnusableInput);
  EXPECT_EQ(Out(), "");
}

TEST_F(EditCommandTest, ChangesTheDivesOfASeries) {
  const std::string file = Changed("lake-series.tav", "Templatename=", "# Place=Lake\r\nTemplatename=", "series.tav");
  // In the second dive the texts of the first are odd.
  ASSERT_EQ(Edit(file, {"--dive", "2", "--set", "# Place="}, file), ExitStatus::kFine);
  ASSERT_EQ(Edit(file, {"--interval", "95", "--leg", "1=24:30"}, file), ExitStatus::kFine) << Err();
  EXPECT_EQ(OutJson()["dives"][1]["surface_interval"], 95);
  EXPECT_THAT(ReadTextFile(file), HasSubstr("SurfTime = 95\r\n24,30,"));
  ASSERT_EQ(Edit(file, {"--dive", "1", "--set", "LastStop=6"}, file), ExitStatus::kFine);
  EXPECT_EQ(OutJson()["dives"][0]["values"]["LastStop"], 6);
  EXPECT_EQ(OutJson()["dives"][1]["values"]["LastStop"], 3);
  // What is the first dive then has no interval, and the texts of the plan.
  ASSERT_EQ(Edit(file, {"--dive", "1", "--remove-dive"}, file), ExitStatus::kFine);
  const json left = OutJson()["dives"];
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(left[0]["surface_interval"], 0);
  EXPECT_EQ(left[0]["texts"]["place"], "Lake");
  EXPECT_EQ(LegsOf(left[0]), "1: 24 30 Air; 2: ascent");
  const std::string two = Changed("lake-series.tav", "Templatename=", "# Place=Lake\r\nTemplatename=", "two.tav");
  ASSERT_EQ(Edit(two, {"--set", "# Place=Sea"}, two), ExitStatus::kFine);
  ASSERT_EQ(Edit(two, {"--dive", "1", "--remove-dive"}), ExitStatus::kFine);
  EXPECT_EQ(OutJson()["dives"][0]["texts"]["place"], "Sea") << "it has one of its own";
}

TEST_F(EditCommandTest, RefusesAsAWhole) {
  const std::string wreck = Wreck();
  const std::string open = Changed("wreck.tav", "-1,-1,5,1,\r\n", "", "open.tav");
  const std::string broken = Changed("wreck.tav", "Metric=1", "Metric=m", "broken.tav");
  const std::string odd = Changed("wreck.tav", "RMV= 20", "RMV=20 litres", "odd.tav");
  const struct {
    std::string file;
    Words edits;
    std::string error;
  } refusals[] = {
      {broken, {"--leg", "1=30:20"}, broken + ":30: \"Metric\" must be 0 or 1, not \"m\"\n"},
      {wreck, {"--leg", "3=30:20"}, "tavplan edit: --leg 3=30:20: The plan has no leg 3."},
      {wreck, {"--leg", "30:20"}, "tavplan edit: --leg: \"30:20\" must be N=DEPTH:TIME"},
      {wreck, {"--leg", "1=30"}, "tavplan edit: --leg: \"30\" must be DEPTH:TIME"},
      {wreck, {"--leg", "1=-3:20"}, "tavplan edit: a leg to depth -3, outside 0 to 10000"},
      {wreck, {"--leg", "1=30:20@Foo"}, "tavplan edit: gas \"Foo\" is unknown; "},
      {wreck, {"--remove-leg", "1", "--leg", "1=30:20"}, "tavplan edit: --leg 1=30:20: The plan has no leg 1."},
      {wreck, {"--remove-leg", "1", "2"}, "tavplan edit: the plan has no legs"},
      {wreck, {"--insert-leg", "5=9:3"}, "tavplan edit: --insert-leg 5=9:3: The plan has no leg 5."},
      {wreck, {"--remove-leg", "3"}, "tavplan edit: --remove-leg 3: The plan has no leg 3."},
      {wreck,
       {"--altitude", "9000"},
       "tavplan edit: --altitude 9000: \"StartAltitude\" must be -500 to 6000, not 9000"},
      {wreck, {"--altitude", "1,5"}, "tavplan edit: --altitude 1,5: \"1,5\" is not a number"},
      {wreck, {"--end-altitude", "-900"}, "tavplan edit: --end-altitude -900: \"EndAltitude\""},
      {wreck, {"--circuit", "half"}, "tavplan edit: --circuit: \"half\" must be one of these: open, closed"},
      {wreck, {"--from", "Foo=21"}, "tavplan edit: gas \"Foo\" is unknown; "},
      {wreck, {"--from", "EAN50=1e5"}, "tavplan edit: --from EAN50=1e5: \"1e5\" is outside 0 to 10000"},
      {wreck, {"--from", "EAN50"}, "tavplan edit: --from: \"EAN50\" must be GAS=DEPTH"},
      {wreck, {"--not-from", "EAN32"}, "tavplan edit: --not-from: \"EAN32\" must be one of these: Oxygen, EAN50"},
      {wreck,
       {"--alter-cylinder", "1:fill=200/50"},
       "tavplan edit: --alter-cylinder 1:fill=200/50: \"200/50\" is not a"},
      {wreck, {"--alter-cylinder", "1:reserve=201"}, "tavplan edit: --alter-cylinder 1:reserve=201: a reserve of 201"},
      {wreck, {"--alter-cylinder", "1:rated=200"}, "tavplan edit: --alter-cylinder 1:rated=200: a size in litres"},
      {wreck,
       {"--alter-cylinder", "1:colour=2"},
       "tavplan edit: --alter-cylinder: \"colour\" must be one of these: count"},
      {wreck, {"--alter-cylinder", "2:fill=2"}, "tavplan edit: --alter-cylinder 2:fill=2: the plan has no cylinder 2"},
      {wreck, {"--remove-cylinder", "2"}, "tavplan edit: --remove-cylinder: the plan has no cylinder 2"},
      {wreck, {"--set", "# Loop="}, "tavplan edit: \"--set # Loop=\" has no effect on open circuit"},
      {wreck, {"--set", "CeilingOverride=1"}, "tavplan edit: \"--set CeilingOverride=1\" is not expected"},
      {wreck, {"--set", "=1"}, "tavplan edit: --set: \"=1\" must be KEY=VALUE"},
      {odd, {"--set", "StepSize=0"}, "tavplan edit: the distance between stops is 0"},
      {wreck, {"--move-leg", "1=3"}, "tavplan edit: --move-leg 1=3: The plan has no leg 3."},
      {wreck, {"--remove-gas", "EAN50"}, "tavplan edit: --remove-gas: a leg, a gas change or a cylinder has the gas"},
      {wreck, {"--remove-gas", "Air"}, "tavplan edit: --remove-gas: Air is in every list"},
      {wreck, {"--gas", "Air:32/0"}, "tavplan edit: --gas Air:32/0: Air is in every list"},
      {wreck, {"--gas", "EAN60:60/50"}, "tavplan edit: --gas: \"EAN60:60/50\" has more than 100 %"},
      {wreck, {"--gas", "ean50:60/0"}, "tavplan edit: --gas ean50:60/0: A gas of this name exists already."},
      {wreck, {"--rename-gas", "EAN50=a,b"}, "tavplan edit: --rename-gas EAN50=a,b: The name of a gas must not"},
      {wreck, {"--rename-gas", "EAN51=Foo"}, "tavplan edit: --rename-gas: \"EAN51\" must be one of these: Air, EAN32"},
      {wreck,
       {"--set", "Blends Available=EAN50:50/50/0/", "Change Gas Mixes=", "# Cylinder=EAN50: 1/7/200/20/"},
       "tavplan edit: a leg, a gas change or a cylinder has the gas \"Tx18/45\""},
      {wreck, {"--set", "Blends Available=EAN50:50/50/0/"}, "tavplan edit: --set: \"Change Gas Mixes\" names the gas"},
      {wreck, {"--set", "Change Gas Mixes=6:Foo,"}, "tavplan edit: --set Change Gas Mixes=6:Foo,: "},
      {wreck, {"--set", "StepSize=0"}, "tavplan edit: the distance between stops is 0"},
      {wreck, {"--set", "RMV=20 l"}, "tavplan edit: --set RMV=20 l: \"RMV\" should be a number"},
      {wreck, {"--set", "RNV=20"}, "tavplan edit: \"--set RNV=20\" is not expected"},
      {wreck, {"--set", "# Team=many"}, "tavplan edit: --set # Team=many: \"divers/ stress/"},
      {wreck, {"--set", "RMV=20\nMetric=0"}, "tavplan edit: --set: \"RMV=20\nMetric=0\" must be KEY=VALUE"},
      {wreck, {"--set", "RMV=End Template Block"}, "tavplan edit: --set: \"RMV=End Template Block\" must be KEY=VALUE"},
      {wreck, {"--set", "#Team=3/2/1/all/"}, "tavplan edit: --set: \"#Team=3/2/1/all/\" must be KEY=VALUE"},
      {wreck, {"--change", "6"}, "tavplan edit: --change: \"6\" must be DEPTH:GAS"},
      {wreck, {"--cylinder", "Air:2/12/200/250"}, "tavplan edit: cylinder \"Air:2/12/200/250\": "},
      {wreck, {"--dive", "2"}, "tavplan edit: --dive: \"2\" must be a whole number from 1 to 1"},
      {wreck, {"--interval", "60"}, "tavplan edit: \"--interval\" of a first dive has no effect"},
      {wreck, {"--add-dive", "60"}, "tavplan edit: the plan has no legs"},
      {wreck, {"--add-dive", "-1", "--add-leg", "9:9"}, "tavplan edit: --add-dive: \"-1\" is outside 0 to 1000000"},
      {open, {"--add-dive", "60", "--add-leg", "9:9"}, "tavplan edit: dive 2 can't be computed: dive 1 does not end"},
      {wreck, {"--remove-dive"}, "tavplan edit: --remove-dive: the plan has no other dive"},
      {wreck, {"--remove-dive", "--no-changes"}, "tavplan edit: --remove-dive and --no-changes exclude each other"},
  };
  const std::string output = Scratch("out.tav");
  for (const auto& [file, edits, error] : refusals) {
    const std::string before = ReadTextFile(file);
    for (const std::string& to : {file, output}) {
      EXPECT_EQ(Edit(file, edits, to), ExitStatus::kUnusableInput) << error;
      EXPECT_THAT(Err(), StartsWith(error));
      EXPECT_EQ(Out(), "");
    }
    EXPECT_EQ(ReadTextFile(file), before) << error;
    EXPECT_FALSE(fs::exists(output)) << error;
  }
}

TEST_F(EditCommandTest, SavesOverItsOwnFileOnlyWhereItIsTold) {
  const std::string file = Wreck();
  const std::string before = ReadTextFile(file);
  EXPECT_EQ(Run({"edit", file, "--set", "LastStop=6"}), ExitStatus::kFine);
  EXPECT_EQ(Out() + Err(), "");
  EXPECT_EQ(ReadTextFile(file), before) << "nothing is saved without -o";
  fs::create_symlink("wreck.tav", Scratch("link.tav"));
  EXPECT_EQ(Run({"edit", file, "--set", "LastStop=6", "-o", Scratch("link.tav")}), ExitStatus::kFine);
  EXPECT_EQ(ReadTextFile(file), ReplaceAll(before, "LastStop= 3", "LastStop= 6"));
  EXPECT_TRUE(fs::is_symlink(Scratch("link.tav")));
}

TEST_F(Tavplan, TellsItsTextsInEachLanguage) {
  EXPECT_EQ(Run({"texts", "--languages"}), ExitStatus::kFine);
  const json languages = OutJson()["languages"];
  EXPECT_EQ(languages.size(), 6U);
  EXPECT_EQ(std::ranges::count(languages, json{{"code", "de"}, {"name", "Deutsch"}}), 1);
  for (const json& language : languages) {
    const std::string code = language["code"];
    EXPECT_EQ(Run({"texts", "--language", code}), ExitStatus::kFine);
    const json texts = OutJson();
    EXPECT_EQ(texts["language"], code);
    std::istringstream table(ReadTextFile(SourceFolder() / "lang" / ("TAV_" + code + ".dll")));
    int lines = 0;
    for (std::string line; std::getline(table, line);) lines += line.empty() || line.front() == '#' ? 0 : 1;
    EXPECT_EQ(static_cast<int>(texts["texts"].size()), lines);
    EXPECT_EQ(texts["texts"]["999"], language["name"]);
  }
  Speak("fr_FR.UTF-8");
  EXPECT_EQ(Run({"texts", "7408", "999"}), ExitStatus::kFine);
  EXPECT_EQ(OutJson(), (json{{"language", "fr"}, {"texts", {{"999", "Français"}, {"7408", "Air"}}}}));
  for (const char* number : {"5", "999.5", "x", "99999"}) {
    EXPECT_EQ(Run({"texts", "--language", "uk", "999", number}), ExitStatus::kUnusableInput);
    EXPECT_EQ(Err(), "tavplan texts: \"" + std::string(number) + "\" is not the number of a text\n");
  }
}

TEST_F(Tavplan, SpeaksTheLanguageThatItIsTold) {
  const std::string wreck = Dive("wreck.tav");
  Run({"plan", "--json", wreck});
  const json english = OutJson();
  EXPECT_EQ(Run({"plan", "--json", "--language", "de", wreck}), ExitStatus::kFine);
  const json german = OutJson();
  EXPECT_EQ(german["dives"][0]["rows"], english["dives"][0]["rows"]);
  const std::string finding = german["dives"][0]["findings"][0]["text"];
  EXPECT_THAT(finding, AllOf(HasSubstr("Gasdichte"),
                             Not(testing::Eq(english["dives"][0]["findings"][0]["text"].get<std::string>()))));

  Speak("it_IT.UTF-8");
  const std::pair<Words, const char*> told[] = {
      {{"plan", "--language=de"}, "FILE fehlt"},
      {{"plan", "--foo", "--language", "de"}, "wird nicht erwartet"},
      {{"nothing", "--language", "uk"}, "\"nothing\" is not a command"},
      {{"plan", "/none.tav", "--language", "uk"}, "can't be opened"},
      {{"plan", wreck, "--language", "xx"}, "de, es, fr, it, nl, uk"},
      {{"plan", "--help", "--language", "../de"}, "de, es, fr, it, nl, uk"},
  };
  for (const auto& [arguments, error] : told) {
    EXPECT_EQ(Run(arguments), ExitStatus::kUnusableInput);
    EXPECT_THAT(Err(), HasSubstr(error));
  }
  EXPECT_EQ(Run({"plan", "--language", "uk", wreck}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr("open circuit"));
  for (const Words& help : {Words{"--help", "--language", "nl"}, Words{"mix", "--help", "--language", "nl"}}) {
    EXPECT_EQ(Run(help), ExitStatus::kFine);
    EXPECT_THAT(Out(), HasSubstr("Opties:"));
  }
}

}  // namespace
}  // namespace tav
