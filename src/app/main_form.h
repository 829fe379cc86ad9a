#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "app/example_plans.h"
#include "app/graph_edits.h"
#include "app/last_session.h"
#include "app/main_panes.h"
#include "app/main_services.h"
#include "app/menu_lists.h"
#include "app/plan_closing.h"
#include "app/plan_dialogs.h"
#include "app/plan_exchange.h"
#include "app/plan_files.h"
#include "app/plan_looks.h"
#include "app/plan_recovery.h"
#include "app/plan_reports.h"
#include "app/template_files.h"
#include "app/view_switches.h"
#include "controls/form.h"

namespace tav {

/// The main window: menu, tool bar, status bar, and which command calls which part. It holds no plan of its own; a
/// command acts on the plan in front, and does nothing when there is none. What a command does is the matter of its
/// part, which knows the services, the parts before it, and nothing of this form.
class frmMain : public Form {
 public:
  explicit frmMain(MainServices services);
  ~frmMain() override;

  MenuItem mnuFile{*this, "mnuFile"};
  MenuItem mnuNewProfile{*this, "mnuNewProfile"};
  MenuItem mnuOpen{*this, "mnuOpen"};
  MenuItem mnuRecent{*this, "mnuRecent"};
  MenuItem mnuClearRecent{*this, "mnuClearRecent"};
  MenuItem mnuExamples{*this, "mnuExamples"};
  MenuItem mnuClose{*this, "mnuClose"};
  MenuItem mnuFileBar1{*this, "mnuFileBar1"};
  MenuItem mnuLoadTemplate{*this, "mnuLoadTemplate"};
  MenuItem mnuSaveTemplate{*this, "mnuSaveTemplate"};
  MenuItem mnuFileBar2{*this, "mnuFileBar2"};
  MenuItem mnuSaveProfile{*this, "mnuSaveProfile"};
  MenuItem mnuSaveProfileAs{*this, "mnuSaveProfileAs"};
  MenuItem mnuFuleBar3{*this, "mnuFuleBar3"};
  MenuItem mnuImport{*this, "mnuImport"};
  MenuItem mnuExport{*this, "mnuExport"};
  MenuItem mnuFileBar5{*this, "mnuFileBar5"};
  MenuItem mnuTemplate{*this, "mnuTemplate"};
  MenuItem mnuReopen{*this, "mnuReopen"};
  MenuItem mnuFileBar4{*this, "mnuFileBar4"};
  MenuItem mnuExit{*this, "mnuExit"};
  MenuItem mnuEdit{*this, "mnuEdit"};
  MenuItem mnuUndo{*this, "mnuUndo"};
  MenuItem mnuRedo{*this, "mnuRedo"};
  MenuItem mnuEditBar1{*this, "mnuEditBar1"};
  MenuItem mnuAddWaypoint{*this, "mnuAddWaypoint"};
  MenuItem mnuEditBar2{*this, "mnuEditBar2"};
  MenuItem mnucleardecopoints{*this, "mnucleardecopoints"};
  MenuItem mnuclearlastwaypoint{*this, "mnuclearlastwaypoint"};
  MenuItem mnuclearallwaypoints{*this, "mnuclearallwaypoints"};
  MenuItem mnuView{*this, "mnuView"};
  MenuItem mnuPlanPane{*this, "mnuPlanPane"};
  MenuItem mnuCheckPane{*this, "mnuCheckPane"};
  MenuItem mnuMarginsPane{*this, "mnuMarginsPane"};
  MenuItem mnuGoToPlan{*this, "mnuGoToPlan"};
  MenuItem mnuDefaultLayout{*this, "mnuDefaultLayout"};
  MenuItem mnuViewCeiling{*this, "mnuViewCeiling"};
  MenuItem mnuViewStopMinutes{*this, "mnuViewStopMinutes"};
  MenuItem mnuViewDepths{*this, "mnuViewDepths"};
  MenuItem mnuViewTissues{*this, "mnuViewTissues"};
  MenuItem mnuViewBar1{*this, "mnuViewBar1"};
  MenuItem mnuViewLanguage{*this, "mnuViewLanguage"};
  MenuItem mnuViewLight{*this, "mnuViewLight"};
  MenuItem mnuDefault{*this, "mnuDefault"};
  MenuItem mnuAlgorithm{*this, "mnuAlgorithm"};
  MenuItem mnuBulhmannB{*this, "mnuBulhmannB"};
  MenuItem mnuBulhmannC{*this, "mnuBulhmannC"};
  MenuItem mnualgsep{*this, "mnualgsep"};
  MenuItem mnuVPM{*this, "mnuVPM"};
  MenuItem mnuHybrid{*this, "mnuHybrid"};
  MenuItem mnusep{*this, "mnusep"};
  MenuItem mnuConservatism{*this, "mnuConservatism"};
  MenuItem mnuCylinders{*this, "mnuCylinders"};
  MenuItem mnuDiveSettings{*this, "mnuDiveSettings"};
  MenuItem mnuOC{*this, "mnuOC"};
  MenuItem mnuStartAscent{*this, "mnuStartAscent"};
  MenuItem mnuspe10{*this, "mnuspe10"};
  MenuItem mnuSurface{*this, "mnuSurface"};
  MenuItem mnuRepetitive{*this, "mnuRepetitive"};  ///< the same in other words
  MenuItem mnuWhatIf{*this, "mnuWhatIf"};
  MenuItem mnuKeepPlan{*this, "mnuKeepPlan"};  ///< for comparison
  MenuItem mnuMargins{*this, "mnuMargins"};
  MenuItem mnuCompare{*this, "mnuCompare"};
  MenuItem mnuClearKept{*this, "mnuClearKept"};
  MenuItem mnuClearLine{*this, "mnuClearLine"};  ///< of the comparison, over the graph
  MenuItem mnulangsep{*this, "mnulangsep"};
  MenuItem mnuLanguages{*this, "mnuLanguages"};
  MenuItem mnuReport{*this, "mnuReport"};
  MenuItem mnuDiveInformation{*this, "mnuDiveInformation"};
  MenuItem mnuGeneralReport{*this, "mnuGeneralReport"};
  MenuItem mnuPlanSheet{*this, "mnuPlanSheet"};
  MenuItem mnuSlate{*this, "mnuSlate"};
  MenuItem mnuBailoutReport{*this, "mnuBailoutReport"};
  MenuItem mnuGenerateTables{*this, "mnuGenerateTables"};
  MenuItem mnuReportBar1{*this, "mnuReportBar1"};
  MenuItem mnuPrint{*this, "mnuPrint"};
  MenuItem mnuTools{*this, "mnuTools"};
  MenuItem mnuMixer{*this, "mnuMixer"};
  MenuItem mnuWindow{*this, "mnuWindow"};
  MenuItem mnuWindowCascade{*this, "mnuWindowCascade"};
  MenuItem mnuWindowTileHorizontal{*this, "mnuWindowTileHorizontal"};
  MenuItem mnuWindowTileVertical{*this, "mnuWindowTileVertical"};
  MenuItem mnuWindowArrangeIcons{*this, "mnuWindowArrangeIcons"};
  MenuItem mnuWindowBar1{*this, "mnuWindowBar1"};
  MenuItem mnuFitPlan{*this, "mnuFitPlan"};
  MenuItem mnuWindowBar2{*this, "mnuWindowBar2"};
  MenuItem mnuHelp{*this, "mnuHelp"};
  MenuItem mnuHelpContents{*this, "mnuHelpContents"};
  MenuItem mnuHelpSearch{*this, "mnuHelpSearch"};
  MenuItem mnuCommandSearch{*this, "mnuCommandSearch"};
  MenuItem mmmabout1{*this, "mmmabout1"};
  MenuItem mnuSystemInformation{*this, "mnuSystemInformation"};
  MenuItem mnuContributors{*this, "mnuContributors"};
  MenuItem mnuHelpAbout{*this, "mnuHelpAbout"};
  // The pop-up of the graph, which has the clear commands, too, and a key of its own for the conservatism dialog.
  MenuItem mnuPopupAddWaypoint{*this, "mnuPopupAddWaypoint"};
  MenuItem popup0{*this, "popup0"};
  MenuItem popup1{*this, "popup1"};
  MenuItem popup2{*this, "popup2"};
  MenuItem mnuResetZoom{*this, "mnuResetZoom"};
  MenuItem mnuExportPng{*this, "mnuExportPng"};
  MenuItem mnuExportSvg{*this, "mnuExportSvg"};
  MenuItem ShowConservatism{*this, "ShowConservatism"};

