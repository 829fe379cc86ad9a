// The dialogs that the main window opens on a plan.

#include "app/main_form.h"
#include "dialogs/bailout_start.h"
#include "dialogs/conservatism.h"
#include "dialogs/cylinders.h"
#include "dialogs/edit_template.h"
#include "dialogs/multi_level.h"
#include "dialogs/table_expert.h"
#include "dialogs/waypoint_form.h"

namespace tav {

DialogServices frmMain::Dialogs() {
  return {services_.forms,
          services_.platform,
          services_.texts,
          services_.switches.VeryHighGF,
          [this] { ApplyToProfile(); },
          [this](Single o2, Single he) { ShowMixer().setmix(o2, he); },
          OwnDefaultTemplate().string(),
          [this] { KeepDefaultTemplate(); }};
}

void frmMain::ShowConservatism_Click() {
  frmConservatism dialog(Dialogs());
  services_.platform.windows.ShowModal(dialog);
  SyncCommands();
}

void frmMain::ShowCylinders() {
  if (!Active()) return;
  frmCylinders dialog(Dialogs());
  services_.platform.windows.ShowModal(dialog);
  SyncCommands();
}

void frmMain::ShowMultiLevel() { services_.platform.windows.Show(std::make_shared<frmMultiLevel>(Dialogs())); }

void frmMain::ShowBailout(bool modal) {
  if (modal) {
    frmBailoutStart dialog(Dialogs(), services_.tables, services_.runs);
    services_.platform.windows.ShowModal(dialog);
  } else {
    services_.platform.windows.Show(std::make_shared<frmBailoutStart>(Dialogs(), services_.tables, services_.runs));
  }
}

void frmMain::ShowTableExpert() {
  services_.platform.windows.Show(std::make_shared<frmTableExpert>(Dialogs(), services_.tables, services_.runs));
}

void frmMain::EditTemplateOfActive() {
  EditTemplate(Dialogs());
  SyncCommands();
}

frmPartialMix& frmMain::ShowMixer() {
  auto mixer = mixer_.lock();
  if (mixer && mixer->IsLoaded()) {
    mixer->BringToFront();
    return *mixer;
  }
  const std::int16_t document = Active().value_or(DocumentStore::DefaultDocument);
  mixer = std::make_shared<frmPartialMix>(services_.platform, services_.report, Document(document).Template);
  mixer_ = mixer;
  services_.platform.windows.Show(mixer);
  return *mixer;
}

void frmMain::AddWaypoint() {
  const auto active = Active();
  if (!active) return;
  const ClassProfile& rows = services_.forms(*active).InputProfile;
  EnterWaypoint(rows.getDepth(rows.GetLength()), 0);
}

void frmMain::EnterWaypoint(Single depth, Single segmentTime) {
  FinishEdits();
  const auto active = Active();
  if (!active || services_.runs.Holds(*active)) return;
  frmWaypointEditor& editor = services_.forms(*active);
  const ClassProfile& rows = editor.InputProfile;
  ClassProfile dialogProfile;
  Waypoint& row = dialogProfile.Row(0);
  row.Depth = depth;
  row.SegmentTime = segmentTime;
  row.MixNumber = rows.getmixnumber(rows.GetLength());
  frmWaypointForm dialog(Dialogs());
  dialog.data(dialogProfile, -1);
  services_.platform.windows.ShowModal(dialog);
  constexpr double kCancelled = -100.0;
  if (row.Depth != kCancelled) editor.AddUserWaypoint(row.Depth, row.SegmentTime, row.MixNumber);
  SyncCommands();
}

void frmMain::ViewRow(std::int16_t row) {
  FinishEdits();
  const auto active = Active();
  if (!active) return;
  ClassProfile dialogProfile;
  Waypoint& shown = dialogProfile.Row(0);
  shown = services_.forms(*active).InputProfile.Row(row);
  shown.SegmentTime = shown.RunTime;  // the dialog shows when the row ends, not how long it takes
  SelectInPanes(row);
  frmWaypointForm dialog(Dialogs());
  dialog.data(dialogProfile, 0);
  if (LegAt(row) && !services_.runs.Holds(*active)) dialog.OfferEdit();
  services_.platform.windows.ShowModal(dialog);
  if (dialog.EditWanted()) EditLegOf(row);
}

}  // namespace tav
