#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "compute/compute.h"
#include "compute/table_dives.h"

namespace tav {

/// Runs of the engine for dives that nobody sees, with settings and a start of their own: whatever happens to the
/// user's plans in the middle of a run does not reach it.
class ScratchRun {
 public:
  /// What the dives start from.
  struct Start {
    Start(DiveTemplate of, const ModelChoice& by) : settings(std::move(of)), model(by) {}
    /// What a planned dive started from.
    Start(const PlannedDive& dive, const ModelChoice& by)
        : settings(dive.record.Template), model(by), surfaceInterval(dive.record.SurfaceInterval) {
      if (dive.before != nullptr) before = *dive.before;
    }

    DiveTemplate settings;
    ModelChoice model;
    std::optional<EndState> before;  ///< of the dive before in a series
    Single surfaceInterval;          ///< minutes after it
  };

  /// `observer` outlives the run.
  ScratchRun(Start start, EngineObserver& observer) : start_(std::move(start)), listener_(observer) {}

  [[nodiscard]] DiveTemplate& Template() { return start_.settings; }
  [[nodiscard]] const ModelChoice& Model() const { return start_.model; }

  /// The whole dive of a plan with its ascent into `dive`. False when `proceed` answered false on the way; what `dive`
  /// holds is then void. Throws MessageError for a template with faults and for a dive of too many rows.
  /// With `forceOC` the ascent of a rebreather is on open circuit, and its rows from `openFrom` on were so already.
  bool Compute(const ClassProfile& plan, bool forceOC, TableDive& dive, const std::function<bool()>& proceed,
               std::int16_t openFrom = 0);

 private:
  /// Asks at each stop that never clears whether to go on: nothing else takes long.
  class Listener : public ObserverRelay {
   public:
    using ObserverRelay::ObserverRelay;
    void StopHitLimit(const StopLimit& stop) override;

    const std::function<bool()>* proceed = nullptr;
  };

  Start start_;
  Listener listener_;
};

}  // namespace tav
