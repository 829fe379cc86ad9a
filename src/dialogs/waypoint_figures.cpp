// What the waypoint dialog tells, while one types, of the gas at the depth and of the leg.

#include "compute/leg_expansion.h"
#include "dialogs/waypoint_form.h"
#include "model/text_id.h"

namespace tav {

std::string frmWaypointForm::Length(const std::string& number) const {
  return number + (Template().Metric ? " m" : " ft");
}

std::string frmWaypointForm::Pressure(Single ppo2) const {
  return Fixed(ppo2, 2) + (Template().Metric ? " bar" : " ata");
}

void frmWaypointForm::ShowGas() {
  const auto depth = NumberIn(tbDepth.Text);
  const int index = Combo1.ListIndex;
  if (viewer_ || index < 0) return;
  const DiveTemplate& t = Template();
  const GasMix& mix = t.Blends.at(static_cast<std::size_t>(index));
  const bool told = depth && *depth >= 0 && *depth <= kMaximumDepth;
  lbGasAtDepth.Caption = told ? T(Text::GasAtDepth, {mix.Name, Length(Plain(*depth))}) : mix.Name;
  for (Label* line : {&lbPPO2, &lbEND, &lbMOD}) line->Visible = told;
  if (!told) return;
  const GasFigures figures = FiguresAt(*depth, mix, t);
  lbPPO2.Caption = T(t.OpenCircuit ? Text::ReportPPO2 : Text::DiluentPPO2) + ": " + Pressure(figures.PPO2);
  lbPPO2.ForeColor = figures.ppo2TooHigh || figures.ppo2TooLow ? kRed : -1;
  lbEND.Caption = T(Text::ReportEND) + ": " + Length(Fixed(figures.END, 1));
  lbEND.ForeColor = figures.endTooDeep ? kRed : -1;
  lbMOD.Caption = T(Text::MOD) + ": " + (figures.MOD ? Length(Fixed(*figures.MOD, 1)) : "-");
  lbMOD.ForeColor = figures.ppo2TooHigh ? kRed : -1;
}

const frmWaypointEditor* frmWaypointForm::Plan() const {
  const auto active = services_.ActiveDocument();
  return active ? &services_.forms(*active) : nullptr;
}

Single frmWaypointForm::Ceiling() const {
  const frmWaypointEditor* plan = Plan();
  return plan == nullptr ? Single(0) : plan->InputProfile.GetCeiling(plan->LastRowOfLegs());
}

void frmWaypointForm::ShowLeg() {
  const auto depth = NumberIn(tbDepth.Text);
  const auto time = NumberIn(tbTime.Text);
  lbCeiling.Visible = Ceiling() > 0;
  lbCeiling.Caption = T(Text::Ceiling) + ": " + Length(Fixed(Ceiling(), 1));
  lbCeiling.ForeColor = depth && *depth < Ceiling() ? kRed : -1;
  lbLegTime.Caption = depth && time ? TimesText(*depth, *time) : "";
}

std::string frmWaypointForm::TimesText(Single depth, Single time) const {
  const frmWaypointEditor* plan = Plan();
  if (plan == nullptr || !TemplateFaults(Template()).empty() || !LegFault(time, depth, 0, Template()).IsEmpty())
    return {};
  const Single start = plan->InputProfile.getDepth(plan->LastRowOfLegs());
  const std::string minutes = Plain(time);
  const std::string place = Length(Plain(depth));
  if (depth == start) return T(Text::WaypointLevel, {minutes, place});
  const bool down = depth > start;
  const LegTimes times = TimesOfLeg({0, start, time, depth, 0}, Template());
  if (times.move > time)
    return T(down ? Text::WaypointDescentTakes : Text::WaypointAscentTakes, {Fixed(times.move, 1)});
  return T(down ? Text::WaypointDescent : Text::WaypointAscent,
           {minutes, Fixed(times.move, 1), Fixed(times.level, 1), place});
}

std::string frmWaypointForm::Refusal(Single depth, Single time) const {
  if (depth < Ceiling()) return T(Text::AboveCeiling) + "\r\n" + T(Text::Ceiling) + ": " + Length(Fixed(Ceiling(), 1));
  return T(LegFault(time, depth, 0, Template()));
}

}  // namespace tav
