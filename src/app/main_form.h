#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/main_services.h"
#include "app/what_if_form.h"
#include "controls/form.h"
#include "dialogs/check_pane.h"
#include "dialogs/plan_pane.h"
#include "mixer/partial_mix_form.h"
#include "persist/format_faults.h"
#include "persist/text_file.h"

namespace tav {

/// The main window: menu, tool bar, status bar, and what each command does. It holds no plan of its own; a command acts
/// on the active document window, and does nothing when there is none.
class frmMain : public Form {
 public:
  explicit frmMain(MainServices services);
  ~frmMain() override;

  MenuItem mnuFile{*this, "mnuFile"};
  MenuItem mnuNewProfile{*this, "mnuNewProfile"};
  MenuItem mnuOpen{*this, "mnuOpen"};
  MenuItem mnuRecent{*this, "mnuRecent"};
  MenuItem mnuClearRecent{*this, "mnuClearRecent"};
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
  MenuItem mnuGoToPlan{*this, "mnuGoToPlan"};
  MenuItem mnuViewCeiling{*this, "mnuViewCeiling"};
  MenuItem mnuViewStopMinutes{*this, "mnuViewStopMinutes"};
  MenuItem mnuViewDepths{*this, "mnuViewDepths"};
  MenuItem mnuViewTissues{*this, "mnuViewTissues"};
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
  MenuItem mnuOC{*this, "mnuOC"};
  MenuItem mnuStartAscent{*this, "mnuStartAscent"};
  MenuItem mnuspe10{*this, "mnuspe10"};
  MenuItem mnuSurface{*this, "mnuSurface"};
  MenuItem mnuWhatIf{*this, "mnuWhatIf"};
  MenuItem mnulangsep{*this, "mnulangsep"};
  MenuItem mnuLanguages{*this, "mnuLanguages"};
  MenuItem mnuReport{*this, "mnuReport"};
  MenuItem mnuDiveInformation{*this, "mnuDiveInformation"};
  MenuItem mnuGeneralReport{*this, "mnuGeneralReport"};
  MenuItem mnuSlate{*this, "mnuSlate"};
  MenuItem mnuBailoutReport{*this, "mnuBailoutReport"};
  MenuItem mnuGenerateTables{*this, "mnuGenerateTables"};
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

  Label sbStatusBar{*this, "sbStatusBar"};
  Button sbFindings{*this, "sbFindings"};  ///< in the status bar: how many findings there are; opens their pane

  bool OpenCircuitMode = true;  ///< the breathing mode that the tool bar shows

  /// The menu bar with all that hangs below it, in order; recent files and open plans in their places.
  [[nodiscard]] std::vector<MenuEntry> Menu() const;
  /// The tool bar: position 1 is element 0; a separator is a nullptr.
  [[nodiscard]] const std::vector<ToolButton*>& ToolBar() const { return toolBar_; }
  [[nodiscard]] ToolButton& Tool(std::size_t position) const { return *toolBar_.at(position - 1); }

  /// A pane beside the graphs with the entry of the view menu that shows and hides it; the mark of the entry tells
  /// whether it is shown.
  struct Pane {
    PaneForm& form;
    MenuItem& entry;
  };
  [[nodiscard]] const std::vector<Pane>& Panes() const { return panes_; }
  frmPlanPane& PlanPane() { return planPane_; }
  frmCheckPane& CheckPane() { return checkPane_; }
  /// The user has shown or hidden a pane by its own means.
  void PaneShown(const PaneForm& shown, bool isShown);
  /// A plan has been computed anew, or is open no more: the panes and the comparison follow.
  void PlanChanged();

  // Commands that others call, too.
  void LoadNewDoc();
  void SetOpenCircuit(bool apply);
  void SetConstPPO(bool apply);
  void ApplyToProfile();
  void ShowConservatism_Click();
  void ShowCylinders();
  void ShowMultiLevel();
  void ShowBailout(bool modal);
  void ShowTableExpert();
  void EditTemplateOfActive();
  /// Opens the gas mixer, or brings it to the front.
  frmPartialMix& ShowMixer();
  void StartAscent();
  void AddWaypoint();
  /// The dialog for a waypoint of the active plan, with depth (depth units) and time (minutes) set; then the plan
  /// takes it.
  void EnterWaypoint(Single depth, Single segmentTime);
  /// Shows a row of the active plan in the waypoint dialog.
  void ViewRow(std::int16_t row);
  /// The leg of the active plan that ends with a row, by its action.
  [[nodiscard]] std::optional<std::int16_t> LegEndingAt(std::int16_t row) const;
  /// Opens the leg that a row of the active plan belongs to in the plan pane; nothing for a row of an ascent.
  void EditLegOf(std::int16_t row);
  /// Ends what is being entered in a pane, as a change of its plan. Whatever acts on plans does so first: every command
  /// of this form, a file that is opened or dropped, another plan in front, a close, the end of the program.
  void FinishEdits();
  void PopupGraphMenu();
  /// Why a stop of a plan lasts as long as it does; empty for a row that is none.
  [[nodiscard]] std::string WhyStop(std::int16_t document, std::int16_t row) const;

  // Results and reports (main_reports.cpp).
  void ShowDiveInformation();
  void ShowGeneralReport();
  void ShowSlate();
  /// Opens the comparison of the active plan, or brings it to the front.
  void ShowWhatIf();

