#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "engine/buhlmann.h"
#include "model/dive_record.h"
#include "model/message.h"

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

/// One run of the engine. What it refers to outlives the run, and the memory that it is made with.
struct EngineRun {
  const DiveTemplate& settings;
  const ModelChoice& model;
  const EndState* before = nullptr;  ///< of the dive before in the series; nullptr starts a first dive
  Single surfaceInterval;            ///< minutes after the dive before
  bool loadOnly = false;             ///< replay the rows as they are, without a stop search
  bool forceOC = false;              ///< the ascent of a rebreather plan on open circuit
  std::int16_t openFrom = 0;         ///< its row from which on it was breathed so already; 0 for none
};

/// The one door to the engine: creates an engine, starts it fresh or after the surface interval, and replays the plan
/// or computes its ascent into `segmentedProfile`; then `end` gets the loads, the totals and whether it decompresses.
/// With a `memory` that saw the same rows and some more since, a replay goes on from there; the result is the same.
///
/// Returns an empty message, or why there was no run: all faults of the template, or too many rows. Then the result is
/// one start row, and `end` is unchanged.
Message ComputeProfile(const EngineRun& run, const ClassProfile& userProfile, ClassProfile& segmentedProfile,
                       EndState& end, EngineObserver& observer, ReplayMemory* memory = nullptr);

/// Ways up from moments of one dive, at a cost that grows with its rows and not with their square: each row is
/// loaded once, and every way goes on from a copy of the engine. Nobody is warned.
class WaysUp {
 public:
  /// `run` and `rows` outlive the object; the template has no faults. `run.forceOC` and `run.openFrom` as in a run.
  WaysUp(const EngineRun& run, const ClassProfile& rows);
  ~WaysUp();

  /// The rows from the end of `row` to the surface, row 0 being that end, after `minutes` more there on its gas;
  /// nothing when a stop never clears. `row` is not before that of the last call.
  std::optional<ClassProfile> From(std::int16_t row, Single minutes);
  /// The same from the run time `moment` within `row`: row 1 is what is left of that row up to then, row 2 the
  /// `minutes`, on open circuit and on the gas `mix`; none for 0 minutes.
  std::optional<ClassProfile> FromMoment(std::int16_t row, Single moment, Single minutes, std::int16_t mix);
  /// The same from a moment within `row`, from 1: as if the plan were cut there. `time` is minutes of run time.
  std::optional<ClassProfile> FromWithin(std::int16_t row, Single time);

 private:
  struct Engine;
  void LoadUntil(std::int16_t row);
  /// The rows of `more` and the ascent, from where the loaded rows end.
  std::optional<ClassProfile> Ascend(const ClassProfile& more, std::int16_t openFrom);

  const EngineRun& run_;
  const ClassProfile& rows_;
  std::unique_ptr<Engine> engine_;
};

/// How a computed dive goes between its rows: a replay of the run that gave `rows`. Nobody is warned. Empty when the
/// replay does not end as the rows do, because the template or the dive before has been changed since.
std::vector<DiveMoment> ReplayMoments(const EngineRun& run, const ClassProfile& rows);

/// The loads that a dive starts with, as fractions of the M-values at the surface. Zeros where there can be no run: the
/// template has faults, or the dive before lacks its ascent.
Compartments StartFractions(const EngineRun& run);

}  // namespace tav
