#include "pages/arial_measure.h"

#include <algorithm>

#include "model/utf8.h"
#include "pages/arial_widths.h"

namespace tav {
namespace {

std::uint32_t Width(std::uint32_t letter, bool bold) {
  const auto* const block = std::ranges::find_if(
      arial::kBlocks, [&](const arial::Block& known) { return letter >= known.first && letter <= known.last; });
  if (block == arial::kBlocks.end()) return arial::kDigit;
  return (bold ? arial::kBold : arial::kRegular)[block->at + letter - block->first];
}

}  // namespace

double ArialMeasure::TextWidth(const std::string& text, const TextFont& font) const {
  constexpr double kUnitsPerPoint = 20;
  std::uint32_t width = 0;
  for (std::size_t at = 0; at < text.size();) width += Width(NextLetter(text, at), font.bold);
  return width * font.points * kUnitsPerPoint / arial::kEm;
}

}  // namespace tav
