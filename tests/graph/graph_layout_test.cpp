#include "graph/graph_layout.h"

#include <gtest/gtest.h>

namespace tav {
namespace {

TEST(GraphLayout, ThePlotIsTwiceAsWideAsTheWindowAndScrollsToItsEnd) {
  const GraphLayout layout = LayOutGraph(15000, 10500, 240, {});
  EXPECT_EQ(layout.mainContainer.width, 14980);
  EXPECT_EQ(layout.mainContainer.height, 10500 - HeightOfBars(10500));
  EXPECT_EQ(layout.grid.width, 30000);
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
  EXPECT_NEAR(high.compartments.height, HeightOfBars(6000), 50);
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
