#pragma once

#include <cstdint>
#include <optional>

#include "dialogs/dialog_form.h"

namespace tav {

/// Adds a repetitive dive after a surface interval of hours and minutes, behind the dive that was active when the
/// dialog opened. It stays open beside the plans: by the time of OK that dive may be closed, changed or followed by
/// another one; then a message says so, and nothing is added.
class frmMultiLevel : public DialogForm {
 public:
  explicit frmMultiLevel(const DialogServices& services);

  Frame Frame1{*this, "Frame1"};
  Label Label1{*this, "Label1"};
  TextBox tbHours{*this, "tbHours"};
  Label Label2{*this, "Label2"};
  TextBox tbMinutes{*this, "tbMinutes"};
  CheckBox cbIntervalOnAir{*this, "cbIntervalOnAir"};  ///< on a rebreather
  Button Command1{*this, "Command1"};                  ///< cancel
  Button Command2{*this, "Command2"};                  ///< OK

  void Command2_Click();

 protected:
  void Form_Load() override;

 private:
  [[nodiscard]] bool CanAdd() const;

  std::optional<OpenedDocument> dive_;
};

}  // namespace tav
