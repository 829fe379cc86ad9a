#include <algorithm>
#include <gtest/gtest.h>

#include "support/plan_fixture.h"
#include "support/random_plan.h"

namespace tav {
namespace {

void ExpectMomentsMeetRows(const std::vector<DiveMoment>& moments, const ClassProfile& rows) {
  std::int16_t row = 0;
  for (std::size_t i = 0; i < moments.size(); ++i) {
    const DiveMoment& moment = moments[i];
    if (i > 0) {
      ASSERT_GE(moment.time, moments[i - 1].time);
      const bool endless = row < rows.GetLength() && rows.GetSegmentTime(static_cast<std::int16_t>(row + 1)) > 300;
      const double most = endless ? 4 : 0.1;
      ASSERT_LE(moment.time - moments[i - 1].time, most + 0.002) << "row " << row;
    }
    if (moment.row == -1) {
      const double low = std::min(rows.getDepth(row), rows.getDepth(row + 1));
      const double high = std::max(rows.getDepth(row), rows.getDepth(row + 1));
      EXPECT_NEAR(moment.depth, std::clamp<double>(moment.depth, low, high), 1e-3);
      continue;
    }
    if (i > 0) ++row;
    ASSERT_EQ(moment.row, row);
    EXPECT_EQ(moment.time, rows.GetRunTime(row));
    EXPECT_EQ(moment.depth, rows.getDepth(row));
    EXPECT_EQ(moment.ceiling, rows.GetCeiling(row)) << "row " << row;
  }
  EXPECT_EQ(row, rows.GetLength());
}

/// Of all kinds of dives: circuits, models, units, altitudes, with and without an ascent.
TEST(Moments, MeetTheRowsOfRandomPlansToTheBit) {
  std::mt19937 random(5);
  for (int n = 0; n < 300; ++n) {
    const test::RandomPlan plan = test::MakePlan(random);
    test::Plans plans;
    plans.model = {n % 3 == 1, n % 3 == 2};
    frmWaypointEditor& window = plans.New([&](DiveTemplate& t) { t = plan.settings; });
    window.UserActions = plan.actions;
    window.ReEvaluateUserEnteredWaypoints();
    if (!window.EvaluationFault().empty()) continue;
    SCOPED_TRACE(n);
    const auto moments = window.Planned().Moments();
    ASSERT_FALSE(moments.empty());
    ExpectMomentsMeetRows(moments, window.LoadedProfile());
    if (HasFailure()) break;
  }
}

frmWaypointEditor& DeepDive(test::Plans& plans, double bottomTime) {
  frmWaypointEditor& window = plans.New();
  const DiveTemplate& settings = plans.documents(window.Tag()).Template;
  window.SaveUserEnteredWaypoints(bottomTime, 60, FindBlendIndex("Tx18/45", settings), false);
  window.ReEvaluateUserEnteredWaypoints();
  return window;
}

/// A plan that ends within the leg of another one has the ceiling there that the other has on its way.
TEST(Moments, BetweenTheRowsAreThoseOfAShorterLeg) {
  test::Plans plans;
  const auto moments = DeepDive(plans, 25).Planned().Moments();
  for (const double minutes : {0.7, 2.5, 9.1, 17.3, 24.9}) {
    SCOPED_TRACE(minutes);
    const auto at = std::find_if(moments.begin(), moments.end(),
                                 [&](const DiveMoment& moment) { return moment.time > minutes - 0.01; });
    ASSERT_NE(at, moments.end());
    EXPECT_NEAR(at->time, minutes, 1e-5);
    if (minutes < 60.0 / 18) {
      EXPECT_NEAR(at->depth, 18 * minutes, 1e-4);
      continue;
    }
    const ClassProfile& rows = DeepDive(plans, minutes).LoadedProfile();
    EXPECT_NEAR(at->ceiling, rows.GetCeiling(rows.GetLength()), 1e-4);
    EXPECT_EQ(at->depth, 60);
  }
}

/// The load of a compartment as a share of the M-value where the diver is: on arrival at a stop the largest is what the
/// row of the stop tells.
TEST(Moments, TellTheShareOfTheMValueAtTheDepth) {
  test::Plans plans;
  frmWaypointEditor& window = DeepDive(plans, 25);
  ASSERT_TRUE(window.StartDeco());
  const auto moments = window.Planned().Moments();
  const ClassProfile& rows = window.LoadedProfile();
  int stops = 0;
  for (const DiveMoment& moment : moments) {
    if (moment.row <= LastUserRow(rows) || moment.row == rows.GetLength()) continue;
    if (rows.GetStatus(moment.row) != RowStatus::kAscentEnd || rows.GetStatus(moment.row + 1) != RowStatus::kStop) {
      continue;
    }
    if (moment.row == LastUserRow(rows) + 1) continue;
    ++stops;
    EXPECT_EQ(*std::max_element(moment.fractions.begin(), moment.fractions.end()), rows.GetMaxMValue(moment.row + 1));
  }
  EXPECT_GE(stops, 8);
}

TEST(Moments, OfAStopThatNeverClearsAreFew) {
  test::Plans plans;
  frmWaypointEditor& window = plans.New([](DiveTemplate& t) {
    t.ChangeGasMixes.clear();
    t.LastStop = 9;
    t.GFHigh = 0.1;
    t.GFLow = 0.05;
  });
  window.SaveUserEnteredWaypoints(60, 60, FindBlendIndex("Tx18/45", plans.documents(window.Tag()).Template), false);
  window.ReEvaluateUserEnteredWaypoints();
  ASSERT_TRUE(window.StartDeco());
  ASSERT_FALSE(plans.documents(window.Tag()).Decompresses);
  const auto moments = window.Planned().Moments();
  ExpectMomentsMeetRows(moments, window.LoadedProfile());
  EXPECT_LT(moments.size(), 40000U);
}

TEST(Moments, AreNoneOfSettingsThatHaveChangedSince) {
  test::Plans plans;
  frmWaypointEditor& window = DeepDive(plans, 25);
  ASSERT_TRUE(window.StartDeco());
  const int evaluation = window.Evaluation();
  plans.documents(window.Tag()).Template.GFHigh = 0.5;
  EXPECT_TRUE(window.Planned().Moments().empty());
  window.ReEvaluateUserEnteredWaypoints();
  EXPECT_FALSE(window.Planned().Moments().empty());
  EXPECT_NE(window.Evaluation(), evaluation);
}

TEST(Moments, OfARepetitiveDiveBeginWithWhatTheDiveBeforeHasLeft) {
  test::Plans plans;
  frmWaypointEditor& first = DeepDive(plans, 25);
  ASSERT_TRUE(first.StartDeco());
  const std::int16_t second = plans.forms.AddRepetitiveDive(first.Tag(), 60);
  frmWaypointEditor& window = plans.forms(second);
  window.SaveUserEnteredWaypoints(20, 30, 0, false);
  window.ReEvaluateUserEnteredWaypoints();
  const auto moments = window.Planned().Moments();
  ExpectMomentsMeetRows(moments, window.LoadedProfile());
  const auto largest = [](const DiveMoment& moment) {
    return *std::max_element(moment.fractions.begin(), moment.fractions.end());
  };
  EXPECT_GT(largest(moments.front()), 0.5);
}

}  // namespace
}  // namespace tav
