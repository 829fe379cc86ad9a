// The settings that the plan pane has at hand. A change is one of the template of this plan.

#include <algorithm>

#include "dialogs/plan_pane.h"
#include "model/numbers.h"

namespace tav {
namespace {

constexpr int kFactorsOutside = 7546;
constexpr int kSettings = 7547;
constexpr int kLastStopOutside = 7549;

}  // namespace

void frmPlanPane::WireSettings() {
  udLowGF.Buddy = tbLowGF.Name();
  udHighGF.Buddy = tbHighGF.Name();
  udLastStop.Buddy = tbLastStop.Name();
  for (TextBox* field : {&tbLowGF, &tbHighGF, &tbLastStop}) {
    field->LostFocus = field->KeyReturn = [this] {
      if (!trial_.Running() && lbFault.Caption.Get().empty()) return;
      Finish();
      ShowSettings();
      ShowFaults();
    };
    field->KeyEscape = [this] {
      if (trial_.Running()) trial_.Drop();
      Reload();
    };
  }
  tbLowGF.Change = tbHighGF.Change = [this] { TypeFactors(); };
  tbLastStop.Change = [this] { TypeLastStop(); };
  udLowGF.UpClick = [this] { StepFactor(tbLowGF, 1); };
  udLowGF.DownClick = [this] { StepFactor(tbLowGF, -1); };
  udHighGF.UpClick = [this] { StepFactor(tbHighGF, 1); };
  udHighGF.DownClick = [this] { StepFactor(tbHighGF, -1); };
  udLastStop.UpClick = [this] { StepLastStop(1); };
  udLastStop.DownClick = [this] { StepLastStop(-1); };
  cbEditTemplate.Click = [this] {
    Finish();
    pane_.editTemplate();
  };
}

void frmPlanPane::ShowSettings() {
  const bool factors = IsFree() && Template().UseGF;
  for (Control* control : std::initializer_list<Control*>{&tbLowGF, &udLowGF, &tbHighGF, &udHighGF}) {
    control->Enabled = factors;
  }
  for (Control* control : std::initializer_list<Control*>{&tbLastStop, &udLastStop, &cbEditTemplate}) {
    control->Enabled = IsFree();
  }
  if (!document_) return;
  const DiveTemplate& t = Template();
  lbTemplate.Caption = t.Templatename;
  lbTemplate.ToolTipText = T(kSettings, {t.TemplateFolder + t.Templatename});
  tbLowGF.Text = Fixed(t.GFLow, 2);
  tbHighGF.Text = Fixed(t.GFHigh, 2);
  tbLastStop.Text = Plain(t.LastStop);
  lbLastStopUnit.Caption = LengthUnit();
}

void frmPlanPane::TypeFactors() {
  constexpr double kPerCentFrom = 2;
  const auto factor = [this](const TextBox& field) {
    const Single typed = Number(field.Text);
    return RoundSingle(typed >= kPerCentFrom ? Single(typed / 100) : typed, 2);
  };
  const Single low = factor(tbLowGF);
  const Single high = factor(tbHighGF);
  if (!IsFree() || former_) return;
  trial_.Begin(*document_);
  if (low <= 0 || high > 1 || low >= high) return ShowFault(T(kFactorsOutside, {Plain(1)}));
  ShowFault(trial_.TryTemplate([&](DiveTemplate& t) {
    t.GFLow = low;
    t.GFHigh = high;
  }));
}

void frmPlanPane::TypeLastStop() {
  if (!IsFree() || former_) return;
  trial_.Begin(*document_);
  const Single depth = Number(tbLastStop.Text);
  if (depth <= 0) return ShowFault(T(kLastStopOutside));
  ShowFault(trial_.TryTemplate([&](DiveTemplate& t) { t.LastStop = depth; }));
}

void frmPlanPane::StepFactor(TextBox& field, int by) {
  constexpr double kStep = 0.01;
  const double value = Number(field.Text);
  field.Text = Fixed(std::clamp(value + by * kStep, kStep, 1.0), 2);
  TypeFactors();
  Finish();
}

void frmPlanPane::StepLastStop(int by) {
  tbLastStop.Text = Plain(std::max(1.0, Number(tbLastStop.Text) + by));
  TypeLastStop();
  Finish();
}

}  // namespace tav
