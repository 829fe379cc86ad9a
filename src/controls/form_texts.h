#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "controls/controls.h"
#include "model/number_texts.h"
#include "platform/platform.h"
#include "platform/text_source.h"

namespace tav {

/// Short ways of a form, and of a part of one, to texts by number, to boxes and
/// to numbers as the user writes them.
class FormTexts {
 protected:
  FormTexts(Platform platform, const TextSource& texts)
      : platform_(std::move(platform)), texts_(texts), numbers_(platform_.separators) {}

  [[nodiscard]] std::string T(int id) const { return texts_.GetResString(id); }
  /// The same with "%1", "%2", ... filled in.
  [[nodiscard]] std::string T(int id, std::initializer_list<std::string> values) const {
    return texts_.Filled(id, values);
  }
  [[nodiscard]] std::string T(const Message& message) const { return texts_.Words(message); }
  BoxAnswer Box(const std::string& text, const std::string& title, BoxIcon icon, BoxButtons buttons = BoxButtons::OK) {
    return platform_.boxes.Show(text, title, icon, buttons);
  }
  /// The caption of a field without its colon, to name the field in a sentence.
  [[nodiscard]] static std::string FieldName(const Label& label) {
    const std::string_view caption = label.Caption.Get();
    return std::string(TrimBlanks(caption.ends_with(':') ? caption.substr(0, caption.size() - 1) : caption));
  }
  /// The number in a text as the user writes numbers; nothing for a text that
  /// is none.
  [[nodiscard]] std::optional<double> NumberIn(const std::string& text) const { return numbers_.Read(text); }
  /// The same as it is stored; 0 for a text that is no number.
  [[nodiscard]] Single Number(const std::string& text) const { return NumberIn(text).value_or(0); }
  /// Number text with the user's decimal separator; `NumberIn` reads it back.
  [[nodiscard]] std::string Written(const std::string& number) const { return numbers_.Written(number); }
  [[nodiscard]] std::string Fixed(Single value, int decimals) const { return numbers_.Fixed(value, decimals); }
  [[nodiscard]] std::string Plain(Single value) const { return numbers_.Plain(value); }

  Platform platform_;
  const TextSource& texts_;
  NumberTexts numbers_;
};

}  // namespace tav
