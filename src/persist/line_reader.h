#pragma once

#include <optional>
#include <string_view>

namespace tav {

/// Whether a line is this marker; blanks and tabs may stand behind it.
inline bool IsMarker(std::optional<std::string_view> line, std::string_view marker) {
  return line && line->substr(0, line->find_last_not_of(" \t") + 1) == marker;
}

/// Hands out the lines of a text, one by one. Lines end in CR LF or LF; the last may have no end.
class LineReader {
 public:
  /// `text` must outlive the reader.
  explicit LineReader(std::string_view text) : rest_(text) {}

  /// Number of the line that was read last, from 1; 0 before the first.
  [[nodiscard]] int LineNumber() const { return number_; }

  /// The next line without its end; nothing when the text is used up.
  std::optional<std::string_view> Next() {
    if (rest_.empty()) return std::nullopt;
    const std::size_t end = rest_.find('\n');
    std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    ++number_;
    return line;
  }

  /// Passes over lines of blanks; true when the text is used up behind them.
  bool SkipBlankLines() {
    while (!rest_.empty()) {
      const std::size_t end = rest_.find('\n');
      if (rest_.substr(0, end).find_first_not_of(" \t\r") != std::string_view::npos) return false;
      rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
      ++number_;
    }
    return true;
  }

 private:
  std::string_view rest_;
  int number_ = 0;
};

}  // namespace tav
