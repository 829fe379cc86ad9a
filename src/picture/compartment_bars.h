#pragma once

#include <string>

#include "model/profile.h"
#include "platform/drawing_surface.h"

namespace tav {

/// Draws the 16 compartments of a row as bars with a title: a third of the height is the surfacing limit; green up to
/// it, orange up to twice, red up to three times. More is drawn as three times; the number tells it all.
void ShowCompartmentLoad(DrawingSurface& surface, const Compartments& loads, const std::string& title);

}  // namespace tav
