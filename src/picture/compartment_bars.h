#pragma once

#include <string>

#include "model/profile.h"
#include "platform/drawing_surface.h"

namespace tav {

/// How high the bars are below a graph of that height: a tenth of it for the columns, and the rows of letters above and
/// below them. Drawing units.
constexpr double HeightOfBars(double graph) { return graph / 10 + 550; }

/// Draws the 16 compartments of a row as bars with a title and a line at the surfacing limit, 100 %. That is the top
/// of the columns, as long as no load is above it; else they reach to twice or three times as much. Green up to the
/// limit, orange up to twice, red up to three times. More is drawn as three times; the number tells it all.
void ShowCompartmentLoad(DrawingSurface& surface, const Compartments& loads, const std::string& title, Colour around);

}  // namespace tav
