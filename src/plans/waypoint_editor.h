#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "model/profile.h"
#include "model/user_actions.h"
#include "plans/compute_profile.h"
#include "plans/plan_services.h"

namespace tav {

class DocumentForms;

/// How far a plan has come.
enum class EditState : std::int16_t {
  Empty = 0,   ///< no user waypoint
  Legs = 1,    ///< user waypoints; the last action is a leg
  Ascent = 2,  ///< the ascent has been computed
};

/// What the evaluation has made of one action.
struct ActionResult {
  std::int16_t lastRow = 0;  ///< of `InputProfile`: where the action ends
  Single ceilingBefore;      ///< where it begins
};

/// A plan with all that its last evaluation has made of it, to be put back to the bit: computed anew, it may be another
/// one under the models that are chosen meanwhile.
struct PlanState {
  ClassUseractions actions;
  ClassProfile rows;
  ClassProfile loadedRows;
  ClassProfile rowsBeforeAscent;
  std::vector<ActionResult> actionResults;
  EditState editState = EditState::Empty;
  ModelChoice model;
  Single runTime;
  std::string fault;
  DocumentState document;
};

/// A document window: one open dive plan, apart from its drawing.
///
/// The plan is held twice: `UserActions` is what the user asked for, `InputProfile` what comes out when those actions
/// are expanded by the rate tables of the template and run through the engine. `InputProfile` is never edited in place:
/// every change edits the actions or the template and ends in ReEvaluateUserEnteredWaypoints.
class frmWaypointEditor {
 public:
  frmWaypointEditor(DocumentForms& forms, std::int16_t documentNumber);
  frmWaypointEditor(const frmWaypointEditor&) = delete;
  frmWaypointEditor& operator=(const frmWaypointEditor&) = delete;

  std::int16_t DiveNumber = 1;  ///< place in the series
  ClassProfile InputProfile;    ///< the profile shown
  ClassUseractions UserActions;
  std::int16_t PrevProfile = -1;  ///< document of the dive before, -1 for none
  std::int16_t NextProfile = -1;  ///< document of the dive after, -1 for none

  [[nodiscard]] std::int16_t Tag() const { return documentNumber_; }
  [[nodiscard]] EditState State() const { return editState_; }
  /// A repetitive dive can follow: this one is the last of its series, and its ascent is computed.
  [[nodiscard]] bool CanBeFollowed() const { return NextProfile == -1 && editState_ == EditState::Ascent; }
  /// Counts the plans that this window has held, one after another: tells whether it still holds the same.
  [[nodiscard]] int Opening() const { return opening_; }
  /// Counts the evaluations of this window: what has been worked out from its rows holds until the next one.
  [[nodiscard]] int Evaluation() const { return evaluation_; }
  /// The models of the last evaluation.
  [[nodiscard]] const ModelChoice& EvaluatedWith() const { return evaluatedWith_; }
  [[nodiscard]] Single CurrentRunTime() const { return currentRunTime_; }
  /// The rows of `InputProfile` as the engine left them, with the inert gas loads, which copies do not keep: in row 0
  /// those that the dive starts with, in the others those at the end of each segment.
  [[nodiscard]] const ClassProfile& LoadedProfile() const { return resultProfile_; }
  /// The last row of an action, from 1; a leg that was lengthened and an ascent without stops have rows like all
  /// others, an action that adds none has the row before. Only for a plan that was computed.
  [[nodiscard]] std::int16_t LastRowOf(std::int16_t action) const {
    return actionResults_.at(static_cast<std::size_t>(action)).lastRow;
  }
  /// The leg that a row belongs to, by the number of its action; nothing for the start, and for rows of an ascent.
  [[nodiscard]] std::optional<std::int16_t> LegAt(std::int16_t row) const;
  /// Why the plan could not be computed, empty when it could. The rows are then those of an empty plan.
  [[nodiscard]] const std::string& EvaluationFault() const { return evaluationFault_; }
  /// One element for each action that could be computed, from element 1 on; element 0 is the start.
  [[nodiscard]] const std::vector<ActionResult>& ActionResults() const { return actionResults_; }

