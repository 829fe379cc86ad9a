#include "cli/supply_json.h"

#include <optional>

#include "supply/supply_text.h"

namespace tav {
namespace {

constexpr const char* RuleName(TurnRule rule) {
  return rule == TurnRule::Half ? "half" : rule == TurnRule::Thirds ? "thirds" : "all";
}

constexpr const char* VerdictName(GasVerdict verdict) {
  switch (verdict) {
    case GasVerdict::IntoReserve:
      return "into_reserve";
    case GasVerdict::RunsOut:
      return "runs_out";
    case GasVerdict::NoCylinder:
      return "no_cylinder";
    case GasVerdict::NotBreathed:
      return "not_breathed";
    case GasVerdict::UnknownGas:
      return "unknown_gas";
    case GasVerdict::Enough:
      break;
  }
  return "enough";
}

Json PressureJson(const std::optional<double>& pressure) { return pressure ? Json(Digits(*pressure)) : Json(); }

Json StoreJson(const GasStore& store) {
  Json json{{"mix", store.gas},
            {"cylinders", Json::array()},
            {"pressure_unit", store.gaugeInBar ? "bar" : "psi"},
            {"carried", Digits(store.carried)},
            {"reserve", Digits(store.reserve)},
            {"used", Digits(store.used)},
            {"left", store.cylinders.empty() ? Json() : Json(Digits(store.Left()))},
            {"start_pressure", PressureJson(store.Pressure(store.carried))},
            {"end_pressure", PressureJson(store.Pressure(store.Left()))},
            {"enough", !IsShort(store)},
            {"verdict", VerdictName(store.verdict)}};
  for (const Cylinder& cylinder : store.cylinders) {
    json["cylinders"].push_back(
        {{"count", cylinder.Count},
         {"size", Digits(cylinder.Size)},
         {"rated_pressure", cylinder.InLitres() ? Json() : Json(Digits(cylinder.RatedPressure))},
         {"fill", Digits(cylinder.Fill)},
         {"reserve", Digits(cylinder.Reserve)}});
  }
  return json;
}

Json LegJson(const GasSupply& supply, const LegSupply& leg) {
  const GasStore* store = supply.Of(leg.gas);
  const auto known = [&](double number) { return leg.decompresses ? Json(Digits(number)) : Json(); };
  return {{"leg", leg.leg},
          {"row", leg.row},
          {"depth", Digits(leg.depth)},
          {"run_time", Digits(leg.runTime)},
          {"mix", leg.gas},
          {"left", store != nullptr && !store->cylinders.empty() ? Json(Digits(leg.left)) : Json()},
          {"sorting_out", Digits(leg.sorting)},
          {"ascent", known(leg.ascent)},
          {"minimum_gas", known(leg.Minimum())},
          {"minimum_pressure",
           store != nullptr && leg.decompresses ? PressureJson(store->Pressure(leg.Minimum())) : Json()},
          {"turn_pressure", PressureJson(leg.turnPressure)},
          {"enough", !IsShort(supply, leg)}};
}

}  // namespace

Json SupplyJson(const GasSupply& supply) {
  if (!supply.IsTold()) return {};
  Json json{{"team", supply.choice.team},
            {"stress", Digits(supply.choice.stress)},
            {"minutes", Digits(supply.choice.minutes)},
            {"rule", RuleName(supply.choice.rule)},
            {"gases", Json::array()},
            {"legs", Json::array()}};
  for (const GasStore& store : supply.gases) json["gases"].push_back(StoreJson(store));
  for (const LegSupply& leg : supply.legs) json["legs"].push_back(LegJson(supply, leg));
  return json;
}

}  // namespace tav
