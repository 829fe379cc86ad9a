#include "advice/plan_check.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

#include "advice/checked_plan.h"
#include "plans/profile_commands.h"
#include "support/random_plan.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using test::Both;
using test::Changes;
using test::Check;
using test::CheckWithRows;
using test::Dive;
using test::English;
using test::Loop;
using test::NoChanges;
using test::Of;
using testing::HasSubstr;
using testing::IsEmpty;

const fs::path kRoot = SourceFolder();

/// A plan that breaks a rule, and one that comes close and does not.
struct RuleCase {
  const char* name;
  Rule rule;
  Dive has;
  Severity severity;
  std::pair<double, double> depths;  ///< where the rows of the finding begin and end
  std::string words;                 ///< part of the text: where and by how much
  Dive hasNot;
};

class PlanCheck : public testing::TestWithParam<RuleCase> {};

TEST_P(PlanCheck, FindsWhatBreaksARuleAndNotItsNeighbour) {
  const RuleCase& c = GetParam();
  const auto [findings, rows] = CheckWithRows(c.has);
  const auto finding = Of(c.rule, findings);
  ASSERT_TRUE(finding);
  EXPECT_EQ(IdOf(finding->severity), IdOf(c.severity));
  EXPECT_THAT(finding->text, HasSubstr(c.words));
  const auto before = static_cast<std::int16_t>(std::max(0, finding->firstRow - 1));
  EXPECT_EQ(std::pair(double{rows.getDepth(before)}, double{rows.getDepth(finding->lastRow)}), c.depths)
      << finding->text;
  const auto neighbour = Of(c.rule, Check(c.hasNot));
  EXPECT_FALSE(neighbour) << neighbour->text;
}

void AtALake(DiveTemplate& t) { t.StartPressure = t.EndPressure = 0.79; }
auto OxygenOfEAN32(double O2) {
  return [=](DiveTemplate& t) {
    t.Blends.at(static_cast<std::size_t>(FindBlendIndex("EAN32", t))) = {"EAN32", O2, 100 - O2, 0};
  };
}
void NitrogenNarcotic(DiveTemplate& t) { t.O2Narcotic = false; }
void InFeet(DiveTemplate& t) {
  t.Metric = false;
  t.StartPressure = t.EndPressure = 1;
  t.MaximalEND = 130;
  t.StepSize = t.LastStop = 10;
}
auto Limits(double bottom, double deco) {
  return [=](DiveTemplate& t) {
    t.MaxPPO2 = bottom;
    t.DecoPPO2 = deco;
  };
}

constexpr Severity kDanger = Severity::Danger;
constexpr Severity kCaution = Severity::Caution;
constexpr Severity kNote = Severity::Note;
const ModelChoice kVPM{true, false};
const ModelChoice kHybrid{false, true};

