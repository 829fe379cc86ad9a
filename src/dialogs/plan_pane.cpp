#include "dialogs/plan_pane.h"

#include <utility>

namespace tav {
namespace {

constexpr int kDepth = 7028;
constexpr int kTime = 7502;
constexpr int kGas = 7030;
constexpr int kPPO2 = 7031;
constexpr int kTitle = 7511;
constexpr int kPlanDive = 7512;
constexpr int kAddLeg = 7513;
constexpr int kTimeMeans = 7514;
constexpr int kFirstKind = 7515;
constexpr int kRun = 7521;
constexpr int kTotals = 7522;
constexpr int kGases = 7523;
constexpr int kNoAscent = 7524;
constexpr int kCopySchedule = 7525;
constexpr int kAboveCeiling = 7545;

}  // namespace

frmPlanPane::frmPlanPane(PlanPaneServices services)
    : PaneForm("frmPlanPane", services.dialogs),
      pane_(std::move(services)),
      trial_(pane_.dialogs.forms, pane_.history),
      table_(pane_.dialogs.platform.separators) {
  Wire();
}

void frmPlanPane::Wire() {
  cbQuick.Click = tbQuickDepth.KeyReturn = tbQuickTime.KeyReturn = [this] { Quick(); };
  cbCopySchedule.Click = [this] {
    if (document_) platform_.clipboard.SetText(Schedule().Aligned());
  };
}

void frmPlanPane::Form_Load() {
  Localize();
  Caption = T(kTitle);
  cbCopySchedule.Caption = T(kCopySchedule);
  lbQuickTimeUnit.Caption = "min";
  tbQuickDepth.ToolTipText = T(kDepth);
  tbQuickTime.ToolTipText = T(kTimeMeans);
  cbQuickGas.ToolTipText = T(kGas);
  lbFault.ForeColor = kRed;
  lbFault.Visible = false;
  fgSchedule.TextColumns = {0, 4};
}

void frmPlanPane::TakeFocus() { tbQuickDepth.SelectAll(); }

void frmPlanPane::ShowDocument(std::optional<std::int16_t> document) {
  // What it does on trial it shows itself, at its end.
  document_ = document;
  if (!trial_.Running()) Reload();
}

void frmPlanPane::Reload() {
  if (document_) table_.Load(Editor().UserActions, Template());
  ShowQuickLine();
  ShowSchedule();
}

void frmPlanPane::ShowQuickLine() {
  const bool free = document_ && !pane_.held(*document_);
  for (Control* control : std::initializer_list<Control*>{&tbQuickDepth, &tbQuickTime, &cbQuickGas, &cbQuick}) {
    control->Enabled = free;
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
  cbQuick.Caption = T(Editor().UserActions.GetLength() == 0 ? kPlanDive : kAddLeg);
}

void frmPlanPane::Quick() {
  if (!cbQuick.Enabled) return;
  const bool empty = table_.Rows() == 0;
  const int row = table_.EndOfLegs();
  table_.Insert(row);
  table_.Set(row, LegTable::Field::Depth, tbQuickDepth.Text);
  table_.Set(row, LegTable::Field::Time, tbQuickTime.Text);
  table_.Set(row, LegTable::Field::Gas, cbQuickGas.Text());
  if (empty) table_.SetFinalAscent(true);
  trial_.Begin(*document_);
  const bool taken = TryRows();
  trial_.Keep();
  Reload();
  pane_.kept();
  (taken || tbQuickDepth.Text.Get().empty() || !NumberIn(tbQuickDepth.Text) ? tbQuickDepth : tbQuickTime).SelectAll();
}

bool frmPlanPane::TryRows() {
  const auto faults = table_.Faults(texts_);
  if (!faults.empty()) {
    ShowFault(faults.front().reason);
    return false;
  }
  const PlanRefusal refusal = trial_.TryActions(table_.Actions(), table_.Origins());
  if (!refusal.legs.empty()) {
    ShowFault(T(kAboveCeiling, {Fixed(refusal.legs.front().ceiling, 1) + " " + LengthUnit()}));
  } else {
    ShowFault(refusal.fault);
  }
  return refusal.IsEmpty();
}

void frmPlanPane::ShowFault(const std::string& reason) {
  lbFault.Caption = reason;
  lbFault.Visible = !reason.empty();
}

ScheduleWords frmPlanPane::Words() const {
  ScheduleWords words;
  for (std::size_t i = 0; i < words.kinds.size(); ++i) words.kinds.at(i) = T(kFirstKind + static_cast<int>(i));
  words.heads = {T(kDepth), T(kTime), T(kRun), T(kGas), T(kPPO2)};
  words.totals = T(kTotals);
  words.gases = T(kGases);
  words.noAscent = T(kNoAscent);
  words.atmospheres = "ata";
  return words;
}

ScheduleText frmPlanPane::Schedule() const {
  return {Editor().InputProfile, Template(), Words(), platform_.separators};
}

void frmPlanPane::ShowSchedule() {
  fgSchedule.Enabled = cbCopySchedule.Enabled = document_.has_value();
  if (!document_) {
    fgSchedule.Cells = {};
    lbTotals.Caption = "";
    return;
  }
  const ScheduleText schedule = Schedule();
  std::vector<std::vector<GridCell>> cells;
  cells.reserve(schedule.Lines().size() + 1);
  const auto heads = schedule.Heads();
  auto& head = cells.emplace_back();
  for (std::size_t i = 0; i < heads[0].size(); ++i) {
    head.push_back({heads[0].at(i) + (heads[1].at(i).empty() ? "" : "\n" + heads[1].at(i))});
  }
  for (std::size_t i = 0; i < schedule.Lines().size(); ++i) {
    const bool bold = schedule.Rows()[i].changesGas;
    auto& row = cells.emplace_back();
    for (const std::string& text : schedule.Lines()[i]) row.push_back({text, -1, bold});
  }
  fgSchedule.Cells = std::move(cells);
  std::string totals;
  if (!schedule.Rows().empty()) {
    for (const std::string& line : schedule.Totals()) totals += (totals.empty() ? "" : "\n") + line;
  }
  lbTotals.Caption = totals;
}

}  // namespace tav
