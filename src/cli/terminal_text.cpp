#include "cli/terminal_text.h"

namespace tav {

std::string Right(const std::string& text, std::size_t width) {
  return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}

std::string Left(const std::string& text, std::size_t width) {
  return text.size() < width ? text + std::string(width - text.size(), ' ') : text;
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
