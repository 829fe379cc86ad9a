#include "advice/leaving.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "compute/breathed_gas.h"
#include "compute/plan_cut.h"
#include "support/random_plan.h"

namespace tav {
namespace {

/// The ascent of a plan cut at a moment, by a run of the whole dive.
std::optional<WayOut> ByAWholeRun(const EngineRun& run, const ClassProfile& plan, std::int16_t row,
                                  std::optional<Single> time) {
  ClassProfile cut;
  cut.CopyUntil(plan, row);
  if (time) cut.Row(row) = CutRow(plan, *time, row);
  ClassProfile rows;
  EndState end;
  EngineObserver silent;
  EXPECT_TRUE(ComputeProfile(run, cut, rows, end, silent).IsEmpty());
  if (!end.Decompresses) return std::nullopt;
  WayOut way{rows.GetRunTime(rows.GetLength()) - rows.GetRunTime(row), {}, {}};
  for (auto i = static_cast<std::int16_t>(row + 1); i <= rows.GetLength(); ++i) {
    if (rows.getGasUsed(i) == 0) continue;
    auto gas = std::ranges::find(way.gas, rows.GetGasMixName(i), &GasTotal::Name);
    if (gas == way.gas.end()) gas = way.gas.insert(gas, {rows.GetGasMixName(i), 0, 0, 0});
    gas->total += rows.getGasUsed(i);
  }
  return way;
}

void ExpectSame(const std::optional<WayOut>& way, const std::optional<WayOut>& expected) {
  ASSERT_EQ(way.has_value(), expected.has_value());
  if (!way) return;
  EXPECT_EQ(way->minutes, expected->minutes);
  ASSERT_EQ(way->gas.size(), expected->gas.size());
  for (std::size_t i = 0; i < way->gas.size(); ++i) {
    EXPECT_EQ(way->gas[i].Name, expected->gas[i].Name);
    EXPECT_EQ(way->gas[i].total, expected->gas[i].total);
  }
}

/// At the ends of rows and within them, in any order of the moments, on open circuit and on the loop.
TEST(Leaving, TakesWhatThePlanCutThereTakes) {
  std::mt19937 random(71);
  int onLoop = 0;
  int offLoop = 0;
  int neverClear = 0;
  for (int n = 0; n < 40; ++n) {
    test::RandomPlan plan = test::MakePlan(random);
    if (n % 8 == 7) {  // whose stops never clear
      plan.settings.ChangeGasMixes.clear();
      plan.settings.LastStop = 9;
      plan.settings.GFHigh = plan.settings.GFLow = 0.05;
    }
    const DiveTemplate& settings = plan.settings;
    const ModelChoice model{n % 5 == 1, n % 5 == 2};
    const DiveRecord record{settings, 0, plan.actions};
    const ComputedPlan computed = test::Computed(plan, model);
    const ClassProfile& rows = computed.rows;
    const std::int16_t openFrom = FirstOpenRow(rows, settings);
    const EngineRun open{settings, model, nullptr, 0, false, true, openFrom};
    const EngineRun loop{settings, model, nullptr, 0};
    Leaving leaving({record, computed});
    const Single last = rows.GetRunTime(rows.GetLength());
    for (int m = 0; m < 12; ++m) {
      const Single time = last * (static_cast<double>(random() % 1000) / 1000);
      std::int16_t row = 1;
      while (rows.GetRunTime(row) < time) ++row;
      const bool atEnd = m % 2 == 0;
      SCOPED_TRACE(testing::Message() << (atEnd ? "end of row " : "within row ") << row << ", " << time << " min\n"
                                      << test::File(plan));
      const auto moment = atEnd || time == 0 ? std::nullopt : std::optional(time);
      if ((moment ? CreateNewWay(rows, time, row) : rows.getDepth(row)) <= 0) continue;
      const Surfacing surfacing = moment ? leaving.At(time) : leaving.AtEndOf(row);
      ExpectSame(surfacing.open, ByAWholeRun(open, rows, row, moment));
      const bool loopIsBreathed = !settings.OpenCircuit && row < openFrom;
      EXPECT_EQ(surfacing.onLoop, loopIsBreathed);
      if (loopIsBreathed) ExpectSame(surfacing.loop, ByAWholeRun(loop, rows, row, moment));
      EXPECT_TRUE(loopIsBreathed || !surfacing.loop);
      onLoop += loopIsBreathed ? 1 : 0;
      offLoop += !settings.OpenCircuit && !loopIsBreathed ? 1 : 0;
      neverClear += surfacing.open ? 0 : 1;
      if (HasFailure()) return;
    }
  }
  EXPECT_GT(onLoop, 20);
  EXPECT_GT(offLoop, 2);
  EXPECT_GT(neverClear, 0);
}

TEST(Leaving, FromTheSurfaceTakesNothing) {
  std::mt19937 random(72);
  const test::RandomPlan plan = test::MakePlan(random);
  const DiveRecord record{plan.settings, 0, plan.actions};
  const ComputedPlan computed = test::Computed(plan);
  Leaving leaving({record, computed});
  for (const double time : {-1.0, 0.0, double{computed.rows.GetRunTime(computed.rows.GetLength())}, 1e6}) {
    const Surfacing surfacing = leaving.At(time);
    ASSERT_TRUE(surfacing.open) << time;
    EXPECT_EQ(surfacing.open->minutes, 0) << time;
    EXPECT_TRUE(surfacing.open->gas.empty()) << time;
  }
}

}  // namespace
}  // namespace tav
