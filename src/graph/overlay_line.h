#pragma once

#include <vector>

#include "picture/graph_scale.h"
#include "picture/profile_plot.h"
#include "platform/drawing_surface.h"

namespace tav {

/// A place in a plot of depth over run time.
struct PlotPoint {
  Single runTime;  ///< minutes
  Single depth;    ///< depth units
  friend bool operator==(const PlotPoint& a, const PlotPoint& b) {
    return a.runTime == b.runTime && a.depth == b.depth;
  }
};

/// Draws a line over a plot in dashes of its own colour.
void DrawOverlayLine(DrawingSurface& grid, const GraphScale& scale, const std::vector<PlotPoint>& line);

/// How far a plot must reach for a line beside its rows.
ProfilePlot::Reach Including(const std::vector<PlotPoint>& line, const ClassProfile& rows, ProfilePlot::Reach reach);

}  // namespace tav
