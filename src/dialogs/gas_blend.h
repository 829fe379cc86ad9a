#pragma once

#include "dialogs/dialog_form.h"

namespace tav {

/// Adds a gas of three whole percentages to a template. Their sum stays 100: nitrogen is always the rest.
class frmGasBlend : public DialogForm {
 public:
  explicit frmGasBlend(const DialogServices& services);

  Label lbBlendName{*this, "lbBlendName"};
  TextBox tbBlendName{*this, "tbBlendName"};
  Label lbO2{*this, "lbO2"};
  TextBox tbO2{*this, "tbO2"};
  SpinButton UDO2{*this, "UDO2"};
  Label lbN2{*this, "lbN2"};
  TextBox tbN2{*this, "tbN2"};
  Label lbHe{*this, "lbHe"};
  TextBox tbHe{*this, "tbHe"};
  SpinButton UDHe{*this, "UDHe"};
  Button cbOK{*this, "cbOK"};
  Button cbCancel{*this, "cbCancel"};

  /// The document whose template takes the gas; must be called ahead of showing.
  void SetTemplate(std::int16_t documentIndex) { documentIndex_ = documentIndex; }
  void cbOK_Click();

 protected:
  void Form_Load() override;

 private:
  void updateO2();
  void updateHe();
  void Step(TextBox& field, int by);
  void Confirm(void (frmGasBlend::*update)());
  void ShowAll();
  /// The whole percentage in a field; -1 for text that is none.
  [[nodiscard]] int Percentage(const TextBox& field) const;

  std::int16_t documentIndex_ = 0;
  int o2_ = 100;
  int n2_ = 0;
  int he_ = 0;
  bool adjusted_ = false;  ///< an entry was rounded or brought within 100 % since the user typed last
};

}  // namespace tav
