#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "compute/compute.h"
#include "plans/plan_services.h"

namespace tav {

class DocumentForms;

/// A plan with all that its last evaluation has made of it, to be put back to the bit: computed anew, it may be another
/// one under the models that are chosen meanwhile.
struct PlanState {
  DocumentState document;
  ComputedPlan plan;
};

/// A document window: one open dive plan, apart from its drawing.
///
/// The plan is held twice: the document has what the user asked for, template and `UserActions`, and `InputProfile` is
/// what Compute makes of it. Every change edits the actions or the template and ends in ReEvaluateUserEnteredWaypoints.
/// The links of a series are those of the documents, set by DocumentForms::Link and kept when a plan is put back.
class frmWaypointEditor {
  ComputedPlan computed_;

 public:
  frmWaypointEditor(DocumentForms& forms, std::int16_t documentNumber);
  frmWaypointEditor(const frmWaypointEditor&) = delete;
  frmWaypointEditor& operator=(const frmWaypointEditor&) = delete;

  const ClassProfile& InputProfile = computed_.rows;  ///< the profile shown
  ClassUseractions& UserActions;                      ///< of the document
  std::int16_t DiveNumber = 1;                        ///< place in the series
  const std::int16_t& PrevProfile;                    ///< document of the dive before, -1 for none
  const std::int16_t& NextProfile;                    ///< document of the dive after, -1 for none

  [[nodiscard]] std::int16_t Tag() const { return documentNumber_; }
  /// The dive with what was computed of it, until the next evaluation.
  [[nodiscard]] PlannedDive Planned() const;
  [[nodiscard]] EditState State() const { return computed_.state; }
  /// A repetitive dive can follow: this one is the last of its series, and its ascent is computed.
  [[nodiscard]] bool CanBeFollowed() const { return NextProfile == -1 && State() == EditState::Ascent; }
  /// Counts the plans that this window has held, one after another: tells whether it still holds the same.
  [[nodiscard]] int Opening() const { return opening_; }
  /// Counts the evaluations of this window: what has been worked out from its rows holds until the next one.
  [[nodiscard]] int Evaluation() const { return evaluation_; }
  /// The models of the last evaluation.
  [[nodiscard]] const ModelChoice& EvaluatedWith() const { return computed_.model; }
  [[nodiscard]] Single CurrentRunTime() const { return InputProfile.GetRunTime(InputProfile.GetLength()); }
  [[nodiscard]] const ClassProfile& LoadedProfile() const { return computed_.loadedRows; }
  [[nodiscard]] std::int16_t LastRowOf(std::int16_t action) const { return computed_.LastRowOf(action); }
  [[nodiscard]] std::optional<std::int16_t> LegAt(std::int16_t row) const { return Planned().LegAt(row); }
  /// Why the plan could not be computed, empty when it could. The rows are then those of an empty plan.
  [[nodiscard]] std::string EvaluationFault() const { return Services().texts.Words(computed_.fault); }
  [[nodiscard]] const std::vector<ActionResult>& ActionResults() const { return computed_.actionResults; }

  /// Puts the window back to its start values, for a slot that is used again.
  void Form_Load();
  /// Shows the document by its template of now.
  void SetTemplate();
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
  bool AddUserWaypoint(Single depth, Single segmentTime, std::int16_t mix) {
    return AddLeg(depth, segmentTime, mix, false);
  }
  /// The same; where the ascent is wanted, the leg lies ahead of the one that ends the plan, or comes with it.
  bool AddWantedLeg(Single depth, Single segmentTime, std::int16_t mix) {
    return AddLeg(depth, segmentTime, mix, wantsAscent_);
  }
  /// The plan ends with its ascent, or will do so with its first leg.
  [[nodiscard]] bool WantsAscent() const { return wantsAscent_; }
  /// For a plan that is still empty; one with legs tells by its last action.
  void WantAscent(bool on) { wantsAscent_ = on; }
  /// Where a wanted leg begins: ahead of the ascent that ends the plan.
  [[nodiscard]] std::int16_t LastRowOfLegs() const;

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
  bool AddLeg(Single depth, Single segmentTime, std::int16_t mix, bool withAscent);
  void FollowAscent();
  [[nodiscard]] PlanState PresentState() const;
  void PutBack(const PlanState& state);
  /// Rebuilds the rows of this dive; nothing of it shows before ShowEvaluation.
  void Compute();
  void ShowEvaluation();
  /// Runs the engine, which says what it has to say of this document, and keeps what it gives.
  void Take(ComputedPlan plan);
  [[nodiscard]] DocumentState& Document() const;
  [[nodiscard]] const PlanServices& Services() const;

  DocumentForms& forms_;
  std::int16_t documentNumber_;
  int opening_ = 0;
  int evaluation_ = 0;
  bool wantsAscent_ = true;
};

}  // namespace tav
