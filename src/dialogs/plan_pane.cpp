#include "dialogs/plan_pane.h"

#include <algorithm>
#include <utility>

namespace tav {
namespace {

constexpr int kDepth = 7028;
constexpr int kGas = 7030;
constexpr int kLowFactor = 1711;
constexpr int kHighFactor = 1710;
constexpr int kTitle = 7511;
constexpr int kPlanDive = 7512;
constexpr int kAddLeg = 7513;
constexpr int kTimeMeans = 7514;
constexpr int kCopySchedule = 7525;
constexpr int kLegs = 7526;
constexpr int kSchedule = 7527;
constexpr int kAscent = 7530;
constexpr int kFirstMenu = 7531;
constexpr int kFactors = 7540;
constexpr int kLastStop = 7541;
constexpr int kEdit = 7542;
constexpr int kAsBefore = 8002;

}  // namespace

frmPlanPane::frmPlanPane(PlanPaneServices services)
    : PaneForm("frmPlanPane", services.dialogs),
      pane_(std::move(services)),
      trial_(pane_.dialogs.forms, pane_.history),
      table_(pane_.dialogs.platform.separators) {
  Wire();
  WireLegs();
  WireSettings();
}

void frmPlanPane::Wire() {
  cbQuick.Click = tbQuickDepth.KeyReturn = tbQuickTime.KeyReturn = cbQuickGas.KeyReturn = [this] { Quick(); };
  fgSchedule.Click = [this] {
    const auto at = static_cast<std::size_t>(fgSchedule.SelectedRow);
    if (at > 0 && at <= scheduleRows_.size()) pane_.markRow(scheduleRows_[at - 1]);
  };
  cbCopySchedule.Click = [this] {
    if (!document_) return;
    const std::string before = RefusalNow().empty() ? "" : T(kAsBefore) + "\n";
    platform_.clipboard.SetText(before + Schedule().Aligned());
  };
}

void frmPlanPane::Form_Load() {
  Localize();
  Caption = T(kTitle);
  lbQuickTimeUnit.Caption = "min";
  tbQuickDepth.ToolTipText = T(kDepth);
  tbQuickTime.ToolTipText = T(kTimeMeans);
  cbQuickGas.ToolTipText = T(kGas);
  ckAscent.Caption = T(kAscent);
  cbLegs.Caption = T(kLegs) + "...";
  cbEditTemplate.Caption = T(kEdit);
  lbGF.Caption = T(kFactors);
  lbLastStop.Caption = T(kLastStop);
  cbCopySchedule.Caption = T(kCopySchedule);
  tbLowGF.ToolTipText = T(kLowFactor);
  tbHighGF.ToolTipText = T(kHighFactor);
  tbLastStop.SpokenName = T(kLastStop);
  fgLegs.SpokenName = T(kLegs);
  fgSchedule.SpokenName = T(kSchedule);
  int id = kFirstMenu;
  for (MenuItem* item : {&mnuInsertLeg, &mnuDeleteLegs, &mnuDuplicateLegs, &mnuMoveLegsUp, &mnuMoveLegsDown,
                         &mnuCopyLegs, &mnuPasteLegs}) {
    item->Caption = T(id++);
  }
  fgLegs.RightColumns = {kNumberColumn, kDepthColumn, kTimeColumn, kPPO2Column, kENDColumn, kRunColumn};
  fgLegs.WideColumn = kGasColumn;
  fgSchedule.TextColumns = {0, 4};
  lbFault.ForeColor = kRed;
  lbFault.Visible = false;
}

void frmPlanPane::TakeFocus() {
  if (table_.Rows() == 0) {
    tbQuickDepth.SelectAll();
  } else {
    // A cell that takes typing.
    fgLegs.SelectCell(std::max(fgLegs.SelectedRow, 1), std::max<int>(fgLegs.SelectedColumn, kDepthColumn));
    fgLegs.SetFocus();
  }
}

void frmPlanPane::ShowDocument(std::optional<std::int16_t> document) {
  if (finishing_) return;  // it shows the plan when it has done
  if (trial_.Running() && document == trial_.Document()) {
    ShowSchedule();
    if (!trying_) ShowLegs();
    return;
  }
  Finish();
  const bool same = document && document == document_ && Editor().Opening() == opening_;
  document_ = document;
  if (document_) opening_ = Editor().Opening();
  if (!same) told_.clear(), mark_.reset();
  if (const Unfinished* unfinished = document_ ? FindUnfinished(*document_) : nullptr) return TakeUp(*unfinished);
  Reload();
}

void frmPlanPane::Reload() {
  former_.reset();
  faults_.clear();
  planFault_.clear();
  settingFault_.clear();
  isInForce_ = true;
  if (document_) {
    table_.Load(Editor().UserActions, Template());
    inForce_ = Editor().UserActions;
    KeepUnfinished();
  } else {
    table_ = LegTable(platform_.separators);
  }
  ShowQuickLine();
  ShowLegs();
  ShowSettings();
  ShowSchedule();
  ShowFaults();
}

void frmPlanPane::Finish() {
  if (!trial_.Running() || finishing_) return;
  finishing_ = true;
  if (former_ && !isInForce_) PutCellBack();
  if (!settingFault_.empty()) Tell(settingText_, settingFault_);
  settingFault_.clear();
  trial_.Keep();
  former_.reset();
  if (isInForce_) {
    Reload();
  } else {
    KeepUnfinished();
    ShowSettings();
  }
  finishing_ = false;
  pane_.entered(*document_);
}

void frmPlanPane::ShowQuickLine() {
  for (Control* control : std::initializer_list<Control*>{&tbQuickDepth, &tbQuickTime, &cbQuickGas, &cbQuick}) {
    control->Enabled = IsFree();
  }
  if (!document_) return;
  const DiveTemplate& t = Template();
  std::vector<std::string> names;
  names.reserve(t.Blends.size());
  for (const GasMix& mix : t.Blends) names.push_back(mix.Name);
  cbQuickGas.Items = std::move(names);
  const int last = static_cast<int>(t.Blends.size()) - 1;
  if (cbQuickGas.ListIndex < 0 || cbQuickGas.ListIndex > last) cbQuickGas.ListIndex = 0;
  lbQuickDepthUnit.Caption = LengthUnit();
  cbQuick.Caption = T(table_.Rows() == 0 ? kPlanDive : kAddLeg);
}

void frmPlanPane::Quick() {
  if (!cbQuick.Enabled) return;
  const bool added = Change(
      [this] {
        const bool empty = table_.Rows() == 0;
        const int row = table_.EndOfLegs();
        table_.Insert(row);
        table_.Set(row, LegTable::Field::Depth, tbQuickDepth.Text);
        table_.Set(row, LegTable::Field::Time, tbQuickTime.Text);
        table_.Set(row, LegTable::Field::Gas, cbQuickGas.Text());
        if (empty) table_.SetFinalAscent(true);
      },
      true);
  const bool timeIsWrong = !added && NumberIn(tbQuickDepth.Text) && !NumberIn(tbQuickTime.Text);
  (timeIsWrong ? tbQuickTime : tbQuickDepth).SelectAll();
}

}  // namespace tav
