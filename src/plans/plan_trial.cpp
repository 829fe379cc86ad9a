#include "plans/plan_trial.h"

#include <algorithm>
#include <utility>

#include "model/template_faults.h"
#include "persist/profile_file.h"

namespace tav {

void PlanTrial::Begin(std::int16_t document) {
  if (running_ && document == document_) return;
  Keep();
  running_ = true;
  inForce_ = false;
  document_ = document;
  opening_ = Editor().Opening();
  former_ = Editor().StatesFromHere();
  formerText_ = Text();
  formerlyAbove_ = LegsAboveCeiling();
  history_.Hold(true);
}

/// As a file would hold the plan.
std::string PlanTrial::Text() const { return WriteDiveRecord(Template(), 0, Editor().UserActions); }

bool PlanTrial::IsOpen() const {
  return !forms_.Services().documents(document_).SlotFree && Editor().Opening() == opening_;
}

std::vector<PlanRefusal::Leg> PlanTrial::LegsAboveCeiling() const {
  std::vector<PlanRefusal::Leg> legs;
  const auto& results = Editor().ActionResults();
  const ClassUseractions& actions = Editor().UserActions;
  for (std::size_t i = 1; i < results.size(); ++i) {
    const auto action = static_cast<std::int16_t>(i);
    if (actions.getaction(action) != ClassUseractions::kLeg) continue;
    if (actions.getDepth(action) < results[i].ceilingBefore) legs.push_back({action, results[i].ceilingBefore});
  }
  return legs;
}

void PlanTrial::SetGases(const std::vector<GasMix>& gases) {
  const DiveTemplate& former = Former().document.Template;
  const bool more = gases.size() > former.Blends.size();
  Template().Blends = more ? gases : former.Blends;
  Template().TemplateChanged = former.TemplateChanged || more;
}

PlanRefusal PlanTrial::TryActions(const ClassUseractions& actions, const std::vector<std::int16_t>& origins,
                                  const std::vector<GasMix>& gases) {
  PlanRefusal refusal;
  SetGases(gases);
  const bool hadFault = !Former().plan.fault.IsEmpty();
  const auto stood = [&](const PlanRefusal::Leg& leg) {
    const std::int16_t origin = origins.at(static_cast<std::size_t>(leg.action));
    return std::any_of(formerlyAbove_.begin(), formerlyAbove_.end(),
                       [&](const PlanRefusal::Leg& former) { return former.action == origin; }) &&
           Former().document.UserActions.getDepth(origin) == actions.getDepth(leg.action);
  };
  const bool taken = Editor().TryActions(actions, [&] {
    if (!hadFault) refusal.fault = Editor().EvaluationFault();
    refusal.legs = LegsAboveCeiling();
    std::erase_if(refusal.legs, stood);
    return refusal.IsEmpty();
  });
  if (taken) {
    inForce_ = true;
  } else {
    SetGases({});
    Refuse();
  }
  return refusal;
}

std::string PlanTrial::TryTemplate(const std::function<void(DiveTemplate&)>& change) {
  DiveTemplate wanted = Former().document.Template;
  change(wanted);
  wanted.TemplateChanged = true;
  std::string fault = forms_.Services().texts.Words(JoinFaults(TemplateFaults(wanted)));
  if (fault.empty()) {
    Template() = wanted;
    inForce_ = true;
    Editor().ReEvaluateUserEnteredWaypoints();
    if (Former().plan.fault.IsEmpty()) fault = Editor().EvaluationFault();
  }
  if (!fault.empty()) Refuse();
  return fault;
}

void PlanTrial::Refuse() {
  if (!std::exchange(inForce_, false) || !IsOpen()) return;
  // A copy, because what shows the plan may end the trial.
  const std::vector<PlanState> former = former_;
  Editor().PutBack(former);
}

void PlanTrial::Keep() {
  if (!running_) return;
  // Typed back to what it was, it is what it was.
  if (inForce_ && IsOpen() && Text() == formerText_) Refuse();
  if (inForce_ && IsOpen()) Editor().MarkModified();
  End();
}

void PlanTrial::Drop() {
  Refuse();
  if (running_) End();
}

void PlanTrial::End() {
  running_ = false;
  former_.clear();
  history_.Hold(false);
  if (IsOpen()) history_.Record(document_);
}

}  // namespace tav
