#pragma once

#include <string>
#include <vector>

#include "platform/text_font.h"

namespace tav {

/// A text in lines of at most `width` cm, broken at blanks; a word that is wider has a line of its own.
std::vector<std::string> WrappedText(const std::string& text, double width, const TextFont& font,
                                     const TextMeasure& measure);

/// The text, or as much of it as `width` cm hold with three dots behind it.
std::string FittedText(const std::string& text, double width, const TextFont& font, const TextMeasure& measure);

}  // namespace tav
