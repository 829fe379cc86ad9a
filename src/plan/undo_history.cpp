#include "plan/undo_history.h"

#include "persist/profile_file.h"
#include "plan/document_forms.h"

namespace tav {

struct UndoHistory::TakenOut {
  DiveRecord dive;
  History history;
};

void UndoHistory::Record(std::int16_t document) {
  if (restoring_ || held_) return;
  const DiveTemplate& diveTemplate = forms_.Services().documents(document).Template;
  const ClassUseractions& actions = forms_(document).UserActions;
  std::string text = WriteDiveRecord(diveTemplate, 0, actions);
  History& history = histories_[document];
  if (!history.states.empty() && history.states[history.present].text == text) return;
  if (!history.states.empty()) history.states.resize(history.present + 1);
  history.states.push_back({diveTemplate, actions, std::move(text), nullptr});
  history.present = history.states.size() - 1;
}

bool UndoHistory::OnTrial(std::int16_t document) const {
  const auto found = histories_.find(document);
  if (!held_ || found == histories_.end() || found->second.states.empty()) return false;
  const DiveTemplate& diveTemplate = forms_.Services().documents(document).Template;
  return found->second.states[found->second.present].text !=
         WriteDiveRecord(diveTemplate, 0, forms_(document).UserActions);
}

bool UndoHistory::CanUndo(std::int16_t document) const {
  const auto found = histories_.find(document);
  return found != histories_.end() && found->second.present > 0;
}

bool UndoHistory::CanRedo(std::int16_t document) const {
  const auto found = histories_.find(document);
  return found != histories_.end() && found->second.present + 1 < found->second.states.size();
}

void UndoHistory::Undo(std::int16_t document) {
  if (!CanUndo(document)) return;
  History& history = histories_[document];
  const std::shared_ptr<const TakenOut> takenOut = history.states[history.present--].takenOut;
  if (!takenOut) return PutInForce(document, history.states[history.present]);
  restoring_ = true;
  histories_[forms_.InsertDive(document, takenOut->dive)] = takenOut->history;
  restoring_ = false;
}

void UndoHistory::Redo(std::int16_t document) {
  if (!CanRedo(document)) return;
  History& history = histories_[document];
  const State& state = history.states[++history.present];
  if (!state.takenOut) return PutInForce(document, state);
  auto asItIsNow = Remove(forms_(document).NextProfile);
  history.states[history.present].takenOut = std::move(asItIsNow);
}

void UndoHistory::TakeOut(std::int16_t document) {
  const std::int16_t before = forms_(document).PrevProfile;
  Record(before);
  auto takenOut = Remove(document);
  History& history = histories_[before];
  history.states.resize(history.present + 1);
  history.states.push_back(history.states.back());
  history.states.back().takenOut = std::move(takenOut);
  ++history.present;
}

std::shared_ptr<const UndoHistory::TakenOut> UndoHistory::Remove(std::int16_t document) {
  const PlanServices& services = forms_.Services();
  frmWaypointEditor& editor = forms_(document);
  const DocumentState& state = services.documents(document);
  auto takenOut = std::make_shared<TakenOut>(
      TakenOut{{state.Template, state.SurfaceInterval, editor.UserActions}, histories_[document]});
  forms_(editor.PrevProfile).MarkModified();
  editor.LeaveDocument(true);
  services.display.CloseWindow(document);
  forms_.Unload(document);
  Forget(document);
  return takenOut;
}

void UndoHistory::PutInForce(std::int16_t document, const State& state) {
  restoring_ = true;
  // A plain assignment and no CopyDiveTemplate: a list that was empty then must be empty again.
  forms_.Services().documents(document).Template = state.diveTemplate;
  forms_(document).UserActions = state.actions;
  forms_(document).MarkModified();
  forms_(document).SetTemplate();
  forms_(document).ReEvaluateUserEnteredWaypoints();
  restoring_ = false;
}

}  // namespace tav
