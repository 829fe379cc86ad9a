#include "support/source_folder.h"

namespace tav {

std::filesystem::path SourceFolder() { return TAV_SOURCE_DIR; }

}  // namespace tav
