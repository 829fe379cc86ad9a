#pragma once

#include <exception>
#include <initializer_list>
#include <string>

#include "model/message.h"
#include "model/not_copied.h"

namespace tav {

/// The texts of the user interface, by number. Without a language table every text is its placeholder.
class TextSource : NotCopied {
 public:
  virtual ~TextSource() = default;

  /// The text of an ID; "*StringID 1234*" for one that has none, so that a gap shows on the screen and is no error.
  [[nodiscard]] virtual std::string GetResString(int id) const { return "*StringID " + std::to_string(id) + "*"; }

  /// The same with "%1" to "%9" filled in; what is filled in is not looked at again.
  [[nodiscard]] std::string Filled(int id, std::initializer_list<std::string> values) const;

  /// A message in words.
  [[nodiscard]] std::string Words(const Message& message) const;
  /// Why something failed: the place and the words of a MessageError, what() of every other.
  [[nodiscard]] std::string Words(const std::exception& error) const;
};

}  // namespace tav
