#include "supply/gas_supply.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

#include "advice/checked_plan.h"
#include "advice/plan_check.h"
#include "compute/bailout_cuts.h"
#include "compute/breathed_gas.h"
#include "headless/headless_platform.h"
#include "supply/cylinder_sets.h"
#include "supply/supply_settings.h"
#include "supply/supply_text.h"
#include "support/random_plan.h"

namespace tav {
namespace {

using testing::DoubleNear;
using testing::HasSubstr;

using test::English;
using test::TestLeg;

struct Dive {
  std::vector<TestLeg> legs;
  std::vector<Cylinder> cylinders;
  std::function<void(DiveTemplate&)> change = [](DiveTemplate&) {};
  SupplyChoice choice = {};
};

/// A dive at 1 bar, or 1 atmosphere, without gas changes, so that its figures can be worked out on paper.
struct Reckoned {
  explicit Reckoned(const Dive& dive)
      : window(plans.New([&](DiveTemplate& t) {
          t.ChangeGasMixes.clear();
          t.StartPressure = t.EndPressure = 1;
          dive.change(t);
          t.Cylinders = dive.cylinders;
          t.Team = dive.choice;
        })) {
    const DiveTemplate& settings = plans.documents(window.Tag()).Template;
    for (const TestLeg& leg : dive.legs) {
      window.SaveUserEnteredWaypoints(leg.time, leg.depth, FindBlend(leg.gas, settings).value(), false);
    }
    window.SaveUserEnteredWaypoints(-1, -1, 0, true);
    window.ReEvaluateUserEnteredWaypoints();
    EXPECT_EQ(window.EvaluationFault(), "");
    supply = SupplyOf(window.Planned());
    const AdviceWords words(English(), {".", ""}, settings.Metric);
    for (Finding& finding : CheckPlan(window.Planned(), words, supply)) {
      if (finding.rule == Rule::GasShort || finding.rule == Rule::TurnPassed) findings.push_back(std::move(finding));
    }
    if (!supply.legs.empty()) working = WorkingText(supply, supply.legs.back(), settings.RMV, words);
  }

