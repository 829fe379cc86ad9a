#include <gtest/gtest.h>
#include <iostream>
#include <random>

#include "support/random_plan.h"

// Plans beside each other: a minute longer, a metre deeper.

namespace tav {
namespace {

using test::RandomPlan;

/// What a diver sees of a plan.
struct Dive {
  double minutes = 0;    ///< run time
  double firstStop = 0;  ///< depth; 0 without stops
};

Dive Compute(const RandomPlan& plan) {
  const ClassProfile rows = test::Computed(plan).rows;
  const std::int16_t bottom = LastUserRow(rows);
  Dive dive;
  dive.minutes = rows.GetRunTime(rows.GetLength());
  for (auto i = static_cast<std::int16_t>(bottom + 1); i <= rows.GetLength(); ++i) {
    if (dive.firstStop == 0 && rows.GetStatus(i) == RowStatus::kStop) dive.firstStop = rows.getDepth(i);
  }
  return dive;
}

/// The first of the deepest legs.
std::int16_t DeepestLeg(const RandomPlan& plan) {
  std::int16_t deepest = 1;
  for (std::int16_t i = 1; i < plan.actions.GetLength(); ++i) {
    if (plan.actions.getDepth(i) > plan.actions.getDepth(deepest)) deepest = i;
  }
  return deepest;
}

const GasMix& MixOfDeepest(const RandomPlan& plan) {
  return plan.settings.Blends.at(static_cast<std::size_t>(plan.actions.getmixnumber(DeepestLeg(plan))));
}

/// The plan with its deepest leg so much deeper and longer.
RandomPlan Beside(const RandomPlan& plan, double deeper, double longer) {
  const std::int16_t leg = DeepestLeg(plan);
  RandomPlan beside = plan;
  beside.actions.setuser(leg, plan.actions.getDepth(leg) + deeper, plan.actions.gettime(leg) + longer,
                         plan.actions.getmixnumber(leg));
  return beside;
}

// Another first stop lays the line of the gradient factors anew, and the sum of the stops may come out a minute or two
// less. Else a longer or deeper dive never ends earlier. On oxygen a longer leg is decompression; such plans are left
// out.
TEST(Neighbours, AreShorterOnlyWhereTheFirstStopMoved) {
  std::mt19937 random(4);
  int shorter = 0;
  for (int n = 0; n < 500; ++n) {
    const RandomPlan plan = test::MakePlan(random);
    if (MixOfDeepest(plan).O2 == 100) continue;
    const Dive dive = Compute(plan);
    for (const auto& [deeper, longer] : {std::pair{0, 1}, std::pair{1, 0}, std::pair{1, 1}}) {
      const RandomPlan beside = Beside(plan, deeper, longer);
      const Dive neighbour = Compute(beside);
      constexpr double kNoise = 0.01;
      if (neighbour.minutes >= dive.minutes - kNoise) continue;
      ++shorter;
      std::cout << deeper << " m deeper, " << longer << " min longer: " << neighbour.minutes << " for " << dive.minutes
                << " min, first stop " << neighbour.firstStop << " for " << dive.firstStop << " m\n";
      EXPECT_NE(neighbour.firstStop, dive.firstStop) << test::File(beside);
    }
  }
  EXPECT_GT(shorter, 0) << "the case is among them";
}

}  // namespace
}  // namespace tav
