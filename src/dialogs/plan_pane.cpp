#include "dialogs/plan_pane.h"

#include <utility>
#include <vector>

#include "model/text_id.h"

namespace tav {

frmPlanPane::frmPlanPane(PlanPaneServices services)
    : PaneForm("frmPlanPane", services.dialogs), entry_(std::move(services)) {
  entry_.Changed = [this] { Show(); };
  cbQuick.Click = tbQuickDepth.KeyReturn = tbQuickTime.KeyReturn = cbQuickGas.KeyReturn = [this] { Quick(); };
}

void frmPlanPane::Form_Load() {
  Localize();
  Caption = T(Text::PaneTitle);
  lbQuickTimeUnit.Caption = "min";
  tbQuickDepth.ToolTipText = T(Text::Depth);
  tbQuickTime.ToolTipText = T(Text::PaneTimeMeans);
  cbQuickGas.ToolTipText = T(Text::Gas);
  legs.SetTexts();
  settings.SetTexts();
  schedule.SetTexts();
  lbFault.ForeColor = kRed;
  lbFault.Visible = false;
}

void frmPlanPane::Show() {
  ShowQuickLine();
  legs.Show();
  settings.Show();
  schedule.Show();
  lbFault.Caption = entry_.Told();
  lbFault.Visible = !lbFault.Caption.Get().empty();
}

void frmPlanPane::ShowQuickLine() {
  for (Control* control : std::initializer_list<Control*>{&tbQuickDepth, &tbQuickTime, &cbQuickGas, &cbQuick}) {
    control->Enabled = entry_.IsFree();
  }
  if (!entry_.HasPlan()) return;
  const DiveTemplate& t = entry_.Template();
  std::vector<std::string> names;
  names.reserve(t.Blends.size());
  for (const GasMix& mix : t.Blends) names.push_back(mix.Name);
  cbQuickGas.Items = std::move(names);
  const int last = static_cast<int>(t.Blends.size()) - 1;
  if (cbQuickGas.ListIndex < 0 || cbQuickGas.ListIndex > last) cbQuickGas.ListIndex = 0;
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
  const bool timeIsWrong = !added && NumberIn(tbQuickDepth.Text) && !NumberIn(tbQuickTime.Text);
  (timeIsWrong ? tbQuickTime : tbQuickDepth).SelectAll();
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
