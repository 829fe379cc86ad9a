#pragma once

#include <string>

namespace tav {

/// A font of drawn text. "Arial" is drawn in a face of the same widths where it is not installed.
struct TextFont {
  std::string name = "Arial";
  double points = 8.25;  ///< 1/72 inch
  bool bold = false;
  friend bool operator==(const TextFont&, const TextFont&) = default;
};

/// Widths of text apart from any surface, without the rounding of a screen's pixels.
class TextMeasure {
 public:
  TextMeasure() = default;
  TextMeasure(const TextMeasure&) = delete;
  TextMeasure& operator=(const TextMeasure&) = delete;
  virtual ~TextMeasure() = default;

  /// In 1/1440 inch.
  [[nodiscard]] virtual double TextWidth(const std::string& text, const TextFont& font) const = 0;
};

}  // namespace tav
