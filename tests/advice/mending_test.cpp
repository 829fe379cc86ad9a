#include <gtest/gtest.h>
#include <random>
#include <regex>

#include "advice/checked_plan.h"
#include "plans/profile_commands.h"
#include "supply/gas_supply.h"

namespace tav {
namespace {

using test::Both;
using test::Changes;
using test::Check;
using test::Dive;
using test::Loop;
using test::NoChanges;
using test::Of;

/// A plan, the words of its finding with the figure that mends, and the plan that takes the figure.
struct Mend {
  const char* name;
  Rule rule;
  Dive dive;
  const char* words;
  std::function<Dive(Dive, double figure)> follow;
};

class Figures : public testing::TestWithParam<Mend> {};

TEST_P(Figures, ThatMendTakeTheFindingAway) {
  const Mend& mend = GetParam();
  const auto found = Of(mend.rule, Check(mend.dive));
  ASSERT_TRUE(found);
  std::smatch match;
  ASSERT_TRUE(std::regex_search(found->text, match, std::regex(mend.words))) << found->text;
  const Dive followed = mend.follow(mend.dive, std::stod(match[1]));
  const auto left = Of(mend.rule, Check(followed));
  EXPECT_FALSE(left) << found->text << "\n" << left->text;
}

Dive FirstLegAt(Dive dive, double depth) {
  dive.legs.front().depth = depth;
  return dive;
}
Dive LastLegAt(Dive dive, double depth) {
  dive.legs.back().depth = depth;
  return dive;
}
Dive On(Dive dive, const std::function<void(DiveTemplate&)>& change) {
  dive.change = Both(dive.change, change);
  return dive;
}
/// A gas with that much of one inert gas, its own oxygen, and the rest of the other.
auto Share(const std::string& gas, Single GasMix::*of, Single GasMix::*rest) {
  return [=](const Dive& dive, double percent) {
    return On(dive, [=](DiveTemplate& t) {
      GasMix& mix = t.Blends[static_cast<std::size_t>(FindBlend(gas, t).value())];
      mix.*of = percent;
      mix.*rest = 100 - mix.O2 - percent;
    });
  };
}
auto Nitrogen(const std::string& gas) { return Share(gas, &GasMix::N2, &GasMix::He); }
auto Helium(const std::string& gas) { return Share(gas, &GasMix::He, &GasMix::N2); }
auto ChangeAt(const std::string& gas) {
  return [gas](const Dive& dive, double depth) {
    return On(dive, [=](DiveTemplate& t) {
      for (GasChange& change : t.ChangeGasMixes) {
        if (change.Name == gas) change.Depth = depth;
      }
    });
  };
}
void NitrogenAlone(DiveTemplate& t) { t.O2Narcotic = false; }
void Adjusted(DiveTemplate& t) { t.DepthAdjust = true; }
void AtALake(DiveTemplate& t) { t.StartPressure = t.EndPressure = 0.75; }
auto LastStop(double depth) {
  return [=](DiveTemplate& t) { t.LastStop = depth; };
}

const Mend kMends[] = {
    {"Hypoxic",
     Rule::Hypoxic,
     {{{60, 20, "Tx10/70"}}},
     "gas above (\\d+) m",
     [](Dive dive, double depth) {
       dive.legs.insert(dive.legs.begin(), {depth, 2, "Air"});
       return dive;
     }},
    {"Hyperoxic", Rule::Hyperoxic, {{{40, 20, "EAN32"}}}, "[Ss]tay above (\\d+) m", FirstLegAt},
    {"HyperoxicAtAdjustedDepths",
     Rule::Hyperoxic,
     {{{40, 20, "EAN32"}}, Adjusted},
     "[Ss]tay above (\\d+) m",
     FirstLegAt},
    {"Setpoint", Rule::Setpoint, {{{50, 20}}, Loop(1.2, 1.2)}, "[Ss]tay above (\\d+) m", FirstLegAt},
    {"NarcoticHelium", Rule::Narcotic, {{{46, 10}}}, "at least (\\d+) % helium", Helium("Air")},
    {"NarcoticHeliumAtAdjustedDepths", Rule::Narcotic, {{{46, 10}}, Adjusted}, "at least (\\d+) %", Helium("Air")},
    {"NarcoticNitrogen", Rule::Narcotic, {{{37, 10}}, NitrogenAlone}, "at most (\\d+) % nitrogen", Nitrogen("Air")},
    {"NarcoticNitrogenAtALake",
     Rule::Narcotic,
     {{{50, 10}}, Both(NitrogenAlone, AtALake)},
     "at most (\\d+) % nitrogen",
     Nitrogen("Air")},
    {"Density", Rule::Density, {{{50, 10}}}, "[Ss]tay above (\\d+) m", FirstLegAt},
    {"DensityOnTheLoop", Rule::Density, {{{70, 10, "Tx18/45"}}, Loop(1.3, 1.3)}, "[Ss]tay above (\\d+) m", FirstLegAt},
    // 20 % nitrogen to 21/35: n - 20 is a fifth of n - 9 at 22.75 %.
    {"CounterDiffusion",
     Rule::CounterDiffusion,
     {{{80, 10, "Tx10/70"}}, Changes({{"Tx21/35", 45}})},
     "at most (22) % nitrogen",
     Nitrogen("Tx21/35")},
    {"CounterDiffusionToEAN50",
     Rule::CounterDiffusion,
     {{{45, 25, "Tx18/45"}}, Changes({{"EAN50", 21}})},
     "at most (\\d+) % nitrogen",
     Nitrogen("EAN50")},
    {"CounterDiffusionOfTheDiluent",
     Rule::CounterDiffusion,
     {{{45, 40, "Tx15/55"}}, Both(Loop(1.2, 1.2), Changes({{"EAN50", 21}}))},
     "at most (\\d+) % nitrogen",
     Nitrogen("EAN50")},
    {"Ceiling", Rule::AboveCeiling, {{{60, 30}, {6, 15}}}, "Stay at (\\d+) m", LastLegAt},
    {"CeilingOfTheFactors", Rule::AboveCeiling, {{{60, 30}, {18, 5}}}, "Stay at (\\d+) m", LastLegAt},
    {"ChangeTooDeep",
     Rule::ChangeHyperoxic,
     {{{25, 20}}, Changes({{"EAN50", 25}})},
     "Change to it at (\\d+) m",
     ChangeAt("EAN50")},
    // 1.61 bar at 6 m are within the rounding of the limit.
    {"OxygenTooDeep",
     Rule::ChangeHyperoxic,
     {{{45, 20}}, Changes({{"Oxygen", 9}})},
     "Change to it at (6) m",
     ChangeAt("Oxygen")},
    {"ChangeAboveTheLastStop",
     Rule::ChangeSkipped,
     {{{45, 20}}, Both(Changes({{"Oxygen", 3}}), LastStop(6))},
     "Change to it at (\\d+) m",
     ChangeAt("Oxygen")},
    {"ChangeBetweenStops",
     Rule::ChangeSkipped,
     {{{45, 20}}, Changes({{"Oxygen", 6}, {"EAN50", 8}})},
     "Change to it at (\\d+) m",
     ChangeAt("EAN50")},
    {"LastStopAtTheBottom",
     Rule::DoesNotDecompress,
     {{{30, 60}}, Both(NoChanges, LastStop(30))},
     "such as (\\d+) m",
     [](const Dive& dive, double depth) { return On(dive, LastStop(depth)); }},
};

std::string NameOf(const testing::TestParamInfo<Mend>& info) { return info.param.name; }
INSTANTIATE_TEST_SUITE_P(Advice, Figures, testing::ValuesIn(kMends), NameOf);

/// A leg that stays where its way leads through the ceiling stays below it, whatever was before.
TEST(Ceilings, AreKeptByWhoStaysAtTheDepthThatIsTold) {
  std::mt19937 random(3);
  const std::regex mend("Leg 2 .* Stay at (\\d+) m");
  for (int n = 0; n < 200; ++n) {
    const double bottom = 20 + static_cast<int>(random() % 50);
    const double last = 1 + static_cast<int>(random() % 12);
    Dive dive{{{bottom, 10.0 + static_cast<int>(random() % 40)}, {last, 1.0 + static_cast<int>(random() % 20)}}};
    dive.model = {n % 3 == 1, n % 3 == 2};
    const auto found = Of(Rule::AboveCeiling, Check(dive));
    std::smatch match;
    if (!found || !std::regex_search(found->text, match, mend)) continue;
    const auto left = Of(Rule::AboveCeiling, Check(LastLegAt(dive, std::stod(match[1]))));
    EXPECT_FALSE(left) << n << ": " << found->text << "\n" << left->text;
  }
}

/// What the check finds in the last dive of a series.
std::vector<Finding> CheckLast(const std::vector<DiveRecord>& series) {
  test::Plans plans;
  const std::int16_t last = OpenProfile(plans.forms, "series.tav", {series, {}, {}}).back();
  const AdviceWords words(test::English(), {".", ""}, true);
  return CheckPlan(plans.Planned(last), words);
}

DiveRecord DiveOf(double depth, double minutes, const std::string& gas, double interval, bool ascent = true) {
  DiveRecord dive{ShippedDefaultTemplate(), interval, {}};
  dive.Template.ChangeGasMixes.clear();
  dive.UserActions.NewAction();
  dive.UserActions.setuser(1, depth, minutes, FindBlend(gas, dive.Template).value());
  if (!ascent) return dive;
  dive.UserActions.NewAction();
  dive.UserActions.setdeco(2);
  return dive;
}

/// EAN32 at 33 m: PPO2 1.38 bar = 1.364 ata, 1 / (150 + (180 - 150) x 0.36) of the limit each minute, 0.622 %.
TEST(Doses, ArePassedWithinTheirRowsAndBeginWithWhatTheDivesBeforeLeft) {
  const struct {
    const char* name;
    std::vector<DiveRecord> series;
    Rule rule;
    const char* words;  // nothing: not found
  } cases[] = {
      {"in the middle of the bottom row",
       {DiveOf(33, 135, "EAN32", 0)},
       Rule::CNS,
       "past 80 % at run time 12\\d(\\.\\d)? min \\(EAN32 at 33 m\\)"},
      {"doses of the dive before count",
       {DiveOf(33, 110, "EAN32", 0), DiveOf(33, 40, "EAN32", 10)},
       Rule::CNS,
       "past 80 % at run time \\d\\d?(\\.\\d)? min"},
      {"without its ascent, too",
       {DiveOf(33, 110, "EAN32", 0), DiveOf(33, 40, "EAN32", 10, false)},
       Rule::CNS,
       "past 80 % at run time \\d\\d?(\\.\\d)? min \\(EAN32 at 33 m\\)"},
      {"passed before it begins",
       {DiveOf(33, 180, "EAN32", 0), DiveOf(12, 10, "Air", 5)},
       Rule::CNS,
       "the dives before left 1\\d\\d %, so 100 % was passed before it began"},
      {"gone after a night", {DiveOf(33, 180, "EAN32", 0), DiveOf(12, 10, "Air", 900)}, Rule::CNS, nullptr},
      {"OTU stay",
       {DiveOf(33, 220, "EAN32", 0), DiveOf(12, 10, "Air", 900)},
       Rule::OTU,
       "OTU 3\\d\\d at the end of the dive, 3\\d\\d of them left by the dives before: over 300"},
  };
  for (const auto& each : cases) {
    const auto found = Of(each.rule, CheckLast(each.series));
    ASSERT_EQ(found.has_value(), each.words != nullptr) << each.name << (found ? found->text : "");
    if (!found) continue;
    EXPECT_TRUE(std::regex_search(found->text, std::regex(each.words))) << each.name << ": " << found->text;
  }
}

}  // namespace
}  // namespace tav