  /// Puts the window back to its start values, for a slot that is used again.
  void Form_Load();
  /// Shows the document by its template of now.
  void SetTemplate();
  /// Takes the oxygen doses that the dive starts with from the dive before, as its last run left them, after the
  /// surface interval; a first dive has none. They are the totals until this dive has an ascent.
  void CarryDoses();
  /// Fills the computed fields of row 0: PPO2, and the oxygen doses of a repetitive dive.
  void setNullWaypoint();
  /// Appends an action: a leg (minutes, depth, mix number) or an ascent command. Throws std::length_error when full.
  void SaveUserEnteredWaypoints(Single duration, Single depth, std::int16_t mix, bool isAscent);
  /// Turns the depths of all legs from the other unit system into metres or feet, to a tenth. Leaves the rows alone.
  void ConvertDepths(bool toMetres);
  /// Rebuilds the rows from the actions, then those of all later dives of the series.
  void ReEvaluateUserEnteredWaypoints();
  /// Puts other actions in the place of those of the plan, if `accepts` agrees: it is asked when this dive has been
  /// computed with them, before anything of it is shown. Else the plan is as it was, to the bit, and false is returned.
  bool TryActions(const ClassUseractions& actions, const std::function<bool()>& accepts);
  /// This dive and the later ones of its series, which change with it.
  [[nodiscard]] std::vector<PlanState> StatesFromHere() const;
  /// Puts them back and shows them.
  void PutBack(const std::vector<PlanState>& states);
  /// The user's ascent command. False when the plan can't be computed: a box has said why, and nothing has changed.
  bool StartDeco();
  /// A waypoint as the user confirmed it. False when it lies above the ceiling or can't be planned: a box has said so.
  bool AddUserWaypoint(Single depth, Single segmentTime, std::int16_t mix);

  /// The plan has unsaved changes; so has the first dive of its series, which asks for all of it.
  void MarkModified();

  void mnucleardecopoints();
  void mnuclearlastwaypoint();
  void mnuclearallwaypoints();

  /// Asks about unsaved changes, once for a series, from its first dive. False calls the close off. `saveAs` saves the
  /// series under a name that the user gives and tells whether it did. `lost` tells what not even that would keep.
  bool ConfirmClose(const std::function<bool()>& saveAs, const std::string& lost = "");
  /// What a close that goes ahead does: carried values of a changed plan are cleared, and a dive that the user closes
  /// leaves its series.
  void LeaveDocument(bool closedByUser);
  /// Both, for a single window.
  bool Form_QueryUnload(bool closedByUser, const std::function<bool()>& saveAs, const std::string& lost = "");

  // Series (waypoint_editor_series.cpp).
  void setPrevNext(std::int16_t previous, std::int16_t next);
  void setPrev(std::int16_t previous);
  void setNext(std::int16_t next);
  /// Sets `DiveNumber`.
  void UpdateSurfProfiles();
  /// Re-evaluates the later dives of the series, in order.
  void SurfStartDeco();
  /// Takes this dive out of its series: the first takes all others with it.
  void SurfDeleteProfile();
  [[nodiscard]] std::int16_t getFirstProfile() const;
  [[nodiscard]] std::int16_t getLastProfile() const;

 private:
  void Evaluate();
  [[nodiscard]] PlanState PresentState() const;
  void PutBack(const PlanState& state);
  /// Rebuilds the rows of this dive; nothing of it shows before ShowEvaluation.
  void Compute();
  void ShowEvaluation();
  bool EvaluateLeg(std::int16_t action, Single& endTime, Single& startTime, Single& startDepth, ReplayMemory& memory);
  bool EvaluateAscent(Single& endTime, Single& startTime, Single& startDepth);
  [[nodiscard]] std::string PreviousDiveFault() const;
  [[nodiscard]] EngineRun Run(bool loadOnly) const;
  /// The rows are about to be others.
  void BeginEvaluation();
  [[nodiscard]] DocumentState& Document() const;
  [[nodiscard]] const PlanServices& Services() const;

  DocumentForms& forms_;
  std::int16_t documentNumber_;
  EditState editState_ = EditState::Empty;
  int opening_ = 0;
  int evaluation_ = 0;
  ModelChoice evaluatedWith_;
  ClassProfile resultProfile_;
  ClassProfile savedProfile_;
  Single currentRunTime_;
  std::string evaluationFault_;
  std::vector<ActionResult> actionResults_{ActionResult()};
};

}  // namespace tav
