#include <algorithm>
#include <gtest/gtest.h>
#include <random>

#include "compute/bailout_cuts.h"
#include "compute/breathed_gas.h"
#include "engine/oxygen_dose.h"
#include "support/random_plan.h"

namespace tav {
namespace {

/// The doses of rows, on a loop by its setpoints and on open circuit by the gas, add up from row to row.
void CheckDoses(const ClassProfile& rows, const DiveTemplate& t, std::int16_t openFrom) {
  const double low = std::min(t.Setpoint, t.DecoSetpoint);
  const double high = std::max(t.Setpoint, t.DecoSetpoint);
  double total = rows.getTotalCNS(0);
  for (const BreathedSegment& segment : BreathedSegments({rows, t, LastUserRow(rows), openFrom})) {
    const Waypoint& row = *segment.end;
    const double share = row.GasMixO2 / 100;
    const bool isOpen = segment.openCircuit;
    const double least = isOpen ? share * segment.Ambient(segment.Shallower()) : low;
    const double most = isOpen ? share * segment.Ambient(segment.Deeper()) : high;
    // The limits jump where two of their lines meet, at 1.7 ata by 8 %.
    ASSERT_GE(row.CNS, CNSForPPO2(least, row.SegmentTime, true) / 1.08 - 1e-5) << segment.row;
    ASSERT_LE(row.CNS, CNSForPPO2(most, row.SegmentTime, true) * 1.08 + 1e-5) << segment.row;
    total += row.CNS;
    ASSERT_NEAR(row.TotalCNS, total, 1e-5 * (1 + total)) << segment.row;
  }
}

TEST(CNSLaws, TheDoseGoesOnFromTheLoopToTheBailOut) {
  std::mt19937 random(51);
  int onLoop = 0;
  for (int n = 0; n < 60; ++n) {
    test::RandomPlan plan = test::MakePlan(random);
    DiveTemplate& t = plan.settings;
    t.OpenCircuit = t.DepthAdjust = false;
    t.EndPressure = t.StartPressure;
    const ComputedPlan computed = test::Computed(plan);
    const ClassProfile& rows = computed.rows;
    SCOPED_TRACE(test::File(plan));
    CheckDoses(rows, t, FirstOpenRow(rows, t));
    const DiveRecord record{t, 0, plan.actions};
    EngineObserver silent;
    const BailoutCuts cuts({record, computed}, {}, 7, silent);
    if (!cuts.Fault().IsEmpty()) continue;
    const double bottomTime = rows.GetRunTime(LastUserRow(rows));
    cuts.Visit([&](const TableDive& cut) {
      CheckDoses(cut.profile, t, cut.openFrom);
      if (cut.head > bottomTime) return false;
      // The dose at the cut is that of the plan there.
      std::int16_t row = 1;
      while (rows.GetRunTime(row) < cut.head - 1e-4) ++row;
      const double dose = cut.profile.getTotalCNS(LastUserRow(cut.profile));
      EXPECT_GE(dose, rows.getTotalCNS(static_cast<std::int16_t>(row - 1)) - 1e-5);
      EXPECT_LE(dose, rows.getTotalCNS(row) + 1e-5);
      ++onLoop;
      return !testing::Test::HasFailure();
    });
    if (HasFailure()) return;
  }
  EXPECT_GT(onLoop, 200);
}

}  // namespace
}  // namespace tav
