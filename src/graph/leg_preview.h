#pragma once

#include "model/dive_template.h"
#include "picture/graph_scale.h"
#include "platform/drawing_surface.h"

namespace tav {

/// Draws a leg as it would be planned, from one point of the plot to another: the move at the rates of the template,
/// with a circle at each limit of a band, then the level stretch. What is drawn twice in exclusive-or mode is gone.
void DrawSegmentedLine(DrawingSurface& surface, const GraphScale& scale, const DiveTemplate& diveTemplate,
                       ScreenPoint from, ScreenPoint to);

}  // namespace tav
