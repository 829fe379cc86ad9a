#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/pane_form.h"
#include "figures/schedule.h"
#include "plans/leg_table.h"
#include "plans/plan_trial.h"

namespace tav {

/// What the plan pane works with. All of it outlives it.
struct PlanPaneServices {
  DialogServices dialogs;
  UndoHistory& history;
  /// The plan can't be changed: a run of tables computes from it.
  std::function<bool(std::int16_t document)> held;
  std::function<void()> editTemplate;
  /// What is entered has become a change of the document, or is refused, or not refused any more.
  std::function<void(std::int16_t document)> entered;
  /// A row of the profile has been selected: the graph marks it.
  std::function<void(std::int16_t row)> markRow;
};

/// The plan in front as a table: a line to enter a dive with, its legs as cells that are typed over, the settings that
/// are changed most, and the schedule. Every text that makes sense is computed while it is typed; what can't be planned
/// is marked in its cell and told of in a line, never by a box, and the plan as it was before is shown as such. A cell
/// that is left with a text that is refused has its former one again. A leg that has no other text yet stays marked,
/// and the plan as it was stays in force, until the cell is filled or the entry is given up; the entry outlives a look
/// at another plan.
class frmPlanPane : public PaneForm {
 public:
  explicit frmPlanPane(PlanPaneServices services);

  // The quick line: a dive with its ascent on an empty plan, else one more leg.
  TextBox tbQuickDepth{*this, "tbQuickDepth"};
  Label lbQuickDepthUnit{*this, "lbQuickDepthUnit"};
  TextBox tbQuickTime{*this, "tbQuickTime"};
  Label lbQuickTimeUnit{*this, "lbQuickTimeUnit"};
  ComboBox cbQuickGas{*this, "cbQuickGas"};
  Button cbQuick{*this, "cbQuick"};

  /// The legs, an empty row for one more, and the ascent.
  Grid fgLegs{*this, "fgLegs"};
  enum LegColumn { kNumberColumn, kDepthColumn, kTimeColumn, kGasColumn, kPPO2Column, kENDColumn, kRunColumn };
  CheckBox ckAscent{*this, "ckAscent"};
  Button cbLegs{*this, "cbLegs"};   ///< the menu of the legs
  Label lbFault{*this, "lbFault"};  ///< why the plan does not take what was entered
  MenuItem mnuInsertLeg{*this, "mnuInsertLeg"};
  MenuItem mnuDeleteLegs{*this, "mnuDeleteLegs"};
  MenuItem mnuDuplicateLegs{*this, "mnuDuplicateLegs"};
  MenuItem mnuMoveLegsUp{*this, "mnuMoveLegsUp"};
  MenuItem mnuMoveLegsDown{*this, "mnuMoveLegsDown"};
  MenuItem mnuCopyLegs{*this, "mnuCopyLegs"};
  MenuItem mnuPasteLegs{*this, "mnuPasteLegs"};

  Label lbTemplate{*this, "lbTemplate"};
  Button cbEditTemplate{*this, "cbEditTemplate"};
  Label lbGF{*this, "lbGF"};
  TextBox tbLowGF{*this, "tbLowGF"};
  SpinButton udLowGF{*this, "udLowGF"};
  TextBox tbHighGF{*this, "tbHighGF"};
  SpinButton udHighGF{*this, "udHighGF"};
  Label lbLastStop{*this, "lbLastStop"};
  TextBox tbLastStop{*this, "tbLastStop"};
  SpinButton udLastStop{*this, "udLastStop"};
  Label lbLastStopUnit{*this, "lbLastStopUnit"};

  ResultGrid fgSchedule{*this, "fgSchedule"};
  Label lbTotals{*this, "lbTotals"};
  Button cbCopySchedule{*this, "cbCopySchedule"};

  void ShowDocument(std::optional<std::int16_t> document) override;
  void SelectRow(std::int16_t row) override;
  void TakeFocus() override;
  void Finish() override;
  /// Opens the depth of a leg, by the number of its action.
  void EditLeg(std::int16_t action);

  /// Why a plan does not have what is entered; empty when it has. Graph and figures are then as before.
  [[nodiscard]] std::string Refusal(std::int16_t document) const;
  /// The marked cells of a plan, a sentence a line: legs that a file would not hold. Empty when there are none.
  [[nodiscard]] std::string MarkedCells(std::int16_t document) const;
  /// Plans with marked cells count as changed, whatever else has been done to them.
  void MarkUnfinished() const;
  /// Gives up the entry of a plan with marked cells. False when there are none.
  bool GiveUp(std::int16_t document);

 protected:
  void Form_Load() override;

 private:
  void Wire();
  void SetTexts();
  void Quick();
  void ShowQuickLine();
  /// The rows are those of the plan; nothing is being entered any more.
  void Reload();

