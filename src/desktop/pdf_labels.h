#pragma once

#include <string>

namespace tav {

/// A PDF file with page labels 1, 2, 3, ... and its title in the title bar of the viewer, added as an incremental
/// update (ISO 32000-1, 7.5.6). A file whose parts are not found where they should be comes back as it was.
std::string WithPageLabels(std::string pdf);

}  // namespace tav
