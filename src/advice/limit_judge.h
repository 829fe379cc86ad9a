#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "compute/compute.h"
#include "figures/advice_words.h"
#include "model/dive_limits.h"
#include "model/message.h"
#include "supply/gas_supply.h"

namespace tav {

/// The first limit that a dive breaks, in the order in which they are asked.
struct BrokenLimit {
  enum class Kind {
    None,
    Impossible,         ///< a leg without time or depth, or shorter than its own way: no dive at all
    DoesNotDecompress,  ///< a stop never clears
    Ceiling,            ///< a leg leads above the ceiling of the model
    PPO2,               ///< a danger of the plan check, or a gas of the bottom above 1.6 bar
    Gas,                ///< of the dive as it goes too little, or some of the reserve
    Lost,               ///< the way up without a gas: no end, a danger of its PPO2, or a gas that runs out
    BailOut,            ///< a minute from which the way up on open circuit has no end or not enough gas
    CNS,
    Run,
    Stops,
  };

  Kind kind = Kind::None;
  std::string gas;   ///< of Gas that, of Lost the one that is lost, of BailOut that which runs out
  Kind why = kind;   ///< of Lost and BailOut what breaks then: DoesNotDecompress, PPO2 or Gas
  std::string runs;  ///< of Lost the gas that runs out, if it is that
  /// By how much: depth units, bar or atmospheres, litres or cubic feet, per cent, minutes; 0 where there is no
  /// measure.
  double by = 0;

  [[nodiscard]] bool IsBroken() const { return kind != Kind::None; }
  /// "does_not_decompress", "gas EAN50", "lost EAN50", "bail-out", ...: the name in files for scripts. Empty for none.
  [[nodiscard]] std::string Id() const;
  /// The same limit for the same reason, by whatever amount.
  [[nodiscard]] bool SameAs(const BrokenLimit& other) const {
    return kind == other.kind && gas == other.gas && why == other.why;
  }
};

/// "EAN50 lost: Tx18/45 runs short"; "all limits hold" for none.
std::string WordsOf(const BrokenLimit& limit, const AdviceWords& words);
/// The same with the amount, where it has one: "..., by 120 l".
std::string WordsWithAmount(const BrokenLimit& limit, const AdviceWords& words);

/// Holds computed dives against limits. The minimum gas of the legs, which is for a team in trouble, is not asked here:
/// the losses are. A dive must have enough gas of its own, with the reserve; with a gas lost it may go into the
/// reserve. Several threads may use one.
class LimitJudge {
 public:
  LimitJudge(const DiveLimits& limits, const ModelChoice& model, const EndState* before, AdviceWords words)
      : limits_(limits), model_(model), before_(before), words_(std::move(words)) {}

  /// Gas is asked about: a limit that the user has, of a dive with cylinders.
  [[nodiscard]] bool JudgesGas(const DiveTemplate& settings) const {
    return limits_.gas && !settings.Cylinders.empty();
  }
  [[nodiscard]] const DiveLimits& Limits() const { return limits_; }

  /// What a dive breaks by itself, up to its gas; its losses and totals come after that.
  [[nodiscard]] BrokenLimit OfDive(const PlannedDive& dive) const;
  /// What breaks when the gas `lost` has been taken out of the dive `record`.
  [[nodiscard]] BrokenLimit OfLoss(const DiveRecord& record, const std::string& lost) const;
  /// On a rebreather: of every whole minute on the loop.
  [[nodiscard]] BrokenLimit OfBailOuts(const PlannedDive& dive) const;
  /// Of doses and times.
  [[nodiscard]] BrokenLimit OfTotals(const ComputedPlan& plan) const;

 private:
  DiveLimits limits_;
  ModelChoice model_;
  const EndState* before_;
  AdviceWords words_;
};

}  // namespace tav
