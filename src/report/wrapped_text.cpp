#include "report/wrapped_text.h"

#include <algorithm>

#include "report/page_units.h"

namespace tav {

std::vector<std::string> WrappedText(const std::string& text, double width, const TextFont& font,
                                     const TextMeasure& measure) {
  std::vector<std::string> lines(1);
  for (std::size_t from = 0; from < text.size();) {
    const std::size_t blank = std::min(text.find(' ', from), text.size());
    const std::string word = text.substr(from, blank - from);
    from = blank + 1;
    std::string& line = lines.back();
    std::string longer = line;
    if (!longer.empty()) longer += ' ';
    longer += word;
    if (line.empty() || measure.TextWidth(longer, font) <= width * page::kUnitsPerCm) {
      line = longer;
    } else {
      lines.push_back(word);
    }
  }
  return lines;
}

std::string FittedText(const std::string& text, double width, const TextFont& font, const TextMeasure& measure) {
  const auto fits = [&](const std::string& part) { return measure.TextWidth(part, font) <= width * page::kUnitsPerCm; };
  if (fits(text)) return text;
  std::string part = text;
  while (!part.empty() && !fits(part + "\u2026")) {
    // A letter of several bytes goes as a whole.
    do {
      const bool continuation = (static_cast<unsigned char>(part.back()) & 0xC0U) == 0x80U;
      part.pop_back();
      if (!continuation) break;
    } while (!part.empty());
  }
  return part + "\u2026";
}

}  // namespace tav
