#pragma once

#include <cstdint>
#include <optional>

#include "dialogs/dialog_form.h"

namespace tav {

/// A form that stands beside the graphs and follows the plan in front. Its title is the caption.
class PaneForm : public DialogForm {
 public:
  /// The plan in front is another one, or has changed; nothing when none is open. Only called while the pane is shown.
  virtual void ShowDocument(std::optional<std::int16_t> document) = 0;
  /// A row of the profile of the plan in front was selected elsewhere.
  virtual void SelectRow(std::int16_t /*row*/) {}
  /// Stores what is being entered, ahead of a command.
  virtual void Finish() {}
  /// The pane is shown no more.
  virtual void Hidden() {}
  /// Where the keyboard starts.
  virtual void TakeFocus() {}

 protected:
  using DialogForm::DialogForm;
};

}  // namespace tav
