#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "advice/finding.h"
#include "compute/bailout_cuts.h"
#include "compute/compute.h"
#include "compute/gas_warnings.h"
#include "figures/advice_words.h"
#include "supply/gas_supply.h"

namespace tav {

/// Gradient factors, fractions.
struct GradientFactors {
  Single low;
  Single high;
};

/// "40/85" or "0.4/0.85" as fractions: a number from 2 on is per cent. Nothing for what is none, is not above 0 and
/// below 2, or falls.
std::optional<GradientFactors> FactorsOf(std::string_view text);
/// "40/85"
std::string TextOf(const GradientFactors& factors);

/// How much longer and deeper the dive is asked to be, and by which other gradient factors.
struct WhatIfWish {
  Single minutes = 5;
  Single depth = 3;  ///< depth units
  std::vector<GradientFactors> factors = {};

  /// 5 minutes; 3 m or 10 ft.
  static WhatIfWish Usual(bool metric) { return {5, metric ? 3 : 10, {}}; }

  static constexpr double kMostMinutes = 999;
  static constexpr double kMostDepth = 999;
};

/// What a dive asks for of one gas, and whether the cylinders hold it.
struct GasNeed {
  std::string mix;
  Single used;                        ///< litres or cubic feet at the surface
  double need = 0;                    ///< what must be there, on open circuit for the minimum gas of each leg, too
  double shownBreathed = 0;           ///< as printed: what is used, on a rebreather the dearest way out
  double shownNeed = 0;               ///< as printed
  std::optional<double> carried;      ///< nothing where no cylinders are told at all
  std::optional<GasVerdict> ofPlan;   ///< of what is breathed
  std::optional<GasVerdict> verdict;  ///< of what must be there
};

/// One element for each gas that is needed, in the order of the template. `told` tells of cylinders.
std::vector<GasNeed> GasNeeds(const std::vector<GasStore>& stores, bool told, bool metric);

/// A plan as it would be.
struct WhatIfColumn {
  enum class Kind { Planned, Longer, Deeper, Both, Lost, BailOut, AllLost, Factors };

  Kind kind = Kind::Planned;
  std::string lost;   ///< name of the gas that is missing
  DearMinute minute;  ///< of a bail-out: that of the plan at which it begins
  Single depth;       ///< and the depth there
  GradientFactors factors = {};
  DiveRecord record;  ///< the plan with the change; of a bail-out the plan
  ComputedPlan plan;  ///< what it gives; of a bail-out nothing
  Message fault;      ///< why it can't be computed; then it has no rows
  bool decompresses = true;
  ClassProfile rows;                 ///< the whole dive with its ascent
  std::vector<GasWarning> warnings;  ///< what must not be breathed in it
  /// Empty where no cylinders are told. Of a loss and a bail-out the gases alone: who has lost a gas need not have the
  /// minimum gas for another failure.
  GasSupply supply;
  std::vector<GasNeed> gas;

  /// "planned", "longer", "deeper", "both", "lost EAN50", "lost all", "gf 40/90", "bail-out 45": the name in files for
  /// scripts.
  [[nodiscard]] std::string Id() const;
  /// The name to pick it by: its Id, but "bail-out" whatever the minute.
  [[nodiscard]] std::string PickName() const;
};

/// What becomes of a plan when something changes: a longer or deeper leg, a lost gas, the loop that fails.
///
/// Each column is the plan with one change, computed by the model that the plan was computed by. The plan is taken when
/// the object is made, with the loads and doses of the dive before. A plan without an ascent gets one, since without it
/// there is nothing to compare.
class WhatIf {
 public:
  explicit WhatIf(const PlannedDive& dive);

  /// Why there is nothing to compare: no legs, a plan that can't be computed. Empty when there is.
  [[nodiscard]] const Message& Fault() const { return fault_; }
  /// The plan had no ascent: that of the columns was added.
  [[nodiscard]] bool AddsAscent() const { return addsAscent_; }
  [[nodiscard]] const DiveTemplate& Settings() const { return plan_.Template; }
  /// How the dive before in its series ended; nullptr for a first dive.
  [[nodiscard]] const EndState* Before() const { return before_ ? &*before_ : nullptr; }

  /// Planned, longer, deeper, both, each gas of the change list lost and all of them, other gradient factors, and on a
  /// rebreather the bail-out from the minute that takes longest to come up and from those that ask most of a gas.
  /// "Longer" and "deeper" change the deepest leg, of equals the last. A gas that is lost is lost in the legs, too,
  /// which go on with the gas before; where there is none the column has a fault. There must be no Fault.
  [[nodiscard]] std::vector<WhatIfColumn> Columns(const WhatIfWish& wish);
  /// The first of them alone; where there is a Fault it has that and the plan.
  [[nodiscard]] WhatIfColumn Planned() const;

 private:
  [[nodiscard]] ComputedPlan Computed(const DiveRecord& dive) const;
  [[nodiscard]] WhatIfColumn Changed(WhatIfColumn::Kind kind, const WhatIfWish& wish) const;
  [[nodiscard]] WhatIfColumn Lost(WhatIfColumn::Kind kind, const std::vector<std::string>& gases) const;
  [[nodiscard]] WhatIfColumn With(const GradientFactors& factors) const;
  [[nodiscard]] WhatIfColumn ColumnOf(WhatIfColumn::Kind kind, DiveRecord dive) const;
  /// The dearest minutes of the plan, without its cylinders, too.
  [[nodiscard]] std::vector<WhatIfColumn> BailOuts(const WhatIfColumn& planned) const;
  [[nodiscard]] WhatIfColumn BailOut(const PlannedDive& dive, const BailoutCuts& cuts, const DearMinute& minute) const;

  DiveRecord plan_;  ///< with its ascent
  std::optional<EndState> before_;
  ModelChoice model_;
  std::int16_t deepest_ = 0;  ///< action of the deepest leg
  bool addsAscent_ = false;
  Message fault_;
  std::vector<WhatIfColumn> fixed_;  ///< those that no wish changes: planned, lost gases, bail-out
};

/// The action that is the deepest leg, of equals the last; 0 without legs.
std::int16_t DeepestLegOf(const ClassUseractions& actions);

/// The dangers of the plan check in a column; none of a bail-out, whose `warnings` tell what it breathes.
std::vector<Finding> DangersOf(const WhatIfColumn& column, const EndState* before, const AdviceWords& words);

}  // namespace tav
