#include "compute/bailout_cuts.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "plans/profile_commands.h"
#include "support/plan_fixture.h"
#include "support/profile_text.h"
#include "support/text_names.h"

namespace tav {
namespace {

using testing::IsEmpty;

const RunProgress kGoOn = [](int, int) { return true; };

/// All cuts, with everything a run writes.
std::string Text(const TableDives& dives) {
  std::string text;
  for (const TableDive& dive : dives.dives) text += test::RowsText(dive.profile) + "\n";
  return text;
}

class Bailout : public testing::Test {
 protected:
  frmWaypointEditor& Plan(std::initializer_list<std::pair<double, double>> legs, bool ascent = false) {
    frmWaypointEditor& window = plans_.New();
    for (const auto& [depth, minutes] : legs) window.SaveUserEnteredWaypoints(minutes, depth, 0, false);
    if (ascent) window.SaveUserEnteredWaypoints(-1, -1, 0, true);
    window.ReEvaluateUserEnteredWaypoints();
    return window;
  }
  TableDives Cuts(const frmWaypointEditor& window, double interval, int scenario = 2) {
    return *plans_.Cuts(window.Tag(), interval).Compute(scenario, kGoOn);
  }

  test::Plans plans_;
};

TEST_F(Bailout, CutsAtEachIntervalAndAtAnEndUnderWater) {
  struct Case {
    std::vector<std::pair<double, double>> legs;
    double interval;
    std::vector<double> heads;
  };
  const std::vector<Case> cases{
      {{{30, 30}}, 10, {10, 20, 30}},
      {{{30, 32}}, 10, {10, 20, 30, 32}},
      {{{9, 28}, {0, 4}}, 10, {10, 20, 30}},  // ends at the surface
      {{{30, 3}}, 0, {1, 2, 3}},              // no interval is a minute
      {{{30, 30}}, 99, {30}},
  };
  for (const Case& c : cases) {
    frmWaypointEditor& window = plans_.New();
    for (const auto& [depth, minutes] : c.legs) window.SaveUserEnteredWaypoints(minutes, depth, 0, false);
    window.ReEvaluateUserEnteredWaypoints();
    const TableDives cuts = Cuts(window, c.interval);
    ASSERT_EQ(test::RowsText(cuts.dives[0].profile), test::RowsText(window.InputProfile));
    std::vector<double> heads;
    for (std::size_t i = 1; i < cuts.dives.size(); ++i) {
      heads.push_back(cuts.dives[i].head);
      const ClassProfile& rows = cuts.dives[i].profile;
      EXPECT_EQ(double{rows.getDepth(rows.GetLength())}, 0) << "reaches the surface";
      EXPECT_NEAR(rows.GetRunTime(LastUserRow(rows)), cuts.dives[i].head, 1e-4);
      EXPECT_EQ(rows.getDepth(LastUserRow(rows)), cuts.dives[i].depth);
    }
    EXPECT_EQ(heads, c.heads);
  }
}

TEST_F(Bailout, ACutOnASlopeHasTheDepthBetween) {
  // 18 m/min down to 36 m, then up again at 9 m/min: at minute 1 and 11 the diver is on the way.
  const TableDives cuts = Cuts(Plan({{36, 10}, {18, 5}}), 1);
  EXPECT_NEAR(cuts.dives[1].depth, 18, 1e-4);
  EXPECT_NEAR(cuts.dives[10].depth, 36, 1e-4);
  EXPECT_NEAR(cuts.dives[11].depth, 27, 1e-4);
  EXPECT_NEAR(cuts.dives[12].depth, 18, 1e-4);
}

TEST_F(Bailout, ARebreatherIsLeftAtTheCut) {
  frmWaypointEditor& window = Plan({{40, 20}});
  plans_.documents(window.Tag()).Template.OpenCircuit = false;
  window.ReEvaluateUserEnteredWaypoints();
  const ClassProfile rows = Cuts(window, 20).dives[1].profile;
  for (std::int16_t i = 1; i <= rows.GetLength(); ++i) {
    EXPECT_EQ(rows.getGasUsed(i) > 0, i > LastUserRow(rows)) << "row " << i;
  }
}

/// The way out from a moment within the stops is what the plan does from there: each of its rows was breathed as the
/// plan has it, by the loop up to the first stop, then on open circuit.
TEST_F(Bailout, ACutAmongOpenCircuitStopsOfARebreatherGoesOnAsThePlanDoes) {
  for (const bool hybrid : {false, true}) {
    plans_.model.HybridMode = hybrid;
    frmWaypointEditor& window = Plan({{65, 35}}, true);
    DiveTemplate& settings = plans_.documents(window.Tag()).Template;
    settings.OpenCircuit = false;
    settings.OCDeco = true;
    settings.GFLow = settings.GFHigh;  // the line of factors would begin at the cut
    window.ReEvaluateUserEnteredWaypoints();
    const ClassProfile& plan = window.InputProfile;
    int within = 0;
    bool stops = false;
    for (std::int16_t row = 1; row <= plan.GetLength(); ++row) {
      // A cut at the end of a stop, whose time is a whole minute: the plan goes on to the next one.
      stops = stops || plan.GetStatus(row) == RowStatus::kStop;
      if (!stops || plan.GetStatus(row) != RowStatus::kStop) continue;
      const TableDive cut = Cuts(window, std::round(plan.GetRunTime(row)), 2).dives[1];
      const ClassProfile& rows = cut.profile;
      for (std::int16_t i = 1; i <= row; ++i) EXPECT_EQ(rows.getGasUsed(i) > 0, plan.getGasUsed(i) > 0) << "row " << i;
      EXPECT_NEAR(rows.GetRunTime(rows.GetLength()) - rows.GetRunTime(LastUserRow(rows)),
                  plan.GetRunTime(plan.GetLength()) - plan.GetRunTime(row), 1.01)
          << "cut at " << double{plan.GetRunTime(row)} << (hybrid ? ", hybrid" : "");
      ++within;
    }
    EXPECT_GT(within, 5);
  }
}

TEST_F(Bailout, EachScenarioLacksOneEntryAndTheLastNone) {
  frmWaypointEditor& window = Plan({{40, 20}});
  DiveTemplate& settings = plans_.documents(window.Tag()).Template;
  ASSERT_EQ(settings.ChangeGasMixes.size(), 2U);
  const BailoutCuts cuts = plans_.Cuts(window.Tag(), 20);
  ASSERT_EQ(cuts.Scenarios(), 3);
  for (int i = 0; i < 3; ++i) {
    const TableDives scenario = *cuts.Compute(i, kGoOn);
    std::vector<std::string> left;
    for (const GasChange& change : scenario.diveTemplate.ChangeGasMixes) left.push_back(change.Name);
    std::vector<std::string> expected{settings.ChangeGasMixes[0].Name, settings.ChangeGasMixes[1].Name};
    if (i < 2) {
      EXPECT_EQ(scenario.lost, expected[static_cast<std::size_t>(i)]);
      expected.erase(expected.begin() + i);
    } else {
      EXPECT_EQ(scenario.lost, std::nullopt);
    }
    EXPECT_EQ(left, expected);
  }
  // The only entry leaves a blank one behind.
  settings.ChangeGasMixes.resize(1);
  const DiveTemplate none = DropGasChange(settings, 0);
  ASSERT_EQ(none.ChangeGasMixes.size(), 1U);
  EXPECT_EQ(none.ChangeGasMixes[0].Name, "");
  EXPECT_EQ(DropGasChange(settings, 1).ChangeGasMixes[0].Name, settings.ChangeGasMixes[0].Name);
}

TEST_F(Bailout, SaysWhyThereCanBeNoRun) {
  EXPECT_THAT(plans_.texts.Words(plans_.Cuts(plans_.New().Tag(), 5).Fault()), Numbered("<NoLegs>"));
  EXPECT_THAT(plans_.texts.Words(plans_.Cuts(Plan({{3, 1}, {0, 1}}).Tag(), 99).Fault()),
              Numbered("<IntervalBeyondPlan>"));
  EXPECT_THAT(plans_.texts.Words(plans_.Cuts(Plan({{10, 20000}}).Tag(), 1).Fault()), Numbered("<TooManyCuts>"));
  EXPECT_TRUE(plans_.Cuts(Plan({{10, 20000}}).Tag(), 2).Fault().IsEmpty());
  frmWaypointEditor& window = Plan({{30, 10}});
  plans_.documents(window.Tag()).Template.StepSize = 0;
  window.ReEvaluateUserEnteredWaypoints();
  EXPECT_THAT(plans_.texts.Words(plans_.Cuts(window.Tag(), 5).Fault()), Numbered("<StepTooSmall>"));
  // A million rows in two thousand cuts.
  frmWaypointEditor& many = plans_.New();
  for (int i = 0; i < 2000; ++i) many.SaveUserEnteredWaypoints(1, 10, 0, false);
  many.ReEvaluateUserEnteredWaypoints();
  EXPECT_THAT(plans_.texts.Words(plans_.Cuts(many.Tag(), 1).Fault()), Numbered("<TooManyCutRows>"));
}

TEST_F(Bailout, EndsAtOnceWhereverTheUserCancels) {
  frmWaypointEditor& window = Plan({{40, 20}}, true);
  const BailoutCuts cuts = plans_.Cuts(window.Tag(), 5);
  int asked = 0;
  int all = 0;
  ASSERT_TRUE(cuts.Compute(0, [&](int done, int of) {
    all = of;
    EXPECT_EQ(done, ++asked);
    return true;
  }));
  EXPECT_EQ(asked, all);
  for (int end = 1; end <= all; ++end) {
    int now = 0;
    EXPECT_FALSE(cuts.Compute(0, [&](int, int) { return ++now < end; }));
    EXPECT_EQ(now, end);
  }
}

TEST_F(Bailout, StopsThatNeverClearAreAskedForOneByOne) {
  frmWaypointEditor& window = Plan({{40, 20}});
  DiveTemplate& settings = plans_.documents(window.Tag()).Template;
  settings.Blends.push_back({"Nitrogen", 1, 99, 0});
  settings.ChangeGasMixes = {{"Nitrogen", 1, 99, 0, 40}};
  settings.GFLow = settings.GFHigh = 0.2;
  window.ReEvaluateUserEnteredWaypoints();
  const BailoutCuts cuts = plans_.Cuts(window.Tag(), 20);
  int asked = 0;
  const auto all = cuts.Compute(1, [&](int, int) { return ++asked > 0; });
  EXPECT_FALSE(all->dives[1].decompresses);
  EXPECT_GT(asked, 2);
  int now = 0;
  EXPECT_FALSE(cuts.Compute(1, [&](int, int) { return ++now < 2; }));
  EXPECT_EQ(now, 2) << "within the ascent";
  EXPECT_TRUE(cuts.Compute(0, kGoOn)->dives[1].decompresses);
}

TEST_F(Bailout, NothingOfARunReachesTheSeriesNorTheOtherWayRound) {
  frmWaypointEditor& first = Plan({{40, 25}}, true);
  const std::int16_t second = plans_.forms.AddRepetitiveDive(first.Tag(), 60);
  plans_.forms(second).SaveUserEnteredWaypoints(25, 30, 0, false);
  plans_.forms(second).SaveUserEnteredWaypoints(-1, -1, 0, true);
  first.ReEvaluateUserEnteredWaypoints();
  const auto state = [&] {
    std::string text = ProfileFileText(plans_.forms, second);
    for (const std::int16_t n : {first.Tag(), second}) {
      const DocumentState& document = plans_.documents(n);
      text += test::RowsText(plans_.forms(n).InputProfile) + FormatPlain(document.TotalCNS) +
              FormatPlain(document.TotalOTU) + (document.Modified ? "modified" : "");
      for (const Single load : document.N2Compartments) text += " " + FormatFixed(double{load}, 9);
    }
    return text;
  };
  const std::string before = state();
  const std::int16_t slots = plans_.documents.UpperBound();
  const BailoutCuts cuts = plans_.Cuts(second, 5);
  const std::string expected = Text(*cuts.Compute(0, kGoOn));
  for (int end = 1; end <= 4; ++end) {
    int now = 0;
    EXPECT_FALSE(cuts.Compute(0, [&](int, int) { return ++now < end; }));
    ASSERT_EQ(state(), before);
  }
  ASSERT_EQ(plans_.documents.UpperBound(), slots);

  // The user throws the dives away in the middle of a run, and their numbers go to other plans.
  int now = 0;
  const auto cut = cuts.Compute(0, [&](int, int) {
    if (++now == 2) {
      first.LeaveDocument(true);
      plans_.forms.Unload(first.Tag());
      EXPECT_EQ(plans_.forms.LoadNewDoc(), first.Tag());
      plans_.model.VPMMode = true;
    }
    return true;
  });
  EXPECT_EQ(Text(*cut), expected);
}

}  // namespace
}  // namespace tav
