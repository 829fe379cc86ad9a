#include "compute/compute.h"

#include <gtest/gtest.h>

#include "compute/breathed_gas.h"
#include "compute/compute_profile.h"
#include "compute/leg_expansion.h"
#include "compute/plan_cut.h"
#include "model/text_id.h"
#include "support/profile_text.h"
#include "support/random_plan.h"

namespace tav {
namespace {

using test::File;
using test::RandomPlan;
using test::RowsText;

constexpr ModelChoice kModels[] = {{false, false}, {true, false}, {false, true}};

DiveRecord RecordOf(const RandomPlan& plan, Single interval = 0) { return {plan.settings, interval, plan.actions}; }

TEST(Compute, AnAscentAddedToAPlanIsThatOfTheWholePlan) {
  std::mt19937 random(31);
  for (int n = 0; n < 150; ++n) {
    const RandomPlan plan = test::MakePlan(random);
    const ModelChoice& model = kModels[n % 3];
    DiveRecord record = RecordOf(plan, 40);
    EngineObserver silent;
    EndState before = test::Computed(plan, model).end;
    const ComputedPlan whole = Compute(record, model, &before, silent);
    record.UserActions.DeleteLast();
    ComputedPlan legs = Compute(record, model, &before, silent);
    EXPECT_EQ(legs.state, EditState::Legs);
    const ComputedPlan joined = WithAscent(std::move(legs), RecordOf(plan, 40), model, &before, silent);
    ASSERT_EQ(RowsText(joined.rows), RowsText(whole.rows)) << File(plan);
    EXPECT_EQ(joined.end.TotalCNS, whole.end.TotalCNS);
    EXPECT_EQ(joined.end.N2Compartments, whole.end.N2Compartments);
    EXPECT_EQ(joined.actionResults.back().lastRow, whole.rows.GetLength());
  }
}

TEST(Compute, ASeriesHandsOnLoadsAndDoses) {
  std::mt19937 random(32);
  const RandomPlan plan = test::MakePlan(random);
  std::vector<DiveRecord> dives(3, RecordOf(plan, 60));
  EngineObserver silent;
  const std::vector<ComputedPlan> plans = ComputeSeries(dives, {}, silent);
  for (std::size_t i = 1; i < plans.size(); ++i) {
    EXPECT_EQ(plans[i].end.NumberInSeries, static_cast<int>(i + 1));
    EXPECT_GT(plans[i].startCNS, plans[i - 1].startCNS);
    EXPECT_EQ(plans[i].startOTU, plans[i - 1].end.TotalOTU);
  }
  dives[0].UserActions.DeleteLast();
  const std::vector<ComputedPlan> cut = ComputeSeries(dives, {}, silent);
  for (std::size_t i = 1; i < cut.size(); ++i) {
    EXPECT_FALSE(cut[i].fault.IsEmpty()) << "a dive after one without an ascent has no loads to start from";
    EXPECT_EQ(cut[i].rows.GetLength(), 0);
  }
}

/// Rows behind `last`, by all that a run writes into them.
std::string RowsBehind(const ClassProfile& rows, std::int16_t last) {
  std::string text;
  for (auto i = static_cast<std::int16_t>(last + 1); i <= rows.GetLength(); ++i) text += test::RowText(rows.Row(i));
  return text;
}

TEST(WaysUp, AreTheAscentsOfPlansCutAtTheirRows) {
  std::mt19937 random(33);
  int compared = 0;
  for (int n = 0; n < 40; ++n) {
    const RandomPlan plan = test::MakePlan(random);
    const ModelChoice& model = kModels[n % 3];
    const ComputedPlan computed = test::Computed(plan, model);
    const Single minutes = n % 4;
    const EngineRun run{plan.settings, model, nullptr, 0, false, n % 2 == 0};
    WaysUp ways(run, computed.rows);
    for (std::int16_t row = 1; row < computed.rows.GetLength(); ++row) {
      ClassProfile cut;
      cut.CopyUntil(computed.rows, row);
      const Waypoint& end = computed.rows.Row(row);
      if (minutes > 0) {
        SaveUserProfile(cut, plan.settings, end.Depth, minutes, 0, end.RunTime, RowStatus::kLeg, end.MixNumber);
      }
      ClassProfile rows;
      EndState state;
      EngineObserver silent;
      ASSERT_TRUE(ComputeProfile(run, cut, rows, state, silent).IsEmpty());
      const std::optional<ClassProfile> way = ways.From(row, minutes);
      ASSERT_EQ(way.has_value(), state.Decompresses) << File(plan);
      if (!way) continue;
      EXPECT_EQ(way->getDepth(0), end.Depth);
      ASSERT_EQ(RowsBehind(*way, 0), RowsBehind(rows, row)) << "row " << row << " of\n" << File(plan);
      ++compared;
    }
  }
  EXPECT_GT(compared, 400);
}

TEST(WaysUp, WithinARowAreTheAscentsOfPlansCutThere) {
  std::mt19937 random(34);
  int compared = 0;
  for (int n = 0; n < 20; ++n) {
    const RandomPlan plan = test::MakePlan(random);
    const ModelChoice& model = kModels[n % 3];
    const ComputedPlan computed = test::Computed(plan, model);
    const std::int16_t openFrom = FirstOpenRow(computed.rows, plan.settings);
    const EngineRun run{plan.settings, model, nullptr, 0, false, true, openFrom};
    WaysUp ways(run, computed.rows);
    std::int16_t row = 1;
    const double last = std::min<double>(computed.rows.GetRunTime(computed.rows.GetLength()), 120);
    for (Single time = 1; time < last; time += 1.0) {
      while (computed.rows.GetRunTime(row) < time) ++row;
      ClassProfile cut;
      cut.CopyUntil(computed.rows, row);
      cut.Row(row) = CutRow(computed.rows, time, row);
      ClassProfile rows;
      EndState state;
      EngineObserver silent;
      ASSERT_TRUE(ComputeProfile(run, cut, rows, state, silent).IsEmpty());
      const std::optional<ClassProfile> way = ways.FromWithin(row, time);
      ASSERT_EQ(way.has_value(), state.Decompresses) << File(plan);
      if (!way) continue;
      EXPECT_EQ(test::RowText(way->Row(0)), test::RowText(rows.Row(row)));
      ASSERT_EQ(RowsBehind(*way, 0), RowsBehind(rows, row)) << "minute " << time << " of\n" << File(plan);
      ++compared;
    }
  }
  EXPECT_GT(compared, 400);
}

}  // namespace
}  // namespace tav
