#include "advice/margins.h"

#include <gtest/gtest.h>

#include "advice/lost_gas.h"
#include "figures/dive_figures.h"
#include "persist/template_file.h"
#include "support/english.h"
#include "support/profile_text.h"
#include "support/random_plan.h"

namespace tav {
namespace {

using Kind = BrokenLimit::Kind;

const AdviceWords& Words() {
  static const AdviceWords words(test::English(), {}, true);
  return words;
}

/// A random plan with cylinders of each gas that it breathes, some of them too small.
DiveRecord WithCylinders(std::mt19937& random) {
  test::RandomPlan plan = test::MakePlan(random);
  plan.settings.OpenCircuit = random() % 6 != 0;  // a rebreather asks for hundreds of ways up
  for (const GasMix& gas : plan.settings.Blends) {
    Cylinder cylinder = {};
    cylinder.Gas = gas.Name;
    cylinder.Count = static_cast<std::int16_t>(1 + random() % 2);
    cylinder.Size = 7 + static_cast<double>(random() % 15);
    cylinder.Fill = 200;
    cylinder.Reserve = 40;
    cylinder.BailOut = true;
    plan.settings.Cylinders.push_back(cylinder);
  }
  return {plan.settings, 0, plan.actions};
}

ComputedPlan Computed(const DiveRecord& dive) {
  EngineObserver silent;
  return Compute(dive, {}, nullptr, silent);
}

TEST(Margins, EachCellIsThePlanWithThatLegChanged) {
  std::mt19937 random(23);
  for (int i = 0; i < 25; ++i) {
    const DiveRecord dive = WithCylinders(random);
    const ComputedPlan plan = Computed(dive);
    const auto leg = static_cast<std::int16_t>(1 + random() % static_cast<unsigned>(dive.UserActions.GetLength() - 1));
    const Margins margins({dive, plan, nullptr}, DiveLimits::Usual(), Words(), leg);
    ASSERT_TRUE(margins.Fault().IsEmpty());
    const MarginGrid grid{{-5, 10, 5}, {-2, 4, 3}};
    const std::vector<MarginCell> cells = margins.Cells(grid);
    const std::vector<MarginCell> byTwo = margins.Cells(grid, 2);
    ASSERT_EQ(cells.size(), 12U);
    for (std::size_t n = 0; n < cells.size(); ++n) {
      const MarginCell& cell = cells[n];
      EXPECT_EQ(cell.runTime, byTwo[n].runTime);
      EXPECT_EQ(cell.limit.Id(), byTwo[n].limit.Id());
      EXPECT_EQ(cell.limit.by, byTwo[n].limit.by);
      if (cell.limit.kind == Kind::Impossible) continue;
      DiveRecord changed = dive;
      ClassUseractions& actions = changed.UserActions;
      actions.setuser(leg, actions.getDepth(leg) + cell.deeper, actions.gettime(leg) + cell.longer,
                      actions.getmixnumber(leg));
      const ComputedPlan whole = Computed(changed);
      const DiveFigures figures = FiguresOf(whole.rows);
      EXPECT_EQ(cell.runTime, figures.runTime);
      EXPECT_EQ(cell.stops, figures.stopTime);
      EXPECT_EQ(cell.cns, figures.CNS);
      EXPECT_EQ(cell.otu, figures.OTU);
      EXPECT_EQ(cell.limit.kind == Kind::DoesNotDecompress, !whole.end.Decompresses);
      if (cell.limit.kind == Kind::Gas) {
        // What the map finds too little the gas supply of the changed plan does, too, which asks for more.
        const GasSupply supply = SupplyOf({changed, whole, nullptr});
        ASSERT_NE(supply.Of(cell.limit.gas), nullptr);
        EXPECT_NE(supply.Of(cell.limit.gas)->verdict, GasVerdict::Enough);
        EXPECT_GT(cell.limit.by, 0);
      }
      if (cell.limit.kind == Kind::Lost && cell.limit.why == Kind::Gas) {
        DiveRecord lost = changed;
        ASSERT_TRUE(LoseGases({cell.limit.gas}, lost).IsEmpty());
        const ComputedPlan without = Computed(lost);
        const auto stores = StoresOf(without.rows, lost.Template, lost.Template.Cylinders);
        const auto store = std::ranges::find(stores, cell.limit.runs, &GasStore::gas);
        ASSERT_NE(store, stores.end());
        EXPECT_TRUE(store->verdict == GasVerdict::RunsOut || store->verdict == GasVerdict::NoCylinder);
      }
    }
  }
}

TEST(Margins, ALossAfterWhichNoAscentEndsBreaksALimit) {
  DiveTemplate t = ShippedDefaultTemplate();
  t.LastStop = 9;  // where the nitrogen of air is above what these factors allow at the surface
  t.GFLow = t.GFHigh = 0.05;
  t.Blends.push_back({"EAN80", 80, 20, 0});
  t.ChangeGasMixes = {{"EAN80", 80, 20, 0, 9}};
  t.Cylinders = {{"Air", 9, 20, 0, 200, 0, true}, {"EAN80", 9, 20, 0, 200, 0, true}};
  DiveRecord dive{t, 0, {}};
  for (const auto& [depth, time] : {std::pair{30, 10}, {-1, -1}}) {
    dive.UserActions.NewAction();
    dive.UserActions.setuser(dive.UserActions.GetLength(), depth, time, 0);
  }
  dive.UserActions.setdeco(2);
  const ComputedPlan plan = Computed(dive);
  ASSERT_TRUE(plan.end.Decompresses);
  const MarginCell cell = Margins({dive, plan, nullptr}, {{}, {}, Single(1000), true}, Words()).At(0, 0);
  EXPECT_EQ(cell.limit.kind, Kind::Lost) << cell.limit.Id();
  EXPECT_EQ(cell.limit.gas + ": " + std::to_string(static_cast<int>(cell.limit.why)),
            "EAN80: " + std::to_string(static_cast<int>(Kind::DoesNotDecompress)));
}

TEST(Margins, LooserLimitsNeverShrinkTheMap) {
  std::mt19937 random(7);
  for (int i = 0; i < 10; ++i) {
    const DiveRecord dive = WithCylinders(random);
    const ComputedPlan plan = Computed(dive);
    const PlannedDive planned{dive, plan, nullptr};
    const DiveLimits strict{Single(60), Single(20), Single(50), true};
    const DiveLimits looser[] = {{Single(80), Single(20), Single(50), true},
                                 {Single(60), Single(40), Single(50), true},
                                 {Single(60), Single(20), Single(100), true},
                                 {Single(60), Single(20), Single(50), false},
                                 {{}, {}, {}, false}};
    const Margins map(planned, strict, Words());
    const MarginGrid grid{{-4, 12, 4}, {-3, 6, 3}};
    const std::vector<MarginCell> cells = map.Cells(grid);
    for (const DiveLimits& limits : looser) {
      const std::vector<MarginCell> more = Margins(planned, limits, Words()).Cells(grid);
      for (std::size_t n = 0; n < cells.size(); ++n) {
        if (!cells[n].limit.IsBroken()) {
          EXPECT_EQ(more[n].limit.Id(), "");
        }
      }
    }
  }
}

TEST(Margins, TheLongestStayKeepsAllLimitsAndAMinuteMoreBreaksTheOneThatIsNamed) {
  std::mt19937 random(99);
  int found = 0;
  for (int i = 0; i < 80; ++i) {
    const DiveRecord dive = WithCylinders(random);
    const ComputedPlan plan = Computed(dive);
    const DiveLimits limits{Single(90), {}, Single(80), random() % 2 == 0};
    const Margins margins({dive, plan, nullptr}, limits, Words());
    const LongestStay stay = margins.Longest();
    const auto limitAt = [&](int minutes) { return margins.At(minutes - margins.LegTime(), 0).limit.Id(); };
    ASSERT_TRUE(stay.binds.IsBroken()) << "within 90 minutes of run time";
    EXPECT_EQ(limitAt(stay.next), stay.binds.Id());
    if (stay.minutes == 0) continue;
    ++found;
    EXPECT_EQ(stay.next, stay.minutes + 1);
    EXPECT_EQ(limitAt(stay.minutes), "");
    if (stay.minutes > 1 && limitAt(stay.minutes - 1) != "impossible") {
      EXPECT_EQ(limitAt(stay.minutes - 1), "");
    }
  }
  EXPECT_GT(found, 10);
}

TEST(Margins, NoStopTimesAreThoseOfSquareDives) {
  DiveTemplate settings = ShippedDefaultTemplate();
  ClassUseractions actions;
  actions.AddLeg(20, 30, 0);
  const DiveRecord dive{settings, 0, actions};
  const ComputedPlan plan = Computed(dive);
  const Margins margins({dive, plan, nullptr}, DiveLimits::Usual(), Words());
  const std::vector<NoStopTime> times = margins.NoStopTimes();
  ASSERT_GT(times.size(), 5U);
  EXPECT_EQ(times.front().depth, 9);
  const auto stops = [&](double depth, double minutes) {
    ClassUseractions square;
    square.AddLeg(minutes, depth, 0);
    square.AddAscent();
    return FiguresOf(Computed({settings, 0, square}).rows).stopTime;
  };
  for (std::size_t i = 0; i < times.size(); ++i) {
    if (i > 0) {
      EXPECT_LE(times[i].minutes, times[i - 1].minutes);
    }
    EXPECT_EQ(stops(times[i].depth, times[i].minutes), 0);
    if (times[i].minutes < LongestStay::kMost) {
      EXPECT_GT(stops(times[i].depth, times[i].minutes + 1), 0);
    }
  }
}

TEST(Margins, AreToldOfWhatThereIsALegOf) {
  const DiveRecord empty{ShippedDefaultTemplate(), 0, {}};
  const ComputedPlan plan = Computed(empty);
  EXPECT_FALSE(Margins({empty, plan, nullptr}, DiveLimits::Usual(), Words()).Fault().IsEmpty());
  DiveRecord dive = empty;
  dive.UserActions.AddLeg(20, 30, 0);
  dive.UserActions.AddAscent();
  const ComputedPlan computed = Computed(dive);
  EXPECT_FALSE(Margins({dive, computed, nullptr}, DiveLimits::Usual(), Words(), 2).Fault().IsEmpty()) << "an ascent";
  const Margins margins({dive, computed, nullptr}, DiveLimits::Usual(), Words());
  EXPECT_EQ(margins.At(-20, 0).limit.Id(), "impossible");
  EXPECT_EQ(margins.At(-19, 0).limit.Id(), "impossible") << "shorter than the way down";
  EXPECT_EQ(margins.At(0, -30).limit.Id(), "impossible");
  EXPECT_EQ(margins.At(0, 60).limit.Id(), "ppo2") << "air at 90 m";
  EXPECT_NEAR(margins.At(0, 60).limit.by, 0.21 * 10.01325 - double{empty.Template.MaxPPO2}, 0.005);
}

}  // namespace
}  // namespace tav
