#pragma once

#include <vector>

#include "engine/dive_moment.h"
#include "picture/graph_colours.h"
#include "picture/graph_scale.h"
#include "platform/drawing_surface.h"

namespace tav {

/// The ceiling over time on the plot, in pieces: each from the moment before it leaves the surface to the one when it
/// is back. Corners that lie on a line with their neighbours, but for half a pixel, are left out.
std::vector<std::vector<SurfacePoint>> CeilingCurves(const std::vector<DiveMoment>& moments, const GraphScale& scale);

/// Shades the depths above the ceiling, with a line along it.
void DrawCeiling(DrawingSurface& surface, const std::vector<DiveMoment>& moments, const GraphScale& scale,
                 const graph::Scheme& colours);

}  // namespace tav
