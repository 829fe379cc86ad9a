// What the plan does not take of what is entered: how it is told, what goes back, and what stays until it is complete.

#include <algorithm>

#include "dialogs/plan_pane.h"

namespace tav {
namespace {

constexpr int kLegFault = 7544;
constexpr int kNotTaken = 8000;

const std::string& TextOf(const LegTable::Row& leg, LegTable::Field field) {
  if (field == LegTable::Field::Gas) return leg.gas;
  return field == LegTable::Field::Depth ? leg.depth.text : leg.time.text;
}

}  // namespace

const frmPlanPane::Unfinished* frmPlanPane::FindUnfinished(std::int16_t document) const {
  const auto found = unfinished_.find(document);
  const bool isOfPlan = found != unfinished_.end() && !services_.Documents()(document).SlotFree &&
                        services_.forms(document).Opening() == found->second.opening;
  return isOfPlan ? &found->second : nullptr;
}

void frmPlanPane::KeepUnfinished() {
  if (isInForce_) {
    unfinished_.erase(*document_);
  } else {
    unfinished_[*document_] = {opening_, table_, inForce_};
    Editor().MarkModified();
  }
}

void frmPlanPane::MarkUnfinished() const {
  for (const auto& [document, unfinished] : unfinished_) {
    if (FindUnfinished(document) != nullptr) services_.forms(document).MarkModified();
  }
}

void frmPlanPane::TakeUp(const Unfinished& unfinished) {
  const ClassUseractions& now = Editor().UserActions;
  if (now.GetLength() == 0 && unfinished.inForce.GetLength() > 0) {  // all has been cleared
    Reload();
    return pane_.entered(*document_);
  }
  table_ = unfinished.table;
  table_.Follow(unfinished.inForce, now);
  inForce_ = now;
  former_.reset();
  planFault_.clear();
  faults_ = table_.Faults(texts_);
  isInForce_ = faults_.empty() && table_.Actions() == now;
  KeepUnfinished();
  ShowQuickLine();
  ShowLegs();
  ShowSettings();
  ShowSchedule();
  ShowFaults();
  pane_.entered(*document_);
}

bool frmPlanPane::GiveUp(std::int16_t document) {
  if (FindUnfinished(document) == nullptr) return false;
  unfinished_.erase(document);
  pane_.history.ShowSaved(document);
  MarkUnfinished();
  if (document == document_) Reload();
  pane_.entered(document);
  return true;
}

void frmPlanPane::PutCellBack() {
  const auto isOpenCell = [this](const LegTable::Fault& fault) {
    return fault.row == openRow_ && fault.field == openField_;
  };
  const std::vector<LegTable::Fault> texts = table_.Faults(texts_);
  const auto own = std::find_if(texts.begin(), texts.end(), isOpenCell);
  if (!texts.empty()) {
    // Cells that are still to be filled wait for that; so does one that never had a text that can be.
    if (own == texts.end() || table_.Rows() != former_->Rows()) return;
    const std::vector<LegTable::Fault> before = former_->Faults(texts_);
    if (std::any_of(before.begin(), before.end(), isOpenCell)) return;
  }
  std::string reason = planFault_;
  if (!faults_.empty()) reason = FaultLine(faults_.front());
  if (faults_.size() == 1 && isOpenCell(faults_.front())) reason = faults_.front().reason;
  if (own != texts.end()) reason = own->reason;
  Tell(TextOf(table_.At(openRow_), openField_), reason);
  mark_ = LegTable::Fault{openRow_, openField_, told_};
  table_ = *former_;
  isInForce_ = formerInForce_;
  planFault_.clear();
  faults_ = table_.Faults(texts_);
}

void frmPlanPane::Tell(const std::string& entered, const std::string& reason) {
  told_ = T(kNotTaken, {entered, reason});
}

std::string frmPlanPane::FaultLine(const LegTable::Fault& fault) const {
  return T(kLegFault, {std::to_string(fault.row + 1), fault.reason});
}

std::string frmPlanPane::RefusalNow() const {
  if (!settingFault_.empty()) return settingFault_;
  if (isInForce_) return {};
  return faults_.empty() ? planFault_ : FaultLine(faults_.front());
}

std::string frmPlanPane::Refusal(std::int16_t document) const {
  if (document == document_ && Editor().Opening() == opening_) return RefusalNow();
  const std::string cells = MarkedCells(document);
  return cells.substr(0, cells.find('\n'));
}

std::string frmPlanPane::MarkedCells(std::int16_t document) const {
  const Unfinished* unfinished = FindUnfinished(document);
  std::string lines;
  if (unfinished == nullptr) return lines;
  for (const LegTable::Fault& fault : unfinished->table.Faults(texts_)) {
    lines += (lines.empty() ? "" : "\n") + FaultLine(fault);
  }
  return lines;
}

void frmPlanPane::ShowFaults() {
  const std::string refusal = RefusalNow();
  ShowFault(told_.empty() ? refusal : told_);
}

void frmPlanPane::ShowFault(const std::string& reason) {
  lbFault.Caption = reason;
  lbFault.Visible = !reason.empty();
}

}  // namespace tav
