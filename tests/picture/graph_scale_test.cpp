#include "picture/graph_scale.h"

#include <gtest/gtest.h>

#include "picture/graph_layout.h"

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
  scale.SetWorld(0, 180, 0, -120);
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
  DiveTemplate diveTemplate;
  diveTemplate.AscendRates = {{0, 0, 9, 6}};
  diveTemplate.DescendRates = {{0, 0, 18, 13}};
  scale.TransformRates(diveTemplate);
  // A minute is 100 units; 9 of depth are 616.15.
  EXPECT_NEAR(diveTemplate.AscendRates[0].DrawRate, -100 / 616.1538, 1e-6);
  EXPECT_NEAR(diveTemplate.AscendRates[0].DrawDepth, 960.769, 1e-3);
  EXPECT_NEAR(diveTemplate.DescendRates[0].DrawRate, -100 / 1232.3077, 1e-6);
  EXPECT_NEAR(diveTemplate.DescendRates[0].DrawDepth, 1440, 1e-3);
}

TEST(GraphLayout, ThePlotIsTwiceAsWideAsTheWindowAndScrollsToItsEnd) {
  const GraphLayout layout = LayOutGraph(15000, 10500, 240, {});
  EXPECT_EQ(layout.mainContainer.width, 14980);
  EXPECT_EQ(layout.mainContainer.height, 7875);
  EXPECT_EQ(layout.grid.width, 30000);
  EXPECT_EQ(layout.scrollBar.top + layout.scrollBar.height, 7830);
  EXPECT_EQ(layout.axisContainer.top + layout.grid.height, layout.scrollBar.top)
      << "no depth lies under the scroll bar";
  EXPECT_EQ(layout.scrollMaximum, 15870);
  EXPECT_EQ(layout.largeChange, 6000);
  EXPECT_EQ(layout.smallChange, 3000);
  // The bars lie below the scroll bar and within the window.
  EXPECT_GE(layout.compartments.top, layout.scrollBar.top + layout.scrollBar.height);
  EXPECT_LE(layout.compartments.top + layout.compartments.height, 10500);
  // Scrolled to the end, the right edge of the plot is in sight.
  EXPECT_LT(layout.grid.width - layout.scrollMaximum, layout.mainContainer.width - layout.axisContainer.left);
}

TEST(GraphLayout, ATinyWindowHasNoNegativeWidths) {
  const GraphLayout layout = LayOutGraph(20, 300, 240, {});
  EXPECT_EQ(layout.mainContainer.width, 20);
  EXPECT_EQ(layout.scrollBar.width, 0);
  EXPECT_EQ(layout.grid.height, 0);
}

TEST(GraphLayout, APlanThatFillsTheWindowNeedsNoScrolling) {
  const GraphLayout layout = LayOutGraph(15000, 10500, 240, {1, true});
  EXPECT_EQ(layout.grid.width, layout.mainContainer.width - layout.axisContainer.left);
  EXPECT_EQ(layout.scrollMaximum, 0);
  const GraphLayout zoomed = LayOutGraph(15000, 10500, 240, {3, true});
  EXPECT_EQ(zoomed.grid.width - zoomed.scrollMaximum, layout.grid.width) << "its end can be scrolled to";
}

TEST(GraphLayout, InALowWindowTheBarsGiveWayToThePlot) {
  const GraphLayout high = LayOutGraph(9600, 6000, 240, {});
  EXPECT_EQ(high.compartments.height, 1200);
  const GraphLayout low = LayOutGraph(9600, 5900, 240, {});
  EXPECT_EQ(low.compartments.height, 0);
  EXPECT_EQ(low.scrollBar.top + low.scrollBar.height, 5900);
  EXPECT_GT(low.grid.height, high.grid.height);
}

TEST(GraphLayout, TheTissuesLieBelowThePlotAndTheBarsGiveWayInALowWindow) {
  PlotView view;
  view.extras.tissues = true;
  for (const auto& [height, bars] : {std::pair{10500.0, true}, {7900.0, false}, {3000.0, false}}) {
    SCOPED_TRACE(height);
    const GraphLayout layout = LayOutGraph(15000, height, 240, view);
    EXPECT_EQ(layout.tissues.top, layout.scrollBar.top + layout.scrollBar.height);
    EXPECT_GE(layout.tissues.height, 1500);
    EXPECT_EQ(layout.compartments.height > 0, bars);
    EXPECT_LE(layout.tissues.top + layout.tissues.height, bars ? layout.compartments.top : height);
    EXPECT_GE(layout.grid.height, height / 5);
  }
  EXPECT_EQ(LayOutGraph(15000, 10500, 240, {}).tissues.height, 0);
}

TEST(GraphLayout, ZoomStretchesTheTimeAndKeepsThePlaceUnderThePointer) {
  const GraphLayout layout = LayOutGraph(15000, 10500, 240, {4});
  EXPECT_EQ(layout.grid.width, 120000);
  EXPECT_EQ(layout.grid.height, LayOutGraph(15000, 10500, 240, {}).grid.height);
  EXPECT_EQ(layout.scrollMaximum, 105870);
  // 5000 on the plot, seen at 2000: at twice the width the same minute is at 10000 and still seen at 2000.
  EXPECT_EQ(10000 - ScrollKeeping(5000, 3000, 2), 2000);
}

}  // namespace
}  // namespace tav
