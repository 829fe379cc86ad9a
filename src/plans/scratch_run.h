#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "compute/table_dives.h"
#include "plans/compute_profile.h"

namespace tav {

/// Runs of the engine for a document that nobody sees: it lives in a store of its own, so that whatever happens to the
/// user's documents in the middle of a run (changed, closed) does not reach it, and nothing of it reaches them. The
/// models are those of the start.
class ScratchRun {
 public:
  /// `services` lends the observer, the boxes and the texts. `previous` is the dive before in a series; null for none.
  ScratchRun(const PlanServices& services, const DocumentState& document, const DocumentState* previous);
  ScratchRun(const ScratchRun&) = delete;
  ScratchRun& operator=(const ScratchRun&) = delete;
  ~ScratchRun() = default;

  [[nodiscard]] DiveTemplate& Template() { return store_(document_).Template; }
  [[nodiscard]] const ModelChoice& Model() const { return model_; }

  /// The whole dive of a plan with its ascent into `dive`. False when `proceed` answered false on the way; what `dive`
  /// holds is then void. Throws std::runtime_error for a template with faults and for a dive of too many rows.
  /// With `forceOC` the ascent of a rebreather is on open circuit, and its rows from `openFrom` on were so already.
  bool Compute(const ClassProfile& plan, bool forceOC, TableDive& dive, const std::function<bool()>& proceed,
               std::int16_t openFrom = 0);

 private:
  /// Says on what the engine says, and asks at each stop that never clears whether to go on: nothing else takes long.
  class Listener : public EngineObserver {
   public:
    explicit Listener(EngineObserver& observer) : observer_(observer) {}
    void WarnEND(const LimitWarning& warning) override { observer_.WarnEND(warning); }
    void WarnPPO2High(const LimitWarning& warning) override { observer_.WarnPPO2High(warning); }
    void WarnPPO2Low(const LimitWarning& warning) override { observer_.WarnPPO2Low(warning); }
    void StopHitLimit(const StopLimit& stop) override;
    [[nodiscard]] bool WantsTrace() const override { return observer_.WantsTrace(); }
    void Trace(const TraceSegment& segment) override { observer_.Trace(segment); }

    const std::function<bool()>* proceed = nullptr;

   private:
    EngineObserver& observer_;
  };

  DocumentStore store_;
  ModelChoice model_;
  Listener listener_;
  EditorDisplay display_;
  PlanServices services_;
  std::int16_t previous_ = -1;
  std::int16_t document_ = 0;
};

}  // namespace tav
