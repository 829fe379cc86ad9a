// Which command of the main window calls which part.

#include "app/command_search.h"
#include "app/help_pages.h"
#include "app/information_boxes.h"
#include "app/languages_form.h"
#include "app/main_form.h"
#include "app/menu_letters.h"
#include "model/text_id.h"

namespace tav {

void frmMain::Wire() {
  WireFiles();
  WirePlan();
  WireWindow();
  WireHelp();
  FinishEditsBeforeCommands();
  services_.runs.changed = [this] {
    SyncCommands();
    ShowFront();
  };
}

void frmMain::FinishEditsBeforeCommands() {
  const auto finishFirst = [this](auto* command) {
    if (command == nullptr || !command->Click) return;
    command->Click = [this, act = std::move(command->Click)] {
      FinishEdits();
      services_.Status(Text::Ready);  // the status bar tells what a command did until the next one
      act();
    };
  };
  for (Control* control : Controls()) {
    finishFirst(dynamic_cast<MenuItem*>(control));
    finishFirst(dynamic_cast<ToolButton*>(control));
  }
}

void frmMain::WireFiles() {
  mnuNewProfile.Click = toolNew.Click = [this] { LoadNewDoc(); };
  mnuOpen.Click = toolOpen.Click = [this] {
    const auto file = files_.Choose();
    if (!file.empty()) OpenFile(file);
  };
  mnuClearRecent.Click = [this] { recent_.Clear(); };
  mnuClose.Click = [this] {
    if (const auto active = Active()) CloseDocument(*active);
  };
  mnuLoadTemplate.Click = [this] { templates_.LoadChosen(); };
  mnuSaveTemplate.Click = [this] { templates_.Save(); };
  mnuSaveProfile.Click = toolSave.Click = [this] { files_.SaveActive(false); };
  mnuSaveProfileAs.Click = [this] { files_.SaveActive(true); };
  mnuImport.Click = [this] { exchange_.ImportChosen(); };
  mnuExport.Click = [this] { exchange_.Export(); };
  mnuExportPng.Click = [this] { exchange_.ExportGraph(false); };
  mnuExportSvg.Click = [this] { exchange_.ExportGraph(true); };
  mnuExit.Click = [this] { Form::Unload(true); };
}

void frmMain::WirePlan() {
  const auto onActive = [this](void (frmWaypointEditor::*command)()) {
    return [this, command] {
      if (const auto active = Active()) (services_.forms(*active).*command)();
    };
  };
  // Cells that are still marked are what was entered last.
  mnuUndo.Click = [this] {
    const auto active = Active();
    if (!active || panes_.PlanPane().GiveUp(*active)) return;
    services_.history.Undo(*active);
    panes_.PlanPane().MarkUnfinished();
    StateChanged(*Active());
  };
  mnuRedo.Click = [this] {
    const auto active = Active();
    if (!active) return;
    services_.history.Redo(*active);
    panes_.PlanPane().MarkUnfinished();
    StateChanged(*Active());
  };
  mnuAddWaypoint.Click = mnuPopupAddWaypoint.Click = [this] { dialogs_.AddWaypoint(); };
  mnuBulhmannB.Click = [this] { MarkTable(true, false); };
  mnuBulhmannC.Click = [this] { MarkTable(false, true); };
  mnuVPM.Click = [this] { mnuVPM_Click(); };
  mnuHybrid.Click = [this] { mnuHybrid_Click(); };
  mnuConservatism.Click = ShowConservatism.Click = toolConservatism.Click = [this] { dialogs_.ShowConservatism(); };
  mnuCylinders.Click = [this] { dialogs_.ShowCylinders(); };
  panes_.PlanPane().settings.SetCircuit = [this](bool openCircuit) { SetBreathingMode(openCircuit, true); };
  panes_.PlanPane().settings.HasModel = [this](const ModelChoice& model) {
    return (!model.VPMMode || mnuVPM.Visible) && (!model.HybridMode || mnuHybrid.Visible);
  };
  panes_.PlanPane().settings.SetModel = [this](const ModelChoice& model) { SetModel(model); };
  mnuOC.Click = toolOpenCircuit.Click = [this] { SetBreathingMode(!OpenCircuitMode, true); };
  mnuStartAscent.Click = toolAscent.Click = [this] { StartAscent(); };
  mnuSurface.Click = mnuRepetitive.Click = toolMultilevel.Click = [this] { dialogs_.ShowMultiLevel(); };
  mnucleardecopoints.Click = onActive(&frmWaypointEditor::mnucleardecopoints);
  mnuclearlastwaypoint.Click = onActive(&frmWaypointEditor::mnuclearlastwaypoint);
  mnuclearallwaypoints.Click = onActive(&frmWaypointEditor::mnuclearallwaypoints);
  mnuDiveInformation.Click = toolAscentInfo.Click = [this] { reports_.ShowDiveInformation(); };
  mnuGeneralReport.Click = toolReport.Click = [this] { reports_.ShowGeneralReport(); };
  mnuPrint.Click = [this] { reports_.Print(); };
  mnuPlanSheet.Click = [this] { reports_.ShowPlanSheet(); };
  mnuSlate.Click = [this] { reports_.ShowSlate(); };
  mnuWhatIf.Click = [this] { reports_.ShowWhatIf(); };
  mnuMargins.Click = [this] { reports_.ShowMargins(ActsOfMargins(KeptPlans::Looker::Window)); };
  mnuKeepPlan.Click = [this] {
    const std::string told = reports_.KeepPlan();
    if (!told.empty()) sbStatusBar.Caption = told;
    SyncCommands();
  };
  mnuCompare.Click = [this] { reports_.ShowComparison(); };
  mnuClearKept.Click = [this] {
    reports_.ClearKept();
    sbStatusBar.Caption = services_.T(Text::Ready);
    SyncCommands();
  };
  mnuClearLine.Click = [this] { reports_.ClearLine(); };
  mnuBailoutReport.Click = [this] { dialogs_.ShowBailout(true); };
  toolBailout.Click = [this] { dialogs_.ShowBailout(false); };
  mnuGenerateTables.Click = toolTableExpert.Click = [this] { dialogs_.ShowTableExpert(); };
  mnuTemplate.Click = mnuDiveSettings.Click = toolTemplate.Click = [this] { dialogs_.EditTemplate(); };
}

void frmMain::WireWindow() {
  mnuMixer.Click = toolMixer.Click = [this] { dialogs_.ShowMixer(); };
  mnuLanguages.Click = mnuViewLanguage.Click = [this] {
    services_.platform.windows.Show(std::make_shared<frmLanguages>(
        services_.platform, services_.texts, services_.folders.ProgramFolder() / kLanguageFolder, services_.speakAnew));
  };
  mnuDefaultLayout.Click = [this] {
    services_.view.Place({});
    panes_.DefaultLayout();
  };
  const auto arrange = [this](Arrangement how) { return [this, how] { services_.view.Arrange(how); }; };
  mnuWindowCascade.Click = arrange(Arrangement::Cascade);
  mnuWindowTileHorizontal.Click = arrange(Arrangement::TileHorizontal);
  mnuWindowTileVertical.Click = arrange(Arrangement::TileVertical);
  mnuWindowArrangeIcons.Click = arrange(Arrangement::Icons);
  mnuResetZoom.Click = [this] {
    if (const auto active = Active()) services_.view.ResetZoom(*active);
  };
}

void frmMain::WireHelp() {
  mnuHelpContents.Click = [this] {
    const PaneForm* pane = services_.view.FocusedPane();
    ShowHelp(HelpViewer::Page::Contents, pane == nullptr ? "" : HelpPageOf(pane->Name()));
  };
  mnuHelpSearch.Click = [this] { ShowHelp(HelpViewer::Page::Search); };
  mnuCommandSearch.Click = toolSearch.Click = [this] { SearchCommands(); };
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
}

void frmMain::SearchCommands() {
  std::vector<frmCommandSearch::Command> commands;
  std::vector<std::string> above;  // the menus that are open at an entry
  const std::vector<MenuEntry> menu = Menu();
  for (std::size_t i = 0; i < menu.size(); ++i) {
    const auto& [item, level] = menu[i];
    above.resize(static_cast<std::size_t>(level));
    const std::string name = PlainCaption(item->Caption);
    if (i + 1 < menu.size() && menu[i + 1].level > level) {
      above.push_back(name);
    } else if (name != "-" && item->Visible && item != &mnuCommandSearch) {
      std::string path;
      for (const std::string& each : above) path += each + " > ";
      commands.push_back({item, path + name});
    }
  }
  frmCommandSearch dialog(services_.texts, std::move(commands));
  services_.platform.windows.ShowModal(dialog);
  if (const MenuItem* chosen = dialog.Chosen()) chosen->Choose();
}

void frmMain::ShowHelpOf(const Form& form) { ShowHelp(HelpViewer::Page::Contents, HelpPageOf(form.Name())); }

void frmMain::ShowHelp(HelpViewer::Page page, const std::string& anchor) {
  if (services_.language.helpFile.empty()) {
    services_.platform.boxes.Show(services_.T(Text::NoHelpFile), Caption, BoxIcon::Information, BoxButtons::OK);
    return;
  }
  try {
    services_.platform.help.ShowHelp(services_.language.helpFile, page, anchor);
  } catch (const std::exception& error) {
    services_.Tell(services_.texts.Words(error), BoxIcon::None);
  }
}

MarginActs frmMain::ActsOfMargins(KeptPlans::Looker looker) {
  const auto setMinutes = [this](std::int16_t action, Single minutes) -> std::string {
    const auto active = Active();
    return active ? GraphEdits(services_, panes_, *active).SetMinutes(action, minutes) : std::string();
  };
  const auto compare = [this](const ComparedPlan& plan) {
    reports_.Compare(plan);
    SyncCommands();
  };
  const auto refusal = [this] {
    const auto active = Active();
    return active && services_.runs.Holds(*active) ? services_.T(Text::HeldPlan) : std::string();
  };
  return {compare, [this, looker](std::optional<ComparedPlan> plan) { reports_.Look(looker, std::move(plan)); },
          setMinutes, refusal, [this](const FilePicture& picture) { exchange_.ExportPicture(picture); }};
}

}  // namespace tav