const RuleCase kOxygen[] = {
    // 10 % of 1.013 bar at the surface; 0.18 bar are reached at (0.18 / 0.1 - 1.01325) x 10 = 7.9 m.
    {"HypoxicAtTheSurface",
     Rule::Hypoxic,
     {{{60, 20, "Tx10/70"}}},
     kDanger,
     {0, 60},
     "Tx10/70 at 0 m (run time 0 min): PPO2 0.10 bar is too low to breathe, the limit is 0.18. Breathe another gas "
     "above 8 m",
     {{{9, 2}, {60, 20, "Tx10/70"}}}},
    {"HypoxicOnTheWayUp",
     Rule::Hypoxic,
     {{{9, 2}, {60, 20, "Tx10/70"}}, NoChanges},
     kDanger,
     {9, 0},
     "Tx10/70 at 0 m (run time ",
     {{{9, 2}, {60, 20, "Tx10/70"}}}},
    // The air of a mountain lake has 0.79 x 0.21 = 0.17 bar, as on its shore; Tx18/45 has 0.14 bar.
    {"HypoxicAtALake",
     Rule::Hypoxic,
     {{{20, 20, "Tx18/45"}}, AtALake},
     kDanger,
     {0, 20},
     "PPO2 0.14 bar",
     {{{20, 20}}, AtALake}},
    {"HypoxicLoop",
     Rule::Hypoxic,
     {{{20, 20}}, Loop(0.17, 1.2)},
     kDanger,
     {0, 9},
     "Loop at 0 m",
     {{{20, 20}}, Loop(0.18, 1.2)}},
    // 32 % of 4.513 bar; 1.4 bar are reached at (1.4 / 0.32 - 1.01325) x 10 = 33.6 m, 1.42 at 34.2 m.
    {"HyperoxicBottom",
     Rule::Hyperoxic,
     {{{35, 20, "EAN32"}}},
     kCaution,
     {0, 33},
     "EAN32 at 35 m (run time 1.9 min): PPO2 1.44 bar is 0.04 over the limit of 1.40. Stay above 33 m with it",
     {{{34.2, 20, "EAN32"}}}},
    {"HyperoxicByFar",
     Rule::Hyperoxic,
     {{{40, 20, "EAN32"}}, NoChanges},
     kDanger,
     {0, 33},
     "0.20 over",
     {{{33, 20, "EAN32"}}, NoChanges}},
    // The limit of the bottom is the user's: 1.64 bar are too much whatever it is.
    {"HyperoxicAbove1_6",
     Rule::Hyperoxic,
     {{{41, 20, "EAN32"}}, Limits(1.55, 1.62)},
     kDanger,
     {0, 39},
     "PPO2 1.64 bar is 0.09 over the limit of 1.55",
     {{{39, 20, "EAN32"}}, Limits(1.55, 1.62)}},
    // EAN50 has 1.56 bar at 21 m: changed to for the ascent, but not breathed at the bottom or on the way down.
    {"HyperoxicTravelGas",
     Rule::Hyperoxic,
     {{{21, 3, "EAN50"}, {45, 20, "Tx21/35"}}},
     kCaution,
     {0, 21},
     "EAN50 at 21 m (run time 1.2 min): PPO2 1.56 bar is 0.16 over",
     {{{45, 20, "Tx21/35"}, {21, 4, "Tx21/35"}, {21, 2, "EAN50"}}}},
    {"HyperoxicStop",
     Rule::Hyperoxic,
     {{{45, 20, "Tx21/35"}}, Changes({{"Oxygen", 9}, {"EAN50", 21}})},
     kDanger,
     {9, 6},
     "Oxygen at 9 m",
     {{{45, 20, "Tx21/35"}}, Limits(1.4, 1.6)}},
    // At a bottom of 21 m the ascent changes to EAN50 at once.
    {"HyperoxicAtTheDepthOfTheChange",
     Rule::Hyperoxic,
     {{{21, 40}}, Both(Changes({{"EAN50", 21}}), Limits(1.4, 1.5))},
     kCaution,
     {21, 18},
     "EAN50 at 21 m",
     {{{21, 40}}, Both(Changes({{"EAN50", 21}}), Limits(1.4, 1.54))}},
    {"HyperoxicLoop",
     Rule::Hyperoxic,
     {{{30, 20}}, Loop(1.45, 1.3)},
     kCaution,
     {0, 6},
     "Loop at 30 m (run time 1.7 min): PPO2 1.45 bar is 0.05 over the limit of 1.40",
     {{{30, 20}}, Loop(1.4, 1.3)}},
    // Air at 65 m has 1.58 bar, whatever the setpoint.
    {"HyperoxicDiluent",
     Rule::Hyperoxic,
     {{{65, 10}}, Loop(1.2, 1.2)},
     kCaution,
     {0, 57},
     "PPO2 1.58 bar",
     {{{56, 10}}, Loop(1.2, 1.2)}},
    {"SetpointOutOfReach",
     Rule::Setpoint,
     {{{30, 20}}, Loop(1.2, 1.4)},
     kNote,
     {3, 3},
     "Setpoint 1.40 at 3 m (run time ",
     {{{30, 20}}, Loop(1.2, 1.3)}},
    {"SetpointBelowTheDiluent",
     Rule::Setpoint,
     {{{50, 20}}, Loop(1.2, 1.2)},
     kNote,
     {50, 50},
     "Setpoint 1.20 at 50 m (run time 2.8 min) can't be held: the diluent Air alone gives 1.26 bar",
     {{{47, 20}}, Loop(1.2, 1.2)}},
};