  // The tool bar.
  ToolButton toolNew{*this, "New"};
  ToolButton toolOpen{*this, "Open"};
  ToolButton toolSave{*this, "Save"};
  ToolButton toolConservatism{*this, "Conservatism"};
  ToolButton toolAscent{*this, "Ascent"};
  ToolButton toolAscentInfo{*this, "AscentInfo"};
  ToolButton toolOpenCircuit{*this, "OpenCircuit"};
  ToolButton toolTemplate{*this, "Template"};
  ToolButton toolReport{*this, "Report"};
  ToolButton toolBailout{*this, "Bailout"};
  ToolButton toolTableExpert{*this, "TableExpert"};
  ToolButton toolMultilevel{*this, "Multilevel"};
  ToolButton toolMixer{*this, "Mixer"};
  ToolButton toolFitPlan{*this, "FitPlan"};
  Button toolSearch{*this, "Search"};  ///< at the right end: that commands can be searched, and by which key

  Label sbStatusBar{*this, "sbStatusBar"};
  Button sbFindings{*this, "sbFindings"};  ///< in the status bar: how many findings there are; opens their pane

  bool OpenCircuitMode = true;  ///< the breathing mode that the tool bar shows

  /// The menu bar with all that hangs below it, in order; recent files and open plans in their places. Entries of those
  /// live until the next call.
  [[nodiscard]] std::vector<MenuEntry> Menu();
  /// The tool bar, in order; a separator is a nullptr.
  [[nodiscard]] const std::vector<ToolButton*>& ToolBar() const { return toolBar_; }
  /// The pop-up of the graph.
  void PopupGraphMenu();

