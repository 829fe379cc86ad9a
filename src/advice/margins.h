#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "advice/limit_judge.h"

namespace tav {

/// Numbers from one to another in equal steps.
struct MarginRange {
  Single from;
  Single to;
  Single step;

  /// How many there are; nothing for a step that is not above 0, an end before the start, or more than a grid may have.
  [[nodiscard]] std::optional<int> Count() const;
  /// To four decimals: ten steps of 0.1 from -1 on are 0.
  [[nodiscard]] Single At(int index) const;
};

/// How much longer, in minutes, and how much deeper, in depth units, the leg is in the cells of a map.
struct MarginGrid {
  MarginRange longer;
  MarginRange deeper;

  static constexpr int kMostCells = 10000;
  /// -10 to 20 min; -6 to 12 m, or -20 to 40 ft in steps of 5.
  static MarginGrid Usual(bool metric) {
    return {{-10, 20, 1}, metric ? MarginRange{-6, 12, 1} : MarginRange{-20, 40, 5}};
  }
  [[nodiscard]] int Columns() const { return longer.Count().value_or(0); }
  [[nodiscard]] int Rows() const { return deeper.Count().value_or(0); }
  /// Both ranges can be counted, and there are no more cells than kMostCells.
  [[nodiscard]] bool IsSound() const;
};

/// A dive round the planned one.
struct MarginCell {
  Single longer;
  Single deeper;
  Single runTime;  ///< minutes; 0 with the others for an impossible dive
  Single stops;    ///< minutes
  Single cns;      ///< a fraction
  Single otu;
  BrokenLimit limit;  ///< none when all hold
};

/// How long a leg may be.
struct LongestStay {
  int minutes = 0;    ///< as typed; 0 when not even the shortest holds
  MarginCell at;      ///< the dive of these minutes; void for 0
  BrokenLimit binds;  ///< what the next minute breaks; none when the longest that is asked about holds
  int next = 0;       ///< those minutes
  MarginCell beyond;  ///< and their dive

  static constexpr int kMost = 600;
};

/// A depth and how long one may stay there without a stop.
struct NoStopTime {
  Single depth;
  int minutes = 0;  ///< from leaving the surface, at most LongestStay::kMost
};

/// How far a dive may go wrong: the dives round a planned one, each computed whole, with each single gas of its change
/// list lost or, on a rebreather, with every whole minute of the loop left, and held against limits.
///
/// The plan is taken when the object is made, with what the dive before left, and gets an ascent if it has none. Later
/// calls change nothing: several threads may make them.
class Margins {
 public:
  /// `leg` is the number of an action; without one it is the deepest leg, of equals the last.
  Margins(const PlannedDive& dive, const DiveLimits& limits, const AdviceWords& words,
          std::optional<std::int16_t> leg = std::nullopt);

  Margins(const Margins&) = delete;  // its judge knows where it lies
  Margins& operator=(const Margins&) = delete;

  /// Why there is nothing to ask about: no legs, no such leg, a plan that can't be computed. Empty when there is.
  [[nodiscard]] const Message& Fault() const { return fault_; }
  [[nodiscard]] std::int16_t Leg() const { return leg_; }
  [[nodiscard]] Single LegDepth() const { return record_.UserActions.getDepth(leg_); }
  [[nodiscard]] Single LegTime() const { return record_.UserActions.gettime(leg_); }
  [[nodiscard]] const std::string& LegGas() const {
    return Settings().Blends.at(static_cast<std::size_t>(record_.UserActions.getmixnumber(leg_))).Name;
  }
  [[nodiscard]] bool IsRepetitive() const { return before_.has_value(); }
  /// How the dive before in the series ended; nullptr for a first dive.
  [[nodiscard]] const EndState* Before() const { return before_ ? &*before_ : nullptr; }
  [[nodiscard]] const ModelChoice& Model() const { return model_; }
  [[nodiscard]] const DiveTemplate& Settings() const { return record_.Template; }
  [[nodiscard]] const DiveLimits& Limits() const { return judge_.Limits(); }
  [[nodiscard]] bool JudgesGas() const { return judge_.JudgesGas(record_.Template); }
  /// Gases that no dive is judged without, since its first leg breathes them.
  [[nodiscard]] const std::vector<std::string>& NeverLost() const { return neverLost_; }

  /// The plan as it is does.
  [[nodiscard]] bool Decompresses() const { return Computed(record_).end.Decompresses; }
  /// The plan with its leg longer and deeper.
  [[nodiscard]] DiveRecord RecordAt(Single longer, Single deeper) const;
  [[nodiscard]] MarginCell At(Single longer, Single deeper) const { return Judged(longer, deeper, true); }
  /// The same without what costs most: no gas is lost and no loop left. A limit that it breaks is one that At breaks,
  /// too, perhaps after another.
  [[nodiscard]] MarginCell Sketched(Single longer, Single deeper) const { return Judged(longer, deeper, false); }
  /// All cells, row by row, each row from the shortest leg to the longest, worked out by as many threads. `tell` is
  /// called by this thread after each cell of its own with about how many are done; what it throws ends the work.
  [[nodiscard]] std::vector<MarginCell> Cells(const MarginGrid& grid, int threads = 1,
                                              const std::function<void(std::size_t done)>& tell = {}) const;

  /// The first whole number of minutes, counted up from the shortest that the way of the leg allows, whose next minute
  /// breaks a limit: asks about one more minute, beginning with an empty `stay`. False when that was the last one.
  bool Lengthen(LongestStay& stay) const;
  [[nodiscard]] LongestStay Longest() const {
    LongestStay stay;
    while (Lengthen(stay)) {
    }
    return stay;
  }
  /// The same question of square dives on the gas of the leg, with no other limit than that there be no stop: from 9 m
  /// or 30 ft in steps of 3 m or 10 ft, down to where the gas passes `MaxPPO2` or a minute is too long.
  [[nodiscard]] std::vector<NoStopTime> NoStopTimes() const;

 private:
  [[nodiscard]] MarginCell Judged(Single longer, Single deeper, bool losses) const;
  [[nodiscard]] BrokenLimit Broken(const PlannedDive& dive, Single longer, Single deeper, bool losses) const;
  /// The first whole number of minutes that the way of a leg allows.
  [[nodiscard]] int ShortestOf(DiveRecord dive, std::int16_t leg) const;
  [[nodiscard]] ComputedPlan Computed(const DiveRecord& dive) const;
  /// The plan with a gas lost.
  struct Loss {
    std::string gas;
    DiveRecord record;
  };

  DiveRecord record_;  ///< with its ascent
  std::optional<EndState> before_;
  ModelChoice model_;
  LimitJudge judge_;
  std::int16_t leg_ = 0;
  Message fault_;
  std::vector<Loss> losses_;
  std::vector<std::string> neverLost_;
};

}  // namespace tav
