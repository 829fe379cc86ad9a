#include "plans/document_forms.h"
#include "plans/waypoint_editor.h"

namespace tav {

void frmWaypointEditor::setPrevNext(std::int16_t previous, std::int16_t next) {
  forms_.Link(documentNumber_, previous, next);
  UpdateSurfProfiles();
}

void frmWaypointEditor::UpdateSurfProfiles() {
  if (PrevProfile == -1) {
    if (NextProfile == -1) DiveNumber = 1;
    return;
  }
  DiveNumber = static_cast<std::int16_t>(forms_(PrevProfile).DiveNumber + 1);
}

void frmWaypointEditor::SurfStartDeco() {
  // Each dive starts from the fresh end state of the one before. A loop, so that a long series needs no deep stack.
  for (std::int16_t next = NextProfile; next != -1; next = forms_(next).NextProfile) forms_(next).Evaluate();
}

void frmWaypointEditor::SurfDeleteProfile() {
  const PlanServices& services = Services();
  services.display.ShowHourglass(false);
  if (PrevProfile == -1) {
    // The first dive carries the series: it closes from the last dive back.
    for (std::int16_t i = getLastProfile(); i != documentNumber_;) {
      const std::int16_t before = forms_(i).PrevProfile;
      forms_.Link(i, -1, -1);
      forms_.Unload(i);
      i = before;
    }
    return;
  }
  const std::int16_t before = PrevProfile;
  const std::int16_t after = NextProfile;
  forms_.Link(documentNumber_, -1, -1);
  for (std::int16_t i = after; i != -1; i = forms_(i).NextProfile) forms_(i).UpdateSurfProfiles();
  if (after != -1) {
    forms_(before).ReEvaluateUserEnteredWaypoints();
  } else {
    services.display.StateChanged(before);  // alone, it has no number
  }
}

std::int16_t frmWaypointEditor::getFirstProfile() const {
  std::int16_t first = documentNumber_;
  while (forms_(first).PrevProfile != -1) first = forms_(first).PrevProfile;
  return first;
}

std::int16_t frmWaypointEditor::getLastProfile() const {
  std::int16_t last = documentNumber_;
  while (forms_(last).NextProfile != -1) last = forms_(last).NextProfile;
  return last;
}

}  // namespace tav
