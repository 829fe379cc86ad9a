#include "model/cylinder.h"

#include <gtest/gtest.h>

#include "model/text_id.h"

namespace tav {
namespace {

TEST(Cylinders, MayBeAllUpToTheirLimits) {
  const struct {
    Cylinder cylinder;  // count, size, rated pressure, fill, reserve
    int fault;
  } cases[] = {
      {{"Air", 1, 12, 0, 200, 50}, 0},
      {{"Air", 0, 12, 0, 200, 50}, Text::CylinderCount},
      {{"Air", 99, 1000, 0, 1000, 1000}, 0},
      {{"Air", 100, 12, 0, 200, 50}, Text::CylinderCount},
      {{"Air", 1, 0, 0, 200, 50}, Text::CylinderSize},
      {{"Air", 1, 1000.1, 0, 200, 50}, Text::CylinderSize},
      {{"Air", 1, 12, 0, 0, 0}, 0},
      {{"Air", 1, 12, 0, 1000.1, 50}, Text::CylinderFill},
      {{"Air", 1, 12, 0, -1, 0}, Text::CylinderFill},
      {{"Air", 1, 12, 0, 200, -1}, Text::CylinderReserve},
      {{"Air", 1, 12, 0, 200, 200.1}, Text::CylinderReserveAboveFill},
      {{"Air", 1, 80, 15000, 15000, 0}, 0},
      {{"Air", 1, 80, 15001, 3000, 0}, Text::CylinderRated},
      {{"Air", 1, 80, -1, 3000, 0}, Text::CylinderRated},
      {{"Air", 1, 80, 3000, 15001, 0}, Text::CylinderFill},
  };
  for (const auto& each : cases) {
    const Message fault = CylinderFault(each.cylinder);
    EXPECT_EQ(fault.text, each.fault) << fault.Raw();
  }
}

/// 80 cu ft at 3000 psi for each psi; 28.31685 l x 1.01325 bar are a cubic foot at 1 atmosphere, 14.50377 psi a bar.
TEST(Cylinders, HoldGasForEachUnitOfPressure) {
  const Cylinder litres{"Air", 2, 12, 0, 200, 50};
  const Cylinder feet{"Air", 2, 80, 3000, 2500, 500};
  EXPECT_DOUBLE_EQ(GasPerPressure(litres, true), 24);
  EXPECT_NEAR(GasPerPressure(feet, false), 160.0 / 3000, 1e-12);
  EXPECT_NEAR(GasPerPressure(feet, true), 160.0 / 3000 * 28.31685 * 1.01325 * 14.50377, 1e-9);
  EXPECT_NEAR(GasPerPressure(litres, false), 24 / (28.31685 * 1.01325 * 14.50377), 1e-12);
}

TEST(Cylinders, ThatAreEmptyAreStampedForAUsualPressure) {
  // 11.1 l x 206.8 bar = 2295.9 l are 80.0 cu ft.
  EXPECT_EQ(InOtherUnit({"Air", 1, 11.1, 0, 0, 0}), (Cylinder{"Air", 1, 80, 3000, 0, 0}));
}

}  // namespace
}  // namespace tav