const RuleCase kGas[] = {
    // Oxygen counts: air at 46 m is as narcotic as at 46 m. 1 - 40.13 / 56.13 = 28.5 % helium would do.
    {"NarcoticWithOxygen",
     Rule::Narcotic,
     {{{46, 10}}},
     kCaution,
     {0, 30},
     "Air at 46 m (run time 2.6 min): END 46 m is 16 m over the limit of 30 m. Use at least 29 % helium",
     {{{30, 10}}}},
    // Nitrogen alone: EAN32 at 36 m has (46.13 / 10 x 0.68 / 0.79 - 1) x 10 = 29.7 m, at 37 m 30.6 m.
    {"NarcoticNitrogen",
     Rule::Narcotic,
     {{{37, 10, "EAN32"}}, NitrogenNarcotic},
     kCaution,
     {0, 33},
     "END 30.6 m is 0.6 m over the limit of 30 m. Use at most 67 % nitrogen",
     {{{36, 10, "EAN32"}}, NitrogenNarcotic}},
    {"NarcoticByTheChange",
     Rule::Narcotic,
     {{{55, 10, "Tx15/55"}, {45, 5, "Air"}}},
     kCaution,
     {55, 30},
     "Air at 55 m (run time 10 min)",
     {{{55, 10, "Tx15/55"}, {45, 5, "Tx15/55"}}}},
    // Air: 0.21 x 1.411 + 0.79 x 1.234 = 1.2712 g/l at 1 bar; 5.2 g/l at 4.091 bar, 30.8 m; 6.2 g/l at 4.877 bar, 38.6
    // m.
    {"DenseAir",
     Rule::Density,
     {{{31, 10}}},
     kCaution,
     {0, 27},
     "Air at 31 m (run time 1.7 min): gas density 5.23 g/l is over 5.2. Use more helium or stay above 30 m for 5.2",
     {{{30, 10}}}},
    {"VeryDenseAir", Rule::Density, {{{39, 10}}}, kDanger, {0, 30}, "6.25 g/l is over 6.2", {{{30, 10}}}},
    // 100 ft: (100 / 33 + 1) atm x 1.01325 x 1.2712 = 5.19 g/l; 101 ft: 5.23 g/l.
    {"DenseInFeet",
     Rule::Density,
     {{{101, 10}}, InFeet},
     kCaution,
     {0, 90},
     "Air at 101 ft (run time 5.6 min): gas density 5.23 g/l",
     {{{100, 10}}, InFeet}},
    // A loop at 1.3 bar, diluent Tx18/45: at 55 m 1.3 x 1.411 + 5.213 x (37 x 1.234 + 45 x 0.1762) / 82 =
    // 5.24 g/l, at 54 m 5.18 g/l.
    {"DenseLoop",
     Rule::Density,
     {{{55, 10, "Tx18/45"}}, Loop(1.3, 1.3)},
     kCaution,
     {0, 51},
     "Loop on Tx18/45 at 55 m (run time 3.1 min): gas density 5.24 g/l",
     {{{54, 10, "Tx18/45"}}, Loop(1.3, 1.3)}},
    // Tx18/45 to EAN50: nitrogen + 13 %, a fifth of the helium is 9 %. Tx21/35 to EAN50: + 6 % against 7 %.
    {"CounterDiffusion",
     Rule::CounterDiffusion,
     {{{45, 25, "Tx18/45"}}},
     kNote,
     {21, 21},
     "Tx18/45 to EAN50 at 21 m (run time 28.3 min): nitrogen up 13 %, helium down 45 % (counter-diffusion). "
     "Instructors' rule of thumb: nitrogen up by at most a fifth of what helium goes down. With 50 % oxygen: at most "
     "45 % nitrogen",
     {{{45, 25, "Tx21/35"}}}},
    // At 21 m the loop holds 1.2 of 3.113 bar of oxygen; of the rest, 61 %, helium had 55 / 85.
    {"CounterDiffusionOnTheLoop",
     Rule::CounterDiffusion,
     {{{45, 40, "Tx15/55"}}, Both(Loop(1.2, 1.2), Changes({{"EAN50", 21}}))},
     kNote,
     {21, 21},
     "nitrogen up 40 %, helium down 40 %",
     {{{45, 40, "Tx15/55"}}, Loop(1.2, 1.2)}},
    {"NameOfAnotherGas",
     Rule::GasName,
     {{{30, 20, "EAN32"}}, OxygenOfEAN32(36)},
     kCaution,
     {0, 30},
     "EAN32 has 36 % oxygen and 0 % helium: its name tells another gas, 32 % and 0 %",
     {{{30, 20, "EAN32"}}, OxygenOfEAN32(32.5)}},
};

