#pragma once

#include <string>

namespace tav {

class Clipboard {
 public:
  virtual ~Clipboard() = default;

  /// The text on it; empty without one.
  [[nodiscard]] virtual std::string Text() const = 0;
  virtual void SetText(const std::string& text) = 0;
};

}  // namespace tav
