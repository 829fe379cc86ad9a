// What the plan pane does with whole legs.

#include <algorithm>

#include "dialogs/plan_pane.h"

namespace tav {
namespace {

constexpr int kAscentWord = 7543;

}  // namespace

bool frmPlanPane::Change(const std::function<void()>& change, bool whole) {
  if (!IsFree()) return false;
  Finish();
  told_.clear(), mark_.reset();
  const LegTable before = table_;
  const bool wasInForce = isInForce_;
  change();
  trial_.Begin(*document_);
  const bool complete = table_.Faults(texts_).empty();
  if (!TryRows() && (whole || complete)) {
    told_ = !faults_.empty() ? faults_.front().reason : planFault_;
    trial_.Drop();
    table_ = before;
    planFault_.clear();
    faults_ = table_.Faults(texts_);
    if (wasInForce) {
      Reload();
    } else {
      ShowLegs();
      ShowFaults();
    }
    pane_.entered(*document_);
    return false;
  }
  Finish();
  ShowLegs();
  ShowFaults();
  return true;
}

std::optional<std::pair<int, int>> frmPlanPane::SelectedLegs() const {
  std::optional<std::pair<int, int>> range;
  for (int row = std::min(fgLegs.FirstRow, fgLegs.SelectedRow); row <= std::max(fgLegs.LastRow, fgLegs.SelectedRow);
       ++row) {
    const auto leg = LegRow(row);
    if (!leg) continue;
    range = {range ? range->first : *leg, *leg};
  }
  return range;
}

void frmPlanPane::InsertLeg() {
  if (!IsFree()) return;
  const int row = LegRow(fgLegs.SelectedRow).value_or(table_.EndOfLegs());
  Change([&] { table_.Insert(row); });
  fgLegs.SelectCell(GridRow(row), kDepthColumn);
  fgLegs.OpenSelected();
}

void frmPlanPane::DeleteLegs(int first, int last) {
  Change([&] { table_.Delete(first, last); });
  fgLegs.SelectCell(std::min(fgLegs.SelectedRow, fgLegs.Rows() - 1), fgLegs.SelectedColumn);
}

void frmPlanPane::DuplicateLegs(int first, int last) {
  Change([&] { table_.Duplicate(first, last); });
  fgLegs.SelectCell(GridRow(std::min(last + 1, table_.EndOfLegs())), fgLegs.SelectedColumn);
}

void frmPlanPane::MoveLegs(int by) {
  const auto range = SelectedLegs();
  if (!range) return;
  bool moved = false;
  const bool changed = Change([&] { moved = table_.Move(range->first, range->second, by); });
  if (moved && changed) fgLegs.SelectCell(GridRow((by > 0 ? range->second : range->first) + by), fgLegs.SelectedColumn);
}

void frmPlanPane::CopyLegs(int first, int last) {
  platform_.clipboard.SetText(table_.Text(first, last, T(kAscentWord)));
}

void frmPlanPane::PasteLegs() {
  if (!IsFree()) return;
  const int row = LegRow(fgLegs.SelectedRow).value_or(table_.EndOfLegs());
  const std::string text = platform_.clipboard.Text();
  Change([&] { table_.Paste(row, text, T(kAscentWord)); });
}

}  // namespace tav
