#include "cli/terminal_text.h"

#include <algorithm>

namespace tav {

std::size_t CharacterCount(std::string_view text) {
  const auto begins = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), begins));
}

std::string Right(const std::string& text, std::size_t width) {
  const std::size_t length = CharacterCount(text);
  return length < width ? std::string(width - length, ' ') + text : text;
}

std::string Left(const std::string& text, std::size_t width) {
  const std::size_t length = CharacterCount(text);
  return length < width ? text + std::string(width - length, ' ') : text;
}

std::string Wrapped(const std::string& text, std::size_t indent) {
  std::string lines;
  std::string rest = text;
  while (rest.size() > kLineWidth) {
    std::size_t blank = rest.rfind(' ', kLineWidth);
    if (blank == std::string::npos || blank <= indent) blank = rest.find(' ', kLineWidth);
    if (blank == std::string::npos) break;
    lines += rest.substr(0, blank) + "\n";
    rest = std::string(indent, ' ') + rest.substr(blank + 1);
  }
  return lines + rest + "\n";
}

}  // namespace tav
