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
    const auto findings = [&](const TextSource& words) {
      return CheckPlan(checked, AdviceWords(words, {}, settings.Metric), supply);
    };
    std::vector<Finding> found = findings(texts);
    std::vector<Finding> told = frame.Common().shown ? findings(frame.Texts()) : std::vector<Finding>();
    dives.push_back({plan.file,
                     static_cast<int>(i) + 1,
                     static_cast<int>(plan.Dives()),
                     planned,
                     std::move(found),
                     std::move(told),
                     StopReasons(checked),
                     std::move(supply),
                     {}});
    if (frame.Common().moments) dives.back().surfacing = SurfacingOfRows(planned);
  }
}

void Print(CommandFrame& frame, const std::vector<ComputedDive>& dives, bool why, const TextSource& texts) {
  const OutputForm form = frame.Common().Form();
  if (form == OutputForm::Json) {
    std::vector<ShownOutput> shown(dives.size(), ShownOutput(frame.Common()));
    for (std::size_t i = 0; i < dives.size(); ++i) {
      if (shown[i].HasBlocks()) ShowDive(dives[i], dives[i].told, why, frame.Texts(), shown[i]);
    }
    return WriteDivesJson(dives, shown, frame.Out());
  }
  if (form == OutputForm::Text) {
    ShownOutput shown(frame.Common());
    for (const ComputedDive& dive : dives) {
      if (&dive != dives.data()) shown.BlankLine();
      ShowDive(dive, dive.findings, why, texts, shown);
      frame.Out() << shown.TakeText();
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
