#pragma once

#include <string>

namespace tav {

enum class BoxIcon { None, Stop, Exclamation, Question, Information };
enum class BoxButtons { OK, OKCancel, YesNoCancel };
enum class BoxAnswer { OK, Cancel, Yes, No };

/// Modal message boxes.
class MessageBoxes {
 public:
  MessageBoxes() = default;
  MessageBoxes(const MessageBoxes&) = delete;
  MessageBoxes& operator=(const MessageBoxes&) = delete;
  virtual ~MessageBoxes() = default;

  /// Shows a box and waits for the user's answer. A box closed without a button answers Cancel, or OK where there is
  /// no other button.
  virtual BoxAnswer Show(const std::string& text, const std::string& title, BoxIcon icon, BoxButtons buttons) = 0;
};

}  // namespace tav
