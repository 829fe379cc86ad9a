#include "pages/wrapped_text.h"

#include <algorithm>
#include <string_view>

#include "model/utf8.h"
#include "pages/page_units.h"

namespace tav {
namespace {

constexpr std::string_view kDots = "\u2026";

}  // namespace

std::vector<std::string> WrappedText(const std::string& text, double width, const TextFont& font,
                                     const ArialMeasure& measure) {
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

std::string FittedText(const std::string& text, double width, const TextFont& font, const ArialMeasure& measure) {
  const auto fits = [&](const std::string& part) { return measure.TextWidth(part, font) <= width * page::kUnitsPerCm; };
  if (fits(text)) return text;
  std::vector<std::size_t> letters;  // where each begins: one of several bytes goes as a whole
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (BeginsLetter(text[i])) letters.push_back(i);
  }
  for (std::size_t kept = letters.size(); kept-- > 1;) {
    const std::size_t ahead = kept / 2;
    std::string part = text.substr(0, letters[ahead]);
    part.append(kDots).append(text, letters[letters.size() - (kept - ahead)]);
    if (fits(part)) return part;
  }
  return std::string(kDots);
}

}  // namespace tav
