#pragma once

#include <optional>
#include <string>

#include "platform/colour.h"

namespace tav {

/// A cell of a table as it is shown.
struct GridCell {
  std::string text;
  Colour colour = -1;
  bool bold = false;
  bool italic = false;
  std::string spoken = {};        ///< what a screen reader says in place of the text; empty for the text itself
  std::string fault = {};         ///< why what the cell holds can't be: it is marked, and this is its tool tip
  std::optional<bool> tick = {};  ///< a box to tick stands ahead of the text
  std::string tip = {};           ///< tool tip of a result; empty for the text itself
  Colour fill = -1;               ///< of the ground of a result, for which its text has the right colour
  friend bool operator==(const GridCell&, const GridCell&) = default;
};

}  // namespace tav
