#include "advice/limit_judge.h"

#include <algorithm>

#include "advice/plan_check.h"
#include "engine/breathing_gas.h"
#include "figures/dive_figures.h"
#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {
namespace {

using Kind = BrokenLimit::Kind;

/// Minutes and per cent are sums: what is a millionth beyond a limit is not beyond it.
constexpr double kNoise = 1e-4;

double Worst(const std::vector<Finding>& findings, Severity severity) {
  double worst = 0;
  for (const Finding& finding : findings) {
    if (finding.severity == severity) worst = std::max(worst, finding.by);
  }
  return worst;
}

bool HasDanger(const std::vector<Finding>& findings) {
  return std::ranges::any_of(findings, [](const Finding& f) { return f.severity == Severity::Danger; });
}

/// What a gas of the legs has in excess of 1.6 bar, whatever the template allows: above that convulsions come without
/// warning (NOAA Diving Manual, exceptional exposures).
double BottomExcess(const CheckedDive& dive, const std::vector<BreathedSegment>& segments) {
  constexpr double kMost = 1.6;
  constexpr double kWithinRounding = 0.02;
  double excess = 0;
  for (const BreathedSegment& segment : segments) {
    if (segment.row > dive.lastUserRow) break;
    const double ppo2 = RoundSingle(segment.PPO2At(AdjustedDepth(segment.Deeper(), dive.settings)), 2);
    excess = std::max(excess, ppo2 - kMost);
  }
  return excess > kWithinRounding + kNoise ? excess : 0;
}

/// Oxygen as the plan check sees it.
BrokenLimit OfOxygen(const CheckedDive& dive, const std::vector<BreathedSegment>& segments, const AdviceWords& words) {
  std::vector<Finding> findings;
  plan_check::CheckOxygen({dive, words, segments, findings});
  const double bottom = BottomExcess(dive, segments);
  if (!HasDanger(findings) && bottom == 0) return {};
  return {Kind::PPO2, {}, Kind::PPO2, {}, std::max(bottom, Worst(findings, Severity::Danger))};
}

/// What is lacking of a gas so that enough is there, the reserve with it or without.
double Lacking(const GasStore& store, bool withReserve, bool metric) {
  double lacking = store.ShownNeed(metric) - ShownVolume(store.carried, metric);
  if (withReserve) lacking = std::max(lacking, ShownVolume(store.reserve, metric) - store.ShownLeft(metric));
  return std::max(lacking, 0.0);
}

bool RunsOut(GasVerdict verdict) { return verdict == GasVerdict::RunsOut || verdict == GasVerdict::NoCylinder; }

/// The first gas that does not hold what is asked of it without its reserve.
const GasStore* FirstOut(const std::vector<GasStore>& stores) {
  const auto out = std::ranges::find_if(stores, [](const GasStore& store) { return RunsOut(store.verdict); });
  return out == stores.end() ? nullptr : &*out;
}

/// The first gas that the dive itself takes too much of, or some of the reserve.
BrokenLimit OwnGas(const std::vector<GasStore>& stores, bool metric) {
  for (const GasStore& store : stores) {
    if (store.ofPlan != GasVerdict::IntoReserve && !RunsOut(store.ofPlan)) continue;
    return {Kind::Gas, store.gas, Kind::Gas, {}, Lacking(store, true, metric)};
  }
  return {};
}

}  // namespace

std::string BrokenLimit::Id() const {
  switch (kind) {
    case Kind::None:
      return {};
    case Kind::Impossible:
      return "impossible";
    case Kind::DoesNotDecompress:
      return "does_not_decompress";
    case Kind::Ceiling:
      return "ceiling";
    case Kind::PPO2:
      return "ppo2";
    case Kind::Gas:
      return "gas " + gas;
    case Kind::Lost:
      return "lost " + gas;
    case Kind::BailOut:
      return "bail-out";
    case Kind::CNS:
      return "cns";
    case Kind::Run:
      return "run";
    case Kind::Stops:
      return "stops";
  }
  return {};
}

std::string WordsOf(const BrokenLimit& limit, const AdviceWords& words) {
  const auto inner = [&] {
    if (limit.why == Kind::DoesNotDecompress) return words.T(Text::LimitNeverUp);
    if (limit.why == Kind::PPO2) return words.T(Text::LimitPPO2);
    const std::string& gas = limit.kind == Kind::Lost ? limit.runs : limit.gas;
    return gas.empty() ? words.T(Text::LimitAGas) : words.T(Text::LimitRunsOut, {gas});
  };
  switch (limit.kind) {
    case Kind::None:
      return words.T(Text::LimitNone);
    case Kind::Impossible:
      return words.T(Text::LimitImpossible);
    case Kind::DoesNotDecompress:
      return words.T(Text::LimitNeverUp);
    case Kind::Ceiling:
      return words.T(Text::LimitCeiling);
    case Kind::PPO2:
      return words.T(Text::LimitPPO2);
    case Kind::Gas:
      return words.T(Text::LimitGas, {limit.gas});
    case Kind::Lost:
      return words.T(Text::LimitLost, {limit.gas, inner()});
    case Kind::BailOut:
      return words.T(Text::LimitBailOut, {inner()});
    case Kind::CNS:
      return words.T(Text::LimitCNS);
    case Kind::Run:
      return words.T(Text::LimitRun);
    case Kind::Stops:
      return words.T(Text::LimitStops);
  }
  return {};
}

