#include <gtest/gtest.h>
#include <random>

#include "dialogs/mix_information.h"
#include "engine/breathing_gas.h"
#include "mixer/gauge_list.h"
#include "persist/template_file.h"

namespace tav {
namespace {

/// At the depth that is told the PPO2 keeps to its limit, one step deeper it is at the limit or beyond: a tenth in the
/// window of a leg, a whole metre or foot on the sheet of a fill.
TEST(MODLaws, AMODIsTheDeepestThatKeepsToItsLimit) {
  constexpr double kLimits[] = {0.7, 1.0, 1.3, 1.35, 1.4, 1.6};
  constexpr double kSurfaces[] = {0.72, 0.9, 1, 1.01325};
  constexpr double kNoise = 1e-4;  // bar or atmospheres; a hundredth of a tenth counts as the tenth
  std::mt19937 random(81);
  for (int n = 0; n < 2000; ++n) {
    DiveTemplate t = ShippedDefaultTemplate();
    t.Metric = random() % 2 == 0;
    t.OpenCircuit = random() % 3 != 0;
    const double limit = kLimits[random() % 6];
    (t.OpenCircuit ? t.MaxPPO2 : t.Setpoint) = limit;
    t.StartPressure = kSurfaces[random() % 4];
    const double oxygen = static_cast<double>(50 + random() % 951) / 10;
    SCOPED_TRACE(testing::Message() << oxygen << " %, " << limit << ", " << double{t.StartPressure} << " " << t.Metric);
    const auto at = [&](double depth, double surface) {
      return double{PPO2AtDepth(depth, surface, oxygen / 100, t.Metric)};
    };
    const auto ofLeg = FiguresAt(10, {"Mix", oxygen, 100 - oxygen, 0}, t).MOD;
    ASSERT_TRUE(ofLeg);
    EXPECT_TRUE(*ofLeg == 0 || at(*ofLeg, t.StartPressure) <= limit + kNoise) << double{*ofLeg};
    EXPECT_GE(at(*ofLeg + 0.1, t.StartPressure), limit - kNoise);

    const double sea = t.Metric ? 1.01325 : 1;
    const auto ofFill = MaximumOperatingDepth(oxygen, limit, t.Metric);
    ASSERT_TRUE(ofFill);
    EXPECT_TRUE(*ofFill == 0 || at(*ofFill, sea) <= limit + 1e-5) << *ofFill;
    EXPECT_GE(at(*ofFill + 1, sea), limit - 1e-5);
  }
}

}  // namespace
}  // namespace tav
