#include "app/kept_plans.h"

#include <algorithm>

#include "figures/model_name.h"
#include "graph/overlay_line.h"
#include "model/text_id.h"
#include "reports/dive_report.h"

namespace tav {

ComparedPlan KeptPlans::AsItIs(std::int16_t document) const {
  const SeriesDive dive = services_.forms.Series(document, false).front();
  ComparedPlan plan(DiveTitle(dive, services_.texts), dive.dive, dive.number);
  const DiveTemplate& settings = plan.Settings();
  plan.detail = DeepestLeg(plan, AdviceWords(services_.texts, services_.platform.separators, settings.Metric));
  if (GradientFactorsAct(settings, plan.model)) {
    plan.detail += ", GF " + TextOf(GradientFactors{settings.GFLow, settings.GFHigh});
  }
  return plan;
}

std::string KeptPlans::Keep(std::int16_t document) {
  ComparedPlan plan = AsItIs(document);
  if (!plan.column.fault.IsEmpty()) return services_.texts.Words(plan.column.fault);
  plan.name = services_.texts.Filled(Text::KeptName, {plan.name, std::to_string(++number_)});
  kept_.push_back({std::move(plan), document, services_.forms(document).Opening()});
  Draw();
  return {};
}

KeptPlans::Kept KeptPlans::Of(ComparedPlan plan, std::int16_t document) const {
  plan.name = AsItIs(document).name + " " + plan.name;
  plan.detail = DeepestLeg(plan, AdviceWords(services_.texts, services_.platform.separators, plan.Settings().Metric));
  return {std::move(plan), document, services_.forms(document).Opening()};
}

void KeptPlans::Keep(ComparedPlan plan, std::int16_t document) {
  Kept kept = Of(std::move(plan), document);
  std::erase_if(kept_,
                [&](const Kept& other) { return other.document == document && other.plan.name == kept.plan.name; });
  kept_.push_back(std::move(kept));
  Draw();
}

void KeptPlans::Look(Looker looker, std::optional<ComparedPlan> plan, std::int16_t document) {
  looked_.erase(looker);
  if (plan) looked_.emplace(looker, Of(std::move(*plan), document));
  Draw();
}

void KeptPlans::Clear() {
  kept_.clear();
  number_ = 0;
  Draw();
}

void KeptPlans::Show(std::size_t index, bool shown) {
  kept_.at(index).shown = shown;
  Draw();
}

void KeptPlans::Draw() const {
  std::vector<PlanLooks::Kept> lines;
  const auto add = [&](const Kept& kept) {
    if (!kept.shown) return;
    const ComparedPlan& plan = kept.plan;
    const KeptLine line{LineOf(plan.column.rows), plan.detail};
    const auto isThere = [&](const PlanLooks::Kept& other) {
      return other.line == line && other.document == kept.document && other.opening == kept.opening;
    };
    if (std::ranges::any_of(lines, isThere)) return;
    lines.push_back({line, plan.Settings().Metric, kept.document, kept.opening});
  };
  std::ranges::for_each(kept_, add);
  for (const auto& [looker, plan] : looked_) add(plan);
  looks_.ShowKept(std::move(lines));
}

}  // namespace tav
