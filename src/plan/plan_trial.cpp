#include "plan/plan_trial.h"

#include <algorithm>

#include "model/template_faults.h"

namespace tav {

void PlanTrial::Begin(std::int16_t document) {
  if (running_ && document == document_) return;
  Keep();
  running_ = true;
  templateChanged_ = false;
  document_ = document;
  formerActions_ = Editor().UserActions;
  formerTemplate_ = Template();
  formerlyAbove_ = LegsAboveCeiling();
  history_.Hold(true);
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

PlanRefusal PlanTrial::TryActions(const ClassUseractions& actions, const std::vector<std::int16_t>& origins) {
  PlanRefusal refusal;
  const bool hadFault = !Editor().EvaluationFault().empty();
  const auto stood = [&](const PlanRefusal::Leg& leg) {
    const std::int16_t origin = origins.at(static_cast<std::size_t>(leg.action));
    return std::any_of(formerlyAbove_.begin(), formerlyAbove_.end(),
                       [&](const PlanRefusal::Leg& former) { return former.action == origin; }) &&
           formerActions_.getDepth(origin) == actions.getDepth(leg.action);
  };
  Editor().TryActions(actions, [&] {
    if (!hadFault) refusal.fault = Editor().EvaluationFault();
    refusal.legs = LegsAboveCeiling();
    std::erase_if(refusal.legs, stood);
    return refusal.IsEmpty();
  });
  return refusal;
}

std::string PlanTrial::TryTemplate(const std::function<void(DiveTemplate&)>& change) {
  DiveTemplate wanted = Template();
  change(wanted);
  wanted.TemplateChanged = true;
  std::string fault = forms_.Services().texts.Words(JoinFaults(TemplateFaults(wanted)));
  if (!fault.empty()) return fault;
  Template() = wanted;
  templateChanged_ = true;
  Editor().ReEvaluateUserEnteredWaypoints();
  return {};
}

void PlanTrial::Keep() {
  if (!running_) return;
  if (IsChanged()) Editor().MarkModified();
  End();
}

void PlanTrial::Drop() {
  if (!running_) return;
  if (IsChanged()) {
    Editor().UserActions = formerActions_;
    Template() = formerTemplate_;
    Editor().ReEvaluateUserEnteredWaypoints();
  }
  End();
}

void PlanTrial::End() {
  running_ = false;
  history_.Hold(false);
  history_.Record(document_);
}

}  // namespace tav
