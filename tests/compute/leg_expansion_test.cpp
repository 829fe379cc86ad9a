#include "compute/leg_expansion.h"

#include <gtest/gtest.h>
#include <vector>

namespace tav {
namespace {

struct ExpectedRow {
  double depth;
  double time;
  double rate;
  std::int16_t status;
};

struct LegCase {
  const char* what;
  double from;
  double to;
  double minutes;
  std::vector<ExpectedRow> rows;
  double lasts;
};

// Bands: up 3 per minute above 6, 9 above 20, 10 below; down 18 above 20, 12 above 40, 6 below.
TEST(LegExpansion, CutsAMoveAtTheLimitsOfTheRateTables) {
  constexpr std::int16_t kLeg = RowStatus::kLeg;
  constexpr std::int16_t kDown = RowStatus::kDescentBand;
  constexpr std::int16_t kUp = RowStatus::kAscentBand;
  const LegCase cases[] = {
      {"level", 30, 30, 5, {{30, 5, 0, kLeg}}, 5},
      {"level without length", 30, 30, 0, {{30, 0, 0, kLeg}}, 0},
      {"down in the first band", 0, 9, 2, {{9, 0.5, 18, kLeg}, {9, 1.5, 0, kLeg}}, 2},
      {"down, the whole time", 2, 20, 1, {{20, 1, 18, kLeg}}, 1},
      {"down over a limit", 2, 26, 4, {{20, 1, 18, kDown}, {26, 0.5, 12, kLeg}, {26, 2.5, 0, kLeg}}, 4},
      {"down from a limit", 20, 32, 1, {{32, 1, 12, kLeg}}, 1},
      {"down over all limits",
       2,
       46,
       9,
       {{20, 1, 18, kDown}, {40, 20.0 / 12, 12, kDown}, {46, 1, 6, kLeg}, {46, 16.0 / 3, 0, kLeg}},
       9},
      {"down too short", 40, 58, 1, {{58, 3, 6, kLeg}}, 3},
      {"up within a band", 19, 10, 3, {{10, 1, -9, kLeg}, {10, 2, 0, kLeg}}, 3},
      {"up over two limits",
       40,
       3,
       6,
       {{20, 2, -10, kUp}, {6, 14.0 / 9, -9, kUp}, {3, 1, -3, kLeg}, {3, 6 - 5 + 4.0 / 9, 0, kLeg}},
       6},
      {"up to a limit", 15, 6, 2, {{6, 1, -9, kUp}, {6, 0, -3, kLeg}, {6, 1, 0, kLeg}}, 2},
      {"up to the surface", 15, 0, 1, {{6, 1, -9, kUp}, {0, 2, -3, kUp}}, 3},
      {"up to the surface with time to spare", 15, 0, 10, {{6, 1, -9, kUp}, {0, 2, -3, kUp}}, 10},
      {"up to above the surface", 3, -5, 1, {{0, 1, -3, kUp}}, 1},
      {"up too short", 6, 3, 0.25, {{3, 1, -3, kLeg}, {3, 0, 0, kLeg}}, 1}};
  DiveTemplate t;
  t.AscendRates = {{3, 0}, {9, 6}, {10, 20}};
  t.DescendRates = {{18, 0}, {12, 20}, {6, 40}};
  t.Blends = {AirMix(), {"EAN50", 50, 49, 1}};
  for (const LegCase& known : cases) {
    SCOPED_TRACE(known.what);
    constexpr double kStart = 100;
    Leg leg{kStart, known.from, kStart + known.minutes, known.to, 1};
    ClassProfile profile;
    GetSegmentedProfile(leg, t, profile);
    EXPECT_NEAR(leg.endTime, kStart + known.lasts, 1e-4);
    EXPECT_EQ(leg.targetDepth, Single(std::max(known.to, 0.0)));
    ASSERT_EQ(profile.GetLength(), static_cast<int>(known.rows.size()));
    double runTime = kStart;
    for (std::size_t i = 0; i < known.rows.size(); ++i) {
      const Waypoint& row = profile.Row(static_cast<std::int16_t>(i + 1));
      runTime += known.rows[i].time;
      EXPECT_EQ(row.Depth, Single(known.rows[i].depth));
      EXPECT_NEAR(row.SegmentTime, known.rows[i].time, 2e-5);
      EXPECT_NEAR(row.RunTime, runTime, 2e-5);
      EXPECT_EQ(row.Rate, Single(known.rows[i].rate));
      EXPECT_EQ(row.Status, known.rows[i].status);
      EXPECT_EQ(row.GasMixName, "EAN50");
      EXPECT_EQ(row.MixNumber, 1);
      EXPECT_EQ(row.GasMixO2 + row.GasMixN2 + row.GasMixHe, 100);
    }
  }
}

}  // namespace
}  // namespace tav
