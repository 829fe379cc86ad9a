#include "supply/supply_settings.h"

#include <string>

#include "model/number_text.h"

namespace tav {
namespace {

const std::string kSection = "GasSupply";

}  // namespace

std::optional<SupplyChoice> ReadSupplyChoice(const SettingsStore& settings) {
  SupplyChoice choice;
  bool told = false;
  // One at a time, so that one that can't be does not take the others along.
  const auto read = [&](const char* name, auto put) {
    const auto number = ParseStrict(settings.ReadSetting(kSection, name));
    if (!number) return;
    told = true;
    SupplyChoice with = choice;
    put(with, *number);
    if (IsSound(with)) choice = with;
  };
  read("Team", [](SupplyChoice& c, Single number) {
    c.team = number >= 1 && number <= kLargestTeam ? static_cast<int>(double{number}) : 0;
  });
  read("Stress", [](SupplyChoice& c, Single number) { c.stress = number; });
  read("Minutes", [](SupplyChoice& c, Single number) { c.minutes = number; });
  read("Rule", [](SupplyChoice& c, Single number) {
    c.rule = number == 1 ? TurnRule::Half : number == 2 ? TurnRule::Thirds : TurnRule::AllUsable;
  });
  return told ? std::optional(choice) : std::nullopt;
}

void WriteSupplyChoice(SettingsStore& settings, const SupplyChoice& choice) {
  settings.WriteSetting(kSection, "Team", std::to_string(choice.team));
  settings.WriteSetting(kSection, "Stress", FormatPlain(choice.stress));
  settings.WriteSetting(kSection, "Minutes", FormatPlain(choice.minutes));
  settings.WriteSetting(kSection, "Rule", std::to_string(static_cast<int>(choice.rule)));
}

}  // namespace tav
