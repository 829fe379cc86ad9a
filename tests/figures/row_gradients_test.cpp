#include "figures/row_gradients.h"

#include <cmath>
#include <gtest/gtest.h>

#include "support/random_plan.h"

namespace tav {
namespace {

/// By hand, for compartment 1 with 30 m of nitrogen and 10 m of helium, and others that hold nothing:
///   a = (10 x 16.189 + 30 x 11.696) / 40 = 12.81925,  b = (10 x 0.477 + 30 x 0.5578) / 40 = 0.5376
/// At 10 m below 1 bar the M-value is 20 / b + a = 50.02163, at 1 bar 10 / b + a = 31.42044.
TEST(RowGradients, AreWorkedOutByHand) {
  ClassProfile rows;
  for (const double depth : {10, 30, 20, 0}) {
    rows.NewWayPoint();
    Waypoint& row = rows.Row(rows.GetLength());
    row.Depth = depth;
    row.N2Compartments[0] = 30;
    row.HeCompartments[0] = 10;
  }
  rows.SetEndUserProfile(2, true);
  const struct {
    std::size_t row;
    double startPressure;
    double gf99;
  } cases[] = {
      {0, 1, 0},
      {1, 1, (40 - 20) / (50.02163 - 20)},
      {1, 0.8, (40 - 18) / (18 / 0.5376 + 12.81925 - 18)},  // a row of the plan, from a lake
      {2, 1, 0},                                            // the ambient pressure is that of the load
      {3, 0.8, (40 - 30) / (30 / 0.5376 + 12.81925 - 30)},  // a row of the ascent, which ends at 1 bar
      {4, 0.8, (40 - 10) / (31.42044 - 10)},
  };
  for (const auto& known : cases) {
    SCOPED_TRACE(testing::Message() << "row " << known.row << ", " << known.startPressure << " bar");
    DiveTemplate settings;
    settings.Metric = true;
    settings.StartPressure = known.startPressure;
    settings.EndPressure = 1;
    const GradientsInUse gradients = RowGradients(rows, settings, {}).at(known.row);
    EXPECT_NEAR(gradients.gf99, known.gf99, 1e-5);
    EXPECT_NEAR(gradients.surfaceGF, known.row == 0 ? 0 : 30 / 21.42044, 1e-5);
  }
}

/// A gradient in use beyond the factor in force is a ceiling below the diver, and none is within it.
TEST(RowGradients, SayWhatTheCeilingsSay) {
  std::mt19937 random(8);
  int compared = 0;
  for (int n = 0; n < 200; ++n) {
    const test::RandomPlan plan = test::MakePlan(random);
    const ModelChoice model{false, false, n % 2 == 0};
    const DiveRecord record{plan.settings, 0, plan.actions};
    const ComputedPlan computed = test::Computed(plan, model);
    const ClassProfile& rows = computed.loadedRows;
    const auto gradients = RowGradients(rows, plan.settings, model);
    ASSERT_EQ(gradients.size(), static_cast<std::size_t>(rows.GetLength()) + 1);
    for (auto i = static_cast<std::int16_t>(LastUserRow(rows) + 1); i <= rows.GetLength(); ++i) {
      const double above = gradients[static_cast<std::size_t>(i)].gf99 - rows.GetGF(i);
      if (std::fabs(above) < 1e-4) continue;
      ASSERT_EQ(above > 0, rows.GetCeiling(i) > rows.getDepth(i)) << "row " << i << " of\n" << test::File(plan);
      ++compared;
    }
    if (!computed.end.Decompresses) continue;
    EXPECT_EQ(gradients.back().gf99, gradients.back().surfaceGF);
    EXPECT_LE(gradients.back().surfaceGF, plan.settings.GFHigh + 1e-4) << test::File(plan);
  }
  EXPECT_GT(compared, 1000);
}

TEST(RowGradients, AreThoseOfTheMomentsToTheBit) {
  std::mt19937 random(9);
  for (int n = 0; n < 60; ++n) {
    const test::RandomPlan plan = test::MakePlan(random);
    const ModelChoice model{n % 3 == 1, n % 3 == 2, n % 2 == 0};
    const DiveRecord record{plan.settings, 0, plan.actions};
    const ComputedPlan computed = test::Computed(plan, model);
    const auto gradients = RowGradients(computed.loadedRows, plan.settings, model);
    std::size_t rows = 0;
    for (const DiveMoment& moment : PlannedDive{record, computed}.Moments()) {
      if (moment.row == -1) continue;
      const GradientsInUse& row = gradients.at(static_cast<std::size_t>(moment.row));
      ASSERT_EQ(moment.gradients.gf99, row.gf99) << "row " << moment.row << " of\n" << test::File(plan);
      ASSERT_EQ(moment.gradients.surfaceGF, row.surfaceGF);
      ++rows;
    }
    EXPECT_EQ(rows, gradients.size());
  }
}

}  // namespace
}  // namespace tav
