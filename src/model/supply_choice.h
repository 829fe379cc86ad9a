#pragma once

#include <optional>
#include <string_view>

#include "model/single.h"

namespace tav {

/// What becomes of the gas above the one that must stay: how much of it is breathed before the diver turns.
enum class TurnRule {
  AllUsable,  ///< all of it: the way out is the same from everywhere
  Half,       ///< as much back as out
  Thirds,     ///< a third out, a third back, a third for the partner
};

/// The share of a rule: 1, 1/2, 1/3.
double ShareOf(TurnRule rule);

/// Its name in files and on the command line: "all", "half", "thirds".
std::string_view NameOf(TurnRule rule);
/// The rule of such a name.
std::optional<TurnRule> TurnRuleNamed(std::string_view name);

/// How the gas for the way up is reckoned when something goes wrong.
struct SupplyChoice {
  int team = 2;        ///< divers that breathe from one supply, 1 to 9
  Single stress = 2;   ///< factor on the RMV, 1 to 10
  Single minutes = 2;  ///< to sort things out at depth, 0 to 30
  TurnRule rule = TurnRule::AllUsable;
  friend bool operator==(const SupplyChoice& a, const SupplyChoice& b) {
    return a.team == b.team && a.stress == b.stress && a.minutes == b.minutes && a.rule == b.rule;
  }

  /// Of a plan that tells none: a diver on a loop bails out alone.
  static SupplyChoice Usual(bool openCircuit) { return {openCircuit ? 2 : 1, 2, 2, TurnRule::AllUsable}; }
};

/// The choice of a plan that goes over to the other circuit: a team that is the usual one of the former becomes that of
/// the new one.
SupplyChoice ForCircuit(SupplyChoice choice, bool openCircuit);

constexpr int kLargestTeam = 9;
constexpr double kLargestStress = 10;
constexpr double kLongestSortingOut = 30;

/// Whether all its numbers are in their ranges.
bool IsSound(const SupplyChoice& choice);

}  // namespace tav
