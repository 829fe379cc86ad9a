#include "dialogs/plan_pane_settings.h"

#include <algorithm>

#include "dialogs/gradient_factors.h"
#include "model/text_id.h"

namespace tav {

PlanPaneSettings::PlanPaneSettings(Form& form, PlanEntry& entry) : PlanPanePart(form, entry) {
  udLowGF.Buddy = tbLowGF.Name();
  udHighGF.Buddy = tbHighGF.Name();
  udLastStop.Buddy = tbLastStop.Name();
  for (TextBox* field : {&tbLowGF, &tbHighGF, &tbLastStop}) {
    field->LostFocus = field->KeyReturn = [this] { entry_.Finish(); };
    field->KeyEscape = [this] { entry_.RestoreSetting(); };
  }
  for (TextBox* field : {&tbLowGF, &tbHighGF}) field->Change = [this, field] { TypeFactor(*field); };
  tbLastStop.Change = [this] { TypeLastStop(); };
  udLowGF.UpClick = [this] { StepFactor(tbLowGF, 1); };
  udLowGF.DownClick = [this] { StepFactor(tbLowGF, -1); };
  udHighGF.UpClick = [this] { StepFactor(tbHighGF, 1); };
  udHighGF.DownClick = [this] { StepFactor(tbHighGF, -1); };
  udLastStop.UpClick = [this] { StepLastStop(1); };
  udLastStop.DownClick = [this] { StepLastStop(-1); };
  cbKeepsDiluent.Click = [this] { Switch(cbKeepsDiluent, &DiveTemplate::KeepsDiluent); };
  cbIntervalOnAir.Click = [this] { Switch(cbIntervalOnAir, &DiveTemplate::IntervalOnAir); };
  cbEditTemplate.Click = [this] {
    entry_.Finish();
    entry_.Services().editTemplate();
  };
}

void PlanPaneSettings::SetTexts() {
  cbEditTemplate.Caption = T(Text::PaneEdit);
  lbGF.Caption = T(Text::PaneFactors);
  cbKeepsDiluent.Caption = T(Text::TemplateKeepsDiluent);
  cbIntervalOnAir.Caption = T(Text::IntervalOnAir);
  lbLastStop.Caption = T(Text::PaneLastStop);
  tbLowGF.ToolTipText = T(Text::LowGF);
  tbHighGF.ToolTipText = T(Text::HighGF);
  tbLastStop.SpokenName = T(Text::PaneLastStop);
}

void PlanPaneSettings::Show() {
  if (entry_.SettingIsOpen()) return;
  const bool factors = entry_.IsFree() && entry_.Template().UseGF;
  for (Control* control : std::initializer_list<Control*>{&tbLowGF, &udLowGF, &tbHighGF, &udHighGF}) {
    control->Enabled = factors;
  }
  for (Control* control :
       std::initializer_list<Control*>{&tbLastStop, &udLastStop, &cbEditTemplate, &cbKeepsDiluent, &cbIntervalOnAir}) {
    control->Enabled = entry_.IsFree();
  }
  if (!entry_.HasPlan()) {
    cbKeepsDiluent.Visible = cbIntervalOnAir.Visible = false;
    return;
  }
  const DiveTemplate& t = entry_.Template();
  cbKeepsDiluent.Visible = !t.OpenCircuit;
  cbIntervalOnAir.Visible = !t.OpenCircuit && entry_.Editor().PrevProfile != -1;
  cbKeepsDiluent.Value = t.KeepsDiluent;
  cbIntervalOnAir.Value = t.IntervalOnAir;
  lbTemplate.Caption = t.Templatename;
  lbTemplate.ToolTipText = T(Text::PaneSettings, {t.TemplateFolder + t.Templatename});
  tbLowGF.Text = Fixed(t.GFLow, 2);
  tbHighGF.Text = Fixed(t.GFHigh, 2);
  tbLastStop.Text = Plain(t.LastStop);
  lbLastStopUnit.Caption = entry_.LengthUnit();
}

Single PlanPaneSettings::Highest() const { return gradient_factors::Highest(entry_.Services().dialogs.veryHighGF); }

void PlanPaneSettings::TypeFactor(const TextBox& field) {
  if (!entry_.IsFree()) return;
  const bool isLow = &field == &tbLowGF;
  const Single factor = gradient_factors::Entered(Number(field.Text));
  // The other one stays as it is, to the digit.
  const Single low = isLow ? factor : entry_.Template().GFLow;
  const Single high = isLow ? entry_.Template().GFHigh : factor;
  std::string fault;
  if (!gradient_factors::ArePair(low, high, Highest())) fault = T(Text::PaneFactorsOutside, {Plain(Highest())});
  if (fault.empty() && gradient_factors::IsBold(low, high)) {
    fault = T(Text::BoldFactors, {Plain(gradient_factors::kBoldHighAbove), Plain(gradient_factors::kBoldLowUpTo)});
  }
  entry_.TypeSetting(field.Text, fault, [&](DiveTemplate& t) { (isLow ? t.GFLow : t.GFHigh) = factor; });
}

void PlanPaneSettings::TypeLastStop() {
  const Single depth = Number(tbLastStop.Text);
  const std::string fault = depth <= 0 ? T(Text::PaneLastStopFault) : "";
  entry_.TypeSetting(tbLastStop.Text, fault, [&](DiveTemplate& t) { t.LastStop = depth; });
}

void PlanPaneSettings::StepFactor(TextBox& field, int by) {
  constexpr double kStep = 0.01;
  field.Text = Fixed(std::clamp(Number(field.Text) + by * kStep, kStep, double{Highest()}), 2);
  TypeFactor(field);
  entry_.Finish();
}

void PlanPaneSettings::Switch(const CheckBox& box, bool DiveTemplate::*setting) {
  if (!entry_.IsFree()) return Show();
  entry_.TypeSetting("", "", [&](DiveTemplate& t) { t.*setting = box.Value; });
  entry_.Finish();
}

void PlanPaneSettings::StepLastStop(int by) {
  tbLastStop.Text = Plain(std::max(1.0, Number(tbLastStop.Text) + by));
  TypeLastStop();
  entry_.Finish();
}

}  // namespace tav
