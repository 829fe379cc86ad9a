#include "app/document_plan.h"

#include "figures/dive_figures.h"

namespace tav {

DrawnPlan DocumentPlan::operator()() {
  const PlanServices& services = forms_.Services();
  const frmWaypointEditor& editor = forms_(document_);
  if (momentsOf_ != editor.Evaluation()) {
    momentsOf_ = editor.Evaluation();
    moments_ = editor.Planned().Moments();
    const bool showsStart = editor.PrevProfile != -1 && editor.InputProfile.GetLength() == 0;
    startLoads_ = showsStart ? editor.Planned().StartFractions() : Compartments{};
  }
  const DocumentState& state = services.documents(document_);
  std::string notice = editor.EvaluationFault();
  if (const auto of = NoticeOf(editor.InputProfile, state.Decompresses); of && notice.empty()) {
    notice = services.texts.GetResString(*of);
  }
  return {editor.InputProfile, state.Template, moments_, services.texts, separators_, std::move(notice), startLoads_};
}

}  // namespace tav
