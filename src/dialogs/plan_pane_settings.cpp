#include "dialogs/plan_pane_settings.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "dialogs/gradient_factors.h"
#include "figures/model_name.h"
#include "model/altitude.h"
#include "model/text_id.h"

namespace tav {
namespace {

/// In the order of the menu; VPM has no table of coefficients.
constexpr std::array<ModelChoice, 5> kModels{
    {{false, false, false}, {false, false, true}, {true, false, false}, {false, true, false}, {false, true, true}}};

/// Minutes in a text of hours and minutes: "1:30". Nothing for another text, and beyond what the dialog takes.
std::optional<Single> MinutesIn(std::string_view text) {
  constexpr double kMostHours = 24;
  constexpr double kMostMinutes = 59;
  text = TrimBlanks(text);
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return std::nullopt;
  const auto within = [](std::string_view part, double most) -> std::optional<double> {
    const bool digits = !part.empty() && std::ranges::all_of(part, [](char c) { return c >= '0' && c <= '9'; });
    const auto number = digits ? ParseStrict(part) : std::nullopt;
    return number && *number <= most ? number : std::nullopt;
  };
  const auto hours = within(text.substr(0, colon), kMostHours);
  const auto minutes = within(text.substr(colon + 1), kMostMinutes);
  if (!hours || !minutes) return std::nullopt;
  return Single(60 * *hours + *minutes);
}

}  // namespace

PlanPaneSettings::PlanPaneSettings(Form& form, PlanEntry& entry) : PlanPanePart(form, entry) {
  udLowGF.Buddy = tbLowGF.Name();
  udHighGF.Buddy = tbHighGF.Name();
  udLastStop.Buddy = tbLastStop.Name();
  for (TextBox* field : {&tbSetpoint, &tbDecoSetpoint, &tbAltitude, &tbInterval, &tbLowGF, &tbHighGF, &tbLastStop}) {
    field->LostFocus = field->KeyReturn = [this] { entry_.Finish(); };
    field->KeyEscape = [this] { entry_.RestoreSetting(); };
  }
  tbSetpoint.Change = [this] {
    TypeNumber(tbSetpoint, lbSetpoint, [](DiveTemplate& t, Single ppo2) { t.Setpoint = ppo2; });
  };
  tbDecoSetpoint.Change = [this] {
    TypeNumber(tbDecoSetpoint, lbSetpoint, [](DiveTemplate& t, Single ppo2) { t.DecoSetpoint = ppo2; });
  };
  tbAltitude.Change = [this] { TypeNumber(tbAltitude, lbAltitude, SetAltitude); };
  tbInterval.Change = [this] { TypeInterval(); };
  cbCircuit.Click = [this] { ChooseCircuit(); };
  cbModel.Click = [this] { ChooseModel(); };
  for (TextBox* field : {&tbLowGF, &tbHighGF}) field->Change = [this, field] { TypeFactor(*field); };
  tbLastStop.Change = [this] { TypeLastStop(); };
  udLowGF.UpClick = [this] { StepFactor(tbLowGF, 1); };
  udLowGF.DownClick = [this] { StepFactor(tbLowGF, -1); };
  udHighGF.UpClick = [this] { StepFactor(tbHighGF, 1); };
  udHighGF.DownClick = [this] { StepFactor(tbHighGF, -1); };
  udLastStop.UpClick = [this] { StepLastStop(1); };
  udLastStop.DownClick = [this] { StepLastStop(-1); };
  cbKeepsDiluent.Click = [this] { Switch(cbKeepsDiluent, &DiveTemplate::KeepsDiluent); };
  cbOpenForDeco.Click = [this] { Switch(cbOpenForDeco, &DiveTemplate::OCDeco); };
  cbIntervalOnAir.Click = [this] { Switch(cbIntervalOnAir, &DiveTemplate::IntervalOnAir); };
  cbEditTemplate.Click = [this] {
    entry_.Finish();
    entry_.Services().editTemplate();
  };
}

void PlanPaneSettings::SetTexts() {
  lbCircuit.Caption = T(Text::PaneThisDive);
  cbCircuit.Items = {T(Text::OpenCircuit), T(Text::PaneRebreather)};
  cbModel.SpokenName = cbModel.ToolTipText = T(Text::PaneModel);
  lbSetpoint.Caption = T(Text::PaneSetpoint);
  lbDecoSetpoint.Caption = T(Text::PaneSetpointStops);
  tbSetpoint.ToolTipText = T(Text::PaneSetpointBottom);
  tbDecoSetpoint.ToolTipText = T(Text::PaneSetpointDeco);
  lbAltitude.Caption = T(Text::TemplateAltitude);
  lbInterval.Caption = T(Text::PaneInterval);
  tbInterval.ToolTipText = T(Text::PaneIntervalMeans);
  cbEditTemplate.Caption = T(Text::PaneEdit);
  lbGF.Caption = T(Text::PaneFactors);
  cbKeepsDiluent.Caption = T(Text::TemplateKeepsDiluent);
  cbOpenForDeco.Caption = T(Text::TemplateOpenForDeco);
  cbIntervalOnAir.Caption = T(Text::IntervalOnAir);
  lbLastStop.Caption = T(Text::PaneLastStop);
  tbLowGF.ToolTipText = T(Text::LowGF);
  tbHighGF.ToolTipText = T(Text::HighGF);
  tbLastStop.SpokenName = T(Text::PaneLastStop);
}

void PlanPaneSettings::Show() {
  if (entry_.SettingIsOpen()) return;
  for (Control* control : std::initializer_list<Control*>{
           &cbCircuit, &cbModel, &tbSetpoint, &tbDecoSetpoint, &tbAltitude, &tbLowGF, &udLowGF, &tbHighGF, &udHighGF,
           &tbLastStop, &udLastStop, &cbEditTemplate, &cbKeepsDiluent, &cbOpenForDeco, &cbIntervalOnAir}) {
    control->Enabled = entry_.IsFree();
  }
  const bool onLoop = entry_.HasPlan() && !entry_.Template().OpenCircuit;
  const bool follows = entry_.HasPlan() && entry_.Editor().PrevProfile != -1;
  for (Control* control : std::initializer_list<Control*>{&lbSetpoint, &tbSetpoint, &lbDecoSetpoint, &tbDecoSetpoint,
                                                          &lbSetpointUnit, &cbKeepsDiluent, &cbOpenForDeco}) {
    control->Visible = onLoop;
  }
  cbIntervalOnAir.Visible = onLoop && follows;
  tbInterval.Enabled = follows && entry_.IsFree();
  ShowModel();
  if (entry_.HasPlan()) ShowPlan();
}

void PlanPaneSettings::ShowPlan() {
  const DiveTemplate& t = entry_.Template();
  cbCircuit.ListIndex = t.OpenCircuit ? 0 : 1;
  cbKeepsDiluent.Value = t.KeepsDiluent;
  cbOpenForDeco.Value = t.OCDeco;
  if (t.OCDeco) tbDecoSetpoint.Enabled = false;  // nothing breathes it
  cbIntervalOnAir.Value = t.IntervalOnAir;
  cbEditTemplate.ToolTipText = T(Text::PaneSettings, {t.TemplateFolder + t.Templatename});
  tbSetpoint.Text = Plain(t.Setpoint);
  tbDecoSetpoint.Text = Plain(t.DecoSetpoint);
  lbSetpointUnit.Caption = t.Metric ? "bar" : "ata";
  tbAltitude.Text = Plain(t.StartAltitude);
  lbAltitudeUnit.Caption = lbLastStopUnit.Caption = entry_.LengthUnit();
  if (entry_.Editor().PrevProfile == -1) {
    tbInterval.Text = T(Text::PaneFirstDive);
  } else {
    const Single interval = entry_.Interval();
    const double hours = std::floor(interval / 60.0);
    const std::string minutes = numbers_.Short(interval - 60 * hours);
    tbInterval.Text = Fixed(hours, 0) + ":" + (interval - 60 * hours < 10 ? "0" : "") + minutes;
  }
  tbLowGF.Text = Fixed(t.GFLow, 2);
  tbHighGF.Text = Fixed(t.GFHigh, 2);
  tbLastStop.Text = Plain(t.LastStop);
}

void PlanPaneSettings::ShowModel() {
  // That of the rows that are shown; what the menu has marked since is for the next ones.
  const bool computed = entry_.HasPlan() && entry_.Editor().InputProfile.GetLength() > 0;
  const ModelChoice& now =
      computed ? entry_.Editor().EvaluatedWith() : entry_.Services().dialogs.forms.Services().model;
  models_.clear();
  std::vector<std::string> names;
  for (const ModelChoice& model : kModels) {
    const bool isNow = ModelName(model) == ModelName(now);
    if (!isNow && HasModel && !HasModel(model)) continue;
    if (isNow) cbModel.ListIndex = static_cast<int>(models_.size());
    models_.push_back(model);
    names.push_back(ModelName(model));
  }
  cbModel.Items = std::move(names);
  const bool factors = entry_.HasPlan() && GradientFactorsAct(entry_.Template(), now);
  for (Control* control : std::initializer_list<Control*>{&lbGF, &tbLowGF, &udLowGF, &tbHighGF, &udHighGF}) {
    control->Visible = factors;
  }
}

void PlanPaneSettings::TypeNumber(const TextBox& field, const Label& label,
                                  const std::function<void(DiveTemplate&, Single)>& change) {
  const auto number = NumberIn(field.Text);
  const std::string fault = number ? "" : T(Text::IsNoNumber, {FieldName(label)});
  entry_.TypeSetting(field.Text, fault, [&](DiveTemplate& t) { change(t, number.value_or(0)); });
}

void PlanPaneSettings::TypeInterval() {
  const auto minutes = MinutesIn(tbInterval.Text.Get());
  entry_.TypeInterval(tbInterval.Text, minutes ? "" : T(Text::PaneIntervalFault), minutes.value_or(0));
}

void PlanPaneSettings::ChooseCircuit() {
  entry_.Finish();
  const bool open = cbCircuit.ListIndex == 0;
  if (!entry_.IsFree() || !SetCircuit || open == entry_.Template().OpenCircuit) return Show();
  SetCircuit(open);
}

void PlanPaneSettings::ChooseModel() {
  entry_.Finish();
  if (!entry_.IsFree() || !SetModel) return Show();
  SetModel(models_.at(static_cast<std::size_t>(cbModel.ListIndex.Get())));
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
