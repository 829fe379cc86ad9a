#include <cmath>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/commands.h"
#include "model/number_text.h"
#include "persist/profile_file.h"
#include "support/scratch_folder.h"
#include "support/source_folder.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const fs::path kRoot = SourceFolder();

std::string Dive(const char* name) { return (kRoot / "dives" / name).string(); }
std::string KnownDive(const char* name) { return (kRoot / "tests/data/vectors" / name).string(); }

class Tavplan : public testing::Test {
 protected:
  Tavplan() { Speak("C"); }

  /// The environment's language; the settings of the user are those of the scratch folder.
  void Speak(const char* locale) {
    ::setenv("LC_ALL", locale, 1);                                         // NOLINT(concurrency-mt-unsafe)
    ::setenv("XDG_CONFIG_HOME", (scratch_.Path() / "config").c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
  }

  int Run(const std::vector<std::string>& arguments) {
    out_.str("");
    err_.str("");
    return RunTavplan(arguments, {kRoot, scratch_.Path() / "user"}, out_, err_);
  }
  [[nodiscard]] std::string Out() const { return out_.str(); }
  [[nodiscard]] std::string Err() const { return err_.str(); }

  /// A copy of a shipped dive with `find` replaced.
  std::string Changed(const char* dive, const std::string& find, const std::string& replacement) {
    const std::string text = ReadTextFile(Dive(dive));
    EXPECT_THAT(text, HasSubstr(find));
    const fs::path file = scratch_.Path() / "changed.tav";
    WriteTextFile(file, ReplaceAll(text, find, replacement));
    return file.string();
  }

  test::ScratchFolder scratch_;
  std::ostringstream out_;
  std::ostringstream err_;
};

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
    EXPECT_EQ(Run({"plan", "--json", KnownDive((std::string(name) + ".tav").c_str())}), ExitStatus::kFine);
    const std::string expected = KnownDive((std::string(name) + ".expected.json").c_str());
    ExpectSame(json::parse(Out()), json::parse(std::ifstream(expected)), name);
  }
}

TEST_F(Tavplan, PrintsEveryRowAsCsvWithAHeader) {
  EXPECT_EQ(Run({"plan", "--csv", Dive("lake-series.tav"), Dive("wreck.tav")}), ExitStatus::kFine);
  const std::string csv = Out();
  Run({"plan", "--json", Dive("lake-series.tav"), Dive("wreck.tav")});
  const json dives = json::parse(Out())["dives"];
  std::istringstream lines(csv);
  std::string line;
  ASSERT_TRUE(std::getline(lines, line));
  EXPECT_THAT(line, StartsWith("file,dive,row,depth,segment_time,run_time,rate,status,mix,"));
  const auto columns = std::count(line.begin(), line.end(), ',');
  for (std::size_t d = 0; d < dives.size(); ++d) {
    for (std::size_t r = 0; r < dives[d]["rows"].size(); ++r) {
      ASSERT_TRUE(std::getline(lines, line));
      EXPECT_EQ(std::count(line.begin(), line.end(), ','), columns) << line;
      const json& row = dives[d]["rows"][r];
      std::vector<std::string> fields;
      std::istringstream rest(line);
      for (std::string field; std::getline(rest, field, ',');) fields.push_back(field);
      EXPECT_EQ(fields[1], d == 1 ? "2" : "1");
      EXPECT_EQ(fields[2], std::to_string(r));
      EXPECT_EQ(ParseLenient(fields[3]), row["depth"].get<double>());
      EXPECT_EQ(json(fields[8]), row["mix"]);
      EXPECT_EQ(ParseLenient(fields.back()), row["percent_compartments"].back().get<double>());
    }
  }
  EXPECT_FALSE(std::getline(lines, line));
}

TEST_F(Tavplan, ListsFindingsWorstFirst) {
  // The bottom gas is breathed from the surface, and the change to oxygen can never be made.
  std::string text = ReadTextFile(Dive("trimix-100.tav"));
  text = ReplaceAll(text, "30,3,1,0,\r\n", "");
  text = ReplaceAll(text, "6:Oxygen, 21:EAN50,", "21:EAN50, 6:Oxygen,");
  const std::string file = (scratch_.Path() / "changed.tav").string();
  WriteTextFile(file, text);
  Run({"plan", "--json", file});
  const json findings = json::parse(Out())["dives"][0]["findings"];
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
  EXPECT_THAT(Out(), HasSubstr("\n! Air at 60 m (run time 3.3 min): PPO2 1.47 bar is 0.07 above the limit of 1.40."));
}

TEST_F(Tavplan, TellsTheGasSupplyWhereCylindersAreTold) {
  const std::string file = (scratch_.Path() / "supply.tav").string();
  Run({"new", "--depth", "30", "--time", "25", "--cylinder", "Air:2/12/200/50", "--cylinder",
       "EAN50:1/80/3000/2900/500", "--cylinder", "Oxygen:1/7/200/20/", "--turn", "thirds", "-o", file});
  EXPECT_EQ(Err(), "");
  EXPECT_THAT(Out(), HasSubstr("\nMinimum gas at the end of each leg\n"));
  EXPECT_THAT(Out(), HasSubstr("2 divers x 2 x 20 l/min x 4.013 bar x 2 min = 642 l, + ascent "));
  Run({"plan", "--json", "--team", "3", "--sort-out", "1", "--turn", "thirds", file});
  const json supply = json::parse(Out())["dives"][0]["gas_supply"];
  EXPECT_EQ(supply["team"], 3);
  EXPECT_EQ(supply["rule"], "thirds");
  ASSERT_EQ(supply["gases"].size(), 3U);
  EXPECT_EQ(supply["gases"][0]["mix"], "Air");
  EXPECT_EQ(supply["gases"][0]["carried"], 4800);
  EXPECT_EQ(supply["gases"][1]["pressure_unit"], "psi");
  const json& leg = supply["legs"][0];
  // 3 x 2 x 20 x 4.01325 bar x 1 min
  EXPECT_NEAR(leg["sorting_out"].get<double>(), 481.59, 0.01);
  EXPECT_NEAR(leg["minimum_pressure"].get<double>() * 24, leg["minimum_gas"].get<double>(), 0.01);
  const double kept = std::max(50.0, leg["minimum_pressure"].get<double>());
  EXPECT_NEAR(leg["turn_pressure"].get<double>(), 200 - (200 - kept) / 3, 0.01);
  // A plan that tells no cylinders has no supply, and nothing is said.
  Run({"plan", "--json", Dive("wreck.tav")});
  EXPECT_TRUE(json::parse(Out())["dives"][0]["gas_supply"].is_null());
}

