#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// The letters of UTF-8 texts.
namespace tav {

/// Whether a byte begins a letter; all others continue one.
constexpr bool BeginsLetter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

/// How many letters a text has; its bytes may be more.
std::size_t Letters(std::string_view text);

/// The byte at which a letter begins, counted from 0; the size of a text that has no more than so many.
std::size_t StartOfLetter(std::string_view text, std::size_t letter);

/// The first letters of a text, so many at most and each of them whole.
inline std::string_view FirstLetters(std::string_view text, std::size_t letters) {
  return text.substr(0, StartOfLetter(text, letters));
}

/// The code point that starts at `at`, which moves behind it. A byte that begins none counts as itself.
std::uint32_t NextLetter(std::string_view text, std::size_t& at);

}  // namespace tav
