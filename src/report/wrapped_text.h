#pragma once

#include <string>
#include <vector>

#include "platform/text_font.h"

namespace tav {

/// A text in lines of at most `width` cm, broken at blanks; a word that is wider has a line of its own.
std::vector<std::string> WrappedText(const std::string& text, double width, const TextFont& font,
                                     const TextMeasure& measure);

}  // namespace tav
