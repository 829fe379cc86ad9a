#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "model/dive_template.h"
#include "plans/document_forms.h"
#include "plans/undo_history.h"
#include "plans/waypoint_editor.h"

namespace tav {

/// Why a plan does not take a change.
struct PlanRefusal {
  /// A leg that goes above the ceiling at its start.
  struct Leg {
    std::int16_t action = 0;
    Single ceiling;
  };
  std::vector<Leg> legs;
  std::string fault;  ///< the plan could be computed before, but not with the change

  [[nodiscard]] bool IsEmpty() const { return legs.empty() && fault.empty(); }
};

/// A change of a plan while its user is still at it: each state that makes sense is computed and shown, the later dives
/// of the series with it; one that does not brings the plan back that was there before, to the bit. Keep makes what is
/// in force a change of the document and one step of undo, Drop brings the former plan back. A trial ends with the
/// plan that it is about: when that has been closed, nothing of it is kept.
class PlanTrial {
 public:
  PlanTrial(DocumentForms& forms, UndoHistory& history) : forms_(forms), history_(history) {}

  /// Begins, unless a trial on that document is running already; one on another document is kept.
  void Begin(std::int16_t document);
  [[nodiscard]] bool Running() const { return running_; }
  [[nodiscard]] std::int16_t Document() const { return document_; }

  /// Other actions. An edited leg has the rule of a new one: not above the ceiling that the plan has where it begins.
  /// `origins` tells for each action, from 1 on, which action of the plan before the trial it was, 0 for none: a leg
  /// that was above the ceiling then, and is as deep as then, stands. `gases` are those of the plan before the trial
  /// and, behind them, those that the actions bring; empty for none.
  PlanRefusal TryActions(const ClassUseractions& actions, const std::vector<std::int16_t>& origins,
                         const std::vector<GasMix>& gases = {});
  /// Another template. The reason why the plan can't be computed with it; empty when it is in force.
  std::string TryTemplate(const std::function<void(DiveTemplate&)>& change);
  /// What is being entered can't be at all: the former plan is in force meanwhile.
  void Refuse();

  void Keep();
  void Drop();

 private:
  [[nodiscard]] frmWaypointEditor& Editor() const { return forms_(document_); }
  [[nodiscard]] DiveTemplate& Template() const { return forms_.Services().documents(document_).Template; }
  [[nodiscard]] const PlanState& Former() const { return former_.front(); }
  [[nodiscard]] std::vector<PlanRefusal::Leg> LegsAboveCeiling() const;
  [[nodiscard]] bool IsOpen() const;
  void SetGases(const std::vector<GasMix>& gases);
  [[nodiscard]] std::string Text() const;
  void End();

  DocumentForms& forms_;
  UndoHistory& history_;
  bool running_ = false;
  bool inForce_ = false;  ///< something that was tried is
  std::int16_t document_ = 0;
  int opening_ = 0;                ///< of its window
  std::vector<PlanState> former_;  ///< the dive and the later ones of its series
  std::string formerText_;
  std::vector<PlanRefusal::Leg> formerlyAbove_;
};

}  // namespace tav
