#include "cli/terminal_text.h"

#include "model/utf8.h"

namespace tav {

std::string Wrapped(const std::string& text, std::size_t indent) {
  std::string lines;
  std::string rest = text;
  while (Letters(rest) > kLineWidth) {
    const std::size_t end = StartOfLetter(rest, kLineWidth);
    std::size_t blank = rest.rfind(' ', end);
    if (blank == std::string::npos || blank <= StartOfLetter(rest, indent)) blank = rest.find(' ', end);
    if (blank == std::string::npos) break;
    lines += rest.substr(0, blank) + "\n";
    rest = std::string(indent, ' ') + rest.substr(blank + 1);
  }
  return lines + rest + "\n";
}

}  // namespace tav
