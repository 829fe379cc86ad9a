#include "cli/computed_dive.h"

#include <ostream>

#include "advice/plan_check.h"
#include "figures/model_name.h"

namespace tav {

void Gather(CommandFrame& frame, const std::string& file, const std::vector<std::int16_t>& documents,
            const TextSource& texts, std::vector<ComputedDive>& dives) {
  PlanSession& session = frame.Session();
  for (std::size_t i = 0; i < documents.size(); ++i) {
    frame.CheckComputed(file, documents[i]);
    const frmWaypointEditor& window = session.Forms()(documents[i]);
    ComputedDive& dive = dives.emplace_back();
    dive.file = file;
    dive.number = static_cast<int>(i) + 1;
    dive.ofDives = static_cast<int>(documents.size());
    dive.document = &session.Documents()(documents[i]);
    dive.rows = &window.InputProfile;
    const bool metric = dive.document->Template.Metric;
    const CheckedDive checked(window, *dive.document);
    dive.supply = SupplyOf(session.Forms(), documents[i], frame.Common().supply);
    dive.findings = CheckPlan(checked, AdviceWords(texts, {".", ""}, metric), dive.supply);
    dive.reasons = StopReasons(checked);
    dive.model = ModelName(session.Model());
    dive.gradientFactors = GradientFactorsAct(dive.document->Template, session.Model());
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
    constexpr int kDive = 7741;
    for (const Finding& finding : dive.findings) {
      if (finding.severity == Severity::Note) continue;
      frame.Tell(dive.file, texts.Filled(kDive, {std::to_string(dive.number)}) + ": " + finding.text);
    }
  }
}

}  // namespace tav
