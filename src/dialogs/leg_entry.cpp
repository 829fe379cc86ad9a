#include "dialogs/leg_entry.h"

#include <algorithm>
#include <utility>

#include "model/text_id.h"

namespace tav {
namespace {

const std::string& TextOf(const LegTable::Row& leg, LegTable::Field field) {
  if (field == LegTable::Field::Gas) return leg.gas;
  return field == LegTable::Field::Depth ? leg.depth.text : leg.time.text;
}

}  // namespace

std::string LegEntry::Refusal() const {
  if (isInForce_) return {};
  return faults_.empty() ? planFault_ : FaultLine(faults_.front());
}

std::string LegEntry::FaultLine(const LegTable::Fault& fault) const {
  return T(Text::PaneLegFault, {std::to_string(fault.row + 1), fault.reason});
}

std::optional<int> LegEntry::RowOf(int line) const {
  const int row = line - 1;
  if (row < 0 || row == table_.EndOfLegs() || row > table_.Rows()) return std::nullopt;
  return row < table_.EndOfLegs() ? row : row - 1;
}

void LegEntry::Put(LegTable table, bool isInForce) {
  table_ = std::move(table);
  isInForce_ = isInForce;
  former_.reset();
  planFault_.clear();
  faults_ = table_.Faults(texts_);
}

void LegEntry::Load(const ClassUseractions& actions, const DiveTemplate& diveTemplate, bool wantsAscent) {
  template_ = &diveTemplate;
  table_.Load(actions, diveTemplate);
  table_.WantAscent(wantsAscent);
  isInForce_ = true;
  former_.reset();
  planFault_.clear();
  faults_.clear();
}

void LegEntry::TakeUp(LegTable table, const ClassUseractions& actions, const DiveTemplate& diveTemplate) {
  template_ = &diveTemplate;
  Put(std::move(table), false);
  isInForce_ = faults_.empty() && table_.Actions() == actions;
}

void LegEntry::OpenCell() {
  table_.RenewGases();
  former_ = table_;
  formerInForce_ = isInForce_;
}

void LegEntry::Retry(const std::function<void(LegTable&)>& change) {
  // Each text is a change of the rows as they were before the cell was opened,
  // so that typing back is no change.
  table_ = former_.value();
  change(table_);
  Try();
}

void LegEntry::Type(int line, LegTable::Field field, const std::string& text) {
  openField_ = field;
  Retry([&](LegTable& table) {
    auto row = RowOf(line);
    if (!row && !TrimBlanks(text).empty()) {
      row = table.EndOfLegs();
      table.Insert(*row);
    }
    openRow_ = row.value_or(table.EndOfLegs());
    if (row) table.Set(*row, openField_, text);
  });
}

void LegEntry::Restore() {
  LegTable former = former_.value();
  trial_.Drop();
  Put(std::move(former), formerInForce_);
}

std::optional<LegEntry::Refused> LegEntry::PutCellBack() {
  const auto isOpenCell = [this](const LegTable::Fault& fault) {
    return fault.row == openRow_ && fault.field == openField_;
  };
  const std::vector<LegTable::Fault> texts = table_.Faults(texts_);
  const auto own = std::find_if(texts.begin(), texts.end(), isOpenCell);
  if (!texts.empty()) {
    // Cells that are still to be filled wait for that; so does one that never
    // had a text that can be.
    if (own == texts.end() || table_.Rows() != former_->Rows()) return std::nullopt;
    const std::vector<LegTable::Fault> before = former_->Faults(texts_);
    if (std::any_of(before.begin(), before.end(), isOpenCell)) return std::nullopt;
  }
  std::string reason = planFault_;
  if (!faults_.empty()) reason = FaultLine(faults_.front());
  if (faults_.size() == 1 && isOpenCell(faults_.front())) reason = faults_.front().reason;
  if (own != texts.end()) reason = own->reason;
  Refused refused{TextOf(table_.At(openRow_), openField_), {openRow_, openField_, reason}};
  Put(LegTable(*former_), formerInForce_);
  return refused;
}

std::string LegEntry::Change(const std::function<void(LegTable&)>& change, bool whole) {
  table_.RenewGases();
  LegTable before = table_;
  const bool wasInForce = isInForce_;
  change(table_);
  const bool complete = table_.Faults(texts_).empty();
  if (Try() || !(whole || complete)) return {};
  std::string reason = Reason();
  trial_.Drop();
  Put(std::move(before), wasInForce);
  return reason;
}

bool LegEntry::Try() {
  faults_ = table_.Faults(texts_);
  planFault_.clear();
  isInForce_ = false;
  PlanRefusal refusal;
  if (faults_.empty()) {
    refusal = trial_.TryActions(table_.Actions(), table_.Origins(), table_.Gases());
  } else {
    trial_.Refuse();
  }
  const std::string unit = template_->Metric ? " m" : " ft";
  for (const PlanRefusal::Leg& leg : refusal.legs) {
    faults_.push_back(
        {leg.action - 1, LegTable::Field::Depth, T(Text::PaneAboveCeiling, {Fixed(leg.ceiling, 1) + unit})});
  }
  planFault_ = refusal.fault;
  isInForce_ = faults_.empty() && planFault_.empty();
  return isInForce_;
}

}  // namespace tav
