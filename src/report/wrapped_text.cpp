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

}  // namespace tav
