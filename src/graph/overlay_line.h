#pragma once

#include <string>
#include <vector>

#include "picture/graph_scale.h"
#include "picture/profile_plot.h"
#include "platform/drawing_surface.h"

namespace tav {

/// The rows of a dive; empty without any behind the start.
std::vector<PlotPoint> LineOf(const ClassProfile& rows);

/// A plan that is kept for comparison.
struct KeptLine {
  std::vector<PlotPoint> line;
  std::string name;
  friend bool operator==(const KeptLine&, const KeptLine&) = default;
};

/// Draws a line over a plot in dashes.
void DrawOverlayLine(DrawingSurface& grid, const GraphScale& scale, const std::vector<PlotPoint>& line, Colour colour);
/// The same in dots.
void DrawDottedLine(DrawingSurface& grid, const GraphScale& scale, const std::vector<PlotPoint>& line, Colour colour);
/// Draws plans behind the one of a plot in finer dashes, each in a muted colour of its own, with their names in these
/// colours in a row below the plot. The colours repeat after the last one.
void DrawKeptLines(DrawingSurface& grid, const GraphScale& scale, const std::vector<KeptLine>& kept,
                   const graph::Scheme& colours);

}  // namespace tav
