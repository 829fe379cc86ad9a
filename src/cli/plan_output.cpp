#include "cli/plan_output.h"

#include <ostream>

#include "advice/plan_check.h"

namespace tav {
namespace {

constexpr int kDive = 7741;

}  // namespace

void ApplyOptions(const OutputOptions& options, PlanSession& session) {
  session.Model() = options.Model();
  if (!options.phi.empty()) session.Trace().Open(options.phi);
}

bool Gather(PlanSession& session, const std::string& file, const std::vector<std::int16_t>& documents,
            const OutputOptions& options, const TextSource& texts, std::vector<ComputedDive>& dives,
            std::ostream& err) {
  for (std::size_t i = 0; i < documents.size(); ++i) {
    const frmWaypointEditor& window = session.Forms()(documents[i]);
    if (!window.EvaluationFault().empty()) {
      err << file << ": " << window.EvaluationFault() << "\n";
      return false;
    }
    ComputedDive& dive = dives.emplace_back();
    dive.file = file;
    dive.number = static_cast<int>(i) + 1;
    dive.ofDives = static_cast<int>(documents.size());
    dive.document = &session.Documents()(documents[i]);
    dive.rows = &window.InputProfile;
    const bool metric = dive.document->Template.Metric;
    const CheckedDive checked(window, *dive.document);
    dive.supply = SupplyOf(session.Forms(), documents[i], options.supply);
    dive.findings = CheckPlan(checked, AdviceWords(texts, {}, metric), dive.supply);
    dive.reasons = StopReasons(checked);
    dive.model = session.Model();
  }
  return true;
}

int Print(const std::vector<ComputedDive>& dives, const OutputOptions& options, const TextSource& texts,
          std::ostream& out, std::ostream& err) {
  const OutputForm form = options.form;
  if (form == OutputForm::Json) out << DivesJson(dives);
  if (form == OutputForm::Csv) out << DivesCsv(dives);
  int status = ExitStatus::kFine;
  for (std::size_t i = 0; i < dives.size(); ++i) {
    if (form == OutputForm::Slate) {
      out << (i > 0 ? "\n" : "") << DiveSlate(dives[i], options.why, texts);
    } else if (form == OutputForm::Csv) {
      for (const Finding& finding : dives[i].findings) {
        if (finding.severity == Severity::Note) continue;
        err << dives[i].file << ": " << texts.Filled(kDive, {std::to_string(dives[i].number)}) << ": " << finding.text
            << "\n";
      }
    }
    if (!dives[i].document->Decompresses) status = ExitStatus::kDoesNotDecompress;
  }
  return status;
}

}  // namespace tav
