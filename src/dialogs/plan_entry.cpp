#include "dialogs/plan_entry.h"

#include <utility>

#include "model/text_id.h"

namespace tav {

PlanEntry::PlanEntry(PlanPaneServices services)
    : FormTexts(services.dialogs.platform, services.dialogs.texts),
      services_(std::move(services)),
      trial_(services_.dialogs.forms, services_.history),
      legs_(trial_, platform_, texts_) {}

void PlanEntry::ShowDocument(std::optional<std::int16_t> document) {
  if (finishing_ || trying_) return;  // it shows the plan when it has done
  if (trial_.Running() && document == trial_.Document()) return Changed();
  Finish();
  const bool same = document && document == document_ && Editor().Opening() == opening_;
  document_ = document;
  if (document_) opening_ = Editor().Opening();
  if (!same) Forget();
  if (const Unfinished* unfinished = document_ ? FindUnfinished(*document_) : nullptr) return TakeUp(*unfinished);
  Reload();
}

void PlanEntry::Reload() {
  settingFault_.clear();
  if (document_) {
    inForce_ = Editor().UserActions;
    legs_.Load(inForce_, Template(), Editor().WantsAscent());
    KeepUnfinished();
  } else {
    legs_.Clear();
  }
  Changed();
}

void PlanEntry::Finish() {
  if (!trial_.Running() || finishing_) return;
  if (moving_) return EndMove(true);
  finishing_ = true;
  if (legs_.CellIsOpen() && !legs_.IsInForce()) {
    if (const auto refused = legs_.PutCellBack()) {
      Tell(refused->text, refused->at.reason);
      mark_ = {refused->at.row, refused->at.field, told_};
    }
  }
  if (!settingFault_.empty()) Tell(settingText_, settingFault_);
  settingFault_.clear();
  trial_.Keep();
  legs_.CloseCell();
  if (legs_.IsInForce()) {
    Reload();
  } else {
    KeepUnfinished();
    Changed();
  }
  finishing_ = false;
  services_.entered(*document_);
}

void PlanEntry::Try(const std::function<void()>& attempt) {
  trial_.Begin(*document_);
  trying_ = true;
  attempt();
  trying_ = false;
  inForce_ = Editor().UserActions;
}

void PlanEntry::TypeCell(int line, LegTable::Field field, const std::string& text) {
  if (!IsFree()) return;
  if (!legs_.CellIsOpen()) {
    Finish();
    legs_.OpenCell();
  }
  Forget();
  const bool wasRefused = !Refusal().empty();
  Try([&] { legs_.Type(line, field, text); });
  Changed();
  if (wasRefused || !legs_.IsInForce()) services_.entered(*document_);
}

void PlanEntry::CommitCell(int line, LegTable::Field field, const std::string& text, bool typed) {
  if (legs_.CellIsOpen() || typed) {
    TypeCell(line, field, text);
    Finish();
  } else {
    Forget();
  }
  Changed();
}

void PlanEntry::RestoreCell() {
  if (!document_) return;
  Forget();
  if (legs_.CellIsOpen()) {
    Try([this] { legs_.Restore(); });
    if (legs_.IsInForce()) Reload();
  } else if (!legs_.IsInForce()) {
    GiveUp(*document_);  // the rows that the plan has
  }
  Changed();
  services_.entered(*document_);
}

bool PlanEntry::Change(const std::function<void(LegTable&)>& change, bool whole) {
  if (!IsFree()) return false;
  Finish();
  Forget();
  Try([&] { told_ = legs_.Change(change, whole); });
  if (told_.empty()) {
    Finish();
    return true;
  }
  if (legs_.IsInForce()) {
    Reload();
  } else {
    Changed();
  }
  services_.entered(*document_);
  return false;
}

bool PlanEntry::BeginMove() {
  if (!IsFree()) return false;
  Finish();
  Forget();
  if (!legs_.IsInForce()) return false;
  trial_.Begin(*document_);
  legs_.OpenCell();
  moving_ = true;
  return true;
}

std::string PlanEntry::Move(const std::function<void(LegTable&)>& change) {
  if (!moving_) return {};
  Try([&] { legs_.Retry(change); });
  Changed();
  return legs_.Reason();
}

void PlanEntry::EndMove(bool keep) {
  if (!std::exchange(moving_, false)) return;
  keep&& legs_.IsInForce() ? Finish() : RestoreCell();
}

void PlanEntry::WantAscent(bool on) {
  if (!IsFree()) return Changed();
  if (legs_.Table().Rows() > 0) {
    Change([on](LegTable& table) { table.SetFinalAscent(on); });
    return Changed();
  }
  Finish();
  Editor().WantAscent(on);
  Reload();
}

void PlanEntry::TypeSetting(const std::string& text, const std::string& fault,
                            const std::function<void(DiveTemplate&)>& change) {
  EnterSetting(text, fault, [&] { return trial_.TryTemplate(change); });
}

void PlanEntry::TypeInterval(const std::string& text, const std::string& fault, Single minutes) {
  EnterSetting(text, fault, [&] { return trial_.TryInterval(minutes); });
}

void PlanEntry::EnterSetting(const std::string& text, const std::string& fault,
                             const std::function<std::string()>& attempt) {
  if (!IsFree() || legs_.CellIsOpen()) return;
  Forget();
  settingText_ = text;
  settingFault_ = fault;
  Try([&] {
    if (fault.empty()) {
      settingFault_ = attempt();
    } else {
      trial_.Refuse();
    }
  });
  Changed();
  services_.entered(*document_);
}

void PlanEntry::RestoreSetting() {
  if (!document_) return;
  if (trial_.Running()) trial_.Drop();
  settingFault_.clear();
  Forget();
  Changed();
  services_.entered(*document_);
}

void PlanEntry::Tell(const std::string& entered, const std::string& reason) {
  told_ = T(Text::EntryNotTaken, {entered, reason});
}

void PlanEntry::Tell(const std::string& words) {
  told_ = words;
  Changed();
}

const PlanEntry::Unfinished* PlanEntry::FindUnfinished(std::int16_t document) const {
  const auto found = unfinished_.find(document);
  const bool isOfPlan = found != unfinished_.end() && !services_.dialogs.Documents()(document).SlotFree &&
                        services_.dialogs.forms(document).Opening() == found->second.opening;
  return isOfPlan ? &found->second : nullptr;
}

void PlanEntry::KeepUnfinished() {
  if (legs_.IsInForce()) {
    unfinished_.erase(*document_);
  } else {
    unfinished_[*document_] = {opening_, legs_.Table(), inForce_};
    Editor().MarkModified();
  }
}

void PlanEntry::MarkUnfinished() const {
  for (const auto& [document, unfinished] : unfinished_) {
    if (FindUnfinished(document) != nullptr) services_.dialogs.forms(document).MarkModified();
  }
}

void PlanEntry::TakeUp(const Unfinished& unfinished) {
  const ClassUseractions& now = Editor().UserActions;
  if (now.GetLength() == 0 && unfinished.inForce.GetLength() > 0) {  // all has been cleared
    Reload();
  } else {
    LegTable table = unfinished.table;
    table.Follow(unfinished.inForce, now);
    inForce_ = now;
    legs_.TakeUp(std::move(table), now, Template());
    KeepUnfinished();
    Changed();
  }
  services_.entered(*document_);
}

bool PlanEntry::GiveUp(std::int16_t document) {
  if (FindUnfinished(document) == nullptr) return false;
  unfinished_.erase(document);
  services_.history.ShowSaved(document);
  MarkUnfinished();
  if (document == document_) Reload();
  services_.entered(document);
  return true;
}

std::string PlanEntry::Refusal(std::int16_t document) const {
  if (document == document_ && Editor().Opening() == opening_) return Refusal();
  const std::string cells = MarkedCells(document);
  return cells.substr(0, cells.find('\n'));
}

std::string PlanEntry::MarkedCells(std::int16_t document) const {
  const Unfinished* unfinished = FindUnfinished(document);
  std::string lines;
  if (unfinished == nullptr) return lines;
  for (const LegTable::Fault& fault : unfinished->table.Faults(texts_)) {
    lines += (lines.empty() ? "" : "\n") + legs_.FaultLine(fault);
  }
  return lines;
}

}  // namespace tav
