#include "app/kept_plans.h"

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

void KeptPlans::Keep(ComparedPlan plan, std::int16_t document) {
  plan.name = AsItIs(document).name + " " + plan.name;
  plan.detail = DeepestLeg(plan, AdviceWords(services_.texts, services_.platform.separators, plan.Settings().Metric));
  kept_.push_back({std::move(plan), document, services_.forms(document).Opening()});
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
  for (const auto& [plan, document, opening, shown] : kept_) {
    if (!shown) continue;
    lines.push_back({{LineOf(plan.column.rows), plan.detail}, plan.Settings().Metric, document, opening});
  }
  looks_.ShowKept(std::move(lines));
}

}  // namespace tav
