#include "dialogs/gas_blend.h"

#include <algorithm>
#include <utility>

#include "model/gas_name.h"
#include "model/number_text.h"
#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {

frmGasBlend::frmGasBlend(const DialogServices& services) : DialogForm("frmGasBlend", services) {
  tbO2.KeyReturn = [this] { Confirm(&frmGasBlend::updateO2); };
  tbO2.LostFocus = [this] { updateO2(); };
  tbHe.KeyReturn = [this] { Confirm(&frmGasBlend::updateHe); };
  tbHe.LostFocus = [this] { updateHe(); };
  tbN2.Locked = true;
  tbO2.Change = tbHe.Change = [this] { adjusted_ = false; };
  UDO2.Buddy = "tbO2";
  UDO2.UpClick = [this] { Step(tbO2, 1); };
  UDO2.DownClick = [this] { Step(tbO2, -1); };
  UDHe.Buddy = "tbHe";
  UDHe.UpClick = [this] { Step(tbHe, 1); };
  UDHe.DownClick = [this] { Step(tbHe, -1); };
  cbOK.Default = true;
  cbOK.Click = [this] { cbOK_Click(); };
  cbCancel.Cancel = true;
  cbCancel.Click = [this] { Unload(); };
}

void frmGasBlend::Form_Load() {
  Localize();
  Caption = T(Text::BlendTitle);
  lbBlendName.Caption = T(Text::BlendName);
  lbO2.Caption = "%  O2";
  lbN2.Caption = "% N2";
  lbHe.Caption = "% He";
  cbOK.Caption = T(Text::OK);
  cbCancel.Caption = T(Text::Cancel);
  ShowAll();
  adjusted_ = false;
  tbBlendName.SetFocus();
}

void frmGasBlend::ShowAll() {
  adjusted_ = adjusted_ || NumberIn(tbO2.Text) != o2_ || NumberIn(tbHe.Text) != he_;
  tbO2.Text = std::to_string(o2_);
  tbN2.Text = std::to_string(n2_);
  tbHe.Text = std::to_string(he_);
}

int frmGasBlend::Percentage(const TextBox& field) const {
  const auto number = NumberIn(field.Text);
  if (!number) return -1;
  return RoundToInt16(ParseLenient(FormatFixed(*number, 0))).value_or(std::int16_t{-1});
}

void frmGasBlend::updateO2() {
  o2_ = Percentage(tbO2);
  if (o2_ < 1 || o2_ > 100) {
    o2_ = 100 - n2_ - he_;
  } else {
    n2_ = 100 - o2_ - he_;
    if (n2_ < 0) {
      n2_ = 0;
      he_ = 100 - o2_;
    }
  }
  ShowAll();
}

void frmGasBlend::updateHe() {
  he_ = std::max(0, Percentage(tbHe));
  n2_ = 100 - o2_ - he_;
  if (n2_ < 0) {
    n2_ = 0;
    he_ = 100 - o2_;
  }
  ShowAll();
}

void frmGasBlend::Confirm(void (frmGasBlend::*update)()) {
  const auto shown = [this] { return tbO2.Text.Get() + "/" + tbN2.Text.Get() + "/" + tbHe.Text.Get(); };
  const std::string before = shown();
  (this->*update)();
  // With nothing left to work out, Return is OK, as in any other field.
  if (shown() == before) cbOK.Press();
}

void frmGasBlend::Step(TextBox& field, int by) {
  field.Text = std::to_string(std::max(0, Percentage(field) + by));
  if (&field == &tbO2) {
    updateO2();
  } else {
    updateHe();
  }
}

void frmGasBlend::cbOK_Click() {
  const std::string& name = tbBlendName.Text.Get();
  if (name.empty()) {
    Box(T(Text::BlendNameMissing) + "\r\n" + T(Text::BlendNameHelp), T(Text::BlendTitle), BoxIcon::Exclamation);
    tbBlendName.SetFocus();
    return;
  }
  // The file format separates by these characters: such a name would not come back.
  if (!BlendNameFault(name).empty()) {
    Box(T(Text::GasNameFault), T(Text::BlendTitle), BoxIcon::Exclamation);
    tbBlendName.SelectAll();
    return;
  }
  DiveTemplate& t = TemplateOf(documentIndex_);
  if (GasNamed(name, t.Blends)) {
    Box(T(Text::GasNameTaken), T(Text::BlendTitle), BoxIcon::Exclamation);
    tbBlendName.SelectAll();
    return;
  }
  // A key can press OK without leaving the field; each update writes both.
  if (NumberIn(tbHe.Text) != he_) updateHe();
  updateO2();
  updateHe();
  // The user has not seen yet what became of an entry when OK was what left its field.
  if (std::exchange(adjusted_, false)) {
    Box(T(Text::BlendBroughtTo100, {tbO2.Text, tbHe.Text, tbN2.Text}), T(Text::BlendTitle), BoxIcon::Exclamation);
    return;
  }
  t.Blends.push_back({name, o2_, n2_, he_});
  MarkChanged(documentIndex_);
  Unload();
}

}  // namespace tav