const RuleCase kLegs[] = {
    {"AboveTheCeiling",
     Rule::AboveCeiling,
     {{{60, 30}, {6, 15}}},
     kDanger,
     {60, 6},
     "Leg 2 to 6 m is 7.6 m above the ceiling of 13.6 m, from run time 35 min on. Stay at 30 m or deeper",
     {{{60, 30}, {30, 5}}}},
    // Below the ceiling of the model, above that of a gradient factor of 30 %.
    {"AboveTheCeilingOfTheFactors",
     Rule::AboveCeiling,
     {{{60, 30}, {18, 5}}},
     kCaution,
     {60, 18},
     "Leg 2 to 18 m is ",
     {{{60, 30}, {30, 5}}}},
    {"AboveTheCeilingOfBubbles",
     Rule::AboveCeiling,
     {{{60, 30}, {6, 15}}, NoChanges, true, kVPM},
     kDanger,
     {60, 6},
     "Leg 2 to 6 m is ",
     {{{60, 30}, {40, 5}}, NoChanges, true, kVPM}},
    {"AboveTheCeilingOfBoth",
     Rule::AboveCeiling,
     {{{60, 30}, {6, 15}}, NoChanges, true, kHybrid},
     kDanger,
     {60, 6},
     "Leg 2 to 6 m is ",
     {{{60, 30}, {40, 5}}, NoChanges, true, kHybrid}},
    {"DoesNotDecompress",
     Rule::DoesNotDecompress,
     {{{39, 20}}, Both(NoChanges, [](DiveTemplate& t) { t.LastStop = 9, t.GFLow = t.GFHigh = 0.05; })},
     kDanger,
     {9, 9},
     "This plan never ends its decompression: the stop at 9 m on Air",
     {{{39, 20}}, Both(NoChanges, [](DiveTemplate& t) { t.LastStop = 6; })}},
    // From the bottom at 30 m the ascent waits for the surface itself.
    {"LastStopAtTheBottom",
     Rule::DoesNotDecompress,
     {{{30, 60}}, Both(NoChanges, [](DiveTemplate& t) { t.LastStop = 30; })},
     kDanger,
     {30, 30},
     "the last stop, at 30 m, is not shallower than the dive. It waits at 30 m on Air",
     {{{30, 60}}, NoChanges}},
    {"TwoPressures",
     Rule::TwoPressures,
     {{{20, 20}}, [](DiveTemplate& t) { t.EndPressure = 0.79; }},
     kNote,
     {0, 0},
     "starts at a surface pressure of 1.013 bar and ends at 0.790 bar",
     {{{20, 20}}, AtALake}},
    {"MuchCNS",
     Rule::CNS,
     {{{45, 65, "Tx21/35"}}},
     kCaution,
     {3, 0},
     "CNS 86 % at the end of the dive: past 80 % at run time 1",
     {{{45, 60, "Tx21/35"}}}},
    {"TooMuchCNS",
     Rule::CNS,
     {{{30, 160, "EAN32"}}},
     kDanger,
     {6, 0},
     "past 100 %, the limit, at run time",
     {{{30, 90, "EAN32"}}}},
    {"MuchOTU", Rule::OTU, {{{30, 160, "EAN32"}}}, kCaution, {3, 0}, "OTU 322 at the end", {{{30, 140, "EAN32"}}}},
    // The move from the surface to 45 m takes 2.5 min at 18 m/min.
    {"LegLengthened",
     Rule::LegLengthened,
     {{{45, 1}, {45, 10}}},
     kNote,
     {0, 45},
     "Leg 1 to 45 m takes 2.5 min, not 1",
     {{{45, 2.5}, {45, 10}}}},
    {"LegLengthenedOnTheWayUp",
     Rule::LegLengthened,
     {{{30, 10}, {12, 1}, {12, 5}}},
     kNote,
     {30, 12},
     "Leg 2 to 12 m takes 2 min, not 1",
     {{{30, 10}, {12, 2}, {12, 5}}}},
    {"LegAtTheSurface",
     Rule::LegAtSurface,
     {{{12, 10}, {0, 10}, {12, 10}}},
     kNote,
     {12, 0},
     "Leg 2 is at the surface: its 10 min",
     {{{12, 10}, {3, 10}, {12, 10}}}},
    {"PressureOfAnotherAltitude",
     Rule::SurfacePressure,
     {{{20, 20}}, AtALake},
     kNote,
     {0, 20},
     "The start at 0 m has a surface pressure of 0.79 bar, where about 1.01 bar is usual",
     {{{20, 20}},
      [](DiveTemplate& t) {
        AtALake(t);
        t.StartAltitude = t.EndAltitude = 2140;
      }}},
};

