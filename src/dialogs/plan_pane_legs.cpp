#include "dialogs/plan_pane_legs.h"

#include <algorithm>

#include "dialogs/mix_information.h"
#include "figures/schedule.h"
#include "model/text_id.h"

namespace tav {
namespace {

LegTable::Field FieldOf(int column) {
  if (column == PlanPaneLegs::kDepth) return LegTable::Field::Depth;
  return column == PlanPaneLegs::kTime ? LegTable::Field::Time : LegTable::Field::Gas;
}

int ColumnOf(LegTable::Field field) {
  if (field == LegTable::Field::Depth) return PlanPaneLegs::kDepth;
  return field == LegTable::Field::Time ? PlanPaneLegs::kTime : PlanPaneLegs::kGas;
}

}  // namespace

PlanPaneLegs::PlanPaneLegs(Form& form, PlanEntry& entry) : PlanPanePart(form, entry) {
  fgLegs.EditorOf = [this](int line, int column) { return EditorOf(line, column); };
  fgLegs.Typed = [this](int line, int column, const std::string& text) {
    entry_.TypeCell(line, FieldOf(column), text);
  };
  fgLegs.Commit = [this](int line, int column, const std::string& text) {
    if (CommitGas(line, column, text)) return;
    entry_.CommitCell(line, FieldOf(column), text, text != fgLegs.Text(line, column));
  };
  fgLegs.Restored = [this] { entry_.RestoreCell(); };
  fgLegs.Stepped = [this](const std::string& text, int by) { return Stepped(text, by); };
  fgLegs.Click = [this] {
    // Typing goes on in the row of the next leg with its depth.
    if (fgLegs.SelectedRow == Table().EndOfLegs() + 1 && fgLegs.SelectedColumn != kDepth) {
      return fgLegs.SelectCell(fgLegs.SelectedRow, kDepth);
    }
    const auto row = Legs().RowOf(fgLegs.SelectedRow);
    if (row && Legs().IsInForce() && *row + 1 < static_cast<int>(entry_.Editor().ActionResults().size())) {
      entry_.Services().markRow(entry_.Editor().LastRowOf(static_cast<std::int16_t>(*row + 1)));
    }
  };
  ckAscent.Click = [this] { entry_.WantAscent(ckAscent.Value); };
  WireMenu();
}

void PlanPaneLegs::WireMenu() {
  const auto onRange = [this](void (PlanPaneLegs::*command)(int first, int last)) {
    return [this, command] {
      if (const auto range = Selected()) (this->*command)(range->first, range->second);
    };
  };
  fgLegs.InsertKey = mnuInsertLeg.Click = [this] { Insert(); };
  fgLegs.DeleteKey = mnuDeleteLegs.Click = onRange(&PlanPaneLegs::Delete);
  mnuDuplicateLegs.Click = onRange(&PlanPaneLegs::Duplicate);
  mnuGasOfLegs.Click = onRange(&PlanPaneLegs::OpenGas);
  mnuMoveLegsUp.Click = [this] { Move(-1); };
  mnuMoveLegsDown.Click = [this] { Move(1); };
  mnuCopyLegs.Click = onRange(&PlanPaneLegs::Copy);
  mnuPasteLegs.Click = [this] { Paste(PasteAt::Selection); };
  fgLegs.Wished = [this](Grid::Wish wish) {
    const MenuItem* item = nullptr;
    if (wish == Grid::Wish::Duplicate) item = &mnuDuplicateLegs;
    if (wish == Grid::Wish::MoveUp) item = &mnuMoveLegsUp;
    if (wish == Grid::Wish::MoveDown) item = &mnuMoveLegsDown;
    if (wish == Grid::Wish::Copy) item = &mnuCopyLegs;
    if (wish == Grid::Wish::Paste) item = &mnuPasteLegs;
    if (item != nullptr) item->Choose();
  };
  fgLegs.RowMenu = [this] {
    fgLegs.MenuByKey ? platform_.windows.PopupMenuAtFocus(Menu()) : platform_.windows.PopupMenu(Menu());
  };
  cbLegs.Click = [this] { platform_.windows.PopupMenuAtFocus(Menu()); };
}

std::vector<MenuItem*> PlanPaneLegs::Menu() {
  return {&mnuInsertLeg,  &mnuDeleteLegs,   &mnuDuplicateLegs, &mnuGasOfLegs,
          &mnuMoveLegsUp, &mnuMoveLegsDown, &mnuCopyLegs,      &mnuPasteLegs};
}

void PlanPaneLegs::SetTexts() {
  ckAscent.Caption = T(Text::PaneAscent);
  cbLegs.Caption = T(Text::PaneLegs) + "...";
  fgLegs.SpokenName = T(Text::PaneLegs);
  int id = Text::PaneMenu;
  for (MenuItem* item : Menu()) item->Caption = T(item == &mnuGasOfLegs ? int{Text::PaneGasOfLegs} : id++);
  fgLegs.RightColumns = {kNumber, kDepth, kTime, kPPO2, kEND, kRun};
  fgLegs.WideColumn = kGas;
}

void PlanPaneLegs::TakeFocus() {
  // A cell that takes typing.
  fgLegs.SelectCell(std::max(fgLegs.SelectedRow, 1), std::max<int>(fgLegs.SelectedColumn, kDepth));
  fgLegs.SetFocus();
}

void PlanPaneLegs::SelectRow(std::int16_t row) {
  if (!entry_.HasPlan()) return;
  const auto action = entry_.Editor().LegAt(row);
  if (!action || !Legs().IsInForce() || Legs().CellIsOpen()) return;
  fgLegs.SelectCell(Legs().LineOf(*action - 1), std::max<int>(fgLegs.SelectedColumn, kDepth));
}

void PlanPaneLegs::EditLeg(std::int16_t action) {
  const int line = Legs().LineOf(action - 1);
  if (line >= fgLegs.Rows()) return;
  fgLegs.SelectCell(line, kDepth);
  fgLegs.SetFocus();
  fgLegs.OpenSelected();
}

Grid::Editor PlanPaneLegs::EditorOf(int line, int column) const {
  using Kind = Grid::Editor::Kind;
  if (!entry_.IsFree()) return {};
  const auto row = Legs().RowOf(line);
  if (!row) return {line == Table().EndOfLegs() + 1 && column == kDepth ? Kind::Text : Kind::None, {}};
  if (Table().At(*row).ascent) return {};
  if (column == kDepth || column == kTime) return {Kind::Text, {}};
  if (column != kGas) return {};
  const auto& blends = entry_.Template().Blends;
  Grid::Editor list{Kind::TypedList, {}};
  list.entries.reserve(blends.size());
  for (const GasMix& mix : blends) list.entries.push_back(mix.Name);
  return list;
}

std::string PlanPaneLegs::Stepped(const std::string& text, int by) const {
  const auto value = NumberIn(text);
  if (!value) return text;
  const std::string number = FormatPlain(*value);
  const std::size_t point = number.find('.');
  const int decimals = point == std::string::npos ? 0 : static_cast<int>(number.size() - point - 1);
  double step = by;
  for (int i = 0; i < decimals; ++i) step /= 10;
  return Fixed(std::max(0.0, *value + step), decimals);
}

std::string PlanPaneLegs::RunTimeOf(int row) const {
  const frmWaypointEditor& plan = entry_.Editor();
  if (!Legs().IsInForce() || static_cast<std::size_t>(row) + 1 >= plan.ActionResults().size()) return {};
  const std::int16_t last = plan.LastRowOf(static_cast<std::int16_t>(row + 1));
  return numbers_.Short(plan.InputProfile.GetRunTime(last));
}

std::vector<GridCell> PlanPaneLegs::CellsOf(int row) const {
  const LegTable::Row& leg = Table().At(row);
  std::vector<GridCell> cells(kRun + 1);
  cells[kRun].text = RunTimeOf(row);
  if (leg.ascent) {
    cells[kGas] = {T(Text::PaneAscentWord), -1, false, true};
    return cells;
  }
  cells[kNumber].text = std::to_string(row + 1);
  cells[kDepth].text = leg.depth.text;
  cells[kTime].text = leg.time.text;
  cells[kGas].text = leg.gas;
  const DiveTemplate& t = entry_.Template();
  const auto& gases = Table().Gases();
  const bool known = leg.mix && *leg.mix >= 0 && static_cast<std::size_t>(*leg.mix) < gases.size();
  if (known && leg.depth.value && *leg.depth.value >= 0) {
    const GasFigures figures = FiguresAt(*leg.depth.value, gases[static_cast<std::size_t>(*leg.mix)], t);
    cells[kPPO2] = {Fixed(figures.breathedPPO2, 2), figures.ppo2TooHigh || figures.ppo2TooLow ? kRed : -1};
    cells[kEND] = {numbers_.Short(figures.END), figures.endTooDeep ? kRed : -1};
  }
  return cells;
}

void PlanPaneLegs::Show() {
  const bool hasPlan = entry_.HasPlan();
  const bool metric = !hasPlan || entry_.Template().Metric;
  const std::string length = metric ? "\nm" : "\nft";
  std::vector<std::vector<GridCell>> cells;
  cells.reserve(static_cast<std::size_t>(Table().Rows()) + 2);
  cells.push_back({{""},
                   {T(Text::Depth) + length},
                   {T(Text::Time) + "\nmin"},
                   {T(Text::Gas)},
                   {metric ? "PPO2\nbar" : "PPO2\nata"},
                   {"END" + length},
                   {T(Text::PaneRun) + "\nmin"}});
  for (int row = 0; hasPlan && row < Table().Rows(); ++row) {
    if (row == Table().EndOfLegs()) cells.emplace_back(kRun + 1);
    cells.push_back(CellsOf(row));
  }
  if (hasPlan && !Table().EndsWithAscent()) cells.emplace_back(kRun + 1);
  std::vector<LegTable::Fault> faults = Legs().Faults();
  if (entry_.Mark()) faults.push_back(*entry_.Mark());
  for (const LegTable::Fault& fault : faults) {
    if (fault.row >= Table().Rows()) continue;
    auto& line = cells.at(static_cast<std::size_t>(Legs().LineOf(fault.row)));
    line.at(static_cast<std::size_t>(ColumnOf(fault.field))).fault = fault.reason;
  }
  fgLegs.ToolTipText = T(Text::PaneTimeMeans);
  fgLegs.Enabled = hasPlan;
  fgLegs.Cells = std::move(cells);
  ckAscent.Enabled = entry_.IsFree();
  ckAscent.Value = entry_.WantsAscent();
  for (MenuItem* item : Menu()) item->Enabled = item == &mnuCopyLegs || entry_.IsFree();
  cbLegs.Enabled = hasPlan;
}

std::optional<std::pair<int, int>> PlanPaneLegs::Selected() const {
  std::optional<std::pair<int, int>> range;
  for (int line = std::min(fgLegs.FirstRow, fgLegs.SelectedRow); line <= std::max(fgLegs.LastRow, fgLegs.SelectedRow);
       ++line) {
    const auto row = Legs().RowOf(line);
    if (row) range = {range ? range->first : *row, *row};
  }
  return range;
}

void PlanPaneLegs::Insert() {
  if (!entry_.IsFree()) return;
  const int row = InsertedAt();
  entry_.Change([row](LegTable& table) { table.Insert(row); });
  fgLegs.SelectCell(Legs().LineOf(row), kDepth);
  fgLegs.OpenSelected();
}

void PlanPaneLegs::Delete(int first, int last) {
  entry_.Change([&](LegTable& table) { table.Delete(first, last); });
  fgLegs.SelectCell(std::min(fgLegs.SelectedRow, fgLegs.Rows() - 1), fgLegs.SelectedColumn);
}

void PlanPaneLegs::Duplicate(int first, int last) {
  entry_.Change([&](LegTable& table) { table.Duplicate(first, last); });
  fgLegs.SelectCell(Legs().LineOf(std::min(last + 1, Table().EndOfLegs())), fgLegs.SelectedColumn);
}

void PlanPaneLegs::Move(int by) {
  const auto range = Selected();
  if (!range) return;
  bool moved = false;
  const bool changed = entry_.Change([&](LegTable& table) { moved = table.Move(range->first, range->second, by); });
  if (!moved || !changed) return;
  fgLegs.SelectCell(Legs().LineOf((by > 0 ? range->second : range->first) + by), fgLegs.SelectedColumn);
}

void PlanPaneLegs::Copy(int first, int last) {
  platform_.clipboard.SetText(Table().Text(first, last, T(Text::PaneAscentWord)));
}

void PlanPaneLegs::OpenGas(int first, int last) {
  const auto current = Legs().RowOf(fgLegs.SelectedRow);
  int row = current.value_or(first);
  while (row > first && Table().At(row).ascent) --row;
  if (row <= last) fgLegs.OpenInSelection(Legs().LineOf(row), kGas);
}

bool PlanPaneLegs::CommitGas(int line, int column, const std::string& gas) {
  const auto range = Selected();
  const auto row = Legs().RowOf(line);
  if (column != kGas || !range || range->first == range->second) return false;
  if (!row || *row < range->first || *row > range->second) return false;
  const auto take = [&](LegTable& table) {
    for (int leg = range->first; leg <= range->second; ++leg) {
      if (!table.At(leg).ascent) table.Set(leg, LegTable::Field::Gas, gas);
    }
  };
  entry_.Change(take, true);
  return true;
}

bool PlanPaneLegs::PasteTable() {
  const std::string text = platform_.clipboard.Text();
  const std::size_t end = text.find_last_not_of(" \r\n");
  if (text.find_first_of("\t\n") >= end) return false;  // npos is above all
  Paste(PasteAt::End);
  return true;
}

void PlanPaneLegs::Paste(PasteAt place) {
  if (!entry_.IsFree()) return;
  const std::string text = platform_.clipboard.Text();
  const std::string ascent = T(Text::PaneAscentWord);
  const int column = fgLegs.SelectedColumn;
  const bool atEnd = place == PasteAt::End;
  const bool fillsDown = !atEnd && column >= kDepth && column <= kGas && Table().IsColumn(text, ascent);
  const auto [first, last] =
      (atEnd ? std::nullopt : Selected()).value_or(std::pair{Table().EndOfLegs(), Table().EndOfLegs()});
  const int row = fillsDown ? first : std::min(last + 1, Table().EndOfLegs());
  int pasted = 0;
  const auto paste = [&, last = last](LegTable& table) {
    pasted = fillsDown ? table.PasteColumn(row, last, FieldOf(column), text) : table.Paste(row, text, ascent);
  };
  const bool changed = entry_.Change(paste, fillsDown && column == kGas);
  if (pasted == 0) return entry_.Tell(T(Text::PasteHoldsNoLegs));
  if (changed) fgLegs.SelectCell(Legs().LineOf(std::min(row + pasted, Table().EndOfLegs()) - 1), column);
}

}  // namespace tav
