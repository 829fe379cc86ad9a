#pragma once

#include <string>
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

/// A plan that is kept for comparison.
struct KeptLine {
  std::vector<PlotPoint> line;
  std::string name;
  friend bool operator==(const KeptLine&, const KeptLine&) = default;
};

/// Draws a line over a plot in dashes of its own colour.
void DrawOverlayLine(DrawingSurface& grid, const GraphScale& scale, const std::vector<PlotPoint>& line);
/// Draws plans behind the one of a plot in finer dashes, each in a muted colour of its own, with their names in these
/// colours in a row below the plot. The colours repeat after the last one.
void DrawKeptLines(DrawingSurface& grid, const GraphScale& scale, const std::vector<KeptLine>& kept);

/// How far a plot must reach for points beside its rows.
ProfilePlot::Reach Including(const std::vector<PlotPoint>& points, const ClassProfile& rows, ProfilePlot::Reach reach);

}  // namespace tav
