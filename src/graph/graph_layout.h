#pragma once

#include <algorithm>

#include "picture/compartment_bars.h"
#include "picture/profile_plot.h"

namespace tav {

/// What of the world the plot of a document window shows.
struct PlotView {
  double timeZoom = 1;   ///< 1 or more stretches the time
  bool fitPlan = false;  ///< the plan fills the window; else there is room for it to grow
  GraphExtras extras = {};
};

struct GraphRect {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

/// Where the surfaces of a document window lie, in drawing units.
struct GraphLayout {
  GraphRect mainContainer;  ///< axis labels, and the clipped plot within
  GraphRect axisContainer;  ///< within mainContainer: what is seen of the plot
  GraphRect grid;           ///< within axisContainer: the plot, scrolled to the left
  GraphRect compartments;   ///< no height in a window that is too low for them
  GraphRect tissues;        ///< no height when they are not shown
  GraphRect scrollBar;
  double scrollMaximum = 0;
  double largeChange = 0;
  double smallChange = 0;
};

/// The layout of a window of that size, with a scroll bar of that height.
inline GraphLayout LayOutGraph(double width, double height, double scrollBarHeight, const PlotView& view) {
  constexpr double kLowest = 6000;  // in a lower window nobody reads a load off the bars
  const double forBars = HeightOfBars(height);
  constexpr double kLowestMap = 1600;
  constexpr double kRoomForBoth = 8000;
  const double map = view.extras.tissues ? std::max(height / 4, std::min(kLowestMap, height / 2)) : 0;
  const bool bars = height >= kLowest && (map == 0 || height >= kRoomForBoth);
  const double plotHeight = height - (bars ? forBars : 0) - map;
  const double panesTop = plotHeight - (bars || map > 0 ? 45 : 0);
  GraphLayout layout;
  layout.mainContainer = {0, 0, width > 20 ? width - 20 : width, plotHeight};
  layout.axisContainer = {kPlotPlaceX, kPlotPlaceY, width, height};
  // The bars begin where the scroll bar ends, so that their title is not covered.
  layout.compartments = {0, panesTop + map, width - 100, bars ? height - panesTop - map : 0};
  layout.tissues = {0, panesTop, layout.mainContainer.width, map};
  layout.scrollBar = {0, panesTop - scrollBarHeight, width > 60 ? width - 60 : 0, scrollBarHeight};
  // As high as what is seen of it, so that all of its depths can be dragged to.
  const double seen = layout.scrollBar.top - layout.axisContainer.top;
  // A plan that fills the window needs no more than what is seen.
  const double seenWidth = layout.mainContainer.width > kPlotPlaceX ? layout.mainContainer.width - kPlotPlaceX : 0;
  layout.grid = {0, 0, (view.fitPlan ? seenWidth : 2 * width) * view.timeZoom, seen > 0 ? seen : 0};
  layout.scrollMaximum = layout.grid.width - (view.fitPlan ? seenWidth : layout.axisContainer.width - 870);
  layout.largeChange = layout.grid.width / 5;
  layout.smallChange = layout.grid.width / 10;
  return layout;
}

/// Where the scroll bar must stand after the plot became `factor` times as wide, for the point at `x` of the plot, so
/// far scrolled by `scroll`, to stay where it is on the screen.
inline double ScrollKeeping(double x, double scroll, double factor) { return x * factor - (x - scroll); }

}  // namespace tav