  // The legs (plan_pane_legs.cpp).
  void WireLegs();
  /// The row of the table of a row of the grid; nothing for the head and the empty row.
  [[nodiscard]] std::optional<int> LegRow(int gridRow) const;
  [[nodiscard]] int GridRow(int legRow) const { return legRow + (legRow < table_.EndOfLegs() ? 1 : 2); }
  [[nodiscard]] Grid::Editor EditorOf(int gridRow, int column) const;
  void TypeCell(int gridRow, int column, const std::string& text);
  void CommitCell(int gridRow, int column, const std::string& text);
  void RestoreCell();
  [[nodiscard]] std::string Stepped(const std::string& text, int by) const;
  // Whole legs (plan_pane_commands.cpp).
  /// A change of whole rows. One that the plan refuses leaves the rows as they were; so does, with `whole`, one that
  /// leaves a cell to be filled. True when the rows have changed.
  bool Change(const std::function<void()>& change, bool whole = false);
  [[nodiscard]] std::optional<std::pair<int, int>> SelectedLegs() const;
  void InsertLeg();
  void DeleteLegs(int first, int last);
  void DuplicateLegs(int first, int last);
  void MoveLegs(int by);
  void CopyLegs(int first, int last);
  void PasteLegs();

  /// Puts the rows in force, unless they can't be planned: then the faults tell why. True when they are.
  bool TryRows();
  void ShowLegs();
  [[nodiscard]] std::vector<GridCell> LegCells(int row) const;
  [[nodiscard]] std::string RunTimeOf(int row) const;

  // Settings at hand (plan_pane_settings.cpp).
  void WireSettings();
  void ShowSettings();
  void TypeFactor(const TextBox& field);
  void TypeLastStop();
  void TrySetting(const TextBox& field, std::string fault, const std::function<void(DiveTemplate&)>& change);
  void StepFactor(TextBox& field, int by);
  void StepLastStop(int by);

  // What is refused (plan_pane_refusals.cpp).
  /// Legs whose cells are still to be filled, while the plan has those of before.
  struct Unfinished {
    int opening = 0;  ///< of the window
    LegTable table;
    ClassUseractions inForce;
  };
  [[nodiscard]] const Unfinished* FindUnfinished(std::int16_t document) const;
  void KeepUnfinished();
  void TakeUp(const Unfinished& unfinished);
  /// The cell that was open has its former text, if its text is why the plan does not have the rows.
  void PutCellBack();
  /// What was entered is not taken, and why.
  void Tell(const std::string& entered, const std::string& reason);
  [[nodiscard]] std::string FaultLine(const LegTable::Fault& fault) const;
  [[nodiscard]] std::string RefusalNow() const;
  void ShowFaults();
  void ShowFault(const std::string& reason);

  // The schedule (plan_pane_schedule.cpp).
  [[nodiscard]] ScheduleWords Words() const;
  [[nodiscard]] ScheduleText Schedule() const;
  void ShowSchedule();

  [[nodiscard]] frmWaypointEditor& Editor() const { return services_.forms(*document_); }
  [[nodiscard]] const DiveTemplate& Template() const { return TemplateOf(*document_); }
  [[nodiscard]] std::string LengthUnit() const { return Template().Metric ? "m" : "ft"; }
  [[nodiscard]] bool IsFree() const { return document_ && !pane_.held(*document_); }

  PlanPaneServices pane_;
  PlanTrial trial_;
  std::optional<std::int16_t> document_;  ///< the one that is shown
  int opening_ = 0;                       ///< of its window, which may hold another plan later
  LegTable table_;
  ClassUseractions inForce_;        ///< the actions of the plan when the table was last in line with them
  bool isInForce_ = true;           ///< the plan has the rows of the table
  std::optional<LegTable> former_;  ///< the rows before a cell was opened, while it is typed in
  bool formerInForce_ = true;       ///< the plan has those
  int openRow_ = 0;                 ///< of the table: the cell that is typed in
  LegTable::Field openField_ = LegTable::Field::Depth;
  bool trying_ = false;     ///< the rows are being tried
  bool finishing_ = false;  ///< what is entered is being stored
  std::vector<LegTable::Fault> faults_;
  std::string planFault_;                          ///< of the whole plan
  std::string settingText_;                        ///< what is typed in a setting and refused
  std::string settingFault_;                       ///< why
  std::string told_;                               ///< of the entry that was refused last
  std::optional<LegTable::Fault> mark_;            ///< at the cell that it was in
  std::map<std::int16_t, Unfinished> unfinished_;  ///< by document
  std::vector<std::int16_t> scheduleRows_;         ///< of the profile, by row of the schedule
};

}  // namespace tav
