#include "model/altitude.h"

#include <gtest/gtest.h>
#include <limits>

namespace tav {
namespace {

struct StandardPoint {
  double metres;
  double pascal;
};

// ISO 2533:1975, by geometric altitude.
constexpr StandardPoint kStandardAtmosphere[] = {{0, 101325},     {300, 97772.6},  {700, 93194.3},
                                                 {1000, 89876.3}, {1500, 84559.7}, {2000, 79501.4}};

TEST(AltitudeToPressure, FollowsTheStandardAtmosphereWhereLakesAre) {
  for (const auto& [metres, pascal] : kStandardAtmosphere) {
    EXPECT_NEAR(AltitudeToPressure(metres, true) * 100000, pascal, 0.011 * pascal) << metres;
    EXPECT_NEAR(AltitudeToPressure(metres / 0.3048, false) * 101325, pascal, 0.011 * pascal) << metres;
  }
}

TEST(PressureToAltitude, HasNoAnswerOutsideItsRange) {
  EXPECT_EQ(PressureToAltitude(0, true), std::nullopt);
  EXPECT_EQ(PressureToAltitude(-1, false), std::nullopt);
  EXPECT_EQ(PressureToAltitude(0.01, true), std::nullopt);  // 39,800 m
  EXPECT_EQ(PressureToAltitude(std::numeric_limits<double>::quiet_NaN(), true), std::nullopt);
}

}  // namespace
}  // namespace tav
