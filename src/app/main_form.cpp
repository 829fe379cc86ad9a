#include "app/main_form.h"

#include <utility>

#include "app/information_boxes.h"
#include "app/languages_form.h"
#include "controls/localize_form.h"

namespace tav {
namespace {

constexpr int kIdle = 5005;
constexpr int kOpenCircuit = 1107;
constexpr int kConstPPO = 1108;
constexpr int kNoHelpFile = 1065;
constexpr const char* kFitPlan = "FitPlan";  // the setting

}  // namespace

frmMain::frmMain(MainServices services)
    : Form("frmMain"),
      services_(std::move(services)),
      planPane_(PaneServices()),
      checkPane_(
          Dialogs(),
          [this](std::int16_t document, std::int16_t first, std::int16_t last) {
            services_.view.SelectRows(document, first, last);
          },
          [this](std::int16_t document) { return planPane_.Refusal(document); }) {
  BuildMenu();
  BuildToolBar();
  Wire();
}

frmMain::~frmMain() { services_.view.Detach(); }

void frmMain::Form_Load() {
  LocalizeForm(*this, services_.texts);
  Caption = "TAV";
  FillRecent();
  sbStatusBar.Caption = T(kIdle);
  FitPlan(services_.platform.settings.ReadSetting("Settings", kFitPlan) == "On");
  LoadGraphExtras();
  RestorePanes();
  LoadNewDoc();
}

void frmMain::LoadNewDoc() {
  LocalizeForm(*this, services_.texts);
  services_.history.MarkSaved(services_.forms.LoadNewDoc());
  SyncCommands();
}

void frmMain::SetOpenCircuit(bool apply) { SetBreathingMode(true, apply); }

void frmMain::SetConstPPO(bool apply) { SetBreathingMode(false, apply); }

void frmMain::SetBreathingMode(bool openCircuit, bool apply) {
  ToolButton& button = Tool(9);
  button.Image = openCircuit ? "opencircuit" : "constppo2";
  button.ToolTipText = T(openCircuit ? kOpenCircuit : kConstPPO);
  // The menu names the mode that a click would give.
  mnuOC.Caption = T(openCircuit ? kConstPPO : kOpenCircuit);
  OpenCircuitMode = openCircuit;
  if (apply) ApplyToProfile();
}

void frmMain::FitPlan(bool fit) {
  mnuFitPlan.Checked = fit;
  Tool(20).Checked = fit;
  services_.view.FitPlan(fit);
}

void frmMain::ApplyToProfile() {
  const auto active = Active();
  if (!active) return;
  DiveTemplate& diveTemplate = Document(*active).Template;
  diveTemplate.OpenCircuit = OpenCircuitMode;
  diveTemplate.TemplateChanged = true;
  services_.forms(*active).MarkModified();
  services_.forms(*active).ReEvaluateUserEnteredWaypoints();
}

void frmMain::mnuVPM_Click() {
  const bool on = !mnuVPM.Checked;
  mnuVPM.Checked = on;
  services_.model.VPMMode = on;
  MarkTable(!on, false);
  if (on) {
    mnuHybrid.Checked = false;
    services_.model.HybridMode = false;
  }
}

void frmMain::mnuHybrid_Click() {
  const bool on = !mnuHybrid.Checked;
  mnuHybrid.Checked = on;
  services_.model.HybridMode = on;
  if (on && mnuVPM.Checked) {
    mnuVPM.Checked = false;
    services_.model.VPMMode = false;
    MarkTable(true, false);
  }
}

void frmMain::MarkTable(bool b, bool c) {
  mnuBulhmannB.Checked = b;
  mnuBulhmannC.Checked = c;
  services_.model.ZHL16C = c;
}

void frmMain::StartAscent() {
  const auto active = Active();
  if (!active) return;
  services_.forms(*active).StartDeco();
  SyncCommands();
}

void frmMain::PopupGraphMenu() {
  services_.platform.windows.PopupMenu({&mnuPopupAddWaypoint, &popup0, &mnucleardecopoints, &popup1,
                                        &mnuclearlastwaypoint, &mnuclearallwaypoints, &popup2, &mnuResetZoom,
                                        &mnuFitPlan, &mnuExportPng, &mnuExportSvg});
}

void frmMain::ShowHelp(HelpViewer::Page page) {
  if (services_.language.helpFile.empty()) {
    services_.platform.boxes.Show(T(kNoHelpFile), Caption, BoxIcon::Information, BoxButtons::OK);
    return;
  }
  try {
    services_.platform.help.ShowHelp(services_.language.helpFile, page);
  } catch (const std::exception& error) {
    services_.platform.boxes.Show(services_.texts.Words(error), "", BoxIcon::None, BoxButtons::OK);
  }
}

void frmMain::SyncCommands() {
  const auto active = Active();
  EditState state = EditState::Empty;
  bool surface = false;
  if (active) {
    const frmWaypointEditor& editor = services_.forms(*active);
    state = editor.State();
    surface = editor.CanBeFollowed();
    SetBreathingMode(Document(*active).Template.OpenCircuit, false);
  }
  ShowModified();
  const bool ascent = state == EditState::Legs;
  const bool information = state != EditState::Empty;
  Tool(6).Enabled = ascent;
  mnuStartAscent.Enabled = ascent;
  Tool(7).Enabled = information;
  mnuDiveInformation.Enabled = information;
  Tool(16).Enabled = surface;
  mnuSurface.Enabled = surface;
  mnucleardecopoints.Enabled = state == EditState::Ascent;
  const bool anything = active && services_.forms(*active).UserActions.GetLength() > 0;
  mnuclearlastwaypoint.Enabled = anything;
  mnuclearallwaypoints.Enabled = anything;
  mnuUndo.Enabled = active && (services_.history.CanUndo(*active) || !planPane_.MarkedCells(*active).empty());
  mnuRedo.Enabled = active && services_.history.CanRedo(*active);
  // Settings can be edited, loaded and saved without a plan: they are then those of new plans.
  for (Control* command : std::initializer_list<Control*>{&mnuClose,
                                                          &mnuSaveProfile,
                                                          &mnuSaveProfileAs,
                                                          &mnuExport,
                                                          &mnuAddWaypoint,
                                                          &mnuPopupAddWaypoint,
                                                          &mnuOC,
                                                          &mnuWindowCascade,
                                                          &mnuWindowTileHorizontal,
                                                          &mnuWindowTileVertical,
                                                          &mnuWindowArrangeIcons,
                                                          &mnuResetZoom,
                                                          &mnuExportPng,
                                                          &mnuExportSvg,
                                                          &mnuGeneralReport,
                                                          &mnuSlate,
                                                          &mnuWhatIf,
                                                          &mnuCylinders,
                                                          &Tool(3),
                                                          &Tool(9),
                                                          &Tool(13)}) {
    command->Enabled = active.has_value();
  }
  ListPlans();
  HoldCommands(active);
}

void frmMain::ShowModified() {
  for (const std::int16_t first : OpenDocuments()) {
    if (services_.forms(first).PrevProfile != -1) continue;  // a series is saved as a whole
    for (std::int16_t n = first; n != -1; n = services_.forms(n).NextProfile) {
      services_.platform.documentWindows.SetModified(n, Document(first).Modified);
    }
  }
}

void frmMain::HoldCommands(const std::optional<std::int16_t>& active) {
  const auto enable = [](std::initializer_list<Control*> commands, bool enabled) {
    for (Control* command : commands) command->Enabled = enabled;
  };
  // One run of tables at a time; and the plan that it computes from can't be changed while it lasts.
  const bool free = !services_.runs.IsRunning();
  enable({&mnuBailoutReport, &Tool(14)}, free && active.has_value());
  enable({&mnuGenerateTables, &Tool(15)}, free);
  const bool held = active && services_.runs.Holds(*active);
  enable({&mnuConservatism, &ShowConservatism, &Tool(5), &mnuTemplate, &Tool(11), &mnuLoadTemplate}, !held);
  if (!held) return;
  enable({&mnuStartAscent, &Tool(6), &mnuSurface, &Tool(16), &mnucleardecopoints, &mnuclearlastwaypoint,
          &mnuclearallwaypoints, &mnuUndo, &mnuRedo, &mnuAddWaypoint, &mnuPopupAddWaypoint, &mnuCylinders, &mnuOC,
          &Tool(9)},
         false);
}

void frmMain::DocumentActivated() {
  FinishEdits();
  if (const auto active = Active()) services_.forms(*active).Form_Activate();
  SyncCommands();
  PlanChanged();
}

void frmMain::Wire() {
  WirePlanCommands();
  WireWindowCommands();
  WirePanes();
  WireViewCommands();
  FinishEditsBeforeCommands();
  services_.runs.changed = [this] {
    SyncCommands();
    PlanChanged();
  };
}

void frmMain::FinishEditsBeforeCommands() {
  const auto finishFirst = [this](auto* command) {
    if (command == nullptr || !command->Click) return;
    command->Click = [this, act = std::move(command->Click)] {
      FinishEdits();
      act();
    };
  };
  for (Control* control : Controls()) {
    finishFirst(dynamic_cast<MenuItem*>(control));
    finishFirst(dynamic_cast<ToolButton*>(control));
  }
}

void frmMain::WirePlanCommands() {
  const auto onActive = [this](void (frmWaypointEditor::*command)()) {
    return [this, command] {
      if (const auto active = Active()) (services_.forms(*active).*command)();
      SyncCommands();
    };
  };
  mnuUndo.Click = [this] {
    // Cells that are still marked are what was entered last.
    if (const auto active = Active(); active && !planPane_.GiveUp(*active)) services_.history.Undo(*active);
    planPane_.MarkUnfinished();
    DocumentActivated();
  };
  mnuRedo.Click = [this] {
    if (const auto active = Active()) services_.history.Redo(*active);
    planPane_.MarkUnfinished();
    DocumentActivated();
  };
  mnuAddWaypoint.Click = mnuPopupAddWaypoint.Click = [this] { AddWaypoint(); };
  mnuBulhmannB.Click = [this] { MarkTable(true, false); };
  mnuBulhmannC.Click = [this] { MarkTable(false, true); };
  mnuVPM.Click = [this] { mnuVPM_Click(); };
  mnuHybrid.Click = [this] { mnuHybrid_Click(); };
  mnuConservatism.Click = ShowConservatism.Click = Tool(5).Click = [this] { ShowConservatism_Click(); };
  mnuCylinders.Click = [this] { ShowCylinders(); };
  mnuOC.Click = Tool(9).Click = [this] { SetBreathingMode(!OpenCircuitMode, true); };
  mnuStartAscent.Click = Tool(6).Click = [this] { StartAscent(); };
  mnuSurface.Click = Tool(16).Click = [this] { ShowMultiLevel(); };
  mnucleardecopoints.Click = onActive(&frmWaypointEditor::mnucleardecopoints);
  mnuclearlastwaypoint.Click = onActive(&frmWaypointEditor::mnuclearlastwaypoint);
  mnuclearallwaypoints.Click = onActive(&frmWaypointEditor::mnuclearallwaypoints);
  mnuDiveInformation.Click = Tool(7).Click = [this] { ShowDiveInformation(); };
  mnuGeneralReport.Click = Tool(13).Click = [this] { ShowGeneralReport(); };
  mnuSlate.Click = [this] { ShowSlate(); };
  mnuWhatIf.Click = [this] { ShowWhatIf(); };
  mnuBailoutReport.Click = [this] { ShowBailout(true); };
  Tool(14).Click = [this] { ShowBailout(false); };
  mnuGenerateTables.Click = Tool(15).Click = [this] { ShowTableExpert(); };
  mnuTemplate.Click = Tool(11).Click = [this] { EditTemplateOfActive(); };
}

void frmMain::WireWindowCommands() {
  mnuNewProfile.Click = Tool(1).Click = [this] { LoadNewDoc(); };
  mnuOpen.Click = Tool(2).Click = [this] { OpenProfileCommand(); };
  mnuClearRecent.Click = [this] {
    services_.recent.Clear();
    FillRecent();
  };
  mnuClose.Click = [this] {
    if (const auto active = Active()) CloseDocument(*active);
  };
  mnuLoadTemplate.Click = [this] { LoadTemplateCommand(); };
  mnuSaveTemplate.Click = [this] { SaveTemplateCommand(); };
  mnuSaveProfile.Click = Tool(3).Click = [this] { SaveProfileCommand(false); };
  mnuSaveProfileAs.Click = [this] { SaveProfileCommand(true); };
  mnuImport.Click = [this] { ImportCommand(); };
  mnuExport.Click = [this] { ExportCommand(); };
  mnuExit.Click = [this] { Form::Unload(true); };
  mnuMixer.Click = Tool(18).Click = [this] { ShowMixer(); };
  mnuLanguages.Click = [this] {
    services_.platform.windows.Show(std::make_shared<frmLanguages>(
        services_.platform, services_.texts, services_.folders.ProgramFolder() / kLanguageFolder));
  };
  const auto arrange = [this](DocumentWindows::Arrangement how) {
    return [this, how] { services_.platform.documentWindows.Arrange(how); };
  };
  mnuWindowCascade.Click = arrange(DocumentWindows::Arrangement::Cascade);
  mnuWindowTileHorizontal.Click = arrange(DocumentWindows::Arrangement::TileHorizontal);
  mnuWindowTileVertical.Click = arrange(DocumentWindows::Arrangement::TileVertical);
  mnuWindowArrangeIcons.Click = arrange(DocumentWindows::Arrangement::Icons);
  mnuFitPlan.Click = Tool(20).Click = [this] {
    FitPlan(!mnuFitPlan.Checked);
    services_.platform.settings.WriteSetting("Settings", kFitPlan, mnuFitPlan.Checked ? "On" : "Off");
  };
  mnuHelpContents.Click = [this] { ShowHelp(HelpViewer::Page::Contents); };
  mnuHelpSearch.Click = [this] { ShowHelp(HelpViewer::Page::Search); };
  mnuHelpAbout.Click = [this] {
    frmAbout box(services_.texts, [this] { ShowHelp(HelpViewer::Page::Contents); });
    services_.platform.windows.ShowModal(box);
  };
  mnuContributors.Click = [this] {
    frmContributers box(services_.texts);
    services_.platform.windows.ShowModal(box);
  };
  mnuSystemInformation.Click = [this] {
    frmSystemInformation box(services_.platform, services_.texts,
                             SystemInformation(services_.folders, services_.language, services_.systemInformation));
    services_.platform.windows.ShowModal(box);
  };
  mnuResetZoom.Click = [this] {
    if (const auto active = Active()) services_.view.ResetZoom(*active);
  };
  mnuExportPng.Click = [this] { ExportGraph(false); };
  mnuExportSvg.Click = [this] { ExportGraph(true); };
}

}  // namespace tav
