#pragma once

#include <string>
#include <vector>

#include "advice/margins.h"
#include "platform/file_picture.h"

namespace tav {

/// The map of margins with its heads, lines of equal run time, legend and notes.
FilePicture MarginPicture(const std::string& plan, const Margins& margins, const MarginGrid& grid,
                          const std::vector<MarginCell>& cells, const AdviceWords& words);

}  // namespace tav
