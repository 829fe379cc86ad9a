#pragma once

#include "platform/text_font.h"

namespace tav {

/// Widths of "Arial" (the same as Liberation Sans and Helvetica) from a table, so that pages are laid out alike on
/// every machine, with or without fonts. Other faces are measured as Arial; letters that the table lacks as a digit.
class ArialMeasure {
 public:
  /// In 1/1440 inch, without the rounding of a screen's pixels.
  [[nodiscard]] double TextWidth(const std::string& text, const TextFont& font) const;
};

}  // namespace tav
