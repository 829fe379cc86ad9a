#include "cli/limit_options.h"

#include "cli/option_values.h"
#include "model/text_id.h"

namespace tav {

DiveLimits LimitWish::On(const DiveTemplate& settings) const {
  constexpr double kLeast = 0.1;
  DiveLimits limits = LimitsOf(settings);
  if (!run.empty()) limits.run = NumberOf(run, "--max-run", kLeast, DiveLimits::kMostMinutes);
  if (!stops.empty()) limits.stops = NumberOf(stops, "--max-stops", 0, DiveLimits::kMostMinutes);
  if (!cns.empty()) limits.cns = NumberOf(cns, "--max-cns", kLeast, DiveLimits::kMostCNS);
  if (noGas) limits.gas = false;
  return limits;
}

void AddLimits(Command& command, LimitWish& wish) {
  command.options.insert(
      command.options.end(),
      {{"--leg", "NUMBER", "The leg that is asked about, from 1; the deepest if not given, of equals the last",
        &wish.leg},
       {"--max-run", "MINUTES", "Limit of the run time; that of the plan if not given, or none", &wish.run},
       {"--max-stops", "MINUTES", "Limit of the minutes of all stops; that of the plan if not given, or none",
        &wish.stops},
       {"--max-cns", "PERCENT", "Limit of the oxygen clock; that of the plan if not given, or 100", &wish.cns},
       {"--no-gas", "", "Do not judge gas", &wish.noGas}});
}

std::optional<std::int16_t> LegOf(const LimitWish& wish, const ClassUseractions& actions) {
  if (wish.leg.empty()) return std::nullopt;
  std::vector<std::int16_t> legs;
  for (std::int16_t i = 1; i <= actions.GetLength() && i > 0; ++i) {
    if (actions.getaction(i) == ClassUseractions::kLeg) legs.push_back(i);
  }
  if (legs.empty()) return std::nullopt;
  return legs[static_cast<std::size_t>(WholeNumberOf(wish.leg, "--leg", 1, static_cast<int>(legs.size()))) - 1];
}

void WriteLimits(JsonWriter& json, const Margins& margins) {
  const DiveLimits& limits = margins.Limits();
  json.Object("limits", [&] {
    json.Member("run", limits.run);
    json.Member("stops", limits.stops);
    json.Member("cns", limits.cns);
    json.Member("gas", limits.gas);
  });
  json.Member("gas_judged", margins.JudgesGas());
}

}  // namespace tav
