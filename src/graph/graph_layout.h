#pragma once

#include "graph/profile_plot.h"

namespace tav {

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
  GraphRect compartments;
  GraphRect scrollBar;
  double scrollMaximum = 0;
  double largeChange = 0;
  double smallChange = 0;
};

/// The layout of a window of that size, with a scroll bar of that height. `timeZoom` of 1 or more stretches the time.
inline GraphLayout LayOutGraph(double width, double height, double scrollBarHeight, double timeZoom) {
  GraphLayout layout;
  layout.mainContainer = {0, 0, width > 20 ? width - 20 : width, 3 * height / 4};
  layout.axisContainer = {kPlotPlaceX, kPlotPlaceY, width, height};
  // The bars begin where the scroll bar ends, so that their title is not covered.
  layout.compartments = {0, 3 * height / 4 - 45, width - 100, height / 4 - 300};
  layout.scrollBar = {0, 3 * height / 4 - scrollBarHeight - 45, width > 60 ? width - 60 : 0, scrollBarHeight};
  // As high as what is seen of it, so that all of its depths can be dragged to.
  const double seen = layout.scrollBar.top - layout.axisContainer.top;
  layout.grid = {0, 0, 2 * width * timeZoom, seen > 0 ? seen : 0};
  layout.scrollMaximum = layout.grid.width - layout.axisContainer.width + 870;
  layout.largeChange = layout.grid.width / 5;
  layout.smallChange = layout.grid.width / 10;
  return layout;
}

/// Where the scroll bar must stand after the plot became `factor` times as wide, for the point at `x` of the plot, so
/// far scrolled by `scroll`, to stay where it is on the screen.
inline double ScrollKeeping(double x, double scroll, double factor) { return x * factor - (x - scroll); }

}  // namespace tav