  test::Plans plans;
  frmWaypointEditor& window;
  GasSupply supply;
  std::vector<Finding> findings;
  std::string working;
};

void InFeet(DiveTemplate& t) {
  t.Metric = false;
  t.StepSize = t.LastStop = 10;
  t.AscendRates = {{30, 0}};
  t.DescendRates = {{60, 0}};
  t.RMV = t.DecoRMV = 0.7;
  t.UseGF = false;
}
/// 10 m/min up, 20 m/min down and no gradient factors: 20 m for 10 minutes need no stop.
void RoundRates(DiveTemplate& t) {
  t.AscendRates = {{10, 0}};
  t.DescendRates = {{20, 0}};
  t.RMV = t.DecoRMV = 20;
  t.UseGF = false;
}

/// 20 m on air for 10 minutes: 1 minute down at a mean of 2 bar, 9 minutes at 3 bar, 2 minutes up at 2 bar:
/// 20 x (1 x 2 + 9 x 3 + 2 x 2) = 660 l. At the end of the leg 580 l are used.
/// Minimum gas: 2 divers x 2 x 20 x 3 bar x 2 min = 480 l, and 2 x 2 x 20 x 2 min x 2 bar = 320 l up: 800 l.
struct Case {
  const char* name;
  Dive dive;
  GasVerdict verdict;
  double carried;
  double left;
  double pressureLeft;
  double minimum;
  double turnPressure;  ///< 0 for none
  std::vector<std::string> findings;
};

const Dive kSquare{{{20, 10}}, {}, RoundRates, {}};

Dive With(std::vector<Cylinder> cylinders, SupplyChoice choice = {}, Dive dive = kSquare) {
  dive.cylinders = std::move(cylinders);
  dive.choice = choice;
  return dive;
}

const Case kCases[] = {
    // 12 l x 200 bar = 2400 l, 1740 left are 145 bar; 800 l are 66.7 bar, more than the reserve.
    {"EnoughAndAllOfItUsable",
     With({{"Air", 1, 12, 0, 200, 50}}),
     GasVerdict::Enough,
     2400,
     1740,
     145,
     800,
     66.667,
     {}},
    // 200 - (200 - 66.7) / 2 and / 3; 580 l used at the end of the leg leave 151.7 bar. 160 bar are left after 480 l:
    // 40 l on the way down and 7.3 min x 60 l.
    {"HalfOfIt",
     With({{"Air", 1, 12, 0, 200, 50}}, {2, 2, 2, TurnRule::Half}),
     GasVerdict::Enough,
     2400,
     1740,
     145,
     800,
     133.333,
     {}},
    {"AThirdOfIt",
     With({{"Air", 1, 12, 0, 200, 50}}, {2, 2, 2, TurnRule::Thirds}),
     GasVerdict::Enough,
     2400,
     1740,
     145,
     800,
     155.556,
     {"Air: the turn pressure of 160 bar is passed at run time 8.3 min, and leg 1 goes on to run time 10 min, where "
      "151 "
      "bar are left"}},
    // The reserve of 100 bar is more than the minimum gas: 200 - (200 - 100) / 2.
    {"AReserveAboveTheMinimum",
     With({{"Air", 1, 12, 0, 200, 100}}, {2, 2, 2, TurnRule::Half}),
     GasVerdict::Enough,
     2400,
     1740,
     145,
     800,
     150,
     {}},
    // 1 diver x 1.5 x 20 x (3 bar x 1 min + 2 min x 2 bar) = 210 l = 17.5 bar: the reserve of 50 bar holds.
    {"ADiverAlone",
     With({{"Air", 1, 12, 0, 200, 50}}, {1, 1.5, 1, TurnRule::AllUsable}),
     GasVerdict::Enough,
     2400,
     1740,
     145,
     210,
     50,
     {}},
    // 2 x 10 l x 100 bar + 7 l x 200 bar = 3400 l. The 660 l are 33 bar of the first line. When 800 l are left, 1600 l
    // of it are gone, down to its reserve, and 1000 l of the second: 400 l in 7 l.
    {"CylindersOfOneGasArePooled",
     With({{"Air", 2, 10, 0, 100, 20}, {"Air", 1, 7, 0, 200, 20}}),
     GasVerdict::Enough,
     3400,
     2740,
     67,
     800,
     57.143,
     {}},
    // 2400 - (2400 - 800) / 3 = 1866.7 l are 666.7 l in the first line. 580 l are gone from it at the end of the leg.
    {"AThirdOfTwoLines",
     With({{"Air", 1, 6, 0, 200, 50}, {"Air", 1, 6, 0, 200, 50}}, {2, 2, 2, TurnRule::Thirds}),
     GasVerdict::Enough,
     2400,
     1740,
     90,
     800,
     111.111,
     {"Air: the turn pressure of 120 bar in 6 l + 200 bar in 6 l is passed at run time 8.3 min, and leg 1 goes on to "
      "run time 10 min, where 103 bar in 6 l + 200 bar in 6 l are left"}},
    // 12 l x 90 bar = 1080 l: 420 l are left and 600 l were to stay, 180 l are missing. At the end of the leg 500 l are
    // left of the minimum of 800 l.
    {"IntoTheReserve",
     With({{"Air", 1, 12, 0, 90, 50}}),
     GasVerdict::IntoReserve,
     1080,
     420,
     35,
     800,
     66.667,
     {"Air goes into its reserve at 20 m (run time 8.3 min): 420 l left in the end, 600 l should stay. Carry 180 l "
      "more",
      "Air at the end of leg 1 (20 m, run time 10 min): 500 l left, and the minimum gas is 800 l. Carry 300 l "
      "more"}},
    // 10 l x 60 bar = 600 l, 60 l less than the dive asks for. 20 l are left at the end of the leg: 20 x (3 t - t x t /
    // 2)
    // up to t = 0.35 min. The minimum gas is more than all.
    {"RunsOut",
     With({{"Air", 1, 10, 0, 60, 0}}),
     GasVerdict::RunsOut,
     600,
     -60,
     -6,
     800,
     0,
     {"20 l left, and the minimum gas is 800 l. Carry 780 l more",
      "Air runs out at 16.5 m (run time 10.4 min): the dive needs 660 l, you carry 600 l. Carry 60 l more"}},
    // 10 l x 50 bar are 80 l less than the leg takes.
    {"GoneBeforeTheLegEnds",
     With({{"Air", 1, 10, 0, 50, 0}}),
     GasVerdict::RunsOut,
     500,
     -160,
     -16,
     800,
     0,
     {"Air runs out at 20 m (run time 8.7 min): the dive needs 660 l, you carry 500 l. Carry 160 l more",
      "Air at the end of leg 1 (20 m, run time 10 min): 80 l short for the leg itself, and the minimum gas is "
      "800 "
      "l. Carry 880 l more"}},
    // Exactly what is asked for is enough: 660 l of 660 l, and one diver without stress, who leaves at once, has the 80
    // l
    // of the way up.
    {"ToTheLastBreath",
     With({{"Air", 1, 10, 0, 66, 0}}, {1, 1, 0, TurnRule::AllUsable}),
     GasVerdict::Enough,
     660,
     0,
     0,
     80,
     8,
     {}},
    // 80 cu ft at 3000 psi, filled to 2900: 77.33 cu ft at 1 atm = 77.33 x 28.31685 x 1.01325 = 2218.8 l at 1 bar.
    // 1558.8 l are left, 2900 x 1558.8 / 2218.8 = 2037.4 psi; 800 l are 1045.6 psi.
    {"ACylinderInPsi",
     With({{"Air", 1, 80, 3000, 2900, 500}}),
     GasVerdict::Enough,
     2218.8,
     1558.8,
     2037.4,
     800,
     1045.6,
     {}},
    // 66 ft for 10 minutes at 0.7 cu ft: 1.1 min down at a mean of 2 atm, 8.9 min at 3 atm, 2.2 min up at 2 atm:
    // 1.54 + 18.69 + 3.08 = 23.31. Minimum: 2 x 2 x 0.7 x (2 x 3 + 2.2 x 2) = 29.12 cu ft; 77.33 carried at 2900 psi
    // are
    // 37.5 psi for each.
    {"AnImperialPlan",
     With({{"Air", 1, 80, 3000, 2900, 500}}, {}, {{{66, 10}}, {}, InFeet, {}}),
     GasVerdict::Enough,
     77.333,
     54.023,
     2025.9,
     29.12,
     1092,
     {}},
    // The bar of a cylinder in an imperial plan: 12 l x 200 bar = 2400 l = 2400 / 28.31685 / 1.01325 = 83.65 cu ft.
    {"ACylinderInBarInAnImperialPlan",
     With({{"Air", 1, 12, 0, 200, 50}}, {}, {{{66, 10}}, {}, InFeet, {}}),
     GasVerdict::Enough,
     83.647,
     60.337,
     144.27,
     29.12,
     69.63,
     {}},
};

class Supply : public testing::TestWithParam<Case> {};

TEST_P(Supply, IsThatWorkedOutByHand) {
  const Case& c = GetParam();
  const Reckoned dive(c.dive);
  ASSERT_EQ(dive.supply.gases.size(), 1U);
  const GasStore& air = dive.supply.gases.front();
  EXPECT_EQ(air.ofPlan, c.verdict);
  // One gas and one verdict: it is too little for the minimum gas, too.
  const bool legIsShort = dive.supply.VerdictOf(dive.supply.legs.at(0)) == GasVerdict::RunsOut;
  EXPECT_EQ(air.verdict, legIsShort ? GasVerdict::RunsOut : c.verdict);
  EXPECT_THAT(air.carried, DoubleNear(c.carried, c.carried * 1e-4));
  EXPECT_THAT(air.Left(), DoubleNear(c.left, 0.1));
  EXPECT_THAT(air.Pressure(air.Left()), testing::Optional(DoubleNear(c.pressureLeft, 0.05 + c.pressureLeft * 1e-4)));
  ASSERT_EQ(dive.supply.legs.size(), 1U);
  const LegSupply& leg = dive.supply.legs.front();
  EXPECT_THAT(leg.Minimum(), DoubleNear(c.minimum, 0.01));
  const double turn = leg.turnLeft ? air.Pressure(*leg.turnLeft).value() : 0;
  EXPECT_THAT(turn, DoubleNear(c.turnPressure, 0.05 + c.turnPressure * 1e-4));
  ASSERT_EQ(dive.findings.size(), c.findings.size());
  for (std::size_t i = 0; i < c.findings.size(); ++i) {
    EXPECT_THAT(dive.findings[i].text, HasSubstr(c.findings[i]));
    const bool isShort = dive.findings[i].rule == Rule::GasShort;
    EXPECT_EQ(dive.findings[i].severity, isShort ? Severity::Danger : Severity::Caution);
  }
}

std::string NameOf(const testing::TestParamInfo<Case>& info) { return info.param.name; }
INSTANTIATE_TEST_SUITE_P(Gas, Supply, testing::ValuesIn(kCases), NameOf);

TEST(GasSupplies, AreNothingWithoutCylindersAndNothingIsSaid) {
  const Reckoned dive(kSquare);
  EXPECT_FALSE(dive.supply.IsTold());
  EXPECT_TRUE(dive.supply.legs.empty());
  EXPECT_TRUE(dive.findings.empty());
  EXPECT_TRUE(TablesOf(dive.supply, 20, AdviceWords(English(), {".", ""}, true)).gases.empty());
}

TEST(GasSupplies, ShowTheWorking) {
  // 60 m at 1 bar; the figures of the square dive are in its table.
  const Cylinder twin{"Air", 2, 12, 0, 200, 50};
  EXPECT_EQ(Reckoned(With({twin})).working, "2 divers x 2 x 20 l/min x 3 bar x 2 min = 480 l, + ascent 320 l");
  EXPECT_EQ(Reckoned(With({twin}, {1, 1.5, 0, TurnRule::Half})).working,
            "1 diver x 1.5 x 20 l/min x 3 bar x 0 min = 0 l, + ascent 120 l");
  EXPECT_EQ(Reckoned(With({twin}, {}, {{{66, 10}}, {}, InFeet, {}})).working,
            "2 divers x 2 x 0.7 cu ft/min x 3 ata x 2 min = 16.8 cu ft, + ascent 12.3 cu ft");
}

/// Two unlike stages of one mix, 11 l x 200 bar = 2200 l and 7 l x 180 bar = 1260 l: 3460 l. The first is breathed down
/// to its reserve of 50 bar, 1650 l; then the second to its 30 bar, 1050 l; then 550 l and 210 l of reserves.
TEST(GasStores, AreBreathedLineByLineAndTheReservesLast) {
  const Reckoned dive(With({{"Air", 1, 11, 0, 200, 50}, {"Air", 1, 7, 0, 180, 30}}));
  const GasStore& store = *dive.supply.Of("Air");
  struct {
    double left;
    double first;
    double second;
    std::size_t breathed;
  } const cases[] = {
      {3570, 210, 180, 0},     // 110 l that are not there
      {3460, 200, 180, 0},     //
      {2560, 118.18, 180, 0},  // 900 l gone: (2200 - 900) / 11
      {1810, 50, 180, 0},      //
      {1600, 50, 150, 1},      // 1650 l and 210 l gone: (1260 - 210) / 7
      {760, 50, 30, 1},        //
      {485, 25, 30, 0},        // (485 - 210) / 11
      {105, 0, 15, 1},         //
      {-70, 0, -10, 1},        // 70 l are missing
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.left);
    const GasStore::Gauges gauges = store.At(c.left);
    EXPECT_THAT(gauges.pressures, testing::ElementsAre(testing::Optional(DoubleNear(c.first, 0.01)),
                                                       testing::Optional(DoubleNear(c.second, 0.01))));
    EXPECT_EQ(gauges.breathed, c.breathed);
  }
  const AdviceWords words(English(), {".", ""}, true);
  // 151 bar in the second.
  EXPECT_EQ(ToActByText(store, 1607, words), "50 / 160 bar");
  EXPECT_EQ(ToActByWords(store, 1607, words), "50 bar in 11 l + 160 bar in 7 l");
  EXPECT_EQ(LeftWords(store, 2560, words), "118 bar in 11 l + 180 bar in 7 l");
  const auto row = TablesOf(dive.supply, 20, words).gases.at(1);
  EXPECT_EQ(row[1].text + ": " + row[2].text + ", " + row[6].text, "11 l + 7 l: 200 / 180 bar, 140 / 180 bar");
}

TEST(GasSupplies, MissTheCylinderOfAGasThatIsBreathed) {
  const Dive two{
      {{20, 10}, {12, 5, "EAN50"}}, {{"Air", 1, 12, 0, 200, 50}, {"Helitrox", 1, 7, 0, 200, 20}}, RoundRates, {}};
  const Reckoned dive(two);
  ASSERT_EQ(dive.supply.gases.size(), 3U);
  EXPECT_EQ(dive.supply.Of("Air")->verdict, GasVerdict::Enough);
  EXPECT_EQ(dive.supply.Of("EAN50")->verdict, GasVerdict::NoCylinder);
  EXPECT_FALSE(dive.supply.Of("EAN50")->Pressure(1));
  EXPECT_EQ(dive.supply.Of("Helitrox")->verdict, GasVerdict::UnknownGas);
  ASSERT_EQ(dive.findings.size(), 1U);
  // From the end of the first leg: 0.8 min up at 2.6 bar, 4.2 min at 2.2 bar, 1.2 min up at 1.6 bar:
  // 41.6 + 184.8 + 38.4 l.
  EXPECT_THAT(dive.findings.front().text, HasSubstr("EAN50 is breathed from 20 m (run time 10 min) on, 265 l in all"));
  EXPECT_EQ(dive.findings.front().firstRow, dive.supply.legs.front().row + 1);
}

TEST(GasSupplies, CountTheWayUpUntilTheNextGas) {
  const auto change = [](DiveTemplate& t) {
    RoundRates(t);
    t.ChangeGasMixes = {{"EAN50", 0, 0, 0, 10}};
    ResolveGasChanges(t);
  };
  // Up to the change at 10 m the air lasts 1 minute at a mean of 2.5 bar; the engine looks for a change at each
  // possible stop, 9 m: 2 x 2 x 20 x 1.1 min x 2.45 bar = 215.6 l.
  const Reckoned dive({{{20, 10}}, {{"Air", 1, 12, 0, 200, 50}, {"EAN50", 1, 7, 0, 200, 20}}, change, {}});
  EXPECT_THAT(dive.supply.legs.front().ascent, DoubleNear(215.6, 0.01));
}

TEST(GasSupplies, TakeTheWayUpOfARebreatherOnOpenCircuit) {
  const auto loop = [](DiveTemplate& t) {
    RoundRates(t);
    t.OpenCircuit = false;
    t.Setpoint = t.DecoSetpoint = 1.2;
  };
  // 2 x 2 x 20 l/min x (2 min x 3 bar + 2 min up at a mean of 2 bar) = 800 l, from each minute at 20 m; 600 l in the
  // cylinder, whatever the loop takes.
  const Reckoned told({{{20, 10}}, {{"Air", 1, 3, 0, 200, 0, true}}, loop, {}});
  const GasStore& air = *told.supply.Of("Air");
  EXPECT_EQ(air.used, 0);
  EXPECT_THAT(air.Need(), DoubleNear(800, 0.01));
  EXPECT_EQ(air.verdict, GasVerdict::RunsOut);
  EXPECT_TRUE(told.supply.legs.empty());
  ASSERT_EQ(told.supply.waysOut.size(), 1U);
  EXPECT_EQ(told.supply.waysOut[0].depth, 20);
  EXPECT_EQ(told.supply.VerdictOf(told.supply.waysOut[0]), GasVerdict::RunsOut);
  ASSERT_EQ(told.findings.size(), 1U);
  EXPECT_EQ(told.findings[0].severity, Severity::Danger);
  EXPECT_THAT(told.findings[0].text, HasSubstr("needs 800 l, you carry 600 l. Carry 200 l more"));
  // 50 bar of 15 l, 750 l, are to stay.
  const Reckoned reserve({{{20, 10}}, {{"Air", 1, 15, 0, 100, 50, true}}, loop, {}});
  EXPECT_EQ(reserve.supply.Of("Air")->verdict, GasVerdict::IntoReserve);
  EXPECT_EQ(reserve.supply.VerdictOf(reserve.supply.waysOut[0]), GasVerdict::IntoReserve);
  // A cylinder of the loop keeps its place beside one for the bail-out.
  const Reckoned both({{{20, 10}}, {{"Air", 1, 3, 0, 200, 0}, {"Air", 1, 15, 0, 100, 50, true}}, loop, {}});
  EXPECT_EQ(TablesOf(both.supply, 20, AdviceWords(English(), {".", ""}, true)).gases.at(1)[2].text, "-- / 100 bar");
  // The cylinder of the loop's diluent is no bail-out unless it is told as one.
  const Reckoned diluent({{{20, 10}}, {{"Air", 1, 3, 0, 200, 0}}, loop, {}});
  EXPECT_EQ(diluent.supply.Of("Air")->verdict, GasVerdict::NotTold);
  ASSERT_EQ(diluent.findings.size(), 1U);
  EXPECT_EQ(diluent.findings[0].severity, Severity::Note);
}

/// Every whole minute on the loop, left by a run of its own: none asks for more of a gas than the one that is told.
TEST(BailOutNeeds, AreTheMostOfAllMinutes) {
  std::mt19937 random(71);
  int compared = 0;
  for (int n = 0; n < 40; ++n) {
    test::RandomPlan plan = test::MakePlan(random);
    plan.settings.OpenCircuit = false;
    plan.settings.RMV = plan.settings.DecoRMV = 1;  // then the rows tell minutes times pressure
    const ComputedPlan computed = test::Computed(plan);
    const DiveRecord record{plan.settings, 0, plan.actions};
    const PlannedDive dive{record, computed};
    const BailOutNeeds needs = BailOutNeedsOf(dive, 0);
    if (needs.neverUp) continue;
    const Single left =
        computed.rows.GetRunTime(static_cast<std::int16_t>(FirstOpenRow(computed.rows, plan.settings) - 1));
    std::map<std::string, double> most;
    EngineObserver silent;
    BailoutCuts(dive, {}, 1, silent).Visit([&](const TableDive& cut) {
      if (!(cut.depth > 0) || cut.head > left) return true;
      std::map<std::string, double> asked;
      for (auto i = static_cast<std::int16_t>(LastUserRow(cut.profile) + 1); i <= cut.profile.GetLength(); ++i) {
        asked[cut.profile.GetGasMixName(i)] += cut.profile.getGasUsed(i);
      }
      for (const auto& [gas, volume] : asked) most[gas] = std::max(most[gas], volume);
      return true;
    });
    ASSERT_EQ(needs.gases.size(), most.size()) << test::File(plan);
    for (const BailOutNeed& need : needs.gases) {
      EXPECT_NEAR(need.ascent, most[need.gas], 1e-3 * need.ascent) << need.gas << " of\n" << test::File(plan);
    }
    ++compared;
  }
  EXPECT_GT(compared, 20);
}

TEST(GasSupplies, SayWhereTheWayUpDoesNotDecompress) {
  const auto deep = [](DiveTemplate& t) {
    RoundRates(t);
    t.LastStop = 30;
    t.StepSize = 30;
  };
  const Reckoned dive({{{50, 60}}, {{"Air", 9, 20, 0, 300, 0}}, deep, {}});
  ASSERT_EQ(dive.supply.legs.size(), 1U);
  EXPECT_FALSE(dive.supply.legs.front().decompresses);
  ASSERT_FALSE(dive.findings.empty());
  EXPECT_THAT(dive.findings.front().text, HasSubstr("on open circuit never ends"));
}

/// Whatever the plan: more divers and more stress never ask for less, and the plan is the same afterwards.
TEST(GasSupplies, HoldTheirLawsOnRandomPlans) {
  std::mt19937 random(11);
  for (int n = 0; n < 100; ++n) {
    const test::RandomPlan plan = test::MakePlan(random);
    test::Plans plans;
    frmWaypointEditor& window = plans.New([&](DiveTemplate& t) { t = plan.settings; });
    window.UserActions = plan.actions;
    window.ReEvaluateUserEnteredWaypoints();
    DiveTemplate& settings = plans.documents(window.Tag()).Template;
    for (const GasMix& blend : settings.Blends) settings.Cylinders.push_back({blend.Name, 2, 12, 0, 200, 50});
    const std::string rows =
        std::to_string(window.InputProfile.GetLength()) + " " + std::to_string(plans.documents(window.Tag()).TotalCNS);
    const GasSupply usual = SupplyOf(window.Planned());
    for (const SupplyChoice& choice : {SupplyChoice{3, 2, 2}, SupplyChoice{2, 3, 2}}) {
      settings.Team = choice;
      const GasSupply more = SupplyOf(window.Planned());
      ASSERT_EQ(more.legs.size(), usual.legs.size());
      for (std::size_t i = 0; i < more.legs.size(); ++i) {
        if (!more.legs[i].decompresses) continue;
        EXPECT_GE(more.legs[i].Minimum(), usual.legs[i].Minimum() - 1e-3);
      }
    }
    EXPECT_EQ(rows, std::to_string(window.InputProfile.GetLength()) + " " +
                        std::to_string(plans.documents(window.Tag()).TotalCNS));
  }
}

TEST(SupplyChoices, AreKeptAndWhatCanNotBeHasItsDefault) {
  HeadlessPlatform headless;
  SettingsStore& platform = headless.Services().settings;
  EXPECT_EQ(ReadSupplyChoice(platform), std::nullopt);
  const SupplyChoice choice{3, 1.5, 4, TurnRule::Thirds};
  WriteSupplyChoice(platform, choice);
  EXPECT_EQ(ReadSupplyChoice(platform), choice);
  platform.WriteSetting("GasSupply", "Team", "0");
  platform.WriteSetting("GasSupply", "Stress", "many");
  EXPECT_EQ(ReadSupplyChoice(platform), (SupplyChoice{2, 2, 4, TurnRule::Thirds}));
}

TEST(CylinderSets, ComeBackWithoutWhatIsBroken) {
  HeadlessPlatform headless;
  SettingsStore& settings = headless.Services().settings;
  const std::vector<Cylinder> twin{{"Air", 2, 12, 0, 232, 50}, {"EAN50", 1, 80, 3000, 2900, 500, true}};
  const std::vector<Cylinder> single{{"Air", 1, 15, 0, 200, 50}};
  WriteCylinderSets(settings, {{"one", single}, {"two", twin}, {"three", single}});
  // The shorter list leaves nothing of the longer one.
  WriteCylinderSets(settings, {{"Räder", twin}, {"one", single}});
  Message fault;
  const auto told = [&] {
    fault = {};
    std::vector<std::pair<std::string, std::vector<Cylinder>>> sets;
    for (const CylinderSet& set : ReadCylinderSets(settings, fault)) sets.emplace_back(set.name.plain, set.cylinders);
    return sets;
  };
  EXPECT_THAT(told(), testing::ElementsAre(testing::Pair("Räder", twin), testing::Pair("one", single)));
  EXPECT_TRUE(fault.IsEmpty());
  settings.WriteSetting("CylinderSets", "Cylinder2", "EAN50: 1/ 7/ 200/ 300/");
  settings.WriteSetting("CylinderSets", "Set3", " ");
  EXPECT_THAT(told(), testing::ElementsAre(testing::Pair("Räder", std::vector{twin[0]})));
  EXPECT_EQ(
      English().Words(fault),
      "Sets of cylinders in the settings, entry 2: a reserve of 300 is above the fill of 200. It is passed over.");
}

TEST(CylinderSets, ThatAreUsualAreSoundInBothUnits) {
  for (const bool metric : {true, false}) {
    for (const CylinderSet& set : UsualSets(metric)) {
      for (const Cylinder& cylinder : set.cylinders) {
        EXPECT_TRUE(CylinderFault(cylinder).IsEmpty());
        EXPECT_EQ(cylinder.InLitres(), metric);
      }
    }
  }
}

TEST(Cylinders, KeepTheirGasInTheOtherUnit) {
  // 80 cu ft at 3000 psi: 80 x 28.31685 x 1.01325 / (3000 / 14.50377) = 11.1 l.
  const Cylinder litres = InOtherUnit({"Air", 1, 80, 3000, 2900, 500});
  EXPECT_EQ(litres, (Cylinder{"Air", 1, 11.1, 0, 200, 34}));
  // 12 l at 200 bar: 2400 / 28.31685 / 1.01325 = 83.6 cu ft at 2900.8 psi, 83.7 at 2901.
  EXPECT_EQ(InOtherUnit({"Air", 2, 12, 0, 200, 50}), (Cylinder{"Air", 2, 83.7, 2901, 2901, 725}));
}

}  // namespace
}  // namespace tav
