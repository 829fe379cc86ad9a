#include <algorithm>
#include <gtest/gtest.h>
#include <random>

#include "supply/gas_supply.h"
#include "support/random_plan.h"

namespace tav {
namespace {

constexpr double kPsi = 14.50377;                  // of a bar
constexpr double kCubicFoot = 28.31685 * 1.01325;  // litres at 1 bar, of one at 1 atmosphere

/// The same cylinder with its stamp and its gauge in the other unit.
Cylinder InPsi(Cylinder cylinder) {
  cylinder.Size = cylinder.Size * cylinder.Fill / kCubicFoot;
  cylinder.RatedPressure = cylinder.Fill = cylinder.Fill * kPsi;
  cylinder.Reserve = cylinder.Reserve * kPsi;
  return cylinder;
}

std::vector<Cylinder> AnyCylinders(const DiveTemplate& t, std::mt19937& random) {
  constexpr double kSizes[] = {3, 7, 12, 18};
  constexpr double kFills[] = {60, 100, 200, 230};
  std::vector<Cylinder> cylinders;
  for (const GasMix& blend : t.Blends) {
    for (auto lines = random() % 3; lines > 0; --lines) {
      const double size = kSizes[random() % 4];
      const double fill = kFills[random() % 4];
      const auto reserve = static_cast<double>(random() % 51);
      const auto count = static_cast<std::int16_t>(1 + random() % 2);
      cylinders.push_back({blend.Name, count, size, 0, fill, reserve, random() % 2 == 0});
    }
  }
  return cylinders;
}

TEST(ReserveLaws, AReserveIsTheSameInEitherUnit) {
  std::mt19937 random(91);
  std::size_t compared = 0;
  for (int n = 0; n < 60; ++n) {
    const test::RandomPlan plan = test::MakePlan(random);
    const ComputedPlan computed = test::Computed(plan);
    const DiveRecord record{plan.settings, 0, plan.actions};
    std::vector<Cylinder> cylinders = AnyCylinders(plan.settings, random);
    const GasSupply bar = SupplyOf({record, computed}, {}, cylinders);
    std::ranges::transform(cylinders, cylinders.begin(), InPsi);
    const GasSupply psi = SupplyOf({record, computed}, {}, cylinders);
    SCOPED_TRACE(test::File(plan));
    ASSERT_EQ(bar.gases.size(), psi.gases.size());
    for (std::size_t i = 0; i < bar.gases.size(); ++i) {
      const GasStore& store = bar.gases[i];
      const GasStore& other = psi.gases[i];
      SCOPED_TRACE(store.gas);
      EXPECT_EQ(store.verdict, other.verdict);
      EXPECT_NEAR(store.carried, other.carried, 1e-5 * store.carried);
      EXPECT_NEAR(store.reserve, other.reserve, 1e-5 * store.carried);
      // With the reserves left, each gauge shows its own.
      for (const GasStore* each : {&store, &other}) {
        const GasStore::Gauges gauges = each->At(each->reserve);
        for (std::size_t line = 0; line < gauges.pressures.size(); ++line) {
          if (!each->lines[line].Counts()) continue;
          EXPECT_NEAR(gauges.pressures[line].value_or(-1), each->cylinders[line].Reserve, 0.1);
          ++compared;
        }
      }
    }
    for (std::size_t i = 0; i < bar.legs.size(); ++i) {
      EXPECT_EQ(bar.VerdictOf(bar.legs[i]), psi.VerdictOf(psi.legs[i])) << i;
    }
  }
  EXPECT_GT(compared, 300U);
}

/// What the gauge shows in the end is enough of a reserve, a little more is not.
TEST(ReserveLaws, AReserveIsKeptToItsPressure) {
  std::mt19937 random(92);
  int tried = 0;
  for (int n = 0; n < 60; ++n) {
    test::RandomPlan plan = test::MakePlan(random);
    plan.settings.OpenCircuit = true;
    const ComputedPlan computed = test::Computed(plan);
    const DiveRecord record{plan.settings, 0, plan.actions};
    const Cylinder litres{computed.rows.GetGasMixName(1), 2, 18, 0, 230, 0};
    for (const Cylinder& cylinder : {litres, InPsi(litres)}) {
      const auto with = [&](double reserve) {
        Cylinder kept = cylinder;
        kept.Reserve = reserve;
        return *SupplyOf({record, computed}, {}, {kept}).Of(kept.Gas);
      };
      const GasStore store = with(0);
      const double step = cylinder.InLitres() ? 1 : 10;  // some litres
      const double left = store.Pressure(store.Left()).value_or(0);
      if (store.ofPlan != GasVerdict::Enough || left < step) continue;
      EXPECT_EQ(with(left - step).ofPlan, GasVerdict::Enough) << left << "\n" << test::File(plan);
      EXPECT_EQ(with(left + step).ofPlan, GasVerdict::IntoReserve) << left << "\n" << test::File(plan);
      ++tried;
    }
  }
  EXPECT_GT(tried, 30);
}

}  // namespace
}  // namespace tav
