#pragma once

#include <string>
#include <string_view>

namespace tav {

/// The bytes of a control character at a place in a UTF-8 text, which a terminal could take for a command: those of
/// ASCII and U+0080 to U+009F. 0 for any other character.
inline std::size_t ControlAt(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
  if (byte(at) < 0x20 || byte(at) == 0x7F) return 1;
  return byte(at) == 0xC2 && byte(at + 1) >= 0x80 && byte(at + 1) < 0xA0 ? 2 : 0;
}

inline bool HasControl(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (ControlAt(text, i) > 0) return true;
  }
  return false;
}

/// "?" in place of each control character, for messages.
inline std::string WithoutControl(std::string_view text) {
  std::string clean;
  clean.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t bytes = ControlAt(text, i);
    clean += bytes > 0 ? '?' : text[i];
    if (bytes > 1) i += bytes - 1;
  }
  return clean;
}

}  // namespace tav
