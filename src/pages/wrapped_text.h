#pragma once

#include <string>
#include <vector>

#include "pages/arial_measure.h"

namespace tav {

/// A text in lines of at most `width` cm, broken at blanks; a word that is wider has a line of its own.
std::vector<std::string> WrappedText(const std::string& text, double width, const TextFont& font,
                                     const ArialMeasure& measure);

/// The text, or as much of it as `width` cm hold with three dots in its middle: names of gases often differ at their
/// end alone, "Bottom Tx18/45" and "Bottom Tx15/55".
std::string FittedText(const std::string& text, double width, const TextFont& font, const ArialMeasure& measure);

}  // namespace tav
