#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "engine/dive_moment.h"
#include "engine/model_choice.h"
#include "engine/observer.h"
#include "model/dive_record.h"
#include "model/message.h"

namespace tav {

/// How far a plan has come.
enum class EditState : std::int16_t {
  Empty = 0,   ///< no user waypoint
  Legs = 1,    ///< user waypoints; the last action is a leg
  Ascent = 2,  ///< the ascent has been computed
};

/// What the evaluation has made of one action.
struct ActionResult {
  std::int16_t lastRow = 0;  ///< where the action ends
  Single ceilingBefore;      ///< where it begins
};

/// What the engine makes of a plan.
struct ComputedPlan {
  ClassProfile rows;
  /// The rows as the engine left them, with the inert gas loads, which copies do not keep: in row 0 those that the dive
  /// starts with, in the others those at the end of each segment.
  ClassProfile loadedRows;
  /// One element for each action, from element 1 on; element 0 is the start.
  std::vector<ActionResult> actionResults{ActionResult()};
  EditState state = EditState::Empty;
  Single startCNS;  ///< doses that a repetitive dive starts with
  Single startOTU;
  EndState end;
  Message fault;      ///< why the plan could not be computed; then it is that of an empty one
  ModelChoice model;  ///< that made the rows

  /// The last row of an action, from 1; a leg that was lengthened and an ascent without stops have rows like all
  /// others, an action that adds none has the row before. Only for a plan that was computed.
  [[nodiscard]] std::int16_t LastRowOf(std::int16_t action) const {
    return actionResults.at(static_cast<std::size_t>(action)).lastRow;
  }
};

/// Computes a dive after another one in its series, or a first one where `before` is nullptr: the legs expanded by the
/// rate tables and replayed, the ascents searched. `observer` is told of every replay.
ComputedPlan Compute(const DiveRecord& dive, const ModelChoice& model, const EndState* before,
                     EngineObserver& observer);

/// What Compute gives for a dive whose last action is an ascent, from `plan`, which has been computed without it.
ComputedPlan WithAscent(ComputedPlan plan, const DiveRecord& dive, const ModelChoice& model, const EndState* before,
                        EngineObserver& observer);

/// A whole series, each dive after the one ahead of it.
std::vector<ComputedPlan> ComputeSeries(const std::vector<DiveRecord>& dives, const ModelChoice& model,
                                        EngineObserver& observer);

/// Row 0 of a plan that is still empty: at the surface, with the oxygen doses that the dive starts with.
void FillStartRow(const DiveTemplate& settings, Single cns, Single otu, ClassProfile& rows);

/// A dive with what was computed of it, to be read: what it refers to outlives it and is not changed meanwhile.
struct PlannedDive {
  const DiveRecord& record;
  const ComputedPlan& plan;
  const EndState* before = nullptr;  ///< how the dive before in its series ended; nullptr for a first dive

  /// The leg that a row belongs to, by the number of its action; nothing for the start, and for rows of an ascent.
  [[nodiscard]] std::optional<std::int16_t> LegAt(std::int16_t row) const;
  /// How the dive goes between its rows. Empty for a plan that does not come out as it is told.
  [[nodiscard]] std::vector<DiveMoment> Moments() const;
  /// The loads that it starts with, as fractions of the M-values at the surface.
  [[nodiscard]] Compartments StartFractions() const;
};

/// Each dive of a series with its plan; what ComputeSeries gave of the same records.
std::vector<PlannedDive> PlannedSeries(const std::vector<DiveRecord>& dives, const std::vector<ComputedPlan>& plans);

}  // namespace tav
