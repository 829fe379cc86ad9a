#include "app/plan_looks.h"

#include "figures/dive_figures.h"
#include "model/text_id.h"
#include "model/units.h"

namespace tav {

PlanLook PlanLooks::Of(std::int16_t document) const {
  const frmWaypointEditor& editor = services_.forms(document);
  const DocumentState& state = services_.Document(document);
  PlanLook look;
  look.caption = services_.forms.Caption(document);
  look.modified = services_.Document(editor.getFirstProfile()).Modified;  // a series is saved as a whole
  look.repetitive = editor.PrevProfile != -1;
  look.notice = editor.EvaluationFault();
  // A plan that is being entered lacks its ascent most of the time: that is told by what shows its figures.
  if (look.notice.empty() && NoticeOf(editor.InputProfile, state.Decompresses) == Text::DoesNotDecompress) {
    look.notice = services_.T(Text::DoesNotDecompress);
  }
  if (const auto set = set_.find(document); set != set_.end()) {
    const std::int16_t leg = set->second.leg;
    const bool sameLegs = set->second.actions == editor.UserActions.GetLength();
    if (leg > 0 && sameLegs && static_cast<std::size_t>(leg) < editor.ActionResults().size()) {
      const std::int16_t row = editor.LastRowOf(leg);
      if (editor.LegAt(row) == leg) look.selected = {row, row};
    } else if (set->second.evaluation == editor.Evaluation()) {
      look.selected = set->second.selected;
    }
    look.overlay = set->second.overlay;
    look.asBefore = set->second.asBefore;
  }
  for (const auto& [kept, metric, of, opening] : kept_) {
    if (of != document || opening != editor.Opening()) continue;
    look.kept.push_back(kept);
    if (metric == state.Template.Metric) continue;
    for (PlotPoint& point : look.kept.back().line)
      point.depth = point.depth * (metric ? kFeetPerMetre : kMetresPerFoot);
  }
  look.fitPlan = fitPlan_;
  look.extras = extras_;
  return look;
}

void PlanLooks::SelectRows(std::int16_t document, std::int16_t first, std::int16_t last) {
  if (!services_.IsOpen(document)) return;
  Set& set = set_[document];
  set.selected = {first, last};
  const frmWaypointEditor& editor = services_.forms(document);
  set.evaluation = editor.Evaluation();
  const std::int16_t leg = first == last ? editor.LegAt(last).value_or(0) : std::int16_t{0};
  set.actions = editor.UserActions.GetLength();
  set.leg = leg > 0 && editor.LastRowOf(leg) == last ? leg : std::int16_t{0};
  services_.view.StateChanged(document);
}

void PlanLooks::ShowOverlay(std::int16_t document, const std::vector<PlotPoint>& line) {
  if (!services_.IsOpen(document)) return;
  set_[document].overlay = line;
  services_.view.StateChanged(document);
}

void PlanLooks::ShowAsBefore(std::int16_t document, const std::string& words) {
  if (!services_.IsOpen(document)) return;
  set_[document].asBefore = words;
  services_.view.StateChanged(document);
}

void PlanLooks::ShowKept(std::vector<Kept> kept) {
  kept_ = std::move(kept);
  ShowAll();
}

void PlanLooks::FitPlan(bool fit) {
  fitPlan_ = fit;
  ShowAll();
}

void PlanLooks::ShowExtras(const GraphExtras& extras) {
  extras_ = extras;
  ShowAll();
}

void PlanLooks::ShowAll() const {
  for (const std::int16_t document : services_.OpenDocuments()) services_.view.StateChanged(document);
}

}  // namespace tav
