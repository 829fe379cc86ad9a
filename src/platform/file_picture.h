#pragma once

#include <functional>
#include <string>

#include "platform/drawing_surface.h"

namespace tav {

/// A picture for a file of its own.
struct FilePicture {
  int width = 0;  ///< pixels of a screen of 96 to the inch
  int height = 0;
  std::string title;
  std::string description;  ///< for those who do not see it
  std::function<void(DrawingSurface& surface)> draw;
};

}  // namespace tav
