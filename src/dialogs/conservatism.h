#pragma once

#include "dialogs/dialog_form.h"

namespace tav {

/// Gradient factors and the depth adjustment of a plan.
class frmConservatism : public DialogForm {
 public:
  explicit frmConservatism(const DialogServices& services);

  CheckBox Check1{*this, "Check1"};  ///< gradient factors are on
  Label Label1{*this, "Label1"};
  TextBox Text1{*this, "Text1"};  ///< low factor, at the first stop
  Label Label2{*this, "Label2"};
  TextBox Text2{*this, "Text2"};        ///< high factor, at the surface
  Label lbExample{*this, "lbExample"};  ///< how a factor may be written
  CheckBox Check2{*this, "Check2"};     ///< depths are adjusted
  Label Label3{*this, "Label3"};
  Label Label4{*this, "Label4"};
  Button cbOK{*this, "cbOK"};
  Button cbCancel{*this, "cbCancel"};

  void cbOK_Click();

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void fillGradient();
  /// The factor in a field, to a hundredth: a number from 2 on is per cent. 0 for text that is no number.
  [[nodiscard]] Single Factor(const TextBox& field) const;
  [[nodiscard]] bool ConfirmHighFactor(Single low, Single high);

  std::int16_t documentIndex_ = 0;
  bool formerUseGF_ = false;
  bool taken_ = false;  ///< what was entered is in force
  // A factor that nobody typed keeps what the field does not show of it.
  bool lowEntered_ = false;
  bool highEntered_ = false;
};

}  // namespace tav