const RuleCase kChanges[] = {
    {"ChangeHidden",
     Rule::ChangeHidden,
     {{{45, 20}}, Changes({{"EAN50", 21}, {"Oxygen", 6}})},
     kCaution,
     {6, 0},
     "The ascent never changes to Oxygen at 6 m: EAN50 at 21 m stands before it in the list of gas changes. Order that "
     "works: Oxygen 6 m, EAN50 21 m",
     {{{45, 20}}, Changes({{"Oxygen", 6}, {"EAN50", 21}})}},
    {"ChangeHiddenAtOneDepth",
     Rule::ChangeHidden,
     {{{45, 20}}, Changes({{"EAN50", 21}, {"EAN32", 21}})},
     kCaution,
     {21, 0},
     "The ascent never changes to EAN32 at 21 m: it takes EAN50 at that depth",
     {{{45, 20}}, Changes({{"None", 21}, {"EAN32", 21}})}},
    {"ChangeAboveTheLastStop",
     Rule::ChangeSkipped,
     {{{45, 20}}, Both(Changes({{"Oxygen", 3}}), [](DiveTemplate& t) { t.LastStop = 6; })},
     kCaution,
     {0, 0},
     "The ascent never changes to Oxygen at 3 m: the last stop is at 6 m",
     {{{45, 20}}, Both(Changes({{"Oxygen", 3}}), [](DiveTemplate& t) { t.LastStop = 3; })}},
    // Stops at 6 and 9 m: EAN50 could only be taken at 6 m, where Oxygen is.
    {"ChangeBetweenStops",
     Rule::ChangeSkipped,
     {{{45, 20}}, Changes({{"Oxygen", 6}, {"EAN50", 8}})},
     kCaution,
     {6, 0},
     "The ascent never changes to EAN50 at 8 m: it changes gas at stop depths, and from 8 m up it takes another gas at "
     "all of them. Change to it at 9 m",
     {{{45, 20}}, Changes({{"Oxygen", 5}, {"EAN50", 8}})}},
    {"ChangeUnknown",
     Rule::ChangeUnknown,
     {{{45, 20}}, Changes({{"oxygen", 6}, {"EAN50", 21}})},
     kCaution,
     {6, 0},
     "The ascent never changes to oxygen at 6 m: the plan has no gas of this name",
     {{{45, 20}}, Changes({{"", 0}})}},
    // EAN50 has 1.66 bar at 23 m, 1.61 at 22 m; the limit of the template is 1.62.
    {"ChangeTooDeep",
     Rule::ChangeHyperoxic,
     {{{25, 20}}, Changes({{"EAN50", 23}})},
     kCaution,
     {21, 0},
     "Change to EAN50 at 23 m: PPO2 1.66 bar is 0.04 over the limit of 1.62. Change to it at 22 m",
     {{{25, 20}}, Changes({{"EAN50", 22}})}},
};

std::string NameOf(const testing::TestParamInfo<RuleCase>& info) { return info.param.name; }
INSTANTIATE_TEST_SUITE_P(Oxygen, PlanCheck, testing::ValuesIn(kOxygen), NameOf);
INSTANTIATE_TEST_SUITE_P(Gas, PlanCheck, testing::ValuesIn(kGas), NameOf);
INSTANTIATE_TEST_SUITE_P(Legs, PlanCheck, testing::ValuesIn(kLegs), NameOf);
INSTANTIATE_TEST_SUITE_P(Changes, PlanCheck, testing::ValuesIn(kChanges), NameOf);

