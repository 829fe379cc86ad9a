#include "app/main_form.h"

#include <utility>

#include "app/menu_letters.h"
#include "exchange/import.h"
#include "model/text_id.h"
#include "persist/template_file.h"

namespace tav {
namespace {

void Enable(std::initializer_list<Control*> commands, bool enabled) {
  for (Control* command : commands) command->Enabled = enabled;
}

}  // namespace

frmMain::frmMain(MainServices services)
    : Form("frmMain"),
      services_(std::move(services)),
      templates_(services_, dialogServices_),
      dialogServices_(MakeDialogs()),
      looks_(services_),
      panes_(
          services_, dialogServices_, looks_, {mnuPlanPane, mnuCheckPane, mnuMarginsPane, mnuGoToPlan, sbFindings},
          [this] { dialogs_.EditTemplate(); },
          ExamplePlans::AreThere(services_) ? std::function<void()>([this] { examples_.PopUp(); }) : nullptr,
          ActsOfMargins(KeptPlans::Looker::Pane)),
      dialogs_(services_, dialogServices_, panes_),
      recent_(*this, services_, mnuRecent, [this](const std::filesystem::path& file) { OpenFile(file); }),
      examples_(*this, services_, mnuExamples),
      plans_(*this, services_, mnuWindowBar2),
      files_(services_, panes_, recent_),
      closing_(services_, panes_, files_),
      session_(services_, files_, mnuReopen),
      exchange_(services_),
      recovery_(services_, files_),
      reports_(services_, dialogServices_, looks_),
      switches_(services_.platform.settings, looks_,
                {{mnuViewCeiling, &GraphExtras::ceiling, "ShowCeiling"},
                 {mnuViewStopMinutes, &GraphExtras::stopMinutes, "ShowStopMinutes"},
                 {mnuViewDepths, &GraphExtras::depths, "ShowDepths"},
                 {mnuViewTissues, &GraphExtras::tissues, "ShowTissues"},
                 {mnuViewLight, &GraphExtras::light, "LightGraph"}},
                mnuFitPlan, toolFitPlan, [this] { return Active() && services_.view.ResetZoom(*Active()); }) {
  BuildMenu();
  BuildToolBar();
  Wire();
}

frmMain::~frmMain() { services_.view.Detach(); }

DialogServices frmMain::MakeDialogs() {
  return {services_.forms,
          services_.platform,
          services_.texts,
          services_.switches.VeryHighGF,
          [this] { ApplyToProfile(); },
          [this](Single o2, Single he) { dialogs_.ShowMixer().setmix(o2, he); },
          templates_.OwnDefault().string(),
          [this] { templates_.KeepDefault(); }};
}

void frmMain::Form_Load() {
  SetTexts();
  sbStatusBar.Caption = services_.T(Text::Ready);
  switches_.Load();
  panes_.Restore();
  LoadNewDoc();
}

bool frmMain::Form_QueryUnload(bool /*byUser*/) {
  FinishEdits();
  // All questions first: a Cancel leaves every plan open.
  return closing_.ConfirmAll();
}

void frmMain::Form_Unload() {
  services_.runs.EndAll();
  panes_.Keep();
  session_.Keep();
  closing_.CloseAll();
  if (services_.view.IsMinimised()) return;
  const Placement place = services_.view.PlaceNow();
  SettingsStore& settings = services_.platform.settings;
  settings.WriteSetting("Settings", "MainLeft", std::to_string(place.left));
  settings.WriteSetting("Settings", "MainTop", std::to_string(place.top));
  settings.WriteSetting("Settings", "MainWidth", std::to_string(place.width));
  settings.WriteSetting("Settings", "MainHeight", std::to_string(place.height));
}

void frmMain::LoadNewDoc() { services_.history.MarkSaved(services_.forms.LoadNewDoc()); }

void frmMain::SetBreathingMode(bool openCircuit, bool apply) {
  toolOpenCircuit.Image = openCircuit ? "opencircuit" : "constppo2";
  toolOpenCircuit.ToolTipText = services_.T(openCircuit ? Text::OpenCircuit : Text::ConstantPPO2);
  // The menu names the mode that a click would give.
  const std::string other = services_.T(openCircuit ? Text::ConstantPPO2 : Text::OpenCircuit);
  if (PlainCaption(mnuOC.Caption) != other) {
    mnuOC.Caption = other;
    if (IsLoaded()) GiveLetters(menu_);
  }
  OpenCircuitMode = openCircuit;
  if (apply) ApplyToProfile();
}

void frmMain::ApplyToProfile() {
  const auto active = Active();
  if (!active) return;
  DiveTemplate& diveTemplate = services_.Document(*active).Template;
  SetCircuit(diveTemplate, OpenCircuitMode);
  diveTemplate.TemplateChanged = true;
  services_.forms(*active).MarkModified();
  services_.forms(*active).ReEvaluateUserEnteredWaypoints();
}

void frmMain::mnuVPM_Click() {
  const bool on = !mnuVPM.Checked;
  mnuVPM.Checked = on;
  services_.model.VPMMode = on;
  if (on) {
    mnuHybrid.Checked = false;
    services_.model.HybridMode = false;
  }
  MarkTable(!on, false);
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
  panes_.PlanPane().ShowModel();
}

void frmMain::MarkTable(bool b, bool c) {
  mnuBulhmannB.Checked = b;
  mnuBulhmannC.Checked = c;
  services_.model.ZHL16C = c;
  panes_.PlanPane().ShowModel();
}

void frmMain::SetModel(const ModelChoice& model) {
  services_.model = model;
  mnuVPM.Checked = model.VPMMode;
  mnuHybrid.Checked = model.HybridMode;
  MarkTable(!model.VPMMode && !model.ZHL16C, model.ZHL16C);
  // All dives of a series, so that each begins with what the same model left.
  if (const auto active = Active()) {
    services_.forms(services_.forms(*active).getFirstProfile()).ReEvaluateUserEnteredWaypoints();
  }
}

void frmMain::StartAscent() {
  if (const auto active = Active()) services_.forms(*active).StartDeco();
}

bool frmMain::OpenFile(const std::filesystem::path& file) {
  FinishEdits();
  if (file.extension() == kTemplateExtension) {
    templates_.Load(file);
    return true;
  }
  if (file.extension() == kUddfExtension || file.extension() == kCsvExtension) return exchange_.Import(file);
  return files_.Open(file);
}

void frmMain::OpenAtStart(const std::vector<std::filesystem::path>& files) {
  session_.Open(files);
  for (const std::filesystem::path& file : files) OpenFile(file);
  session_.TellGone();
}

void frmMain::TextsChanged() {
  SetTexts();
  SyncCommands();
  services_.Status(Text::Ready);
  services_.view.MenuChanged();
  panes_.TextsChanged();
  for (const std::int16_t document : services_.OpenDocuments()) services_.Changed(document);
  ShowFront();
}

void frmMain::KeepForNextStart() {
  recovery_.Keep();
  session_.Keep();
}

bool frmMain::CloseDocument(std::int16_t document) {
  FinishEdits();
  return closing_.Close(document);
}

void frmMain::PopupGraphMenu() {
  std::vector<MenuItem*> items;
  for (const MenuEntry& entry : GraphMenu()) items.push_back(entry.item);
  services_.platform.windows.PopupMenu(items);
}

void frmMain::StateChanged(std::int16_t document) {
  const auto active = Active();
  const int evaluation = active ? services_.forms(*active).Evaluation() : 0;
  const bool another = std::exchange(front_, active) != active;
  if (another) FinishEdits();
  if (!IsOpen(document)) looks_.Forget(document);
  plans_.Follow(document);
  if (another) plans_.MarkFront();
  if (another || document == active || !IsOpen(document)) SyncCommands();
  services_.view.StateChanged(document);
  if (std::exchange(evaluation_, evaluation) != evaluation || another) ShowFront();
  reports_.FollowLine(document);
}

void frmMain::ShowFront() {
  panes_.Follow();
  reports_.Follow();
}

void frmMain::SyncCommands() {
  const auto active = Active();
  EditState state = EditState::Empty;
  bool surface = false;
  bool anything = false;
  if (active) {
    const frmWaypointEditor& editor = services_.forms(*active);
    state = editor.State();
    surface = editor.CanBeFollowed();
    anything = editor.UserActions.GetLength() > 0;
    SetBreathingMode(services_.Document(*active).Template.OpenCircuit, false);
  }
  EnableProfileCommands(state == EditState::Legs, state != EditState::Empty);
  Enable({&toolMultilevel, &mnuSurface, &mnuRepetitive}, surface);
  mnucleardecopoints.Enabled = state == EditState::Ascent;
  Enable({&mnuclearlastwaypoint, &mnuclearallwaypoints}, anything);
  mnuUndo.Enabled = active && (services_.history.CanUndo(*active) || !panes_.PlanPane().MarkedCells(*active).empty());
  mnuRedo.Enabled = active && services_.history.CanRedo(*active);
  // Settings can be edited, loaded and saved without a plan: they are then those of new plans.
  Enable({&mnuClose,
          &mnuSaveProfile,
          &toolSave,
          &mnuSaveProfileAs,
          &mnuExport,
          &mnuAddWaypoint,
          &mnuPopupAddWaypoint,
          &mnuOC,
          &toolOpenCircuit,
          &mnuWindowCascade,
          &mnuWindowTileHorizontal,
          &mnuWindowTileVertical,
          &mnuWindowArrangeIcons,
          &mnuResetZoom,
          &mnuExportPng,
          &mnuExportSvg,
          &mnuGeneralReport,
          &toolReport,
          &mnuPlanSheet,
          &mnuSlate,
          &mnuPrint,
          &mnuWhatIf,
          &mnuMargins,
          &mnuKeepPlan,
          &mnuCompare,
          &mnuClearLine,
          &mnuCylinders},
         active.has_value());
  mnuClearKept.Enabled = reports_.HasKept();
  HoldCommands();
}

void frmMain::EnableProfileCommands(bool enableAscent, bool enableInformation) {
  Enable({&toolAscent, &mnuStartAscent}, enableAscent);
  Enable({&toolAscentInfo, &mnuDiveInformation}, enableInformation);
}

void frmMain::HoldCommands() {
  // One run of tables at a time; and the plan that it computes from can't be changed while it lasts.
  const auto active = Active();
  const bool free = !services_.runs.IsRunning();
  Enable({&mnuBailoutReport, &toolBailout}, free && active.has_value());
  Enable({&mnuGenerateTables, &toolTableExpert}, free);
  const bool held = active && services_.runs.Holds(*active);
  Enable({&mnuLanguages, &mnuViewLanguage}, free);  // it words what it writes
  Enable({&mnuConservatism, &ShowConservatism, &toolConservatism, &mnuTemplate, &mnuDiveSettings, &toolTemplate,
          &mnuLoadTemplate},
         !held);
  if (!held) return;
  Enable({&mnuStartAscent, &toolAscent, &mnuSurface, &mnuRepetitive, &toolMultilevel, &mnucleardecopoints,
          &mnuclearlastwaypoint, &mnuclearallwaypoints, &mnuUndo, &mnuRedo, &mnuAddWaypoint, &mnuPopupAddWaypoint,
          &mnuCylinders, &mnuPlanSheet, &mnuOC, &toolOpenCircuit},
         false);
}

}  // namespace tav
