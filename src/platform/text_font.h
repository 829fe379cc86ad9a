#pragma once

#include <string>

namespace tav {

/// A font of drawn text. "Arial" is drawn in a face of the same widths where it is not installed.
struct TextFont {
  std::string name = "Arial";
  double points = 8.25;  ///< 1/72 inch
  bool bold = false;
  friend bool operator==(const TextFont&, const TextFont&) = default;
};

}  // namespace tav
