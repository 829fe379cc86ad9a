#include <gtest/gtest.h>
#include <random>

#include "advice/checked_plan.h"
#include "engine/vpm.h"
#include "support/random_plan.h"

namespace tav {
namespace {

/// Plans whose later legs may be too shallow.
test::RandomPlan ShallowPlan(std::mt19937& random) {
  test::RandomPlan plan = test::MakePlan(random);
  plan.settings.EndPressure = plan.settings.StartPressure;  // ceilings are told for the one, gradients for the other
  for (std::int16_t i = 2; i < plan.actions.GetLength(); ++i) {
    const auto depth = static_cast<double>(3 + random() % 20);
    plan.actions.setuser(i, depth, plan.actions.gettime(i), plan.actions.getmixnumber(i));
  }
  return plan;
}

/// The moments of a dive, each tenth of a minute, tell where a leg is above its ceiling: that of the gradient factors
/// by the gradient in use, that of bubbles by metres. What is less than `clear` above it may be found or not.
TEST(CeilingLaws, ALegAboveItsCeilingHasAFindingAndNoOtherHas) {
  std::mt19937 random(61);
  int above = 0;
  int below = 0;
  for (int n = 0; n < 300; ++n) {
    const test::RandomPlan plan = ShallowPlan(random);
    const DiveTemplate& t = plan.settings;
    const ModelChoice model{n % 3 == 2, false};
    const double clear = model.VPMMode ? 0.1 : 0.03;
    const ComputedPlan computed = test::Computed(plan, model);
    const DiveRecord record{t, 0, plan.actions};
    const PlannedDive dive{record, computed};
    std::vector<Finding> found = CheckPlan(dive, AdviceWords(test::English(), {".", ""}, true));
    std::erase_if(found, [](const Finding& finding) { return finding.rule != Rule::AboveCeiling; });
    const auto isTold = [&](std::int16_t first, std::int16_t last) {
      return std::ranges::any_of(found, [&](const Finding& f) { return f.firstRow <= last && f.lastRow >= first; });
    };
    const std::int16_t lastOfLegs = LastUserRow(computed.rows);
    double deepest = 0;
    double most = -1;              // of all moments
    double steepest = -1;          // gradient at the end of a row
    std::vector<double> ends{-1};  // by how much each row ends above
    for (const DiveMoment& moment : dive.Moments()) {
      if (static_cast<int>(ends.size()) > lastOfLegs) break;
      deepest = std::max<double>(deepest, moment.depth);
      const double ofBubbles = moment.ceiling - VPMGradient(deepest, t.EndPressure, true) - moment.depth;
      const double excess = model.VPMMode ? ofBubbles : moment.gradients.gf99 - t.GFLow;
      most = std::max(most, excess);
      if (moment.row != static_cast<int>(ends.size())) continue;
      ends.push_back(excess);
      steepest = std::max<double>(steepest, moment.gradients.gf99);
    }
    ASSERT_EQ(static_cast<int>(ends.size()), lastOfLegs + 1) << test::File(plan);
    SCOPED_TRACE(test::File(plan));
    for (std::int16_t first = 1; first <= lastOfLegs; ++first) {
      std::int16_t last = first;
      double worst = ends[static_cast<std::size_t>(first)];
      if (worst <= 0) {
        EXPECT_FALSE(isTold(first, last)) << first;
        ++below;
        continue;
      }
      while (last < lastOfLegs && ends[static_cast<std::size_t>(last + 1)] > 0) {
        ++last;
        worst = std::max(worst, ends[static_cast<std::size_t>(last)]);
      }
      EXPECT_TRUE(worst < clear || isTold(first, last)) << first << " to " << last << " by " << worst;
      if (worst >= clear) ++above;
      first = last;
    }
    EXPECT_TRUE(most < clear || !found.empty()) << most;
    if (!model.VPMMode && (steepest <= 1 || steepest > 1.03)) {
      EXPECT_EQ(std::ranges::count(found, Severity::Danger, &Finding::severity) > 0, steepest > 1) << steepest;
    }
    if (HasFailure()) return;
  }
  EXPECT_GT(above, 40);
  EXPECT_GT(below, 400);
}

}  // namespace
}  // namespace tav
