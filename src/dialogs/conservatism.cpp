#include "dialogs/conservatism.h"

#include "dialogs/gradient_factors.h"
#include "model/text_id.h"

namespace tav {

frmConservatism::frmConservatism(const DialogServices& services) : DialogForm("frmConservatism", services) {
  Check1.Click = [this] { fillGradient(); };
  Text1.Change = [this] { lowEntered_ = true; };
  Text2.Change = [this] { highEntered_ = true; };
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
  Caption = T(Text::ConservatismTitle);
  Check1.Caption = T(Text::ConservatismGradient);
  Label1.Caption = T(Text::LowGF);
  Label2.Caption = T(Text::HighGF);
  lbExample.Caption = T(Text::FactorsExample, {Fixed(0.3, 2), "30"});
  Check2.Caption = T(Text::ConservatismAdjustDepth);
  Label3.Caption = T(Text::ConservatismFormula);
  Label4.Caption = T(Text::ConservatismFormulaOfDepth);
  cbOK.Caption = T(Text::OK);
  cbCancel.Caption = T(Text::Cancel);
  const DiveTemplate& t = TemplateOf(documentIndex_);
  formerUseGF_ = t.UseGF;
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

Single frmConservatism::Factor(const TextBox& field) const { return gradient_factors::Entered(Number(field.Text)); }

void frmConservatism::Form_Unload() {
  if (!taken_) TemplateOf(documentIndex_).UseGF = formerUseGF_;
}

void frmConservatism::cbOK_Click() {
  DiveTemplate& t = TemplateOf(documentIndex_);
  // Kept even when the factors are refused below, as long as the dialog stays.
  t.UseGF = Check1.Value;
  const Single low = lowEntered_ ? Factor(Text1) : t.GFLow;
  const Single high = highEntered_ ? Factor(Text2) : t.GFHigh;
  const Single limit = gradient_factors::Highest(services_.veryHighGF);
  const bool valid = gradient_factors::ArePair(low, high, limit);
  if (!valid) {
    Box(T(Text::FactorsAbove0) + Plain(limit) + T(Text::FactorsInOrder), Caption, BoxIcon::Stop);
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
  taken_ = true;
  if (const auto active = services_.ActiveDocument()) {
    services_.forms(*active).MarkModified();
    services_.forms(*active).ReEvaluateUserEnteredWaypoints();
  }
  Unload();
}

bool frmConservatism::ConfirmHighFactor(Single low, Single high) {
  if (!services_.veryHighGF || !Check1.Value || !gradient_factors::IsBold(low, high)) return true;
  const std::string question = T(Text::FactorsFarApart) + "\r" + T(Text::HighFactorRisk) + "\r" +
                               T(Text::LowFactorRisk) + "\r" + T(Text::FactorsPressOK) + Plain(1) +
                               T(Text::FactorsOrCancel);
  return Box(question, Caption, BoxIcon::Exclamation, BoxButtons::OKCancel) == BoxAnswer::OK;
}

}  // namespace tav
