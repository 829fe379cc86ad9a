#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

/// Text in columns of letters that are all of one width.
namespace tav {

/// The text filled with blanks behind it, or ahead of it, up to a width in letters; a longer one stays as it is.
std::string AtLeft(std::string text, std::size_t width);
std::string AtRight(const std::string& text, std::size_t width);

/// A text in lines of a width in letters, broken at blanks, each with its end; the later ones are indented by so many
/// blanks. A word that is wider than a line is not broken.
std::string Wrapped(const std::string& text, std::size_t indent, std::size_t width);

/// A table of texts: each column is as wide as its longest text.
class TextColumns {
 public:
  struct Column {
    enum class Side { Left, Right };
    Side side = Side::Left;  ///< where its texts stand
    std::size_t width = 0;   ///< letters, at least
    std::size_t gap = 2;     ///< blanks ahead of it
  };
  explicit TextColumns(std::vector<Column> columns) : columns_(std::move(columns)) {}

  /// Makes room for a row, which has a text for each column.
  void Fit(std::span<const std::string> row);
  /// The row as a line with its end, without blanks at it.
  [[nodiscard]] std::string Line(std::span<const std::string> row) const;

 private:
  std::vector<Column> columns_;
};

}  // namespace tav
