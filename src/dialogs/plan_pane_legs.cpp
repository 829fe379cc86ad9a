// The grid of legs in the plan pane: what its cells show and what the user does in them.

#include <algorithm>

#include "dialogs/mix_information.h"
#include "dialogs/plan_pane.h"

namespace tav {
namespace {

constexpr int kDepth = 7028;
constexpr int kTime = 7502;
constexpr int kGas = 7030;
constexpr int kRun = 7521;
constexpr int kTimeMeans = 7514;
constexpr int kAscentWord = 7543;
constexpr int kAboveCeiling = 7545;

LegTable::Field FieldOf(int column) {
  if (column == frmPlanPane::kDepthColumn) return LegTable::Field::Depth;
  return column == frmPlanPane::kTimeColumn ? LegTable::Field::Time : LegTable::Field::Gas;
}

int ColumnOf(LegTable::Field field) {
  if (field == LegTable::Field::Depth) return frmPlanPane::kDepthColumn;
  return field == LegTable::Field::Time ? frmPlanPane::kTimeColumn : frmPlanPane::kGasColumn;
}

}  // namespace

void frmPlanPane::WireLegs() {
  fgLegs.EditorOf = [this](int row, int column) { return EditorOf(row, column); };
  fgLegs.Typed = [this](int row, int column, const std::string& text) { TypeCell(row, column, text); };
  fgLegs.Commit = [this](int row, int column, const std::string& text) { CommitCell(row, column, text); };
  fgLegs.Restored = [this] { RestoreCell(); };
  fgLegs.Stepped = [this](const std::string& text, int by) { return Stepped(text, by); };
  fgLegs.Click = [this] {
    // Typing goes on in the row of the next leg with its depth.
    if (fgLegs.SelectedRow == table_.EndOfLegs() + 1 && fgLegs.SelectedColumn != kDepthColumn) {
      return fgLegs.SelectCell(fgLegs.SelectedRow, kDepthColumn);
    }
    const auto row = LegRow(fgLegs.SelectedRow);
    if (row && isInForce_ && *row + 1 < static_cast<int>(Editor().ActionResults().size())) {
      pane_.markRow(Editor().LastRowOf(static_cast<std::int16_t>(*row + 1)));
    }
  };
  const auto onRange = [this](void (frmPlanPane::*command)(int first, int last)) {
    return [this, command] {
      if (const auto range = SelectedLegs()) (this->*command)(range->first, range->second);
    };
  };
  fgLegs.InsertKey = mnuInsertLeg.Click = [this] { InsertLeg(); };
  fgLegs.DeleteKey = mnuDeleteLegs.Click = onRange(&frmPlanPane::DeleteLegs);
  mnuDuplicateLegs.Click = onRange(&frmPlanPane::DuplicateLegs);
  mnuMoveLegsUp.Click = [this] { MoveLegs(-1); };
  mnuMoveLegsDown.Click = [this] { MoveLegs(1); };
  mnuCopyLegs.Click = onRange(&frmPlanPane::CopyLegs);
  mnuPasteLegs.Click = [this] { PasteLegs(); };
  fgLegs.Wished = [this](Grid::Wish wish) {
    const MenuItem* item = nullptr;
    if (wish == Grid::Wish::Duplicate) item = &mnuDuplicateLegs;
    if (wish == Grid::Wish::MoveUp) item = &mnuMoveLegsUp;
    if (wish == Grid::Wish::MoveDown) item = &mnuMoveLegsDown;
    if (wish == Grid::Wish::Copy) item = &mnuCopyLegs;
    if (wish == Grid::Wish::Paste) item = &mnuPasteLegs;
    if (item != nullptr) item->Choose();
  };
  const auto menu = [this] {
    return std::vector<MenuItem*>{&mnuInsertLeg,    &mnuDeleteLegs, &mnuDuplicateLegs, &mnuMoveLegsUp,
                                  &mnuMoveLegsDown, &mnuCopyLegs,   &mnuPasteLegs};
  };
  fgLegs.RowMenu = [this, menu] {
    fgLegs.MenuByKey ? platform_.windows.PopupMenuAtFocus(menu()) : platform_.windows.PopupMenu(menu());
  };
  cbLegs.Click = [this, menu] { platform_.windows.PopupMenuAtFocus(menu()); };
  ckAscent.Click = [this] {
    const bool on = ckAscent.Value;
    Change([this, on] { table_.SetFinalAscent(on); });
    ShowLegs();
  };
}

std::optional<int> frmPlanPane::LegRow(int gridRow) const {
  const int row = gridRow - 1;
  if (row < 0 || row == table_.EndOfLegs() || row > table_.Rows()) return std::nullopt;
  return row < table_.EndOfLegs() ? row : row - 1;
}

Grid::Editor frmPlanPane::EditorOf(int gridRow, int column) const {
  using Kind = Grid::Editor::Kind;
  if (!IsFree()) return {};
  const auto row = LegRow(gridRow);
  if (!row) return {gridRow == table_.EndOfLegs() + 1 && column == kDepthColumn ? Kind::Text : Kind::None, {}};
  if (table_.At(*row).ascent) return {};
  if (column == kDepthColumn || column == kTimeColumn) return {Kind::Text, {}};
  if (column != kGasColumn) return {};
  Grid::Editor list{Kind::List, {}};
  list.entries.reserve(Template().Blends.size());
  for (const GasMix& mix : Template().Blends) list.entries.push_back(mix.Name);
  return list;
}

void frmPlanPane::TypeCell(int gridRow, int column, const std::string& text) {
  if (!IsFree()) return;
  if (!former_) {
    Finish();
    former_ = table_;
    formerInForce_ = isInForce_;
  }
  told_.clear(), mark_.reset();
  const bool wasRefused = !RefusalNow().empty();
  trial_.Begin(*document_);
  // Each text is a change of the rows as they were before the cell was opened, so that typing back is no change.
  table_ = *former_;
  auto row = LegRow(gridRow);
  if (!row && !TrimBlanks(text).empty()) {
    row = table_.EndOfLegs();
    table_.Insert(*row);
  }
  openRow_ = row.value_or(table_.EndOfLegs());
  openField_ = FieldOf(column);
  if (row) table_.Set(*row, openField_, text);
  TryRows();
  ShowLegs();
  ShowFaults();
  if (wasRefused || !isInForce_) pane_.entered(*document_);
}

void frmPlanPane::CommitCell(int gridRow, int column, const std::string& text) {
  if (former_ || text != fgLegs.Text(gridRow, column)) {
    TypeCell(gridRow, column, text);
    Finish();
  } else if (!told_.empty()) {
    told_.clear(), mark_.reset();
  } else {
    return;
  }
  ShowLegs();
  ShowFaults();
}

void frmPlanPane::RestoreCell() {
  told_.clear(), mark_.reset();
  if (former_) {
    trial_.Drop();
    table_ = *former_;
    former_.reset();
    faults_ = table_.Faults(texts_);
    isInForce_ = formerInForce_;
    planFault_.clear();
    if (isInForce_) Reload();
  } else if (!isInForce_) {
    GiveUp(*document_);  // the rows that the plan has
  }
  ShowLegs();
  ShowSchedule();
  ShowFaults();
  pane_.entered(*document_);
}

std::string frmPlanPane::Stepped(const std::string& text, int by) const {
  const auto value = NumberIn(text);
  if (!value) return text;
  const std::string number = FormatPlain(*value);
  const std::size_t point = number.find('.');
  const int decimals = point == std::string::npos ? 0 : static_cast<int>(number.size() - point - 1);
  double step = by;
  for (int i = 0; i < decimals; ++i) step /= 10;
  return Fixed(std::max(0.0, *value + step), decimals);
}

bool frmPlanPane::TryRows() {
  faults_ = table_.Faults(texts_);
  planFault_.clear();
  isInForce_ = false;
  trying_ = true;
  PlanRefusal refusal;
  if (faults_.empty()) {
    refusal = trial_.TryActions(table_.Actions(), table_.Origins());
  } else {
    trial_.Refuse();
  }
  trying_ = false;
  faults_.reserve(refusal.legs.size());
  for (const PlanRefusal::Leg& leg : refusal.legs) {
    faults_.push_back(
        {leg.action - 1, LegTable::Field::Depth, T(kAboveCeiling, {Fixed(leg.ceiling, 1) + " " + LengthUnit()})});
  }
  planFault_ = refusal.fault;
  isInForce_ = faults_.empty() && planFault_.empty();
  inForce_ = Editor().UserActions;
  ShowSchedule();
  return isInForce_;
}

std::string frmPlanPane::RunTimeOf(int row) const {
  const bool computed = isInForce_ && static_cast<std::size_t>(row) + 1 < Editor().ActionResults().size();
  if (!computed) return {};
  const std::int16_t last = Editor().LastRowOf(static_cast<std::int16_t>(row + 1));
  return numbers_.Short(Editor().InputProfile.GetRunTime(last));
}

std::vector<GridCell> frmPlanPane::LegCells(int row) const {
  const LegTable::Row& leg = table_.At(row);
  std::vector<GridCell> cells(kRunColumn + 1);
  cells[kRunColumn].text = RunTimeOf(row);
  if (leg.ascent) {
    cells[kGasColumn] = {T(kAscentWord), -1, false, true};
    return cells;
  }
  cells[kNumberColumn].text = std::to_string(row + 1);
  cells[kDepthColumn].text = leg.depth.text;
  cells[kTimeColumn].text = leg.time.text;
  cells[kGasColumn].text = leg.gas;
  const DiveTemplate& t = Template();
  const bool known = leg.mix && *leg.mix >= 0 && static_cast<std::size_t>(*leg.mix) < t.Blends.size();
  if (known && leg.depth.value && *leg.depth.value >= 0) {
    const GasFigures figures = FiguresAt(*leg.depth.value, t.Blends[static_cast<std::size_t>(*leg.mix)], t);
    cells[kPPO2Column] = {Fixed(figures.PPO2, 2), figures.ppo2TooHigh || figures.ppo2TooLow ? kRed : -1};
    cells[kENDColumn] = {numbers_.Short(figures.END), figures.endTooDeep ? kRed : -1};
  }
  return cells;
}

void frmPlanPane::ShowLegs() {
  const bool metric = !document_ || Template().Metric;
  const std::string length = metric ? "\nm" : "\nft";
  std::vector<std::vector<GridCell>> cells;
  cells.reserve(static_cast<std::size_t>(table_.Rows()) + 2);
  cells.push_back({{""},
                   {T(kDepth) + length},
                   {T(kTime) + "\nmin"},
                   {T(kGas)},
                   {metric ? "PPO2\nbar" : "PPO2\nata"},
                   {"END" + length},
                   {T(kRun) + "\nmin"}});
  for (int row = 0; document_ && row < table_.Rows(); ++row) {
    if (row == table_.EndOfLegs()) cells.emplace_back(kRunColumn + 1);
    cells.push_back(LegCells(row));
  }
  if (document_ && !table_.EndsWithAscent()) cells.emplace_back(kRunColumn + 1);
  std::vector<LegTable::Fault> faults = faults_;
  if (mark_) faults.push_back(*mark_);
  for (const LegTable::Fault& fault : faults) {
    if (fault.row >= table_.Rows()) continue;
    cells.at(static_cast<std::size_t>(GridRow(fault.row))).at(static_cast<std::size_t>(ColumnOf(fault.field))).fault =
        fault.reason;
  }
  fgLegs.ToolTipText = T(kTimeMeans);
  fgLegs.Enabled = document_.has_value();
  fgLegs.Cells = std::move(cells);
  ckAscent.Enabled = IsFree() && table_.EndOfLegs() > 0;
  ckAscent.Value = table_.EndsWithAscent();
  for (MenuItem* item :
       {&mnuInsertLeg, &mnuDeleteLegs, &mnuDuplicateLegs, &mnuMoveLegsUp, &mnuMoveLegsDown, &mnuPasteLegs}) {
    item->Enabled = IsFree();
  }
  cbLegs.Enabled = document_.has_value();
}

void frmPlanPane::EditLeg(std::int16_t action) {
  const int row = GridRow(action - 1);
  if (row >= fgLegs.Rows()) return;
  fgLegs.SelectCell(row, kDepthColumn);
  fgLegs.SetFocus();
  fgLegs.OpenSelected();
}

}  // namespace tav
