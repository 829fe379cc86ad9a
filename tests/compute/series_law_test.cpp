#include <gtest/gtest.h>
#include <random>

#include "support/random_plan.h"

// A dive after another one is never shorter than the same dive of who has not dived before.
//
// What helium can do against it: trimix of little nitrogen washes nitrogen out, and the diver comes back with less of
// it than he went with. Where the ascent stays on such a gas, for hours, the dive behind it may be shorter by as much;
// where it changes to gases of its own, by a minute or two of the rounding of stops.

namespace tav {
namespace {

using test::RandomPlan;

struct BottomGas {
  std::int16_t mix;
  unsigned long deepest;
};
constexpr BottomGas kGases[] = {{0, 50}, {1, 34}, {4, 55}, {5, 65}, {6, 75}, {7, 90}};
constexpr bool HasHelium(const BottomGas& gas) { return gas.mix >= 4; }

RandomPlan DiveOn(const BottomGas& gas, bool changesGas, std::mt19937& random) {
  RandomPlan plan{ShippedDefaultTemplate(), {}};
  if (!changesGas) plan.settings.ChangeGasMixes.clear();
  for (auto legs = 1 + random() % 2; legs > 0; --legs) {
    const auto depth = static_cast<double>(10 + random() % (gas.deepest - 9));
    plan.actions.AddLeg(static_cast<double>(6 + random() % 25), depth, gas.mix);
  }
  plan.actions.AddAscent();
  return plan;
}

double MinutesUp(const ComputedPlan& plan) {
  EXPECT_EQ(plan.fault.Raw(), "");
  return plan.rows.GetRunTime(plan.rows.GetLength()) - plan.rows.GetRunTime(LastUserRow(plan.rows));
}

TEST(SeriesLaws, ADiveAfterAnotherIsNotShorterThanFresh) {
  constexpr ModelChoice kModels[] = {{false, false}, {true, false}, {false, true}};
  constexpr double kIntervals[] = {0, 5, 10, 20, 45, 60, 120, 240, 480};
  std::mt19937 random(41);
  int shorter = 0;
  for (std::size_t n = 0; n < 400; ++n) {
    const BottomGas& gas = kGases[random() % 6];
    const bool changesGas = random() % 2 == 0;
    const RandomPlan first = DiveOn(gas, changesGas, random);
    // After a gas without helium any other may follow.
    const BottomGas& then = HasHelium(gas) ? gas : kGases[random() % 6];
    const bool thenChanges = HasHelium(gas) ? changesGas : random() % 2 == 0;
    const RandomPlan second = DiveOn(then, thenChanges, random);
    const ModelChoice& model = kModels[n % 3];
    const DiveRecord after{second.settings, kIntervals[random() % 9], second.actions};
    const EndState before = test::Computed(first, model).end;
    EngineObserver silent;
    const double longer = MinutesUp(Compute(after, model, &before, silent)) - MinutesUp(test::Computed(second, model));
    if (HasHelium(gas) && !changesGas) {
      shorter += longer < -2.5;
      continue;
    }
    ASSERT_GE(longer, HasHelium(gas) ? -2.5 : -1e-3) << "after " << double{after.SurfaceInterval} << " min\n"
                                                     << test::File(first) << test::File(second);
  }
  EXPECT_GT(shorter, 5) << "trimix decompressed on bottom gas is no exception any more: hold the law for it";
}

}  // namespace
}  // namespace tav
