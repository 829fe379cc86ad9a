#pragma once

#include <string>
#include <string_view>

namespace tav {

enum class PathPart {
  FileName = 1,     ///< file name with extension
  DriveFolder = 2,  ///< drive and folder, with the trailing separator
  Extension = 3,    ///< a point and one to three characters
  Drive = 4,        ///< a letter and ":"
};

/// A part of a path. Both "/" and "\" separate folders, so that a path kept on another system still splits.
std::string SplitPath(std::string_view path, PathPart mode);

}  // namespace tav
