#include "mixer/gerg_2008.h"

#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <random>

#include "support/source_folder.h"

namespace tav {
namespace {

TEST(Gerg2008, IsThatOfTheReferenceRoutines) {
  const auto file = nlohmann::json::parse(std::ifstream(SourceFolder() / "tests/data/gas/gerg_2008_points.json"));
  const auto& points = file["points"];
  ASSERT_EQ(points.size(), 180U);
  for (const auto& point : points) {
    const auto at = [&](std::size_t i) { return point[i].get<double>(); };
    SCOPED_TRACE(point.dump());
    const Contents mix{at(0), at(1), at(2)};
    const double kelvin = at(3);
    const double bar = at(4);
    const double density = at(5);
    const Contents found = ContentsAt(mix, bar, kelvin);
    EXPECT_NEAR(found.Sum() / density, 1, 1e-7);
    EXPECT_NEAR(found.O2, mix.O2 * found.Sum(), 1e-12);
    EXPECT_NEAR(PressureOf(density * mix, kelvin) / bar, 1, 1e-7);
    EXPECT_NEAR(CompressibilityOf(density * mix, kelvin) / at(6), 1, 1e-7);
  }
}

// Also where the tests of a fill never come, and where the terms of a high power begin to run wild.
TEST(Gerg2008, PressureAndDensityAreEachOthersInverse) {
  std::mt19937 random(2008);
  const auto between = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
  for (int n = 0; n < 10000; ++n) {
    const double o2 = n % 3 == 0 ? 0 : between(0, 1);
    const double he = n % 4 == 0 ? 0 : between(0, 1);
    const Contents mix{o2, he, between(n % 5 == 0 ? 1 : 0, 1)};
    const double kelvin = between(230, 360);
    const double bar = n % 2 == 0 ? between(0, 1000) : between(0, 2);
    const Contents found = ContentsAt(mix, bar, kelvin);
    ASSERT_NEAR(PressureOf(found, kelvin), bar, 1e-9 * bar + 1e-12) << mix.O2 << " " << mix.He << " " << mix.N2;
    ASSERT_LT(PressureOf(0.999 * found, kelvin), bar);
    ASSERT_LT(found.Sum(), 35);
  }
  EXPECT_EQ(ContentsAt({0.21, 0, 0.79}, 0, 293.15).Sum(), 0);
  EXPECT_EQ(PressureOf({}, 293.15), 0);
}

}  // namespace
}  // namespace tav
