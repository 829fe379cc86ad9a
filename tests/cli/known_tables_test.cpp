#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/commands.h"
#include "persist/text_file.h"
#include "support/source_folder.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

const fs::path kRoot = SourceFolder();

struct Output {
  int status;
  std::string out;
  std::string err;
};

Output Tavplan(const std::vector<std::string>& arguments) {
  std::ostringstream out;
  std::ostringstream err;
  ::setenv("LC_ALL", "C", 1);  // NOLINT(concurrency-mt-unsafe): the results are in English
  const int status = RunTavplan(arguments, {kRoot, kRoot / "build/no-user"}, out, err);
  return {status, out.str(), err.str()};
}

std::vector<fs::path> Known() {
  std::vector<fs::path> files;
  for (const char* folder : {"bailout", "tables"}) {
    for (const auto& entry : fs::directory_iterator(kRoot / "tests/data/vectors" / folder)) {
      if (entry.path().extension() == ".args") files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string Name(const testing::TestParamInfo<fs::path>& info) {
  std::string name = info.param.parent_path().filename().string() + "_" + info.param.stem().string();
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

/// Texts, flags and counts exact, depths and times to 0.001, places to 0.002 cm; what is not known may be more.
void ExpectKnown(const json& computed, const json& known, const std::string& where) {
  if (known.is_number()) {
    const bool place = where.find("/place/") != std::string::npos;
    ASSERT_NEAR(computed.get<double>(), known.get<double>(), place ? 0.002 : 0.001) << where;
  } else if (known.is_structured()) {
    if (known.is_array()) {
      ASSERT_EQ(computed.size(), known.size()) << where;
    }
    for (const auto& [key, item] : known.items()) {
      const json found = computed.is_array() ? computed.at(std::stoul(key)) : computed.value(key, json());
      ASSERT_NO_FATAL_FAILURE(ExpectKnown(found, item, where + "/" + key));
    }
  } else {
    ASSERT_EQ(computed, known) << where;
  }
}

class KnownTables : public testing::TestWithParam<fs::path> {};

TEST_P(KnownTables, AreComputedAsKnown) {
  const bool bailout = GetParam().parent_path().filename() == "bailout";
  fs::path file = GetParam();
  std::vector<std::string> arguments =
      bailout ? std::vector<std::string>{"bailout", file.replace_extension(".tav").string()}
              : std::vector<std::string>{"tables", "--template", file.replace_extension(".tpl").string()};
  std::ifstream switches(GetParam());
  for (std::string word; switches >> word;) arguments.push_back(word);
  arguments.emplace_back("--json");
  const Output output = Tavplan(arguments);
  ASSERT_EQ(output.status, ExitStatus::kFine) << output.err;
  EXPECT_EQ(output.err, "");
  const json known = json::parse(std::ifstream(file.replace_extension(".expected.json")));
  ExpectKnown(json::parse(output.out), known, "");
}

INSTANTIATE_TEST_SUITE_P(, KnownTables, testing::ValuesIn(Known()), Name);

// --- The commands themselves.

const std::string kTrimix = (kRoot / "dives/trimix-100.tav").string();
const std::string kSeries = (kRoot / "dives/lake-series.tav").string();

TEST(TablesOfTavplan, BadInputGetsOneLineAndStatus2) {
  struct Case {
    std::vector<std::string> arguments;
    std::string line;
  };
  const auto tables = [](const std::string& depths, const std::string& times) {
    return std::vector<std::string>{"tables", "--gas", "Air", "--depths=" + depths, "--times=" + times};
  };
  for (const Case& c : {
           Case{tables("54:9:3", "5:45:5"), "The start depth is deeper"},
           Case{tables("9:54:0", "5:45:5"), "The depth interval must be above 0"},
           Case{tables("9:54:0.4", "5:45:5"), "\"0.4\" must be a whole number from 1"},
           Case{tables("9:54:3", "45:5:5"), "The start time is later"},
           Case{tables("9:54:3", "5:45:-1"), "The time interval must be above 0"},
           Case{tables("9:54:3", "-5:45:5"), "The start time must not be below 0"},
           Case{tables("-9:54:3", "5:45:5"), "The start depth must not be below 0"},
           Case{tables("9:deep:3", "5:45:5"), "\"deep\" is not a number"},
           Case{tables("9:54", "5:45:5"), "FROM:TO:STEP"},
           Case{tables("9:54:3:1", "5:45:5"), "is not a number"},
           Case{tables("1:1000:1", "1:1000:1"), "more than 10,000 dives"},
           Case{tables("9:54:3", "5:1e9:5"), "can not be planned"},
           Case{{"tables", "--gas", "Helium", "--depths=9:9:1", "--times=5:5:5"}, "\"Helium\" is unknown"},
           Case{{"tables", "--gas", "Air", "--depths=9:9:1"}, "--times"},
           Case{{"tables", "--gas", "Air", "--depths=9:9:1", "--times=5:5:5", "--template", "none"}, "none"},
           Case{{"tables", "--gas", "Air", "--depths=9:9:1", "--times=5:5:5", "--without", "Oxygen,EAN5"},
                "--without: \"EAN5\" must be Oxygen, EAN50"},
           Case{{"bailout", kTrimix, "--interval=100"}, "outside 0 to 99"},
           Case{{"bailout", (kRoot / "dives/wreck.tav").string(), "--interval=99"}, "99 min is longer than the plan"},
           Case{{"bailout", kTrimix, "--interval=-1"}, "outside 0 to 99"},
           Case{{"bailout", kTrimix, "--interval=often"}, "\"often\" is not a number"},
           Case{{"bailout", kSeries, "--dive=3"}, "dives 1 to 2"},
           Case{{"bailout", kSeries, "--dive=1.5"}, "dives 1 to 2"},
           Case{{"bailout", "no-such.tav"}, "no-such.tav"},
       }) {
    const Output output = Tavplan(c.arguments);
    EXPECT_EQ(output.status, ExitStatus::kUnusableInput) << c.line;
    EXPECT_EQ(output.out, "") << c.line;
    EXPECT_THAT(output.err, HasSubstr(c.line));
    EXPECT_EQ(std::count(output.err.begin(), output.err.end(), '\n'), 1) << output.err;
  }
}

TEST(TablesOfTavplan, TheLastDiveAndFiveMinutesAreMeantWhereNothingIsSaid) {
  const json last = json::parse(Tavplan({"bailout", kSeries, "--json"}).out);
  EXPECT_EQ(last, json::parse(Tavplan({"bailout", kSeries, "--json", "--dive", "2", "--interval", "5"}).out));
  EXPECT_NE(last, json::parse(Tavplan({"bailout", kSeries, "--json", "--dive", "1"}).out));
  EXPECT_EQ(json::parse(Tavplan({"bailout", kSeries, "--json", "--interval", "0"}).out)["interval"], 1.0);
}

TEST(TablesOfTavplan, SayWhatADiverMustNotBreathe) {
  const auto of = [](const std::string& text, const std::string& title) {
    const std::size_t from = text.find("\n" + title + "\n") + title.size() + 2;
    return text.substr(from, text.find("\n\n", from) - from);
  };
  // EAN50 is in use when the ascent is cut at 47 minutes, and the engine goes on with it.
  const std::string wreck = Tavplan({"bailout", (kRoot / "dives/wreck.tav").string(), "--interval", "47"}).out;
  EXPECT_THAT(of(wreck, "EAN50 lost"), HasSubstr("! Column 47: STILL ON THE LOST GAS at 9 m"));
  const json lost = json::parse(
      Tavplan({"bailout", (kRoot / "dives/wreck.tav").string(), "--interval", "47", "--json"}).out)["scenarios"][1];
  EXPECT_EQ(lost["warnings"][0], (json{{"head", "47"},
                                       {"what", "lost_gas"},
                                       {"gas", "EAN50"},
                                       {"from", 9.0},
                                       {"to", 9.0},
                                       {"ppo2", lost["warnings"][0]["ppo2"]}}));
  EXPECT_THAT(of(wreck, "Oxygen lost"), Not(HasSubstr("LOST GAS")));
  EXPECT_THAT(of(wreck, "With all gases"), Not(HasSubstr("LOST GAS")));

  const auto tables = [](const std::string& depth) {
    return Tavplan({"tables", "--gas", "EAN32", "--depths", depth + ":" + depth + ":1", "--times", "20:20:1"}).out;
  };
  EXPECT_THAT(tables("45"), HasSubstr("! Column 20: PPO2 too high at 45 m"));
  EXPECT_THAT(tables("33"), Not(HasSubstr("PPO2")));  // 1.38 bar
}

// Worked by hand: air at 45 m and 5.513 bar is 5.513 x (0.21 x 1.411 + 0.79 x 1.234) = 7.01 g/l; Tx18/45 at 60 m,
// END 28.6 m, 5.5 g/l.
TEST(TablesOfTavplan, TellABottomWhoseGasIsNarcoticOrHeavy) {
  const auto tables = [](const char* gas, const char* depths, const char* form = "--why") {
    std::vector<std::string> words{"tables", "--gas", gas, std::string("--depths=") + depths, "--times=20:30:10"};
    if (form == std::string("--json")) words.emplace_back(form);
    return Tavplan(words).out;
  };
  const std::string air = tables("Air", "30:45:15");
  EXPECT_THAT(air.substr(0, air.find("\n45 m\n")), Not(HasSubstr("END")));
  EXPECT_THAT(air, testing::EndsWith("  ! Columns 20, 30: END 45 m at the bottom, limit 30 m\n"
                                     "  ! Columns 20, 30: gas density 7.01 g/l at the bottom, limit 6.2 g/l\n"));
  const std::string trimix = tables("Tx18/45", "60:60:1");
  EXPECT_THAT(trimix,
              testing::AllOf(Not(HasSubstr("END")), HasSubstr("gas density 5.54 g/l at the bottom, limit 5.2 g/l")));
  const json found = json::parse(tables("Air", "45:45:1", "--json"))["tables"][0]["bottoms"];
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[1]["head"], "30");
  EXPECT_DOUBLE_EQ(found[1]["end"], 45);
  EXPECT_NEAR(found[1]["density"], 7.01, 0.005);
}

TEST(TablesOfTavplan, FromTheEndsOfLegsAreThoseOfTheirMinutes) {
  const std::string wreck = (kRoot / "dives/wreck.tav").string();
  const json ends = json::parse(Tavplan({"bailout", wreck, "--leg-ends", "--json"}).out)["scenarios"];
  const json minutes = json::parse(Tavplan({"bailout", wreck, "--interval", "4", "--json"}).out)["scenarios"];
  for (std::size_t i = 0; i < ends.size(); ++i) {
    ASSERT_EQ(ends[i]["cuts"].size(), 2U);
    for (const json& cut : ends[i]["cuts"]) {
      const auto& regular = minutes[i]["cuts"];
      EXPECT_EQ(std::count(regular.begin(), regular.end(), cut), 1) << cut["run_time"];
    }
  }
}

TEST(TablesOfTavplan, LeaveOutTheDecoGasesThatAreNamed) {
  std::vector<std::string> tables{"tables", "--gas", "Air", "--depths=40:40:1", "--times=25:25:1"};
  EXPECT_THAT(Tavplan(tables).out, HasSubstr("\n  50/0 "));
  tables.insert(tables.end(), {"--without", "EAN50"});
  EXPECT_THAT(Tavplan(tables).out, testing::AllOf(Not(HasSubstr("\n  50/0 ")), HasSubstr("\n  100/0 ")));
}

TEST(TablesOfTavplan, TellABottomTimeShorterThanTheDescent) {
  std::vector<std::string> tables{"tables", "--gas", "Air", "--depths=54:54:3", "--times=1:5:1"};
  EXPECT_THAT(Tavplan(tables).out, testing::Not(HasSubstr("descent alone")));
  tables.emplace_back("--descent-counts");
  EXPECT_THAT(Tavplan(tables).out, HasSubstr("! Columns 1, 2: the descent alone takes 3.0 min"));
  // A diver who is at once on the bottom is there at once at 200 m, too.
  const Output deep = Tavplan({"tables", "--gas", "Tx10/70", "--depths=200:200:1", "--times=5:5:1"});
  EXPECT_THAT(deep.out, testing::Not(HasSubstr("descent alone")));
}

TEST(TablesOfTavplan, NameTheDiveOfASeries) {
  EXPECT_THAT(Tavplan({"bailout", kSeries, "--dive", "1"}).out, HasSubstr("lake-series.tav, dive 1 of 2, "));
  EXPECT_THAT(Tavplan({"bailout", kTrimix}).out, HasSubstr("trimix-100.tav, bail-out"));
}

TEST(TablesOfTavplan, ReadInATerminalOf100Columns) {
  const Output output = Tavplan({"bailout", kTrimix, "--interval", "2"});
  EXPECT_EQ(output.status, ExitStatus::kFine);
  std::istringstream lines(output.out);
  std::size_t widest = 0;
  for (std::string line; std::getline(lines, line);) widest = std::max(widest, line.size());
  EXPECT_LE(widest, 100U);
  EXPECT_GT(widest, 80U);
  EXPECT_THAT(output.out, HasSubstr("\nEAN50 lost\n"));
  EXPECT_THAT(output.out, HasSubstr(": breathe 21/35 at "));
  EXPECT_THAT(output.out, HasSubstr("\nWith all gases\n"));

  EXPECT_EQ(Tavplan({"tables", "--gas", "EAN32", "--depths", "30:33:3", "--times", "20:40:10"}).out,
            R"(Deco tables on EAN32
Columns are bottom times in minutes, cells minutes of stop; the time of the descent is left out.
ZH-L16B, GF 30/85, open circuit, depths in m

30 m
  Mix      Depth    20    30    40
  32/0        30
  50/0        21
  50/0        12                 1
  50/0         9     1     1     1
  100/0        6     1     1     1
  100/0        3     1     1     2
  Run time          27    37    49

33 m
  Mix      Depth    20    30    40
  32/0        33
  50/0        21
  50/0        12           1     1
  50/0         9     1     1     1
  100/0        6     1     1     3
  100/0        3     1     2     3
  Run time          27    39    52
  ! Columns 20 to 40: END 33 m at the bottom, limit 30 m
  ! Columns 20 to 40: gas density 5.57 g/l at the bottom, limit 5.2 g/l
)");
}

TEST(TablesOfTavplan, TheExampleOfTheGuideIsWhatThePlanGives) {
  const std::string out = Tavplan({"bailout", (kRoot / "dives/wreck.tav").string(), "--interval", "15"}).out;
  const std::string guide = ReadTextFile(kRoot / "lang/TAV_uk.hlp");
  const std::size_t from = guide.find("<pre>\nEAN50 lost") + 6;
  EXPECT_THAT(out, HasSubstr(guide.substr(from, guide.find("</pre>", from) - from)));
}

TEST(TablesOfTavplan, APdfThatCanNotBeWrittenIsToldInOneLine) {
  const Output output = Tavplan({"bailout", kTrimix, "--pdf", "/no/such/folder/tables.pdf"});
  EXPECT_EQ(output.status, ExitStatus::kUnusableInput);
  EXPECT_EQ(output.out, "");
  EXPECT_THAT(output.err, HasSubstr("/no/such/folder/tables.pdf"));
  EXPECT_EQ(std::count(output.err.begin(), output.err.end(), '\n'), 1) << output.err;
}

}  // namespace
}  // namespace tav
