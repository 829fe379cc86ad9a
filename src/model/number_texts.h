#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "model/number_text.h"

namespace tav {

/// Numbers as their user writes them; with a point unless told otherwise.
class NumberTexts {
 public:
  NumberTexts() = default;
  NumberTexts(LocaleSeparators separators) : separators_(std::move(separators)) {}
  NumberTexts(std::string decimal, std::string thousand) : separators_{std::move(decimal), std::move(thousand)} {}

  /// The number in a text; nothing for a text that is none.
  [[nodiscard]] std::optional<double> Read(std::string_view text) const { return ParseLocaleNumber(text, separators_); }
  /// A number text of files with the user's decimal separator.
  [[nodiscard]] std::string Written(std::string_view number) const { return WriteLocaleNumber(number, separators_); }
  [[nodiscard]] std::string Fixed(Single value, int decimals) const { return Written(FormatFixed(value, decimals)); }
  [[nodiscard]] std::string Plain(Single value) const { return Written(FormatPlain(value)); }
  /// One decimal where there is one: "22.5", "30".
  [[nodiscard]] std::string Short(Single value) const {
    const std::string text = FormatFixed(value, 1);
    return Written(std::string_view(text).substr(0, text.size() - (text.ends_with(".0") ? 2 : 0)));
  }
  [[nodiscard]] const LocaleSeparators& Separators() const { return separators_; }

 private:
  LocaleSeparators separators_;
};

}  // namespace tav
