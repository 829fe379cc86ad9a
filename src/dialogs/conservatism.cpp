#include "dialogs/conservatism.h"

#include "model/numbers.h"

namespace tav {

frmConservatism::frmConservatism(const DialogServices& services) : DialogForm("frmConservatism", services) {
  Check1.Click = [this] { fillGradient(); };
  for (TextBox* field : {&Text1, &Text2}) {
    // What was typed as per cent is shown as what it was taken for.
    field->LostFocus = [this, field] {
      if (Factor(*field) > 0) field->Text = Fixed(Factor(*field), 2);
    };
  }
  cbOK.Default = true;
  cbOK.Click = [this] { cbOK_Click(); };
  cbCancel.Cancel = true;
  cbCancel.Click = [this] { Unload(); };
}

void frmConservatism::Form_Load() {
  Localize();
  documentIndex_ = services_.ActiveOrDefault();
  Caption = T(1700);
  Check1.Caption = T(1709);
  Label1.Caption = T(1711);
  Label2.Caption = T(1710);
  lbExample.Caption = T(7163, {Fixed(0.3, 2), "30"});
  Check2.Caption = T(1713);
  Label3.Caption = T(1707);
  Label4.Caption = T(1708);
  cbOK.Caption = T(1210);
  cbCancel.Caption = T(1215);
  const DiveTemplate& t = TemplateOf(documentIndex_);
  Check1.Value = t.UseGF;
  Check2.Value = t.DepthAdjust;
  Text1.Text = Fixed(t.GFLow, 2);
  Text2.Text = Fixed(t.GFHigh, 2);
  fillGradient();
}

void frmConservatism::fillGradient() {
  Text1.Enabled = Check1.Value;
  Text2.Enabled = Check1.Value;
}

Single frmConservatism::Factor(const TextBox& field) const {
  constexpr double kPerCentFrom = 2;
  const Single typed = Number(field.Text);
  return RoundSingle(typed >= kPerCentFrom ? Single(typed / 100) : typed, 2);
}

void frmConservatism::cbOK_Click() {
  DiveTemplate& t = TemplateOf(documentIndex_);
  // Kept even when the factors are refused below.
  t.UseGF = Check1.Value;
  const Single low = Factor(Text1);
  const Single high = Factor(Text2);
  const Single limit = services_.veryHighGF ? 1.2 : 1.0;
  const bool valid = low > 0 && low <= limit && high > 0 && high <= limit && low < high;
  if (!valid) {
    Box(T(3004) + Plain(limit) + T(3005), Caption, BoxIcon::Stop);
    return;
  }
  if (!ConfirmHighFactor(low, high)) {
    Text2.SelectAll();
    return;
  }
  t.GFHigh = high;
  t.GFLow = low;
  t.DepthAdjust = Check2.Value;
  t.TemplateChanged = true;
  if (const auto active = services_.ActiveDocument()) {
    services_.forms(*active).MarkModified();
    services_.forms(*active).ReEvaluateUserEnteredWaypoints();
  }
  Unload();
}

bool frmConservatism::ConfirmHighFactor(Single low, Single high) {
  constexpr double kLowBelow = 0.4;
  if (!services_.veryHighGF || !Check1.Value || !(high > 1.0 && low <= Single(kLowBelow))) return true;
  const std::string question = T(3006) + "\r" + T(3007) + "\r" + T(3008) + "\r" + T(3009) + Plain(1) + T(3010);
  return Box(question, Caption, BoxIcon::Exclamation, BoxButtons::OKCancel) == BoxAnswer::OK;
}

}  // namespace tav
