#pragma once

#include <filesystem>

namespace tav {

/// The folder of the sources, where templates, dives, languages and test data lie.
std::filesystem::path SourceFolder();

}  // namespace tav
