#include "model/supply_choice.h"

namespace tav {

double ShareOf(TurnRule rule) {
  constexpr double kThird = 1.0 / 3;
  switch (rule) {
    case TurnRule::Half:
      return 0.5;
    case TurnRule::Thirds:
      return kThird;
    case TurnRule::AllUsable:
      break;
  }
  return 1;
}

std::string_view NameOf(TurnRule rule) {
  return rule == TurnRule::Half ? "half" : rule == TurnRule::Thirds ? "thirds" : "all";
}

std::optional<TurnRule> TurnRuleNamed(std::string_view name) {
  for (const TurnRule rule : {TurnRule::AllUsable, TurnRule::Half, TurnRule::Thirds}) {
    if (NameOf(rule) == name) return rule;
  }
  return std::nullopt;
}

bool IsSound(const SupplyChoice& choice) {
  return choice.team >= 1 && choice.team <= kLargestTeam && choice.stress >= 1 && choice.stress <= kLargestStress &&
         choice.minutes >= 0 && choice.minutes <= kLongestSortingOut;
}

SupplyChoice ForCircuit(SupplyChoice choice, bool openCircuit) {
  if (choice.team == SupplyChoice::Usual(!openCircuit).team) choice.team = SupplyChoice::Usual(openCircuit).team;
  return choice;
}

}  // namespace tav
