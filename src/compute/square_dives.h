#pragma once

#include <cstdint>
#include <optional>

#include "compute/scratch_run.h"
#include "compute/table_dives.h"
#include "model/message.h"

namespace tav {

/// The grid of a set of deco tables: depths in depth units of the template, bottom times in minutes, all whole numbers.
struct TableAxes {
  Single StartDepth;
  Single EndDepth;
  Single DepthStep;
  Single StartTime;
  Single EndTime;
  Single TimeStep;
};

/// What is wrong with a grid.
enum class AxesFault {
  None,
  StartDepthBeyondEnd,
  DepthStepNotPositive,
  StartTimeBeyondEnd,
  TimeStepNotPositive,
  StartTimeNegative,
  EndTimeNegative,
  StartDepthNegative,
  EndDepthNegative,
  OutOfReach,    ///< a depth or a time that no plan may hold
  TooManyDives,  ///< more than kMostSquareDives
};

/// Dives of one grid, some hundred pages.
constexpr int kMostSquareDives = 10000;

/// The first fault, in the order of the enumeration.
AxesFault FindAxesFault(const TableAxes& axes);

/// The number of the text for the user; 0 for None.
int TextOf(AxesFault fault);

/// `DescendRates` becomes one entry of 1000 depth units per minute: how the descent is taken out of the tables.
void setFastTemplate(DiveTemplate& diveTemplate);

/// Computes a square dive on one gas for each depth and bottom time of a grid, as a first dive.
class SquareDives {
 public:
  /// What the dives are of. The grid must have no faults.
  struct Wish {
    std::int16_t mix = 0;      ///< an index in `Blends`
    bool fastDescent = false;  ///< the diver is on the bottom at once; else the time counts from leaving the surface
    TableAxes axes = {};
  };

  /// `observer` outlives the run.
  SquareDives(const DiveTemplate& settings, const ModelChoice& model, const Wish& wish, EngineObserver& observer);

  /// Why there can be no run: the faults of the template. Empty when there can be one.
  [[nodiscard]] const Message& Fault() const { return fault_; }
  /// The dives of the next depth, element 0 being an empty one. Nothing after the last depth, and when `progress`,
  /// which counts the dives of the whole grid, ended the run. There must be no Fault.
  std::optional<TableDives> Next(const RunProgress& progress);
  [[nodiscard]] bool Cancelled() const { return cancelled_; }

 private:
  /// One dive into the profile.
  bool fillProfile(TableDive& dive, Single depth, Single time, const std::function<bool()>& proceed);

  ScratchRun run_;
  Message fault_;
  Wish wish_;
  Single depth_;
  int done_ = 0;
  int of_;
  bool cancelled_ = false;
};

}  // namespace tav
