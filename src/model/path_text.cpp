#include "model/path_text.h"

namespace tav {

std::string SplitPath(std::string_view path, PathPart mode) {
  const std::size_t driveLength = path.size() > 1 && path[1] == ':' ? 2 : 0;
  const std::size_t separator = path.find_last_of("/\\");
  const std::size_t name = separator == std::string_view::npos ? driveLength : separator + 1;
  const std::string_view fileName = path.substr(name);
  switch (mode) {
    case PathPart::FileName:
      return std::string(fileName);
    case PathPart::DriveFolder:
      return std::string(path.substr(0, name));
    case PathPart::Extension: {
      const std::size_t point = fileName.rfind('.');
      if (point == std::string_view::npos || fileName.size() - point < 2 || fileName.size() - point > 4) return {};
      return std::string(fileName.substr(point));
    }
    case PathPart::Drive:
      return std::string(path.substr(0, driveLength));
  }
  return {};
}

}  // namespace tav
