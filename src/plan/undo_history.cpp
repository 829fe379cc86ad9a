#include "plan/undo_history.h"

#include "persist/profile_file.h"
#include "plan/document_forms.h"
#include "plan/profile_commands.h"

namespace tav {

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
  std::string text = WriteDiveRecord(state.Template, 0, actions);
  History& history = Of(document);
  State now{state.Template, state.TemplateTitle, actions, std::move(text)};
  if (!history.states.empty() && history.states[history.present].text == now.text) {
    // The name of the template may be another one.
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
    state.text = WriteDiveRecord(t, 0, state.actions);
  }
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
  PutInForce(document, history.states[--history.present]);
}

void UndoHistory::Redo(std::int16_t document) {
  if (!CanRedo(document)) return;
  History& history = Of(document);
  PutInForce(document, history.states[++history.present]);
}

void UndoHistory::PutInForce(std::int16_t document, const State& state) {
  restoring_ = true;
  DocumentState& present = forms_.Services().documents(document);
  frmWaypointEditor& editor = forms_(document);
  // A plain assignment and no CopyDiveTemplate: a list that was empty then must be empty again.
  present.Template = state.diveTemplate;
  present.TemplateTitle = state.templateTitle;
  editor.UserActions = state.actions;
  forms_.ShowCaption(document);
  ShowSaved(document);
  editor.SetTemplate();
  editor.ReEvaluateUserEnteredWaypoints();
  restoring_ = false;
}

}  // namespace tav
