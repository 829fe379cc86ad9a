#include "app/plan_dialogs.h"

#include "dialogs/bailout_start.h"
#include "dialogs/conservatism.h"
#include "dialogs/cylinders.h"
#include "dialogs/edit_template.h"
#include "dialogs/multi_level.h"
#include "dialogs/table_expert.h"
#include "dialogs/waypoint_form.h"

namespace tav {

void PlanDialogs::ShowConservatism() const {
  frmConservatism dialog(dialogs_);
  services_.platform.windows.ShowModal(dialog);
}

void PlanDialogs::ShowCylinders() const {
  if (!services_.Active()) return;
  frmCylinders dialog(dialogs_);
  services_.platform.windows.ShowModal(dialog);
}

void PlanDialogs::ShowMultiLevel() const { services_.platform.windows.Show(std::make_shared<frmMultiLevel>(dialogs_)); }

void PlanDialogs::ShowBailout(bool modal) const {
  const auto dialog = std::make_shared<frmBailoutStart>(dialogs_, services_.tables, services_.runs);
  if (modal) {
    services_.platform.windows.ShowModal(*dialog);
  } else {
    services_.platform.windows.Show(dialog);
  }
}

void PlanDialogs::ShowTableExpert() const {
  services_.platform.windows.Show(std::make_shared<frmTableExpert>(dialogs_, services_.tables, services_.runs));
}

void PlanDialogs::EditTemplate() const {
  tav::EditTemplate(dialogs_);
  Follow();
}

void PlanDialogs::Follow() const {
  if (const auto active = services_.Active()) services_.Changed(*active);
}

frmPartialMix& PlanDialogs::ShowMixer() {
  auto mixer = mixer_.lock();
  if (mixer && mixer->IsLoaded()) {
    mixer->BringToFront();
    return *mixer;
  }
  const std::int16_t document = services_.Active().value_or(DocumentStore::DefaultDocument);
  mixer = std::make_shared<frmPartialMix>(services_.platform, services_.report, services_.Document(document).Template);
  mixer_ = mixer;
  services_.platform.windows.Show(mixer);
  return *mixer;
}

void PlanDialogs::AddWaypoint() {
  const auto active = services_.Active();
  if (!active) return;
  const frmWaypointEditor& editor = services_.forms(*active);
  EnterWaypoint(editor.InputProfile.getDepth(editor.LastRowOfLegs()), 0);
}

void PlanDialogs::EnterWaypoint(Single depth, Single segmentTime) {
  panes_.Finish();
  const auto active = services_.Active();
  if (!active || services_.runs.Holds(*active)) return;
  frmWaypointEditor& editor = services_.forms(*active);
  const ClassProfile& rows = editor.InputProfile;
  ClassProfile dialogProfile;
  Waypoint& row = dialogProfile.Row(0);
  row.Depth = depth;
  row.SegmentTime = segmentTime;
  row.MixNumber = rows.getmixnumber(editor.LastRowOfLegs());
  frmWaypointForm dialog(dialogs_);
  dialog.data(dialogProfile, -1);
  services_.platform.windows.ShowModal(dialog);
  constexpr double kCancelled = -100.0;
  if (row.Depth == kCancelled) return Follow();
  editor.AddWantedLeg(row.Depth, row.SegmentTime, row.MixNumber);
}

void PlanDialogs::ViewRow(std::int16_t row) {
  panes_.Finish();
  const auto active = services_.Active();
  if (!active) return;
  ClassProfile dialogProfile;
  Waypoint& shown = dialogProfile.Row(0);
  shown = services_.forms(*active).InputProfile.Row(row);
  shown.SegmentTime = shown.RunTime;  // the dialog shows when the row ends, not how long it takes
  panes_.SelectRow(row);
  frmWaypointForm dialog(dialogs_);
  dialog.data(dialogProfile, 0);
  if (panes_.LegAt(row) && !services_.runs.Holds(*active)) dialog.OfferEdit();
  services_.platform.windows.ShowModal(dialog);
  Follow();
  if (dialog.EditWanted()) panes_.EditLegOf(row);
}

}  // namespace tav
