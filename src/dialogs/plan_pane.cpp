#include "dialogs/plan_pane.h"

#include <utility>
#include <vector>

#include "model/gas_name.h"
#include "model/text_id.h"

namespace tav {

frmPlanPane::frmPlanPane(PlanPaneServices services)
    : PaneForm("frmPlanPane", services.dialogs), entry_(std::move(services)) {
  entry_.Changed = [this] { Show(); };
  cbQuickGas.TakesText = true;
  tbQuickDepth.Pasting = [this] { return legs.PasteTable(); };
  cbQuick.Click = tbQuickDepth.KeyReturn = tbQuickTime.KeyReturn = cbQuickGas.KeyReturn = [this] { Quick(); };
  cbExamples.Click = [this] { entry_.Services().examples(); };
}

void frmPlanPane::Form_Load() {
  Localize();
  Caption = T(Text::PaneTitle);
  lbQuickTimeUnit.Caption = "min";
  tbQuickDepth.ToolTipText = T(Text::Depth);
  tbQuickTime.ToolTipText = T(Text::PaneTimeMeans);
  cbQuickGas.ToolTipText = T(Text::Gas);
  cbExamples.Caption = T(Text::PaneExamples);
  legs.SetTexts();
  settings.SetTexts();
  gases.SetTexts();
  schedule.SetTexts();
  lbFault.ForeColor = kRed;
  lbFault.Visible = false;
}

void frmPlanPane::Show() {
  ShowQuickLine();
  legs.Show();
  settings.Show();
  gases.Show();
  schedule.Show();
  lbFault.Caption = entry_.Told();
  lbFault.Visible = !lbFault.Caption.Get().empty();
}

void frmPlanPane::ShowQuickLine() {
  for (Control* control : std::initializer_list<Control*>{&tbQuickDepth, &tbQuickTime, &cbQuickGas, &cbQuick}) {
    control->Enabled = entry_.IsFree();
  }
  cbExamples.Visible = entry_.Services().examples && entry_.HasPlan() && entry_.Legs().Table().Rows() == 0;
  if (!entry_.HasPlan()) return;
  const DiveTemplate& t = entry_.Template();
  std::vector<std::string> names;
  names.reserve(t.Blends.size());
  for (const GasMix& mix : t.Blends) names.push_back(mix.Name);
  cbQuickGas.Items = std::move(names);
  const int last = static_cast<int>(t.Blends.size()) - 1;
  const bool isTyped = cbQuickGas.ListIndex < 0 && !cbQuickGas.Text().empty();
  if (!isTyped && (cbQuickGas.ListIndex < 0 || cbQuickGas.ListIndex > last)) cbQuickGas.ListIndex = 0;
  lbQuickDepthUnit.Caption = entry_.LengthUnit();
  cbQuick.Caption = T(entry_.Legs().Table().Rows() == 0 ? Text::PanePlanDive : Text::PaneAddLeg);
}

void frmPlanPane::Quick() {
  if (!cbQuick.Enabled) return;
  const auto addLeg = [this](LegTable& table) {
    const int row = table.EndOfLegs();
    table.Insert(row);
    table.Set(row, LegTable::Field::Depth, tbQuickDepth.Text);
    table.Set(row, LegTable::Field::Time, tbQuickTime.Text);
    table.Set(row, LegTable::Field::Gas, cbQuickGas.Text());
  };
  const bool added = entry_.Change(addLeg, true);
  if (added) ClearQuickLine();
  const bool depthIsWrong = added || !NumberIn(tbQuickDepth.Text);
  const bool timeIsWrong = !depthIsWrong && !NumberIn(tbQuickTime.Text);
  const std::string gas = cbQuickGas.Text();
  const bool gasIsKnown = GasNamed(gas, entry_.Template().Blends) || GasFromName(gas);
  if (!depthIsWrong && !timeIsWrong && !gasIsKnown) return cbQuickGas.SetFocus();
  (timeIsWrong ? tbQuickTime : tbQuickDepth).SelectAll();
}

void frmPlanPane::ClearQuickLine() {
  tbQuickDepth.Text = "";
  tbQuickTime.Text = "";
  // The next leg is on the gas of the last one, unless told otherwise.
  const LegTable& legsNow = entry_.Legs().Table();
  const int last = legsNow.EndOfLegs() - 1;
  cbQuickGas.ListIndex = last < 0 ? 0 : int{legsNow.At(last).mix.value_or(std::int16_t{0})};
}

void frmPlanPane::ShowDocument(std::optional<std::int16_t> document) {
  entry_.ShowDocument(document);
  std::optional<std::pair<std::int16_t, int>> shown;
  if (document) shown = {*document, entry_.Editor().Opening()};
  if (std::exchange(quickOf_, shown) != shown) ClearQuickLine();
}

void frmPlanPane::SelectRow(std::int16_t row) {
  schedule.SelectRow(row);
  legs.SelectRow(row);
}

void frmPlanPane::TakeFocus() {
  if (entry_.Legs().Table().Rows() == 0) {
    tbQuickDepth.SelectAll();
  } else {
    legs.TakeFocus();
  }
}

}  // namespace tav