TEST_F(Tavplan, RefusesCylindersAndChoicesThatCanNotBe) {
  const std::vector<std::string> plan{"new", "--depth", "30", "--time", "25"};
  const auto refused = [&](const std::string& option, const std::string& value) {
    std::vector<std::string> arguments = plan;
    arguments.insert(arguments.end(), {option, value});
    EXPECT_EQ(Run(arguments), ExitStatus::kUnusableInput) << value;
    return Err();
  };
  EXPECT_THAT(refused("--cylinder", "Air:2/12/200/250"), HasSubstr("a reserve of 250 is above the fill of 200"));
  EXPECT_THAT(refused("--cylinder", "Helios:1/12/200/50"), HasSubstr("gas \"Helios\" is unknown"));
  EXPECT_THAT(refused("--cylinder", "Air"), HasSubstr("name of a gas"));
  EXPECT_THAT(refused("--team", "0"), HasSubstr("--team"));
  EXPECT_THAT(refused("--turn", "quarter"), HasSubstr("--turn"));
}

TEST_F(Tavplan, TellsWhyEachStopLasts) {
  Run({"plan", "--json", Dive("wreck.tav")});
  const json rows = json::parse(Out())["dives"][0]["rows"];
  Run({"plan", "--csv", Dive("wreck.tav")});
  std::istringstream lines(Out());
  std::string head;
  std::getline(lines, head);
  EXPECT_THAT(head, HasSubstr(",why_compartment,why_half_time,why_load,why_tolerated,percent_1,"));
  for (const json& row : rows) {
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(row.contains("why"), row["status"] == 4);
    if (!row.contains("why")) continue;
    const json& why = row["why"];
    EXPECT_LE(why["load"], why["tolerated"]);
    EXPECT_EQ(why["model"], "ZH-L16B");
    EXPECT_EQ(why["gf"], row["gf"]);
    EXPECT_THAT(line,
                HasSubstr("," + why["compartment"].dump() + "," + FormatPlain(Single(why["half_time"].get<double>())) +
                          "," + FormatPlain(Single(why["load"].get<double>())) + ","));
  }
  Run({"plan", Dive("wreck.tav")});
  EXPECT_THAT(Out(), Not(HasSubstr("Compartment")));
  Run({"plan", "--why", Dive("wreck.tav")});
  EXPECT_THAT(Out(), HasSubstr("\n  stop   24 m  Compartment 4 (N2 18.5, He 7 min) holds 3.921, and 3.945 bar"));
}