  // The parts.
  MainPanes& Panes() { return panes_; }
  PlanFiles& Files() { return files_; }
  PlanDialogs& Dialogs() { return dialogs_; }
  [[nodiscard]] const PlanRecovery& Copies() const { return recovery_; }
  [[nodiscard]] const PlanReports& Reports() const { return reports_; }
  [[nodiscard]] const PlanLooks& Looks() const { return looks_; }
  /// The edits of the graph of a document; they end before this form.
  [[nodiscard]] std::unique_ptr<GraphLegs> GraphEditsOf(std::int16_t document) {
    return std::make_unique<GraphEdits>(services_, panes_, document);
  }

  /// The document in front; nothing when none is open.
  [[nodiscard]] std::optional<std::int16_t> Active() const { return services_.Active(); }
  [[nodiscard]] bool IsOpen(std::int16_t document) const { return services_.IsOpen(document); }
  [[nodiscard]] std::vector<std::int16_t> OpenDocuments() const { return services_.OpenDocuments(); }
  void Activate(std::int16_t document) { services_.forms.Activate(document); }
  /// A document is another than before: commands, panes and windows follow.
  void StateChanged(std::int16_t document);

  /// The language has changed: menus, panes, windows and graphs follow.
  void TextsChanged();

  // Commands that others call, too.
  void LoadNewDoc();
  void SetOpenCircuit(bool apply) { SetBreathingMode(true, apply); }
  void SetConstPPO(bool apply) { SetBreathingMode(false, apply); }
  void ApplyToProfile();
  void StartAscent();
  /// Opens a plan, loads a template into the plan in front or imports, by the file's extension. Says what is wrong.
  bool OpenFile(const std::filesystem::path& file);
  /// Opens the plans of the last session, and the files of the command line beside them and in front.
  void OpenAtStart(const std::vector<std::filesystem::path>& files);
  /// Keeps what a crash must not take: copies of unsaved plans, and which plans are open.
  void KeepForNextStart();
  /// The window has come to the front: other programs may have changed the files of its plans.
  void CameToFront() {
    if (IsLoaded()) files_.LookAgain();
  }
  /// Closes a document as its close control does. False when the user called it off.
  bool CloseDocument(std::int16_t document);
  /// Ends what is being entered in a pane, as a change of its plan. Whatever acts on plans does so first: every command
  /// of this form, a file that is opened or dropped, another plan in front, a close, the end of the program.
  void FinishEdits() { panes_.Finish(); }
  /// The page of the guide that tells of a form.
  void ShowHelpOf(const Form& form);

 protected:
  void Form_Load() override;
  bool Form_QueryUnload(bool byUser) override;
  void Form_Unload() override;

 private:
  // main_menu.cpp
  void BuildMenu();
  void BuildToolBar();
  void SetTexts();
  [[nodiscard]] std::vector<MenuEntry> GraphMenu();
  // main_commands.cpp
  void Wire();
  void WireFiles();
  void WirePlan();
  void WireWindow();
  void WireHelp();
  void FinishEditsBeforeCommands();
  void ShowHelp(HelpViewer::Page page, const std::string& anchor = "");
  void SearchCommands();

  [[nodiscard]] DialogServices MakeDialogs();
  /// Brings menu and tool bar in line with the plan in front.
  void SyncCommands();
  void EnableProfileCommands(bool enableAscent, bool enableInformation);
  /// What a run of tables holds back.
  void HoldCommands();
  /// The parts that show the plan in front follow.
  void ShowFront();
  void SetBreathingMode(bool openCircuit, bool apply);
  void mnuVPM_Click();
  void mnuHybrid_Click();
  /// Marks the tables of ZH-L16; the next evaluations take that of the mark.
  void MarkTable(bool b, bool c);
  [[nodiscard]] MarginActs ActsOfMargins(KeptPlans::Looker looker);
  /// Another model for the plan in front, with its whole series, and for what is computed from now on.
  void SetModel(const ModelChoice& model);

  MainServices services_;
  TemplateFiles templates_;
  DialogServices dialogServices_;
  PlanLooks looks_;
  MainPanes panes_;
  PlanDialogs dialogs_;
  RecentMenu recent_;
  ExamplePlans examples_;
  PlanMenu plans_;
  PlanFiles files_;
  PlanClosing closing_;
  LastSession session_;
  PlanExchange exchange_;
  PlanRecovery recovery_;
  PlanReports reports_;
  ViewSwitches switches_;
  std::vector<MenuEntry> menu_;
  std::vector<ToolButton*> toolBar_;
  std::optional<std::int16_t> front_;  ///< what the parts show: the document, and which of its evaluations
  int evaluation_ = 0;
};

}  // namespace tav
