#pragma once

#include <string>

namespace tav {

enum class BoxIcon { None, Stop, Exclamation, Question, Information };
enum class BoxButtons { OK, OKCancel, YesNo, YesNoCancel };
enum class BoxAnswer { OK, Cancel, Yes, No };

/// What it means to close a box without a button: the way out that changes nothing.
constexpr BoxAnswer DismissedAnswer(BoxButtons buttons) {
  if (buttons == BoxButtons::OK) return BoxAnswer::OK;
  return buttons == BoxButtons::YesNo ? BoxAnswer::No : BoxAnswer::Cancel;
}

/// A check box within a message box.
struct BoxCheck {
  std::string caption;
  bool ticked = false;
};

/// What the three buttons of a question say, where Yes and No would not tell what they do.
struct BoxChoices {
  std::string yes;
  std::string no;
  std::string cancel;  ///< changes nothing
};

/// Modal message boxes.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  /// Shows a box and waits for the user's answer. A box closed without a button answers DismissedAnswer.
  virtual BoxAnswer Show(const std::string& text, const std::string& title, BoxIcon icon, BoxButtons buttons) = 0;
  /// The same with a check box in it, whose state comes back. Where nobody sees the box it is not ticked.
  virtual BoxAnswer ShowWithCheck(const std::string& text, const std::string& title, BoxIcon icon, BoxButtons buttons,
                                  BoxCheck& check) {
    check.ticked = false;
    return Show(text, title, icon, buttons);
  }
  /// A question whose answers are told in words: Yes, No or Cancel.
  virtual BoxAnswer ShowWithChoices(const std::string& text, const std::string& title, BoxIcon icon,
                                    const BoxChoices& /*choices*/) {
    return Show(text, title, icon, BoxButtons::YesNoCancel);
  }
};

}  // namespace tav
