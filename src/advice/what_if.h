#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "compute/compute.h"
#include "compute/gas_warnings.h"

namespace tav {

/// How much longer and deeper the dive is asked to be.
struct WhatIfWish {
  Single minutes = 5;
  Single depth = 3;  ///< depth units

  /// 5 minutes; 3 m or 10 ft.
  static WhatIfWish Usual(bool metric) { return {5, metric ? 3 : 10}; }

  static constexpr double kMostMinutes = 999;
  static constexpr double kMostDepth = 999;
};

/// What a dive asks for of one gas, and whether the cylinders hold it.
struct GasNeed {
  std::string mix;
  Single used;                    ///< litres or cubic feet at the surface
  std::optional<double> carried;  ///< the same; nothing where no cylinders are told at all
  std::optional<bool> enough;     ///< what is used leaves the reserve alone
};

/// One element for each gas that the rows breathe, in the order of the template.
std::vector<GasNeed> GasNeeds(const ClassProfile& rows, const DiveTemplate& settings);

/// A plan as it would be.
struct WhatIfColumn {
  enum class Kind { Planned, Longer, Deeper, Both, Lost, BailOut };

  Kind kind = Kind::Planned;
  std::string lost;  ///< name of the gas that is missing
  Single moment;     ///< of a bail-out: minute of the plan at which it begins
  Single depth;      ///< and the depth there
  Message fault;     ///< why it can't be computed; then it has no rows
  bool decompresses = true;
  ClassProfile rows;                 ///< the whole dive with its ascent
  std::vector<GasWarning> warnings;  ///< what must not be breathed in it
  std::vector<GasNeed> gas;

  /// "planned", "longer", "deeper", "both", "lost EAN50", "bail-out": the name in files for scripts.
  [[nodiscard]] std::string Id() const;
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

  /// Planned, longer, deeper, both, each gas of the change list lost, and on a rebreather the bail-out at the worst
  /// moment. "Longer" and "deeper" change the deepest leg, of equals the last. There must be no Fault.
  [[nodiscard]] std::vector<WhatIfColumn> Columns(const WhatIfWish& wish);

 private:
  [[nodiscard]] ComputedPlan Computed(const DiveRecord& dive) const;
  [[nodiscard]] WhatIfColumn Changed(WhatIfColumn::Kind kind, const WhatIfWish& wish) const;
  [[nodiscard]] WhatIfColumn Lost(const std::string& gas) const;
  /// Of all whole minutes of the plan, the one whose ascent on open circuit asks for the most gas in relation to what
  /// is carried; or takes longest, where no cylinders are told.
  [[nodiscard]] WhatIfColumn BailOut(const ComputedPlan& planned) const;

  DiveRecord plan_;  ///< with its ascent
  std::optional<EndState> before_;
  ModelChoice model_;
  std::int16_t deepest_ = 0;  ///< action of the deepest leg
  bool addsAscent_ = false;
  Message fault_;
  std::vector<WhatIfColumn> fixed_;  ///< those that no wish changes: planned, lost gases, bail-out
};

}  // namespace tav