  // Files (main_files.cpp).
  void OpenProfileCommand();
  bool SaveProfileCommand(bool saveAs);
  void LoadTemplateCommand();
  void SaveTemplateCommand();
  /// The user's own template for new plans, which is found before that of the program.
  [[nodiscard]] std::filesystem::path OwnDefaultTemplate() const;
  /// Stores the settings of new plans there, for later starts. Says why that failed.
  void KeepDefaultTemplate();
  /// Opens a plan, loads a template into the active plan or imports, by the file's extension. Says what is wrong.
  bool OpenFile(const std::filesystem::path& file);
  /// A dive log or waypoints as a new plan, and what was simplified told (main_exchange.cpp).
  void ImportCommand();
  bool ImportPlan(const std::filesystem::path& file);
  /// The series of the active plan as UDDF.
  void ExportCommand();
  /// Closes a document window as its close control does. False when the user called it off.
  bool CloseDocument(std::int16_t document);
  /// Keeps copies of all plans with unsaved changes.
  void KeepRecovery();
  /// Offers the plans that a process lost which has ended.
  void OfferRecovery();

  /// Brings menu, tool bar and window in line with the active document.
  void SyncCommands();
  /// The window of a document has become the active one.
  void DocumentActivated();

 protected:
  void Form_Load() override;
  bool Form_QueryUnload(bool byUser) override;
  void Form_Unload() override;

 private:
  void BuildMenu();
  void BuildToolBar();
  void Wire();
  void WirePlanCommands();
  void WireWindowCommands();
  void FinishEditsBeforeCommands();
  // Panes (main_panes.cpp).
  [[nodiscard]] PlanPaneServices PaneServices();
  void WirePanes();
  void ShowPane(const Pane& pane, bool shown);
  void ShowFindings();
  /// What the plan pane refuses has changed: check, graph and commands follow.
  void ShowRefusal(std::int16_t document);
  /// The marked cells of a series, which a file of it would not hold; empty when there are none.
  [[nodiscard]] std::string MarkedCells(std::int16_t document);
  void RestorePanes();
  void KeepPanes();
  void SelectInPanes(std::int16_t row);
  [[nodiscard]] std::optional<std::int16_t> LegAt(std::int16_t row) const;
  void FillRecent();
  void ListPlans();
  void FitPlan(bool fit);
  // What the graphs show (main_graphs.cpp).
  void WireViewCommands();
  void LoadGraphExtras();
  void ShowGraphExtras();
  /// The unsaved mark on each window of a series that has changed.
  void ShowModified();
  void HoldCommands(const std::optional<std::int16_t>& active);
  void SetBreathingMode(bool openCircuit, bool apply);
  void mnuVPM_Click();
  void mnuHybrid_Click();
  /// Marks the tables of ZH-L16; the next evaluations take that of the mark.
  void MarkTable(bool b, bool c);
  void ShowHelp(HelpViewer::Page page);
  void ExportGraph(bool svg);
  /// Tells what is odd in a file that was read.
  void ShowAdvice(const std::filesystem::path& file, const std::vector<FormatFault>& advice);
  void LoadTemplateFrom(const std::filesystem::path& file);
  bool SaveDocument(std::int16_t document, bool saveAs);
  /// Tells what a save could not keep of the file that was there.
  void TellNotes(const std::filesystem::path& file, const SaveNotes& notes);
  bool SaveSeries(std::int16_t document, const std::filesystem::path& file);
  /// Where a file dialog starts, for plans and pictures or for templates: in the folder used last; empty, which is the
  /// user's documents, at first and when that folder is gone.
  [[nodiscard]] std::filesystem::path FolderUsedLast(const char* setting) const;
  void KeepFolder(const char* setting, const std::filesystem::path& file);
  [[nodiscard]] DialogServices Dialogs();
  /// Whether a report is to tell all dives of a series; nothing when the user called it off.
  [[nodiscard]] std::optional<bool> WholeSeries(std::int16_t document);
  /// The names that windows and reports give the model.
  [[nodiscard]] ModelChoice Model() const;
  [[nodiscard]] std::optional<std::int16_t> Active() const {
    return services_.platform.documentWindows.ActiveDocument();
  }
  [[nodiscard]] DocumentState& Document(std::int16_t document) const {
    return services_.forms.Services().documents(document);
  }
  [[nodiscard]] std::string T(int id) const { return services_.texts.GetResString(id); }
  [[nodiscard]] std::vector<std::int16_t> OpenDocuments() const;
  /// What a close says of the marked cells of a series.
  [[nodiscard]] std::string LostCells(std::int16_t document);
  // Recovery (main_recovery.cpp).
  /// A series has changes that are in no file, by its first dive; those that are only on trial count.
  [[nodiscard]] bool IsUnsaved(std::int16_t document) const;
  bool KeepRecoveryOf(std::int16_t document);
  /// Opens a copy. True when it is a plan of this program now, with a copy of its own.
  bool Recover(const Recovery::Copy& copy);
  /// Asks what is to close: this dive of a series, which then leaves it, or all of them.
  bool CloseLaterDive(std::int16_t document);
  void EndDocument(std::int16_t document);

  MainServices services_;
  std::vector<MenuEntry> menu_;
  std::vector<std::unique_ptr<ToolButton>> toolButtons_;
  std::vector<ToolButton*> toolBar_;
  std::vector<std::unique_ptr<MenuItem>> recentItems_;
  std::weak_ptr<frmPartialMix> mixer_;
  frmPlanPane planPane_;
  std::weak_ptr<frmWhatIf> whatIf_;
  frmCheckPane checkPane_;
  std::vector<Pane> panes_{{planPane_, mnuPlanPane}, {checkPane_, mnuCheckPane}};
  struct PlanItem {
    std::int16_t document;
    std::string caption;
    friend bool operator==(const PlanItem&, const PlanItem&) = default;
  };
  std::vector<PlanItem> plans_;                       ///< open, as the menu lists them
  std::vector<std::unique_ptr<MenuItem>> planItems_;  ///< their entries
};

}  // namespace tav
