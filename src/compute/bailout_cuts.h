#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "compute/compute.h"
#include "compute/plan_cut.h"
#include "compute/scratch_run.h"
#include "compute/table_dives.h"

namespace tav {

/// A copy of a template without one entry of `ChangeGasMixes`; an index above the last entry leaves out nothing. The
/// list of the copy is never empty: the only entry leaves a blank one behind, which no ascent takes.
DiveTemplate DropGasChange(const DiveTemplate& source, int index);

/// Where a plan is cut off: at every multiple of the interval, or only where a leg of the user's ends under water.
enum class CutMoments { Regular, LegEnds };

/// Cuts a plan off at moments of its run time and computes the ascent from each on open circuit: once for the
/// loss of each entry of `ChangeGasMixes` and once with all of them.
///
/// The plan is taken when the object is made, and may change or go away meanwhile.
class BailoutCuts {
 public:
  /// The longest interval, minutes.
  static constexpr int kLongestInterval = 99;
  /// Cuts of one scenario, far beyond what a sheet of paper takes.
  static constexpr int kMostCuts = 10000;
  /// Rows that the cuts of one scenario take from the plan together; they are kept until the scenario is printed.
  static constexpr std::size_t kMostRows = 500000;

  /// `interval` is whole minutes from 0 to 99; 0 is taken as 1; the ends of legs need none. `observer` outlives the
  /// object.
  BailoutCuts(const PlannedDive& dive, const ModelChoice& model, Single interval, EngineObserver& observer,
              CutMoments moments = CutMoments::Regular);

  /// Why there can be no run: no rows, a plan that could not be computed, too many cuts or none. Empty when there can
  /// be one.
  [[nodiscard]] const Message& Fault() const { return fault_; }
  /// Another interval would mend the fault.
  [[nodiscard]] bool IntervalIsAtFault() const { return intervalIsAtFault_; }
  [[nodiscard]] Single Interval() const { return interval_; }
  /// Scenario i is the loss of entry i; the last one has all gases.
  [[nodiscard]] int Scenarios() const { return static_cast<int>(start_.settings.ChangeGasMixes.size()) + 1; }
  /// One scenario: element 0 is the plan, the others are its cuts in rising order of time. Nothing when `progress`
  /// ended the run. There must be no Fault. Throws std::runtime_error when a dive gets too many rows.
  [[nodiscard]] std::optional<TableDives> Compute(int scenario, const RunProgress& progress) const;
  /// The same with that cut alone that takes longest to come up, of equals the first; one without end takes longest of
  /// all.
  [[nodiscard]] std::optional<TableDives> Longest(int scenario, const RunProgress& progress) const;
  /// The cut at one of the moments of `interval`, with all gases. Throws as Compute, and std::out_of_range for another
  /// moment.
  [[nodiscard]] TableDive At(Single moment) const;
  /// The cuts with all gases one after the other, none of which is kept, until `visit` answers false. For the rest it
  /// is like Compute.
  void Visit(const std::function<bool(const TableDive& cut)>& visit) const;

 private:
  /// A moment at which the plan is cut, and the row of the plan that holds it.
  struct Moment {
    Single time;
    std::int16_t row;
    bool atEnd;  ///< the whole plan as it stands
  };

  [[nodiscard]] Message SizeFault() const;
  [[nodiscard]] TableDives Without(int scenario, ScratchRun& run) const;
  [[nodiscard]] std::vector<Moment> Moments() const;
  [[nodiscard]] std::vector<Moment> RegularMoments() const;
  [[nodiscard]] ClassProfile PlanUntil(const Moment& moment) const;
  /// Its ascent into `dive`. False when `proceed` ended it.
  bool Ascend(ScratchRun& run, const Moment& moment, TableDive& dive, const std::function<bool()>& proceed) const;

  ScratchRun::Start start_;
  EngineObserver& observer_;
  ClassProfile plan_;
  std::int16_t openFrom_;  ///< its first row on open circuit
  Single interval_;
  std::optional<std::vector<std::int16_t>> legEnds_;  ///< rows, where the plan is cut at them
  Message fault_;
  bool intervalIsAtFault_ = false;
};

}  // namespace tav
