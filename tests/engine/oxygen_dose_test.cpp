#include "engine/oxygen_dose.h"

#include <cmath>
#include <gtest/gtest.h>

#include "engine/breathing_gas.h"

namespace tav {
namespace {

struct Published {
  double ppo2;       // atmospheres
  double cnsLimit;   // minutes of a single exposure
  double otuPerMin;  // two decimals
};

// Sources: single-exposure limits of the NOAA Diving Manual, 4th edition, table 3-4 (of which 1.7 and above are
// emergencies and left out); OTU per minute of the repetitive excursion tables of Hamilton, Kenyon and Peterson, 1988.
constexpr Published kPublished[] = {{0.6, 720, 0.26}, {0.7, 570, 0.47}, {0.8, 450, 0.65}, {0.9, 360, 0.83},
                                    {1.0, 300, 1.00}, {1.1, 240, 1.16}, {1.2, 210, 1.32}, {1.3, 180, 1.48},
                                    {1.4, 150, 1.63}, {1.5, 120, 1.78}, {1.6, 45, 1.93}};

TEST(OxygenDose, FollowsThePublishedTables) {
  for (const Published& row : kPublished) {
    SCOPED_TRACE(row.ppo2);
    EXPECT_NEAR(CNSForPPO2(row.ppo2, row.cnsLimit, false), 1.0, 1e-5);
    EXPECT_NEAR(OTUForPPO2(row.ppo2, 1, false), row.otuPerMin, 0.0051);
  }
}

TEST(OxygenDose, MetricPressuresAreTurnedIntoAtmospheresFirst) {
  for (const double ppo2 : {0.6, 1.3, 1.6}) {
    EXPECT_NEAR(CNSForPPO2(ppo2, 30, true), CNSForPPO2(ppo2 * 0.9887, 30, false), 1e-6);
    EXPECT_NEAR(OTUForPPO2(ppo2, 30, true), OTUForPPO2(ppo2 * 0.9887, 30, false), 1e-4);
  }
}

TEST(OxygenDose, IsZeroOutsideTheModel) {
  EXPECT_EQ(double{OTUForPPO2(0.5, 10, false)}, 0);
  EXPECT_EQ(double{CNSForPPO2(0.5, 10, false)}, 0);
  EXPECT_EQ(double{CNSForPPO2(60.5, 10, false)}, 0);
  EXPECT_EQ(double{OTUOnRamp(0, 10, 18, 0.21, 1, true)}, 0);
  EXPECT_EQ(double{CNSOnRamp(0, 10, 18, 0.21, 1, true)}, 0);
  EXPECT_EQ(double{CNSOnRamp(30, 30, 18, 0.5, 1, true)}, 0);
}

struct Ramp {
  double from;
  double to;
  double rate;
  double fO2;
  bool metric;
};

// The dose of a ramp is the sum of the doses of many short stays along it.
TEST(OxygenDose, OfARampIsTheIntegralAlongIt) {
  constexpr Ramp kRamps[] = {{0, 40, 18, 0.21, true},  {60, 21, -9, 0.5, true},     {21, 0, -3, 1.0, true},
                             {0, 66, 60, 0.36, false}, {130, 20, -30, 0.32, false}, {12, 9, -0.5, 0.99, true}};
  constexpr int kPieces = 20000;
  for (const Ramp& ramp : kRamps) {
    SCOPED_TRACE(testing::Message() << ramp.from << " to " << ramp.to << " on " << ramp.fO2);
    double cns = 0;
    double otu = 0;
    const double time = (ramp.to - ramp.from) / ramp.rate / kPieces;
    for (int i = 0; i < kPieces; ++i) {
      const double depth = ramp.from + (ramp.to - ramp.from) * (i + 0.5) / kPieces;
      cns += CNSAtDepth(depth, time, ramp.fO2, 1.0, ramp.metric);
      otu += OTUAtDepth(depth, time, ramp.fO2, 1.0, ramp.metric);
    }
    EXPECT_NEAR(CNSOnRamp(ramp.from, ramp.to, ramp.rate, ramp.fO2, 1.0, ramp.metric), cns, 2e-3 * cns + 1e-5);
    EXPECT_NEAR(OTUOnRamp(ramp.from, ramp.to, ramp.rate, ramp.fO2, 1.0, ramp.metric), otu, 2e-3 * otu + 1e-5);
  }
}

// Two depths so close that their pressures are the same 32-bit number must not give 0 / 0.
TEST(OxygenDose, OfTheShortestRampIsFinite) {
  const double to = static_cast<double>(std::nextafter(30.0F, 31.0F));
  EXPECT_TRUE(std::isfinite(OTUOnRamp(30, to, 18, 0.5, 1, true)));
  EXPECT_TRUE(std::isfinite(CNSOnRamp(30, to, 18, 0.5, 1, true)));
}

TEST(OxygenDose, HalvesInNinetyMinutesAtTheSurface) {
  EXPECT_NEAR(CNSAfterSurfaceInterval(0.5, 90), 0.25, 1e-7);
  EXPECT_NEAR(CNSAfterSurfaceInterval(0.5, 180), 0.125, 1e-7);
  EXPECT_NEAR(CNSAfterSurfaceInterval(0.5, 0), 0.5, 0);
}

TEST(BreathingGas, VolumeOfARampIsThatOfItsMeanDepth) {
  EXPECT_NEAR(GasUsedOnRamp(30, 27, -9, 20, 1.0, true), (2.85 + 1) / 3 * 20, 1e-4);
  EXPECT_NEAR(GasUsedAtDepth(33, 10, 0.7, 1.0, false), 2 * 10 * 0.7, 1e-5);
}

TEST(BreathingGas, NarcoticDepthCountsOxygenWhenAsked) {
  DiveTemplate t;
  t.StartPressure = 1.0;
  // Air at 30 m is as narcotic as air at 30 m, by either rule; helium is not.
  EXPECT_NEAR(EquivalentDepthOC(true, 30, 79, 0, true, t), 30, 1e-4);
  EXPECT_NEAR(EquivalentDepthOC(true, 30, 79, 0, false, t), 30, 1e-4);
  EXPECT_NEAR(EquivalentDepthOC(true, 60, 37, 45, true, t), 0.55 * 70 - 10, 1e-4);
  EXPECT_NEAR(EquivalentDepthOC(true, 60, 37, 45, false, t), 70 * 0.37 / 0.79 - 10, 1e-4);
  EXPECT_EQ(double{EquivalentDepthOC(true, 6, 0, 0, false, t)}, 0);
  EXPECT_NEAR(EquivalentDepthOC(false, 99, 79, 0, true, t), 99, 1e-3);
}

}  // namespace
}  // namespace tav
