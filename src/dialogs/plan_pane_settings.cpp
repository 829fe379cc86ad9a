// The settings that the plan pane has at hand. A change is one of the template of this plan.

#include <algorithm>

#include "dialogs/gradient_factors.h"
#include "dialogs/plan_pane.h"

namespace tav {
namespace {

constexpr int kFactorsOutside = 7546;
constexpr int kSettings = 7547;
constexpr int kLastStopOutside = 7549;
constexpr int kBoldFactors = 8006;

}  // namespace

void frmPlanPane::WireSettings() {
  udLowGF.Buddy = tbLowGF.Name();
  udHighGF.Buddy = tbHighGF.Name();
  udLastStop.Buddy = tbLastStop.Name();
  for (TextBox* field : {&tbLowGF, &tbHighGF, &tbLastStop}) {
    field->LostFocus = field->KeyReturn = [this] {
      if (!trial_.Running()) return;
      Finish();
      ShowSettings();
      ShowFaults();
    };
    field->KeyEscape = [this] {
      if (!document_) return;
      if (trial_.Running()) trial_.Drop();
      settingFault_.clear();
      told_.clear(), mark_.reset();
      ShowSettings();
      ShowSchedule();
      ShowFaults();
      pane_.entered(*document_);
    };
  }
  for (TextBox* field : {&tbLowGF, &tbHighGF}) field->Change = [this, field] { TypeFactor(*field); };
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

void frmPlanPane::TrySetting(const TextBox& field, std::string fault,
                             const std::function<void(DiveTemplate&)>& change) {
  told_.clear(), mark_.reset();
  trial_.Begin(*document_);
  if (fault.empty()) {
    fault = trial_.TryTemplate(change);
  } else {
    trial_.Refuse();
  }
  settingText_ = field.Text;
  settingFault_ = std::move(fault);
  ShowSchedule();
  ShowFaults();
  pane_.entered(*document_);
}

void frmPlanPane::TypeFactor(const TextBox& field) {
  if (!IsFree() || former_) return;
  const bool isLow = &field == &tbLowGF;
  const Single factor = gradient_factors::Entered(Number(field.Text));
  // The other one stays as it is, to the digit.
  const Single low = isLow ? factor : Template().GFLow;
  const Single high = isLow ? Template().GFHigh : factor;
  const Single highest = gradient_factors::Highest(services_.veryHighGF);
  std::string fault;
  if (!gradient_factors::ArePair(low, high, highest)) fault = T(kFactorsOutside, {Plain(highest)});
  if (fault.empty() && gradient_factors::IsBold(low, high)) {
    fault = T(kBoldFactors, {Plain(gradient_factors::kBoldHighAbove), Plain(gradient_factors::kBoldLowUpTo)});
  }
  TrySetting(field, fault, [&](DiveTemplate& t) { (isLow ? t.GFLow : t.GFHigh) = factor; });
}

void frmPlanPane::TypeLastStop() {
  if (!IsFree() || former_) return;
  const Single depth = Number(tbLastStop.Text);
  TrySetting(tbLastStop, depth <= 0 ? T(kLastStopOutside) : "", [&](DiveTemplate& t) { t.LastStop = depth; });
}

void frmPlanPane::StepFactor(TextBox& field, int by) {
  constexpr double kStep = 0.01;
  const double value = Number(field.Text);
  field.Text = Fixed(std::clamp(value + by * kStep, kStep, double{gradient_factors::Highest(services_.veryHighGF)}), 2);
  TypeFactor(field);
  Finish();
  ShowFaults();
}

void frmPlanPane::StepLastStop(int by) {
  tbLastStop.Text = Plain(std::max(1.0, Number(tbLastStop.Text) + by));
  TypeLastStop();
  Finish();
  ShowFaults();
}

}  // namespace tav
