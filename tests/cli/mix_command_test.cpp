#include <fstream>

#include "cli/tavplan_fixture.h"

namespace tav {
namespace {

using nlohmann::json;
using testing::HasSubstr;

TEST_F(Tavplan, TellsAFillInFiguresForAScript) {
  const json units = json::parse(std::ifstream(SourceFolder() / "tests/data/vectors/units.json"));
  for (const json& known : units.at("fills")) {
    const auto fill = [&](const char* mix, const char* pressure) {
      return known[mix][0].dump() + "/" + known[mix][1].dump() + "@" + known[pressure].dump();
    };
    std::vector<std::string> arguments{
        "mix", "--json", "--have", fill("current", "current_fill"), "--want", fill("desired", "desired_fill")};
    if (!known["metric"]) arguments.emplace_back("--imperial");
    SCOPED_TRACE(known.dump());
    const int status = Run(arguments);
    const json told = OutJson();
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
  json told = OutJson();
  EXPECT_EQ(told["fill_to"], json::parse(R"([{"gas": "helium", "to": 85.4}, {"gas": "oxygen", "to": 102.2},
                                             {"gas": "air", "to": 200.0}])"));
  EXPECT_EQ(told["fill_list"],
            json::parse(R"({"possible": true, "temperature": 20.0, "result": {"o2": 18.02, "he": 44.99}})"));
  Run({"mix", "--json", "--have", "21/0@200", "--want", "80/0@205"});
  told = OutJson();
  EXPECT_EQ(told["fill_to"], json::array());
  EXPECT_EQ(told["fill_list"]["possible"], false);
  EXPECT_EQ(told["fill_list"]["result"], json());
  EXPECT_EQ(told["fill_list"]["after_draining"].back()["to"], 205.0);
  // A fill with a bank's gas on top into a warm cylinder, and one that was done, with what mends it.
  Run({"mix", "--json", "--have", "32/0@70", "--want", "32/0@210", "--top", "32/0", "--warm", "45", "--temperature",
       "15"});
  told = OutJson();
  EXPECT_EQ(told["fill_to"][0]["gas"], "top");
  EXPECT_NEAR(told["fill_to"][0]["warm"].get<double>(), 242.3, 0.1);
  EXPECT_EQ(told["fill_list"]["temperature"], 15.0);
  Run({"mix", "--json", "--have", "21/0@1", "--steps", "he@66.9,o2@86.4,air@210", "--want", "21/35@232"});
  told = OutJson();
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

  This fill gives 32.0 % O2, 0.0 % He; MOD 111 ft at PPO2 1.4, 131 ft at 1.6.
  By ideal pressures you would get 32.3 % O2, 0.0 % He. Analyse every fill.
  Pressures are absolute: an empty cylinder holds 14.7 psi of air. If your gauge shows 0 for it, it reads 14.7 psi less. Pressures are for 20 °C (68 °F): let the cylinder come to that temperature before you read the gauge.
)");
  const struct {
    const char* have;
    const char* want;
    const char* words;
  } cases[] = {
      {"50/0@150", "32/0@200",
       "! Too much: Oxygen. Drain to 72 bar first, then the fill works. Nearest without "
       "draining: 43.3 % O2, 0.0 % He.\n"},
      {"32/0@200", "32/0@100", "! Too much: Oxygen, Nitrogen. Drain to 100 bar first, then"},
      {"21/0@1", "100/0@200", "  This fill gives 99.6 % O2, 0.0 % He; "},
      {"21/0@1", "100/0@100", "! Too much: Nitrogen. Pump the cylinder down to 0.6 bar first (vacuum)."},
      {"21/0@1", "8/50@200", "! Too much: Oxygen. Draining does not help: this gas can't be made with Air on top."},
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
    const bool possible = std::string_view(each.words).find("Too much") == std::string_view::npos;
    EXPECT_EQ(error.empty(), possible) << error;
    EXPECT_THAT(Out(), HasSubstr(ReplaceAll(error, "tavplan mix: ", "  ! ")));
  }
}

}  // namespace
}  // namespace tav
