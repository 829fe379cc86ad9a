#pragma once

#include "model/single.h"
#include "platform/settings_store.h"

namespace tav {

/// What becomes of the gas above the one that must stay: how much of it is breathed before the diver turns.
enum class TurnRule {
  AllUsable,  ///< all of it: the way out is the same from everywhere
  Half,       ///< as much back as out
  Thirds,     ///< a third out, a third back, a third for the partner
};

/// The share of a rule: 1, 1/2, 1/3.
double ShareOf(TurnRule rule);

/// How a diver reckons the gas for the way up when something goes wrong.
struct SupplyChoice {
  int team = 2;        ///< divers that breathe from one supply, 1 to 9
  Single stress = 2;   ///< factor on the RMV, 1 to 10
  Single minutes = 2;  ///< to sort things out at depth, 0 to 30
  TurnRule rule = TurnRule::AllUsable;
  friend bool operator==(const SupplyChoice& a, const SupplyChoice& b) {
    return a.team == b.team && a.stress == b.stress && a.minutes == b.minutes && a.rule == b.rule;
  }
};

constexpr int kLargestTeam = 9;
constexpr double kLargestStress = 10;
constexpr double kLongestSortingOut = 30;

/// Whether all its numbers are in their ranges.
bool IsSound(const SupplyChoice& choice);

/// The user's choice, section "GasSupply"; what is not stored, or out of its range, has its default.
SupplyChoice ReadSupplyChoice(const SettingsStore& settings);
void WriteSupplyChoice(SettingsStore& settings, const SupplyChoice& choice);

}  // namespace tav
