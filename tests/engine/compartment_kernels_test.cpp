#include "engine/compartment_kernels.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <random>

#include "engine/decay_factors.h"
#include "engine/zhl16.h"

namespace tav {
namespace {

struct Case {
  Loads loads;
  Inspired inspired;
  Inspired rate;
  double time = 0;
  CompartmentPair decay;
  MValueCoefficients m;
  double gradientFactor = 1;
  double ambient = 10;
};

Case RandomCase(std::mt19937& random) {
  const auto between = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
  Case c;
  DecayFactors factors;
  c.time = Single(between(0, 60));
  c.decay = factors.For(c.time);
  c.inspired = {between(-1, 80), between(0, 90)};
  c.rate = {between(-20, 20), between(-20, 20)};
  c.gradientFactor = Single(between(0.05, 1.2));
  c.ambient = between(5, 200);
  const double unit = random() % 2 == 0 ? 1.0 : double{zhl16::kFeetPerMetreOfSeaWater};
  for (std::size_t i = 0; i < kCompartments; ++i) {
    c.loads.He[i] = random() % 4 == 0 ? 0.0 : between(0, 90);
    c.loads.N2[i] = random() % 8 == 0 ? 0.0 : between(0, 90);
    c.m.HeA[i] = unit * zhl16::kHeA[i];
    c.m.N2A[i] = unit * zhl16::kN2A_B[i];
    c.m.HeB[i] = zhl16::kHeB[i];
    c.m.N2B[i] = zhl16::kN2B[i];
  }
  return c;
}

/// All bits that one set of kernels makes of a case.
std::vector<std::uint64_t> Bits(const CompartmentKernels& kernels, const Case& c) {
  std::vector<std::uint64_t> bits;
  const auto keep = [&](double value) { bits.push_back(std::bit_cast<std::uint64_t>(value)); };
  const auto keepLoads = [&](const Loads& loads) {
    for (const Single load : loads.He) keep(load);
    for (const Single load : loads.N2) keep(load);
  };
  Loads loads = c.loads;
  kernels.LoadConstant(loads, c.inspired, c.decay);
  keepLoads(loads);
  loads = c.loads;
  kernels.LoadRamp(loads, c.inspired, c.rate, c.time, RateConstants(), c.decay);
  keepLoads(loads);
  loads = c.loads;
  kernels.LoadDecay(loads, c.decay);
  keepLoads(loads);
  keep(kernels.DeepestCeiling(c.loads, c.m, c.gradientFactor, c.ambient));
  Compartments fractions;
  keep(kernels.MValueFractions(c.loads, c.m, c.ambient, fractions));
  for (const Single fraction : fractions) keep(fraction);
  keep(kernels.LargestGradient(c.loads, c.m, c.ambient));
  keep(kernels.LargestLoad(c.loads));
  return bits;
}

TEST(CompartmentKernels, GiveTheSameBitsOnEveryInstructionSet) {
  if (WideKernels() == nullptr) GTEST_SKIP() << "this processor has no wide instructions";
  std::mt19937 random(20240607);
  for (int i = 0; i < 20000; ++i) {
    const Case c = RandomCase(random);
    ASSERT_EQ(Bits(PortableKernels(), c), Bits(*WideKernels(), c)) << "case " << i;
  }
}

/// The formulas for one compartment, as a textbook writes them.
TEST(CompartmentKernels, FollowTheFormulas) {
  std::mt19937 random(7);
  for (int n = 0; n < 1000; ++n) {
    const Case c = RandomCase(random);
    Loads constant = c.loads;
    BestKernels().LoadConstant(constant, c.inspired, c.decay);
    Loads ramp = c.loads;
    BestKernels().LoadRamp(ramp, c.inspired, c.rate, c.time, RateConstants(), c.decay);
    Compartments fractions;
    BestKernels().MValueFractions(c.loads, c.m, c.ambient, fractions);
    double ceiling = 0;
    double gradient = 0;
    for (std::size_t i = 0; i < kCompartments; ++i) {
      const double k = RateConstants().N2[i];
      const double load = c.loads.N2[i];
      const double pi = c.inspired.N2;
      const double fading = std::exp(-k * c.time);
      EXPECT_NEAR(constant.N2[i], pi + (load - pi) * fading, 1e-4);
      EXPECT_NEAR(ramp.N2[i], pi + c.rate.N2 * (c.time - 1 / k) - (pi - load - c.rate.N2 / k) * fading,
                  1e-5 * (std::fabs(ramp.N2[i]) + 1));
      const double he = c.loads.He[i];
      const double total = load + he;
      if (total == 0) {
        EXPECT_EQ(double{fractions[i]}, 0);
        continue;
      }
      const double a = (he * c.m.HeA[i] + load * c.m.N2A[i]) / total;
      const double b = (he * c.m.HeB[i] + load * c.m.N2B[i]) / total;
      EXPECT_NEAR(fractions[i], total / (c.ambient / b + a), 1e-5);
      gradient = std::max(gradient, (total - c.ambient) / (c.ambient / b + a - c.ambient));
      const double g = c.gradientFactor;
      ceiling = std::max(ceiling, (total - a * g) / (g / b - g + 1) - c.ambient);
    }
    EXPECT_NEAR(BestKernels().DeepestCeiling(c.loads, c.m, c.gradientFactor, c.ambient), ceiling, 1e-4);
    EXPECT_NEAR(BestKernels().LargestGradient(c.loads, c.m, c.ambient), gradient, 1e-4 * (1 + gradient));
  }
}

TEST(CompartmentKernels, AnEmptyTissueHasNoCeilingAndNoLoad) {
  std::mt19937 random(1);
  Case c = RandomCase(random);
  c.loads = {};
  Compartments fractions;
  EXPECT_EQ(BestKernels().DeepestCeiling(c.loads, c.m, 0.3, 10), 0);
  EXPECT_EQ(BestKernels().MValueFractions(c.loads, c.m, 10, fractions), 0);
  EXPECT_EQ(BestKernels().LargestGradient(c.loads, c.m, 10), 0);
  for (const Single fraction : fractions) EXPECT_EQ(double{fraction}, 0);
}

}  // namespace
}  // namespace tav
