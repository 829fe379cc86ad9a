#include "plans/undo_history.h"

#include "persist/profile_file.h"
#include "plans/document_forms.h"
#include "plans/profile_commands.h"

namespace tav {

struct UndoHistory::TakenOut {
  DiveRecord dive;
  History history;
};

UndoHistory::History& UndoHistory::Of(std::int16_t document) {
  History& history = histories_[document];
  const int opening = forms_(document).Opening();
  if (history.opening != opening) {
    history = {};
    history.opening = opening;
  }
  return history;
}

const UndoHistory::History* UndoHistory::Find(std::int16_t document) const {
  const auto found = histories_.find(document);
  const bool isOfPlan = found != histories_.end() && found->second.opening == forms_(document).Opening();
  return isOfPlan ? &found->second : nullptr;
}

void UndoHistory::Record(std::int16_t document) {
  if (restoring_ || held_) return;
  const DocumentState& state = forms_.Services().documents(document);
  const ClassUseractions& actions = forms_(document).UserActions;
  std::string text = WriteDiveRecord(state.Template, state.SurfaceInterval, actions);
  History& history = Of(document);
  State now{state.Template, state.TemplateTitle, state.SurfaceInterval, actions, std::move(text), nullptr};
  if (!history.states.empty() && history.states[history.present].text == now.text) {
    // The name of the template may be another one.
    now.takenOut = history.states[history.present].takenOut;
    history.states[history.present] = std::move(now);
    return;
  }
  if (!history.states.empty()) history.states.resize(history.present + 1);
  history.states.push_back(std::move(now));
  history.present = history.states.size() - 1;
}

void UndoHistory::MarkSaved(std::int16_t document) {
  Of(forms_(document).getFirstProfile()).saved = ProfileFileText(forms_, document);
}

void UndoHistory::ForgetSaved(std::int16_t document) {
  Of(forms_(document).getFirstProfile()).saved.reset();
  ShowSaved(document);
}

void UndoHistory::ShowSaved(std::int16_t document) {
  const std::int16_t first = forms_(document).getFirstProfile();
  const auto& saved = Of(first).saved;
  if (!saved || *saved != ProfileFileText(forms_, first)) return forms_(document).MarkModified();
  for (std::int16_t n = first; n != -1; n = forms_(n).NextProfile) forms_.Services().documents(n).Modified = false;
}

void UndoHistory::TemplateNamed(std::int16_t document, const DiveTemplate& before) {
  const DocumentState& now = forms_.Services().documents(document);
  for (State& state : Of(document).states) {
    DiveTemplate& t = state.diveTemplate;
    if (t.Templatename != before.Templatename || t.TemplateFolder != before.TemplateFolder) continue;
    t.Templatename = now.Template.Templatename;
    t.TemplateFolder = now.Template.TemplateFolder;
    state.templateTitle = now.TemplateTitle;
    state.text = WriteDiveRecord(t, state.surfaceInterval, state.actions);
  }
}

bool UndoHistory::OnTrial(std::int16_t document) const {
  const History* history = Find(document);
  if (!held_ || history == nullptr || history->states.empty()) return false;
  const DocumentState& now = forms_.Services().documents(document);
  return history->states[history->present].text !=
         WriteDiveRecord(now.Template, now.SurfaceInterval, forms_(document).UserActions);
}

bool UndoHistory::CanUndo(std::int16_t document) const {
  const History* history = Find(document);
  return history != nullptr && history->present > 0;
}

bool UndoHistory::CanRedo(std::int16_t document) const {
  const History* history = Find(document);
  return history != nullptr && history->present + 1 < history->states.size();
}

void UndoHistory::Undo(std::int16_t document) {
  if (!CanUndo(document)) return;
  History& history = Of(document);
  const std::shared_ptr<const TakenOut> takenOut = history.states[history.present--].takenOut;
  if (!takenOut) return PutInForce(document, history.states[history.present]);
  restoring_ = true;
  const std::int16_t number = forms_.InsertDive(document, takenOut->dive);
  histories_[number] = takenOut->history;
  histories_[number].opening = forms_(number).Opening();
  ShowSaved(document);
  restoring_ = false;
}

void UndoHistory::Redo(std::int16_t document) {
  if (!CanRedo(document)) return;
  History& history = Of(document);
  const State& state = history.states[++history.present];
  if (!state.takenOut) return PutInForce(document, state);
  auto asItIsNow = Remove(forms_(document).NextProfile);
  history.states[history.present].takenOut = std::move(asItIsNow);
}

void UndoHistory::TakeOut(std::int16_t document) {
  const std::int16_t before = forms_(document).PrevProfile;
  Record(before);
  auto takenOut = Remove(document);
  History& history = Of(before);
  history.states.resize(history.present + 1);
  history.states.push_back(history.states.back());
  history.states.back().takenOut = std::move(takenOut);
  ++history.present;
}

std::shared_ptr<const UndoHistory::TakenOut> UndoHistory::Remove(std::int16_t document) {
  const PlanServices& services = forms_.Services();
  frmWaypointEditor& editor = forms_(document);
  const DocumentState& state = services.documents(document);
  auto takenOut = std::make_shared<TakenOut>(TakenOut{static_cast<const DiveRecord&>(state), Of(document)});
  forms_(editor.PrevProfile).MarkModified();
  editor.LeaveDocument(true);
  forms_.Unload(document);
  Forget(document);
  return takenOut;
}

void UndoHistory::PutInForce(std::int16_t document, const State& state) {
  restoring_ = true;
  DocumentState& present = forms_.Services().documents(document);
  frmWaypointEditor& editor = forms_(document);
  present.Template = state.diveTemplate;
  present.TemplateTitle = state.templateTitle;
  present.SurfaceInterval = state.surfaceInterval;
  editor.UserActions = state.actions;
  ShowSaved(document);
  editor.ReEvaluateUserEnteredWaypoints();
  restoring_ = false;
}

}  // namespace tav
