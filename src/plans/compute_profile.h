#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/buhlmann.h"
#include "plans/plan_services.h"

namespace tav {

/// Keeps an engine between the replays of one evaluation. A plan of n legs is replayed n times, each time with the rows
/// of one more leg; the engine of the replay before has the state to go on from. It never outlives an evaluation.
class ReplayMemory {
 public:
  void Forget() { engine_.reset(); }
  [[nodiscard]] bool Remembers() const { return engine_ != nullptr; }

 private:
  friend class EngineDoor;
  std::unique_ptr<ClassBuhlmann> engine_;
};

/// One run of the engine for a document.
struct EngineRun {
  std::int16_t document = 0;
  std::int16_t previousDocument = -1;  ///< the dive before in the series; -1 starts a first dive
  bool loadOnly = false;               ///< replay the rows as they are, without a stop search
  bool forceOC = false;                ///< the ascent of a rebreather plan on open circuit
  std::int16_t openFrom = 0;           ///< its row from which on it was breathed so already; 0 for none
};

/// The one door from a document to the engine: creates an engine, starts it fresh or after the surface interval, and
/// replays the plan or computes its ascent into `segmentedProfile`. With a `memory` that saw the same rows and some
/// more since, a replay goes on from there; the result is the same.
///
/// Returns an empty text, or why there was no run: all faults of the template, or too many rows. Then the result is
/// one start row, and the document is unchanged.
std::string ComputeProfile(const PlanServices& services, const EngineRun& run, const ClassProfile& userProfile,
                           ClassProfile& segmentedProfile, ReplayMemory* memory = nullptr);

/// How a computed dive goes between its rows: a replay of the run that gave `rows`, under the same models. Nobody is
/// warned and no document changes. Empty when the replay does not end as the rows do, because the template or the dive
/// before has been changed since.
std::vector<DiveMoment> ReplayMoments(const PlanServices& services, const EngineRun& run, const ModelChoice& model,
                                      const ClassProfile& rows);

}  // namespace tav
