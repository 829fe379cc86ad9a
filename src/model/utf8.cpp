#include "model/utf8.h"

#include <algorithm>

namespace tav {

std::size_t Letters(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(text, BeginsLetter));
}

std::size_t StartOfLetter(std::string_view text, std::size_t letter) {
  std::size_t at = 0;
  while (at < text.size() && (!BeginsLetter(text[at]) || letter-- > 0)) ++at;
  return at;
}

std::uint32_t NextLetter(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint32_t>(static_cast<unsigned char>(text[i])); };
  const std::uint32_t first = byte(at++);
  const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
  std::uint32_t letter = more == 0 ? first : first & (0x3FU >> static_cast<unsigned>(more));
  for (int i = 0; i < more && at < text.size() && !BeginsLetter(text[at]); ++i) {
    letter = letter << 6U | (byte(at++) & 0x3FU);
  }
  return letter;
}

}  // namespace tav