std::string WordsWithAmount(const BrokenLimit& limit, const AdviceWords& words) {
  const std::string what = WordsOf(limit, words);
  const auto amount = [&]() -> std::string {
    switch (limit.why) {
      case Kind::Ceiling:
        return words.Depth(limit.by);
      case Kind::PPO2:
        return words.PPO2(limit.by);
      case Kind::Gas:
        return words.Volume(limit.by);
      case Kind::CNS:
        return words.Short(limit.by) + " %";
      case Kind::Run:
      case Kind::Stops:
        return words.Short(limit.by) + " " + words.T(Text::WhatIfMinutes);
      case Kind::None:
      case Kind::Impossible:
      case Kind::DoesNotDecompress:
      case Kind::Lost:
      case Kind::BailOut:
        break;
    }
    return {};
  }();
  return amount.empty() || !(limit.by > 0) ? what : words.T(Text::LimitBy, {what, amount});
}

BrokenLimit LimitJudge::OfDive(const PlannedDive& dive) const {
  if (!dive.plan.end.Decompresses) return {Kind::DoesNotDecompress, {}, Kind::DoesNotDecompress, {}, 0};
  const CheckedDive checked(dive);
  const std::vector<BreathedSegment> segments = BreathedSegments(checked.Breathed());
  std::vector<Finding> findings;
  plan_check::CheckCeilings({checked, words_, segments, findings});
  if (HasDanger(findings)) return {Kind::Ceiling, {}, Kind::Ceiling, {}, Worst(findings, Severity::Danger)};
  if (BrokenLimit oxygen = OfOxygen(checked, segments, words_); oxygen.IsBroken()) return oxygen;
  const DiveTemplate& settings = dive.record.Template;
  if (!JudgesGas(settings)) return {};
  return OwnGas(StoresOf(dive.plan.loadedRows, settings, settings.Cylinders), settings.Metric);
}

BrokenLimit LimitJudge::OfLoss(const DiveRecord& record, const std::string& lost) const {
  EngineObserver silent;
  const ComputedPlan plan = Compute(record, model_, before_, silent);
  const PlannedDive dive{record, plan, before_};
  const auto broken = [&](Kind why, double by) { return BrokenLimit{Kind::Lost, lost, why, {}, by}; };
  if (!plan.fault.IsEmpty() || !plan.end.Decompresses) return broken(Kind::DoesNotDecompress, 0);
  const CheckedDive checked(dive);
  const BrokenLimit oxygen = OfOxygen(checked, BreathedSegments(checked.Breathed()), words_);
  if (oxygen.IsBroken()) return broken(Kind::PPO2, oxygen.by);
  if (!JudgesGas(record.Template)) return {};
  const std::vector<GasStore> stores = StoresOf(plan.loadedRows, record.Template, record.Template.Cylinders);
  const GasStore* out = FirstOut(stores);
  if (out == nullptr) return {};
  BrokenLimit limit = broken(Kind::Gas, Lacking(*out, false, record.Template.Metric));
  limit.runs = out->gas;
  return limit;
}

BrokenLimit LimitJudge::OfBailOuts(const PlannedDive& dive) const {
  const DiveTemplate& settings = dive.record.Template;
  const SupplyChoice choice = SupplyChoiceOf(settings);
  const BailOutNeeds needs = BailOutNeedsOf(dive, choice.minutes);
  if (needs.neverUp) return {Kind::BailOut, {}, Kind::DoesNotDecompress, {}, 0};
  if (!JudgesGas(settings)) return {};
  const std::vector<GasStore> stores =
      StoresOf(dive.plan.loadedRows, settings, settings.Cylinders, needs, choice.team * choice.stress * settings.RMV);
  const GasStore* out = FirstOut(stores);
  if (out == nullptr) return {};
  return {Kind::BailOut, out->gas, Kind::Gas, {}, Lacking(*out, false, settings.Metric)};
}

BrokenLimit LimitJudge::OfTotals(const ComputedPlan& plan) const {
  const DiveFigures figures = FiguresOf(plan.loadedRows);
  const auto above = [](double value, const std::optional<Single>& limit) {
    return limit && value > *limit + kNoise ? value - *limit : 0.0;
  };
  if (const double by = above(figures.CNS * 100, limits_.cns); by > 0) return {Kind::CNS, {}, Kind::CNS, {}, by};
  if (const double by = above(figures.runTime, limits_.run); by > 0) return {Kind::Run, {}, Kind::Run, {}, by};
  if (const double by = above(figures.stopTime, limits_.stops); by > 0) return {Kind::Stops, {}, Kind::Stops, {}, by};
  return {};
}

}  // namespace tav
