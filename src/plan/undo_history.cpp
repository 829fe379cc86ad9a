#include "plan/undo_history.h"

#include "persist/profile_file.h"
#include "plan/document_forms.h"

namespace tav {

void UndoHistory::Record(std::int16_t document) {
  if (restoring_ || held_) return;
  const DiveTemplate& diveTemplate = forms_.Services().documents(document).Template;
  const ClassUseractions& actions = forms_(document).UserActions;
  std::string text = WriteDiveRecord(diveTemplate, 0, actions);
  History& history = histories_[document];
  if (!history.states.empty() && history.states[history.present].text == text) return;
  if (!history.states.empty()) history.states.resize(history.present + 1);
  history.states.push_back({diveTemplate, actions, std::move(text)});
  history.present = history.states.size() - 1;
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
  PutInForce(document, history.states[--history.present]);
}

void UndoHistory::Redo(std::int16_t document) {
  if (!CanRedo(document)) return;
  History& history = histories_[document];
  PutInForce(document, history.states[++history.present]);
}

void UndoHistory::PutInForce(std::int16_t document, const State& state) {
  restoring_ = true;
  forms_.Services().documents(document).Template = state.diveTemplate;
  forms_(document).UserActions = state.actions;
  forms_(document).MarkModified();
  forms_(document).SetTemplate();
  forms_(document).ReEvaluateUserEnteredWaypoints();
  restoring_ = false;
}

}  // namespace tav
