#include "dialogs/mix_information.h"

#include <gtest/gtest.h>

namespace tav {
namespace {

TEST(MixInformation, TellsEndAndPPO2WithTheirLimits) {
  DiveTemplate t;
  t.Metric = true;
  t.StartPressure = 1;
  t.MaximalEND = 30;
  t.MaxPPO2 = 1.4;
  using Kind = MixInformation::Kind;
  // At 50 m, 6 bar: Tx21/35 has 0.44 N2: END 60 * 0.44 / 0.79 - 10 = 23.4; PPO2 1.26.
  const auto trimix = InformationOf(Kind::Trimix, {0.21, 0.44, 0.35}, 50, t, false);
  EXPECT_NEAR(trimix.END, 23.418, 0.001);
  EXPECT_NEAR(trimix.PPO2, 1.26, 1e-5);
  EXPECT_FALSE(trimix.endTooDeep || trimix.ppo2TooHigh);
  EXPECT_FALSE(InformationOf(Kind::Heliox, {0.21, 0, 0.79}, 50, t, false).narcotic);
  EXPECT_TRUE(InformationOf(Kind::Trimix, {0.3, 0.7, 0}, 50, t, false).ppo2TooHigh);
  t.O2Narcotic = true;
  EXPECT_NEAR(InformationOf(Kind::Trimix, {0.21, 0.44, 0.35}, 50, t, false).END, 29.0, 0.001);
  EXPECT_FALSE(InformationOf(Kind::Nitrox, {0.28, 0.72, 0}, 50, t, false).possible);
  EXPECT_NEAR(InformationOf(Kind::Nitrox, {0.28, 0.72, 0}, 50, t, true).END, 50, 0.001);
  EXPECT_EQ(double{InformationOf(Kind::Heliox, {0.05, 0, 0.95}, 10, t, false).END}, 0) << "never negative";
}

TEST(GasFigures, OfALoopTellWhatIsBreathedFromIt) {
  DiveTemplate t;
  t.Metric = true;
  t.OpenCircuit = false;
  t.StartPressure = 1;
  t.Setpoint = 1.3;
  const GasMix air{"Air", 21, 79, 0};
  EXPECT_NEAR(FiguresAt(30, air, t).breathedPPO2, 1.3, 1e-6);
  EXPECT_NEAR(FiguresAt(2, air, t).breathedPPO2, 1.2, 1e-6) << "pure oxygen, what the depth allows";
  EXPECT_TRUE(FiguresAt(60, air, t).ppo2TooHigh) << "the diluent alone has more than the setpoint";
  t.OpenCircuit = true;
  EXPECT_NEAR(FiguresAt(30, air, t).breathedPPO2, 0.84, 1e-6);
}

}  // namespace
}  // namespace tav
