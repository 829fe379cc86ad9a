#pragma once

#include <optional>

#include "model/single.h"

namespace tav {

/// What a diver will not go beyond, whatever the models allow.
struct DiveLimits {
  std::optional<Single> run;    ///< run time, minutes, above 0
  std::optional<Single> stops;  ///< minutes of all stops, 0 or more
  std::optional<Single> cns;    ///< oxygen clock, per cent, above 0
  bool gas = true;              ///< the cylinders hold what the dive asks for, with each gas lost, too

  /// Of a plan that tells none: the oxygen clock and gas.
  static DiveLimits Usual() { return {{}, {}, Single(100), true}; }

  static constexpr double kMostMinutes = 9999;
  static constexpr double kMostCNS = 999;
  friend bool operator==(const DiveLimits& a, const DiveLimits& b) {
    return a.run == b.run && a.stops == b.stops && a.cns == b.cns && a.gas == b.gas;
  }
};

/// Whether all its numbers are in their ranges.
inline bool IsSound(const DiveLimits& limits) {
  const auto within = [](const std::optional<Single>& number, bool zero, double most) {
    return !number || ((zero ? *number >= 0 : *number > 0) && *number <= most);
  };
  return within(limits.run, false, DiveLimits::kMostMinutes) && within(limits.stops, true, DiveLimits::kMostMinutes) &&
         within(limits.cns, false, DiveLimits::kMostCNS);
}

}  // namespace tav