TEST_F(Tavplan, QuotesCsvFieldsThatHoldACommaOrAQuote) {
  const fs::path file = scratch_.Path() / "a \"b\", c.tav";
  fs::copy_file(Dive("air-no-stop.tav"), file);
  EXPECT_EQ(Run({"plan", "--csv", file.string()}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr("\n\"" + scratch_.Path().string() + "/a \"\"b\"\", c.tav\",1,0,0,"));
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

TEST_F(Tavplan, WritesTheTraceWhenAsked) {
  const fs::path before = fs::current_path();
  fs::current_path(scratch_.Path());
  EXPECT_EQ(Run({"plan", Dive("air-no-stop.tav")}), ExitStatus::kFine);
  EXPECT_FALSE(fs::exists("phi.log"));
  EXPECT_EQ(Run({"plan", "--phi", Dive("air-no-stop.tav")}), ExitStatus::kFine);
  fs::current_path(before);
  const std::string trace = ReadTextFile(scratch_.Path() / "phi.log");
  EXPECT_THAT(trace,
              StartsWith("\"                 \tSDepth\tFDepth\tSTime\tRate\"\r\n\"OC ascent/descent\t0\t18\t1\t18\t"));
  EXPECT_EQ(std::count(trace.begin(), trace.end(), '\n') % 20, 0);
}

TEST_F(Tavplan, SpeaksTheLanguageOfItsUserToPeopleAndEnglishToPrograms) {
  const std::string file = Dive("lake-series.tav");
  Run({"plan", "--json", file});
  const std::string data = Out();
  Run({"plan", "--csv", file});
  const std::string rows = Out();
  Speak("de_AT.UTF-8");
  Run({"plan", "--json", file});
  EXPECT_EQ(Out(), data);
  Run({"plan", "--csv", file});
  EXPECT_EQ(Out(), rows);
  Run({"plan", "--why", file});
  EXPECT_THAT(Out(), AllOf(HasSubstr("Tauchgang 2 von 2 nach"), HasSubstr("offenes System"), HasSubstr("Stopp"),
                           HasSubstr("Kompartiment"), Not(HasSubstr("*StringID"))));
  EXPECT_EQ(Run({"plan"}), ExitStatus::kUnusableInput);
  EXPECT_EQ(Err(), "tavplan plan: FILE fehlt (\"tavplan plan --help\" zeigt die Hilfe)\n");
  EXPECT_EQ(Run({"plan", "/none.tav"}), ExitStatus::kUnusableInput);
  EXPECT_EQ(Err(),
            "/none.tav: kann nicht ge\xC3\xB6"
            "ffnet werden: Datei oder Ordner nicht gefunden\n");
  // What the window program keeps comes first; a language that is not there is English.
  fs::create_directories(scratch_.Path() / "config/TAV");
  WriteTextFile(scratch_.Path() / "config/TAV/TAV.ini",
                "[Settings]\nLanguage=TAV_es.dll\n\n[General]\nLanguage=TAV_fr.dll\n");
  Run({"plan", file});
  EXPECT_THAT(Out(), HasSubstr("circuit ouvert"));
  WriteTextFile(scratch_.Path() / "config/TAV/TAV.ini", "[General]\nLanguage=TAV_xx.dll\n");
  Run({"plan", file});
  EXPECT_THAT(Out(), HasSubstr("open circuit"));
}

struct Refusal {
  std::vector<std::string> arguments;
  std::string error;
};

TEST_F(Tavplan, RefusesWhatItCannotUseInOneLine) {
  const std::string broken = Changed("wreck.tav", "Metric=1", "Metric=m");
  const std::string unsound = (scratch_.Path() / "unsound.tav").string();
  WriteTextFile(unsound, ReplaceAll(ReadTextFile(Dive("wreck.tav")), "StepSize= 3", "StepSize= 0"));
  const std::string lacking = (scratch_.Path() / "lacking.tav").string();
  WriteTextFile(lacking, ReplaceAll(ReadTextFile(Dive("wreck.tav")), "Metric=1\r\n", ""));
  const std::string csv = (scratch_.Path() / "legs.csv").string();
  WriteTextFile(csv, "30,20,Air\n");
  const std::string series = (scratch_.Path() / "series.tav").string();
  WriteTextFile(series, ReplaceAll(ReadTextFile(Dive("lake-series.tav")), "-1,-1,0,1,\r\n", ""));
  const Refusal refusals[] = {
      {{"plan", broken}, broken + ":30: \"Metric\" must be 0 or 1, not \"m\"\n"},
      {{"plan", unsound}, unsound + ":28: the distance between stops is 0, it must be at least 0.1\n"},
      {{"plan", series}, series + ":53: dive 2 can't be computed: dive 1 does not end with its ascent\n"},
      {{"plan", "/none.tav"}, "/none.tav: can't be opened: No such file or directory\n"},
      {{"new", "--depth", "30", "--time", "x"}, "tavplan new: --time: \"x\" is not a number\n"},
      {{"new", "--leg", "10"}, "tavplan new: --leg: \"10\" must be DEPTH:TIME, DEPTH:TIME@GAS\n"},
      {{"new", "--leg", "-5:10"}, "tavplan new: a leg to depth -5, outside 0 to 10000\n"},
      {{"new", "--leg", "30:20@EAN200"}, "tavplan new: gas \"EAN200\" is unknown; "},
      {{"new", "--leg", "30:20", "--template", "None"}, "None: can't be opened: "},
      {{"new", "--leg", "30:20", "-o", "/none/a.tav"}, "/none/a.tav: can't be written: "},
      {{"new"}, "tavplan new: --depth and --time, or --leg, must be given\n"},
      {{"new", "--depth", "30"},
       "tavplan new: --depth needs --time as well (\"tavplan new --help\" tells the usage)\n"},
      {{"plan", "--json", "--csv", broken}, "tavplan plan: --json and --csv exclude each other ("},
      {{"plan", "--vpm", "--hybrid", broken}, "tavplan plan: --vpm and --hybrid exclude each other ("},
      {{"plan"}, "tavplan plan: FILE is missing ("},
      {{"plan", broken, "--jason"}, "tavplan plan: \"--jason\" is not expected ("},
      {{"plan", "--jason"}, "tavplan plan: \"--jason\" is not expected ("},
      {{"report", broken, "x.pdf"}, "tavplan report: \"x.pdf\" is not expected ("},
      {{"report", broken, "--pdf", "a", "--dive"}, "tavplan report: --dive: the value is missing ("},
      {{"report", broken, "--pdf", "a", "--pdf", "b"}, "tavplan report: --pdf is given more than once ("},
      {{"new", "--depth", "30", "--time", "9", "-o", "--vpm"}, "tavplan new: --output: the value is missing ("},
      {{"new", "--depth", "30", "--time", "9", "-o", "-h"}, "tavplan new: --output: the value is missing ("},
      {{"export", broken, "--uddf", "--vpm"}, "tavplan export: --uddf: the value is missing ("},
      {{"report", broken, "--pdf", "--slate"}, "tavplan report: --pdf: the value is missing ("},
      {{"report", broken, "--pdf=--slate"}, "tavplan report: --pdf: the value is missing ("},
      {{"bailout", broken, "--pdf", ""}, "tavplan bailout: --pdf: the value is missing ("},
      {{"bailout", broken, "--pdf="}, "tavplan bailout: --pdf: the value is missing ("},
      {{"bailout", broken, "--interval", "1.5"}, "tavplan bailout: --interval: \"1.5\" must be a whole number from 0"},
      {{"tables", "--gas", "Air", "--depths", "9:30:0.4", "--times", "5:10:5"},
       "tavplan tables: --depths: \"0.4\" must be a whole number from 1"},
      {{"import", csv, "-o", "a.tav", "--dive", "3"}, csv + ": there is no dive 3, the file holds 1\n"},
      {{"plan", lacking}, lacking + ":1: the settings of this dive lack \"Metric\"\n"},
      {{"plan", "--why=x", broken}, "tavplan plan: --why can't be understood ("},
      {{"plan", "--turn", "x", broken}, "tavplan plan: --turn: \"x\" must be one of these: all, half, thirds\n"},
      {{"plan", "--team", "2.5", broken}, "tavplan plan: --team: \"2.5\" must be a whole number from 1 to 9\n"},
      {{"plan", "--stress", "x", broken}, "tavplan plan: --stress: \"x\" is not a number\n"},
      {{"whatif", "--sort-out", "31", broken}, "tavplan whatif: --sort-out: \"31\" is outside 0 to 30\n"},
      {{"import", broken, "-o", "a.tav", "--dive", "0"},
       "tavplan import: --dive: \"0\" must be a whole number from 1 to 32767\n"},
      {{"mix", "--have", "21/0@1"}, "tavplan mix: --want is missing ("},
      {{"mix", "--have", "21/0@1", "--want", "32@200"}, "tavplan mix: --want: \"32@200\" must be O2/HE@PRESSURE\n"},
      {{"mix", "--have", "21/@1", "--want", "32/0@200"}, "tavplan mix: --have 21/@1: \"\" is not a number\n"},
      {{"mix", "--have", "60/50@1", "--want", "32/0@200"}, "tavplan mix: --have: \"60/50@1\" has more than 100 %"},
      {{"mix", "--have", "21/0@1", "--want", "32/0@3000"},
       "tavplan mix: --want 32/0@3000: \"3000\" is outside 0 to 1000\n"},
      {{"mix", "--have", "21/0@-1", "--want", "32/0@200"},
       "tavplan mix: --have 21/0@-1: \"-1\" is outside 0 to 1000\n"},
      {{"mix", "--have", "nan/0@1", "--want", "32/0@0"}, "tavplan mix: --have nan/0@1: \"nan\" is not a number\n"},
      {{"mix", "--have", "21/0@1", "--want", "32/0@0"}, "tavplan mix: --want: \"32/0@0\" has a pressure of 0\n"},
      {{"mix", "--have", "21/0@1", "--want", "32/0@200", "--top", "32"}, "tavplan mix: --top: \"32\" must be O2/HE\n"},
      {{"mix", "--have", "21/0@1", "--want", "32/0@200", "--top", "60/40"},
       "tavplan mix: --top 60/40: the gas on top must hold nitrogen"},
      {{"mix", "--have", "21/0@1", "--want", "32/0@200", "--temperature", "293"},
       "tavplan mix: --temperature: \"293\" is outside -20 to 80\n"},
      {{"mix", "--have", "21/0@1", "--steps", ""}, "tavplan mix: --steps: the value is missing ("},
      {{"mix", "--have", "21/0@1", "--steps", "o2@20,air@15"},
       "tavplan mix: --steps: \"air@15\": the pressure must be above 20 and at most 1000\n"},
      {{"dive"}, "tavplan: \"dive\" is not a command (\"tavplan --help\" tells the usage)\n"},
      {{"--jason"}, "tavplan: \"--jason\" is not expected ("},
      {{}, "tavplan: a command is missing ("}};
  for (const Refusal& refusal : refusals) {
    EXPECT_EQ(Run(refusal.arguments), ExitStatus::kUnusableInput) << refusal.error;
    const std::string error = Err();
    EXPECT_THAT(error, StartsWith(refusal.error));
    EXPECT_EQ(std::count(error.begin(), error.end(), '\n'), 1) << error;
    EXPECT_EQ(Out(), "");
  }
  EXPECT_EQ(Run({"plan", broken, Dive("wreck.tav")}), ExitStatus::kUnusableInput);
  EXPECT_THAT(Out(), StartsWith(Dive("wreck.tav"))) << "the others are printed";
}

TEST_F(Tavplan, TellsAPlanThatDoesNotDecompress) {
  // On air at 9 m the tissues never come down to what 5 % of the gradient allow at the surface.
  const std::string text = ReadTextFile(Dive("air-deco.tav"));
  std::string deep = Changed("air-deco.tav", "LastStop= 3", "LastStop= 9");
  deep = ReplaceAll(ReadTextFile(deep), text.substr(text.find("GF="), 12), "GF=1, .05, .05\r\n#");
  deep = ReplaceAll(deep, "Change Gas Mixes=", "Change Gas Mixes=\r\n# ");
  const std::string file = (scratch_.Path() / "deep.tav").string();
  WriteTextFile(file, deep);
  EXPECT_EQ(Run({"plan", file}), ExitStatus::kDoesNotDecompress) << Out() << Err();
  EXPECT_THAT(Out(), HasSubstr("! THIS PLAN DOES NOT DECOMPRESS: the stop at 9 m on Air does not clear"));
  EXPECT_EQ(Run({"plan", "--csv", file}), ExitStatus::kDoesNotDecompress);
  EXPECT_THAT(Err(), HasSubstr(file + ": Dive 1: THIS PLAN DOES NOT DECOMPRESS"));
  const std::string rows = Out();
  Speak("de_DE.UTF-8");
  EXPECT_EQ(Run({"plan", "--csv", file}), ExitStatus::kDoesNotDecompress);
  EXPECT_THAT(Err(), HasSubstr(file + ": Tauchgang 1: DIESER PLAN"));
  EXPECT_EQ(Out(), rows);
}

TEST_F(Tavplan, ListsAllFaultsOfTheCheckedFiles) {
  EXPECT_EQ(Run({"check", Dive("wreck.tav"), (kRoot / "template/Imperial.tpl").string()}), ExitStatus::kFine);
  EXPECT_EQ(Out(), Dive("wreck.tav") + ": no faults\n" + (kRoot / "template/Imperial.tpl").string() + ": no faults\n");
  const std::string file = (scratch_.Path() / "my.tpl").string();
  WriteTextFile(file, "Start Template Block\nMetric=m\nStepSize=0\nRMV=1 l\nOCDeco=\nEnd Template Block\n");
  EXPECT_EQ(Run({"check", file, "/none.tpl"}), ExitStatus::kUnusableInput);
  for (const char* fault : {":2: \"Metric\" must be 0 or 1", ":5: \"OCDeco\" must be", ":4: advice: \"RMV\" should be",
                            ":3: the distance between stops is 0", ":1: advice: not told here"}) {
    EXPECT_THAT(Out(), HasSubstr(file + fault));
  }
  EXPECT_EQ(Err(), "/none.tpl: can't be opened: No such file or directory\n");
  EXPECT_EQ(Run({"check", Changed("wreck.tav", "SurfTime = 0", "SurfTime = 5")}), ExitStatus::kFine) << "advice alone";
  EXPECT_THAT(Out(), HasSubstr("advice: \"SurfTime\" of a first dive"));
}

TEST_F(Tavplan, TellsWhatIsOddInAFileThatItUses) {
  const std::string odd = Changed("wreck.tav", "RMV= 20", "RMV=20 litres");
  for (const auto& arguments :
       {std::vector<std::string>{"plan", "--csv", odd}, {"bailout", "--json", odd}, {"whatif", odd}}) {
    EXPECT_EQ(Run(arguments), ExitStatus::kFine);
    EXPECT_THAT(Err(),
                StartsWith(odd + ":26: advice: \"RMV\" should be a number, not \"20 litres\"; it is taken as 20\n"));
  }
  // A template is read over the program's own values; what it does not tell is named in one line.
  const std::string partial = (scratch_.Path() / "partial.tpl").string();
  WriteTextFile(partial, ReplaceAll(ReadTextFile(kRoot / "template/Default.tpl"), "Metric=1\r\n", ""));
  WriteTextFile(partial, ReplaceAll(ReadTextFile(partial), "GF=", "# GF="));
  Run({"new", "--depth", "40", "--time", "20"});
  const std::string standard = Out();
  EXPECT_EQ(Run({"new", "--depth", "40", "--time", "20", "--template", partial}), ExitStatus::kFine);
  EXPECT_EQ(Out(), standard);
  EXPECT_THAT(
      Err(), HasSubstr(partial + ":1: advice: not told here, so that what was set before stays: \"Metric\", \"GF\"\n"));
}

TEST_F(Tavplan, KnowsGasesInAnyCaseOfLetters) {
  for (const auto& [typed, name] : {std::pair{"air", "Air"},
                                    {"ean32", "EAN32"},
                                    {"EAN032", "EAN32"},
                                    {"ean036", "EAN36"},
                                    {"TX18/45", "Tx18/45"}}) {
    Run({"new", "--depth", "30", "--time", "20", "--gas", name});
    const std::string expected = Out();
    EXPECT_EQ(Run({"new", "--depth", "30", "--time", "20", "--gas", typed}), ExitStatus::kFine) << Err();
    EXPECT_EQ(Out(), expected);
  }
}

TEST_F(Tavplan, TellsHowALoopIsComputed) {
  const std::string old = Dive("rebreather.tav");
  EXPECT_EQ(Run({"check", old}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr(old + ":1: advice: a rebreather whose loop takes the gases of \"Change Gas Mixes\""));
  EXPECT_EQ(Run({"plan", old}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr(", stops on open circuit, loop takes the change list, "));

  const std::string once = ReadTextFile(old);
  const std::string series = (scratch_.Path() / "series.tav").string();
  WriteTextFile(series, once + ReplaceAll(once, "SurfTime = 0", "SurfTime = 120"));
  EXPECT_EQ(Run({"check", series}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr("advice: a surface interval of 120 min reckoned on the loop"));
  EXPECT_EQ(Run({"plan", series}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr(", surface interval on the loop, "));

  // A new plan on a rebreather tells both in its file, whatever its template says.
  const std::string loop = (scratch_.Path() / "loop.tpl").string();
  WriteTextFile(loop, ReplaceAll(ReadTextFile(kRoot / "template/Default.tpl"), "Open Circuit=1", "Open Circuit=0"));
  const std::string made = (scratch_.Path() / "made.tav").string();
  EXPECT_EQ(Run({"new", "--depth", "40", "--time", "20", "--template", loop, "-o", made}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr(", loop keeps its diluent, "));
  EXPECT_THAT(ReadTextFile(made), HasSubstr("\r\n# Loop=diluent\r\n# Surface interval=air\r\n"));
  EXPECT_EQ(Run({"check", made}), ExitStatus::kFine);
  EXPECT_EQ(Out(), made + ": no faults\n");
}

TEST_F(Tavplan, MakesAndSavesAPlanFromLegs) {
  const std::string file = (scratch_.Path() / "new.tav").string();
  EXPECT_EQ(Run({"new", "--leg", "40:15", "--leg", "25:20@EAN36", "--gas", "Tx18/45", "-o", file}), ExitStatus::kFine);
  const std::string slate = Out();
  EXPECT_THAT(slate, AllOf(StartsWith(file + "\n"), HasSubstr("  level        25   18.3     35  EAN36")));
  const DiveRecord dive = ReadProfileFile(file).dives.at(0);
  EXPECT_EQ(dive.UserActions.GetLength(), 3);
  EXPECT_EQ(dive.Template.Blends.at(static_cast<std::size_t>(dive.UserActions.getmixnumber(2))).O2, Single(36));
  EXPECT_EQ(Run({"plan", file}), ExitStatus::kFine);
  EXPECT_EQ(Out(), slate);
  EXPECT_EQ(Run({"new", "--depth", "130", "--time", "30", "--template", "Imperial"}), ExitStatus::kFine);
  EXPECT_THAT(Out(), AllOf(StartsWith("New plan\n"), HasSubstr("stops every 10 ft"), HasSubstr(" cu ft")));
}

TEST_F(Tavplan, TellsAFillInFiguresForAScript) {
  const json units = json::parse(std::ifstream(kRoot / "tests/data/vectors/units.json"));
  for (const json& known : units.at("fills")) {
    const auto fill = [&](const char* mix, const char* pressure) {
      return known[mix][0].dump() + "/" + known[mix][1].dump() + "@" + known[pressure].dump();
    };
    std::vector<std::string> arguments{
        "mix", "--json", "--have", fill("current", "current_fill"), "--want", fill("desired", "desired_fill")};
    if (!known["metric"]) arguments.emplace_back("--imperial");
    SCOPED_TRACE(known.dump());
    const int status = Run(arguments);
    const json told = json::parse(Out());
    // What the list can't fill is told apart, and has its figures all the same.
    EXPECT_EQ(status, told["fill_to"].empty() ? ExitStatus::kUnusableInput : ExitStatus::kFine);
    EXPECT_EQ(Err().empty(), status == ExitStatus::kFine);
    const auto expect = [&](const json& number, const char* label) {
      const std::string text = known[label];
      EXPECT_EQ(number, text.empty() ? json() : json(ParseLenient(text))) << label;
    };
    expect(told["air_top"]["oxygen"], "air_top_o2");
    expect(told["air_top"]["helium"], "air_top_he");
    expect(told["air_top"]["air"], "air_top_air");
    expect(told["van_der_waals"]["oxygen"], "ideal_top_o2");
    expect(told["van_der_waals"]["helium"], "ideal_top_he");
    expect(told["van_der_waals"]["air"], "ideal_top_n2");
    EXPECT_EQ(told["air_top"]["possible"], !known["air_impossible"].get<bool>());
  }
  Run({"mix", "--json", "--have", "21/0@1", "--want", "18/45@200"});
  json told = json::parse(Out());
  EXPECT_EQ(told["fill_to"], json::parse(R"([{"gas": "helium", "to": 85.4}, {"gas": "oxygen", "to": 102.2},
                                             {"gas": "air", "to": 200.0}])"));
  EXPECT_EQ(told["fill_list"],
            json::parse(R"({"possible": true, "temperature": 20.0, "result": {"o2": 18.02, "he": 44.99}})"));
  Run({"mix", "--json", "--have", "21/0@200", "--want", "80/0@205"});
  told = json::parse(Out());
  EXPECT_EQ(told["fill_to"], json::array());
  EXPECT_EQ(told["fill_list"]["possible"], false);
  EXPECT_EQ(told["fill_list"]["result"], json());
  EXPECT_EQ(told["fill_list"]["after_draining"].back()["to"], 205.0);
  // A fill with a bank's gas on top into a warm cylinder, and one that was done, with what mends it.
  Run({"mix", "--json", "--have", "32/0@70", "--want", "32/0@210", "--top", "32/0", "--warm", "45", "--temperature",
       "15"});
  told = json::parse(Out());
  EXPECT_EQ(told["fill_to"][0]["gas"], "top");
  EXPECT_NEAR(told["fill_to"][0]["warm"].get<double>(), 242.3, 0.1);
  EXPECT_EQ(told["fill_list"]["temperature"], 15.0);
  Run({"mix", "--json", "--have", "21/0@1", "--steps", "he@66.9,o2@86.4,air@210", "--want", "21/35@232"});
  told = json::parse(Out());
  EXPECT_NEAR(told["result"]["he"].get<double>(), 33.5, 0.1);
  EXPECT_EQ(told["mend"]["fill_list"]["possible"], true);
  EXPECT_EQ(told["mend"]["fill_to"].back()["to"], 232.0);
}

TEST_F(Tavplan, TellsAFillInWords) {
  EXPECT_EQ(Run({"mix", "--have", "21/0@14.7", "--want", "32/0@2940", "--imperial"}), ExitStatus::kFine);
  EXPECT_EQ(Out(), R"(21/0@14.7 psi -> 32/0@2940 psi

                                     O2             He            Air
  Air Top (psi)                   409.4            0.0         2515.9
  van der Waals (psi)             418.9              0         2491.7

  Gas                      Fill to (psi)  If ideal (psi)
  Start                             14.7            14.7
  Oxygen                             410             420
  Air                               2940            2940

  The list gives 32.0 % O2, 0.0 % He; MOD 111 ft at PPO2 1.4, 131 ft at 1.6.
  Ideal pressures would really give 32.3 % O2, 0.0 % He. Analyse every fill.
  Absolute pressures: an empty cylinder holds 14.7 psi of air. A gauge that shows 0 for it reads 14.7 psi less. Pressures hold at 20 °C (68 °F): let the cylinder come to it before you read the gauge.
)");
  const struct {
    const char* have;
    const char* want;
    const char* words;
  } cases[] = {
      {"50/0@150", "32/0@200",
       "! Would have to come out: Oxygen. Drain the cylinder to 72 bar first, then the fill works. Nearest without "
       "draining: 43.3 % O2, 0.0 % He.\n"},
      {"32/0@200", "32/0@100", "! Would have to come out: Oxygen, Nitrogen. Drain the cylinder to 100 bar first, then"},
      {"21/0@1", "100/0@200", "  The list gives 99.6 % O2, 0.0 % He; "},
      {"21/0@1", "100/0@100",
       "! Would have to come out: Nitrogen. The cylinder would have to be evacuated to 0.6 bar first."},
      {"21/0@1", "8/50@200",
       "! Would have to come out: Oxygen. Draining does not help: this mix can't be made with Air on top."},
      {"21/0@1", "25/25@10",
       "! Oxygen is off by -2.4 %: the gauge is too coarse for this fill. Helium is off by +5.0 %"},
      {"32/0@150", "32/0@150", "! There is nothing to add.\n"}};
  // Heads of another length keep their distance.
  for (const char* locale : {"de_DE.UTF-8", "nl_NL.UTF-8", "fr_FR.UTF-8"}) {
    Speak(locale);
    Run({"mix", "--have", "21/0@1", "--want", "32/0@200"});
    EXPECT_THAT(Out(), testing::ContainsRegex("\n  Ga[sz] +[^ ][^\n]* \\(bar\\)  [^\n]* \\(bar\\)\n"));
  }
  Speak("C");
  for (const auto& each : cases) {
    const int status = Run({"mix", "--have", each.have, "--want", each.want});
    EXPECT_THAT(Out(), HasSubstr(each.words));
    const std::string error = Err();
    EXPECT_EQ(status, error.empty() ? ExitStatus::kFine : ExitStatus::kUnusableInput);
    const bool possible = std::string_view(each.words).find("come out") == std::string_view::npos;
    EXPECT_EQ(error.empty(), possible) << error;
    EXPECT_THAT(Out(), HasSubstr(ReplaceAll(error, "tavplan mix: ", "  ! ")));
  }
}

TEST_F(Tavplan, TellsItsUsageAndVersion) {
  EXPECT_EQ(Run({"--version"}), ExitStatus::kFine);
  EXPECT_THAT(Out(), StartsWith("tavplan "));
  for (const char* command : {"plan", "new", "check", "mix"}) {
    EXPECT_EQ(Run({command, "--help"}), ExitStatus::kFine);
    EXPECT_THAT(Out(), HasSubstr("Examples:\n  tavplan " + std::string(command)));
  }
}

TEST_F(Tavplan, ComparesAPlanWithWhatMayBecomeOfIt) {
  ASSERT_EQ(Run({"whatif", Dive("wreck.tav"), "--longer", "7", "--deeper", "4.5", "--json"}), ExitStatus::kFine)
      << Err();
  const json compared = json::parse(Out());
  std::vector<std::string> names;
  for (const json& column : compared["columns"]) names.push_back(column["name"]);
  EXPECT_THAT(names, testing::ElementsAre("planned", "longer", "deeper", "both", "lost Oxygen", "lost EAN50"));
  // Each column has the rows that plan prints of the changed file.
  const auto rowsOf = [this](const std::string& file) {
    EXPECT_EQ(Run({"plan", file, "--json"}), ExitStatus::kFine) << Err();
    json rows = json::parse(Out())["dives"].back()["rows"];
    for (json& row : rows) row.erase("why");
    return rows;
  };
  const json& columns = compared["columns"];
  EXPECT_EQ(columns[0]["rows"], rowsOf(Dive("wreck.tav")));
  EXPECT_EQ(columns[1]["rows"], rowsOf(Changed("wreck.tav", "\n57,8,", "\n57,15,")));
  EXPECT_EQ(columns[2]["rows"], rowsOf(Changed("wreck.tav", "\n57,8,", "\n61.5,8,")));
  EXPECT_EQ(columns[3]["rows"], rowsOf(Changed("wreck.tav", "\n57,8,", "\n61.5,15,")));
  EXPECT_EQ(columns[4]["rows"], rowsOf(Changed("wreck.tav", "6:Oxygen,", "")));
  EXPECT_EQ(columns[1]["run_time"], columns[1]["rows"].back()["run_time"]);
  for (const json& column : columns) {
    std::map<std::string, double> used;
    for (const json& row : column["rows"]) used[row["mix"]] += row["gas_used"].get<double>();
    for (const json& gas : column["gas"]) {
      EXPECT_NEAR(gas["used"], used[gas["mix"]], 0.01);
      EXPECT_TRUE(gas["carried"].is_null());
      EXPECT_TRUE(gas["enough"].is_null());
    }
  }
}

TEST_F(Tavplan, ComparesInLinesOfATerminal) {
  ASSERT_EQ(Run({"whatif", Dive("trimix-100.tav")}), ExitStatus::kFine);
  std::istringstream lines(Out());
  for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 100U) << line;
  EXPECT_THAT(Out(),
              AllOf(HasSubstr("+5 min"), HasSubstr("+3 m"), HasSubstr("lost Tx21/35"), HasSubstr("Run time, min")));
  ASSERT_EQ(Run({"whatif", Dive("rebreather.tav")}), ExitStatus::kFine);
  EXPECT_THAT(Out(), AllOf(HasSubstr("bail-out"), HasSubstr("at 35 min, 65 m"), HasSubstr("\nSwitch 57 m "),
                           Not(HasSubstr("Stop 57 m"))))
      << "nobody stops where the gas is changed";
  // Each dive of a series starts from what the one before left.
  ASSERT_EQ(Run({"whatif", Dive("lake-series.tav"), "--dive", "1", "--json"}), ExitStatus::kFine);
  const std::string first = Out();
  ASSERT_EQ(Run({"whatif", Dive("lake-series.tav"), "--json"}), ExitStatus::kFine);
  EXPECT_NE(Out(), first);
}

TEST_F(Tavplan, RefusesAComparisonThatCanNotBe) {
  const struct {
    std::string option, value, error;
  } cases[] = {
      {"--longer", "x", "--longer: \"x\" is not a number"},
      {"--longer", "-1", "--longer: \"-1\" is outside 0 to 999"},
      {"--deeper", "1000", "--deeper: \"1000\" is outside 0 to 999"},
      {"--dive", "2", "--dive: \"2\" is not one of the dives 1 to 1"},
  };
  for (const auto& [option, value, error] : cases) {
    EXPECT_EQ(Run({"whatif", Dive("wreck.tav"), option, value}), ExitStatus::kUnusableInput);
    EXPECT_EQ(Out(), "");
    EXPECT_EQ(Err(), "tavplan whatif: " + error + "\n");
  }
  // A leg may last 100,000 min.
  const std::string plan = Changed("air-deco.tav", "\n39,20,", "\n39,99990,");
  EXPECT_EQ(Run({"whatif", plan, "--longer", "20"}), ExitStatus::kUnusableInput);
  const std::string told = Err();
  EXPECT_THAT(told, StartsWith(plan + ": longer: "));
  EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1);
}

TEST_F(Tavplan, APlanGoesOutAsUddfAndComesBack) {
  const std::string uddf = (scratch_.Path() / "out.uddf").string();
  const std::string back = (scratch_.Path() / "back.tav").string();
  for (const char* dive : {"lake-series.tav", "rebreather.tav"}) {
    EXPECT_EQ(Run({"export", Dive(dive), "--uddf", uddf}), ExitStatus::kFine) << Err();
    EXPECT_EQ(Run({"import", uddf, "-o", back, "--template", "Imperial"}), ExitStatus::kFine) << Err();
    EXPECT_EQ(Out() + Err(), "");
    EXPECT_EQ(ReadTextFile(back), ReadTextFile(Dive(dive)));
  }
  EXPECT_EQ(Run({"export", Dive("lake-series.tav"), "--uddf", uddf, "--dive", "2"}), ExitStatus::kFine);
  EXPECT_EQ(Err(), Dive("lake-series.tav") +
                       ": Dive 2 alone: the dives before it are left out, so the plan that comes back begins without "
                       "their loads.\n");
  EXPECT_EQ(Run({"import", uddf, "-o", back}), ExitStatus::kFine);
  EXPECT_EQ(Err(), "");
  EXPECT_EQ(ReadProfileFile(back).dives.size(), 1U);
}

TEST_F(Tavplan, AFileIsNotWrittenOverItself) {
  const std::string plan = Changed("wreck.tav", "Metric=1", "Metric=1");
  const std::string uddf = (scratch_.Path() / "log.uddf").string();
  EXPECT_EQ(Run({"export", plan, "--uddf", uddf}), ExitStatus::kFine);
  const std::string other = (scratch_.Path() / "sub" / ".." / "log.uddf").string();
  std::filesystem::create_directory(scratch_.Path() / "sub");
  const std::string planText = ReadTextFile(plan);
  const std::string uddfText = ReadTextFile(uddf);
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"export", plan, "--uddf", plan},
                                                    {"import", uddf, "-o", uddf},
                                                    {"import", uddf, "-o", other}}) {
    EXPECT_EQ(Run(arguments), ExitStatus::kUnusableInput);
    EXPECT_EQ(Err(), arguments.back() + ": this is the file that is read; give another one to write\n");
  }
  EXPECT_EQ(ReadTextFile(plan), planText);
  EXPECT_EQ(ReadTextFile(uddf), uddfText);
}

TEST_F(Tavplan, AnImportTellsWhatItSimplifiedAndWritesNothingOfABrokenFile) {
  const std::string legs = (scratch_.Path() / "legs.csv").string();
  const std::string made = (scratch_.Path() / "made.tav").string();
  WriteTextFile(legs, "30,20,EAN36\n5,3\n");
  EXPECT_EQ(Run({"import", legs, "-o", made}), ExitStatus::kFine) << Err();
  EXPECT_EQ(Run({"plan", made}), ExitStatus::kFine);
  EXPECT_THAT(Out(), HasSubstr("EAN36"));
  const std::string log = (scratch_.Path() / "log.uddf").string();
  EXPECT_EQ(Run({"export", Dive("wreck.tav"), "--uddf", log}), ExitStatus::kFine);
  WriteTextFile(log, ReplaceAll(ReadTextFile(log), "<?tav-plan", "<?other-plan"));
  EXPECT_EQ(Run({"import", log, "-o", made}), ExitStatus::kFine);
  EXPECT_THAT(Err(), HasSubstr(log + ": Dive 1: 31 samples became 13 legs"));
  const std::string before = ReadTextFile(made);
  WriteTextFile(log, ReplaceAll(ReadTextFile(log), "<depth>", "<depth>-99"));
  EXPECT_EQ(Run({"import", log, "-o", made}), ExitStatus::kUnusableInput);
  EXPECT_THAT(Err(), AllOf(StartsWith(log + ":"), HasSubstr("\"depth\" must be a number")));
  EXPECT_EQ(ReadTextFile(made), before);
  EXPECT_EQ(Run({"import", Dive("wreck.tav"), "-o", made}), ExitStatus::kUnusableInput);
  EXPECT_EQ(Run({"export", Dive("wreck.tav"), "--uddf", log, "--dive", "2"}), ExitStatus::kUnusableInput);
}

}  // namespace
}  // namespace tav
