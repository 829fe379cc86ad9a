#include "cli/computed_dive.h"

#include <ostream>
#include <utility>

#include "advice/plan_check.h"
#include "model/text_id.h"

namespace tav {

void Gather(CommandFrame& frame, const OpenedPlan& plan, const TextSource& texts, std::vector<ComputedDive>& dives) {
  for (std::size_t i = 0; i < plan.Dives(); ++i) {
    frame.CheckComputed(plan, i);
    const PlannedDive planned = plan.Planned(i);
    const DiveTemplate& settings = planned.record.Template;
    const CheckedDive checked(planned);
    GasSupply supply = SupplyOf(planned);
    std::vector<Finding> findings = CheckPlan(checked, AdviceWords(texts, {}, settings.Metric), supply);
    dives.push_back({plan.file,
                     static_cast<int>(i) + 1,
                     static_cast<int>(plan.Dives()),
                     planned,
                     std::move(findings),
                     StopReasons(checked),
                     std::move(supply),
                     {}});
    if (frame.Common().moments) dives.back().surfacing = SurfacingOfRows(planned);
  }
}

void Print(CommandFrame& frame, const std::vector<ComputedDive>& dives, bool why, const TextSource& texts) {
  const OutputForm form = frame.Common().Form();
  if (form == OutputForm::Json) return WriteDivesJson(dives, frame.Out());
  if (form == OutputForm::Text) {
    for (const ComputedDive& dive : dives) {
      frame.Out() << (&dive == dives.data() ? "" : "\n") << DiveSlate(dive, why, texts);
    }
    return;
  }
  WriteDivesCsv(dives, frame.Out());
  for (const ComputedDive& dive : dives) {
    for (const Finding& finding : dive.findings) {
      if (finding.severity == Severity::Note) continue;
      frame.Tell(dive.file, texts.Filled(Text::DiveOfSeries, {std::to_string(dive.number)}) + ": " + finding.text);
    }
  }
}

}  // namespace tav
