#include "model/text_columns.h"

#include <algorithm>

#include "model/utf8.h"

namespace tav {
namespace {

std::string Blanks(const std::string& text, std::size_t width) {
  const std::size_t letters = Letters(text);
  std::string blanks;
  if (letters < width) blanks.append(width - letters, ' ');
  return blanks;
}

}  // namespace

std::string AtLeft(std::string text, std::size_t width) { return text += Blanks(text, width); }

std::string AtRight(const std::string& text, std::size_t width) { return Blanks(text, width) + text; }

std::string Wrapped(const std::string& text, std::size_t indent, std::size_t width) {
  std::string lines;
  std::string rest = text;
  while (Letters(rest) > width) {
    const std::size_t end = StartOfLetter(rest, width);
    std::size_t blank = rest.rfind(' ', end);
    if (blank == std::string::npos || blank <= StartOfLetter(rest, indent)) blank = rest.find(' ', end);
    if (blank == std::string::npos) break;
    lines += rest.substr(0, blank) + "\n";
    rest = std::string(indent, ' ') + rest.substr(blank + 1);
  }
  return lines + rest + "\n";
}

void TextColumns::Fit(std::span<const std::string> row) {
  for (std::size_t i = 0; i < columns_.size(); ++i) columns_[i].width = std::max(columns_[i].width, Letters(row[i]));
}

std::string TextColumns::Line(std::span<const std::string> row) const {
  std::string line;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const auto& [side, width, gap] = columns_[i];
    line.append(gap, ' ');
    line += side == Column::Side::Left ? AtLeft(row[i], width) : AtRight(row[i], width);
  }
  line.resize(line.find_last_not_of(' ') + 1);
  return line + "\n";
}

}  // namespace tav
