#pragma once

#include <string>
#include <vector>

#include "advice/margins.h"
#include "platform/drawing_surface.h"

namespace tav {

/// The map of margins with its heads, lines of equal run time, legend and notes, over the whole of a surface.
void DrawMargins(DrawingSurface& surface, const std::string& plan, const Margins& margins, const MarginGrid& grid,
                 const std::vector<MarginCell>& cells, const AdviceWords& words);

}  // namespace tav