TEST(PlanChecks, PutTheWorstFirst) {
  const auto findings = Check({{{60, 20, "Tx10/70"}}, Changes({{"EAN50", 21}, {"Oxygen", 6}})});
  ASSERT_GE(findings.size(), 3U);
  EXPECT_EQ(findings.front().rule, Rule::Hypoxic);
  EXPECT_TRUE(std::ranges::is_sorted(findings, {}, &Finding::severity));
}

/// The example plans have what an instructor would mark, and no more:
/// air at 39 m and 35 m, and trimix 18/45, 10/70, 21/35 at their depths are denser than 5.2 g/l; 100 m
/// gives 91 % of CNS; changes from much helium to nitrogen; and a diluent that has more oxygen than the setpoint.
TEST(PlanChecks, RaiseNoFalseAlarmOnTheExamplePlans) {
  const std::map<std::string, std::vector<std::string>> marked{
      {"air-deco", {"danger density"}},
      {"air-no-stop", {}},
      {"lake-series", {"caution density", "next dive"}},
      {"nitrox", {}},
      {"rebreather",
       {"caution density", "caution density", "note setpoint", "note counter_diffusion", "note loop_changes"}},
      {"trimix-100", {"caution density", "caution density", "caution cns", "note counter_diffusion"}},
      {"wreck", {"caution density", "note counter_diffusion"}},
  };
  for (const auto& [name, expected] : marked) {
    test::Plans plans;
    std::vector<std::string> found;
    for (const std::int16_t document : OpenProfile(plans.forms, kRoot / "dives" / (name + ".tav"))) {
      if (plans.documents(document).PreviousDocument != -1) found.emplace_back("next dive");
      const AdviceWords words(English(), {".", ""}, true);
      for (const Finding& finding : CheckPlan(plans.Planned(document), words)) {
        found.push_back(std::string(IdOf(finding.severity)) + " " + std::string(IdOf(finding.rule)));
      }
    }
    EXPECT_EQ(found, expected) << name;
  }
}

/// Whatever the plan: rows lie within the dive, no text has a gap, and findings that were there at first stay when the
/// limits are drawn tighter.
TEST(PlanChecks, HoldTheirLawsOnRandomPlans) {
  std::mt19937 random(7);
  for (int n = 0; n < 200; ++n) {
    const test::RandomPlan plan = test::MakePlan(random);
    const auto check = [&](const DiveTemplate& settings) {
      test::Plans plans;
      plans.model = {n % 3 == 1, n % 3 == 2};
      frmWaypointEditor& window = plans.New([&](DiveTemplate& t) { t = settings; });
      window.UserActions = plan.actions;
      window.ReEvaluateUserEnteredWaypoints();
      const auto findings = CheckPlan(window.Planned(), AdviceWords(English(), {".", ""}, true));
      for (const Finding& finding : findings) {
        EXPECT_LE(0, finding.firstRow);
        EXPECT_LE(finding.firstRow, finding.lastRow);
        EXPECT_LE(finding.lastRow, window.InputProfile.GetLength());
        EXPECT_THAT(finding.text, testing::AllOf(Not(HasSubstr("%1")), Not(HasSubstr("nan")), Not(HasSubstr("inf"))));
      }
      return findings;
    };
    DiveTemplate tighter = plan.settings;
    tighter.MaxPPO2 -= 0.1;
    tighter.DecoPPO2 -= 0.1;
    tighter.MinPPO2 += 0.02;
    tighter.MaximalEND -= 5;
    const auto before = check(plan.settings);
    const auto after = check(tighter);
    for (const Rule rule : {Rule::Hypoxic, Rule::Hyperoxic, Rule::Narcotic, Rule::Density}) {
      EXPECT_LE(std::ranges::count(before, rule, &Finding::rule) > 0,
                std::ranges::count(after, rule, &Finding::rule) > 0)
          << IdOf(rule) << "\n"
          << test::File(plan);
    }
    if (HasFailure()) break;
  }
}

TEST(PlanChecks, SayNothingOfAnEmptyPlan) { EXPECT_THAT(Check({{}, NoChanges, false}), IsEmpty()); }

}  // namespace
}  // namespace tav
