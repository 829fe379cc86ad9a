#pragma once

#include <string>
#include <vector>

#include "engine/dive_moment.h"
#include "picture/graph_scale.h"
#include "platform/drawing_surface.h"

namespace tav {

/// The colour of a load by its share of the M-value, 0 to 1: dark blue to yellow, equally readable with any kind of
/// colour vision and on a printer without colours.
/// Source: J. R. Nunez, C. R. Anderson, R. S. Renslow, "Optimizing colormaps with consideration for color vision
/// deficiency", 2018.
Colour ColourOfLoad(double share);

struct TissueMapView {
  double left = 0;    ///< where the plot above begins
  double scroll = 0;  ///< how far it is scrolled
  std::string title;
  std::string overTitle;  ///< of the hatched loads
  Colour around;
};

/// Draws the loads of the 16 compartments over the time of the plot above: one row for each, the fastest on top,
/// coloured by the share of the M-value at the depth of the moment. Loads of 100 % and more are hatched, white on
/// black. Above the rows stand the title and the legend, as far as there is room.
void DrawTissueMap(DrawingSurface& surface, const std::vector<DiveMoment>& moments, const GraphScale& scale,
                   const TissueMapView& view);

}  // namespace tav
