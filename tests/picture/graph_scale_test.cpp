#include "picture/graph_scale.h"

#include <gtest/gtest.h>

namespace tav {
namespace {

TEST(GraphScale, WorldBoxMovesOutToTens) {
  const struct {
    double value;
    double down;
    double up;
  } cases[] = {{0, 0, -10},    {180, 180, 190},  {-120, -120, -130},  {183.9, 180, 190},    {179.6, 180, 190},
               {4.4, 0, 10},   {-4.4, -10, -20}, {0.5, 0, 10},        {-119.6, -120, -130}, {9.5, 10, 20},
               {10.5, 10, 20}, {-0.4, 0, -10},   {1234.5, 1230, 1240}};
  for (const auto& known : cases) {
    SCOPED_TRACE(known.value);
    EXPECT_EQ(RoundDownToStep(known.value, 10), known.down);
    EXPECT_EQ(RoundUpToStep(known.value, 10), known.up);
  }
}

GraphScale EmptyPlan() {
  GraphScale scale;
  scale.SetPlot(19000, 10000);
  scale.SetWorld(0, 190, 0, -130);
  return scale;  // 100 units to the minute, 8900 units to 130 of depth, from y 550
}

TEST(GraphScale, ALowPlotKeepsRoomForTheNumbersAboveIt) {
  GraphScale scale;
  for (const auto& [height, top] : {std::pair{2000.0, 200.0}, {4000.0, 220.0}, {300.0, 150.0}, {0.0, 0.0}}) {
    scale.SetPlot(9000, height);
    EXPECT_EQ(scale.PlotTop, Single(top)) << height;
    EXPECT_EQ(scale.PlotBottom, Single(height - top)) << height;
  }
}

TEST(GraphScale, PlacesRunTimeAndDepth) {
  const GraphScale scale = EmptyPlan();
  EXPECT_EQ(scale.WorldToScreen(0, 0), (ScreenPoint{0, 550}));
  EXPECT_EQ(scale.WorldToScreen(190, -130), (ScreenPoint{19000, 9450}));
  EXPECT_EQ(scale.WorldToScreen(25, -65), (ScreenPoint{2500, 5000}));
}

TEST(GraphScale, AWorldWithoutExtentHasNoPlace) {
  GraphScale scale = EmptyPlan();
  scale.WorldRight = scale.WorldLeft;
  EXPECT_EQ(scale.WorldToScreen(25, -65), (ScreenPoint{-1, 5000}));
  scale.WorldBottom = scale.WorldTop;
  EXPECT_EQ(scale.WorldToScreen(25, -65), (ScreenPoint{-1, -1}));
}

TEST(GraphScale, APositionReadsDownToTenthsAndDeeper) {
  const GraphScale scale = EmptyPlan();
  const WorldPoint at = scale.ScreenToWorld(2519, 5001);
  EXPECT_EQ(at.time, Single(25.1));
  EXPECT_EQ(at.y, Single(-65.1));  // 65.0146 deep
  EXPECT_EQ(scale.ScreenToWorld(2520, 5000).y, -65);
  EXPECT_EQ(scale.ScreenToWorld(-1, 540).time, Single(-0.1));
  EXPECT_EQ(scale.ScreenToWorld(0, 540).y, Single(0.1));
}

TEST(GraphScale, ThePlotIncludesItsEdges) {
  const GraphScale scale = EmptyPlan();
  EXPECT_TRUE(scale.InsidePlot(0, 550));
  EXPECT_TRUE(scale.InsidePlot(19000, 9450));
  EXPECT_FALSE(scale.InsidePlot(-1, 5000));
  EXPECT_FALSE(scale.InsidePlot(19001, 5000));
  EXPECT_FALSE(scale.InsidePlot(100, 549));
  EXPECT_FALSE(scale.InsidePlot(100, 9451));
}

TEST(GraphScale, RatesBecomeSlopesAndLimitsBecomePlaces) {
  const GraphScale scale = EmptyPlan();
  // A minute is 100 units; 9 of depth are 616.15.
  EXPECT_NEAR(scale.Drate(9), -100 / 616.1538, 1e-6);
  EXPECT_NEAR(scale.Ddepth(6), 960.769, 1e-3);
}

}  // namespace
}  // namespace tav
