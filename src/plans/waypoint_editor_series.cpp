#include "plans/document_forms.h"
#include "plans/waypoint_editor.h"

namespace tav {

void frmWaypointEditor::setPrevNext(std::int16_t previous, std::int16_t next) {
  PrevProfile = previous;
  NextProfile = next;
  UpdateSurfProfiles();
}

void frmWaypointEditor::setPrev(std::int16_t previous) {
  PrevProfile = previous;
  UpdateSurfProfiles();
}

void frmWaypointEditor::setNext(std::int16_t next) {
  NextProfile = next;
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
      forms_(i).PrevProfile = -1;
      forms_(before).NextProfile = -1;
      forms_.Unload(i);
      i = before;
    }
    return;
  }
  forms_(PrevProfile).NextProfile = NextProfile;
  if (NextProfile != -1) {
    forms_(NextProfile).PrevProfile = PrevProfile;
    services.documents(NextProfile).PreviousDocument = PrevProfile;
    for (std::int16_t i = NextProfile; i != -1; i = forms_(i).NextProfile) forms_(i).UpdateSurfProfiles();
    forms_(PrevProfile).ReEvaluateUserEnteredWaypoints();
  }
  PrevProfile = -1;
  NextProfile = -1;
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
