#include <algorithm>

#include "advice/plan_check.h"

namespace tav::plan_check {
namespace {

constexpr int kRunsOut = 7630;
constexpr int kIntoReserve = 7631;
constexpr int kNoCylinder = 7632;
constexpr int kBelowMinimum = 7633;
constexpr int kNoWayUp = 7634;

void CheckStore(const Context& context, const GasStore& store) {
  const AdviceWords& words = context.words;
  const auto add = [&](std::string text) {
    context.findings.push_back({Rule::GasShort, Severity::Danger, store.firstRow, store.lastRow, std::move(text)});
  };
  const Waypoint& row = context.dive.rows.Row(store.firstRow);
  const std::string depth = words.Depth(row.Depth);
  const std::string time = words.Short(row.RunTime);
  if (store.verdict == GasVerdict::RunsOut) {
    add(words.T(kRunsOut, {store.gas, depth, time, words.Volume(store.used), words.Volume(store.carried),
                           words.Volume(store.used - store.carried)}));
  } else if (store.verdict == GasVerdict::IntoReserve) {
    add(words.T(kIntoReserve, {store.gas, depth, time, words.Volume(store.Left()), words.Volume(store.reserve),
                               words.Volume(store.reserve - store.Left())}));
  } else if (store.verdict == GasVerdict::NoCylinder) {
    const Waypoint& before = context.dive.Before(store.firstRow);
    add(words.T(kNoCylinder,
                {store.gas, words.Depth(before.Depth), words.Short(before.RunTime), words.Volume(store.used)}));
  }
}

void CheckLeg(const Context& context, const GasSupply& supply, const LegSupply& leg) {
  const GasStore* store = supply.Of(leg.gas);
  if (store == nullptr || store->cylinders.empty() || supply.HoldsMinimum(leg)) return;
  const AdviceWords& words = context.words;
  const std::string number = std::to_string(leg.leg);
  const std::string depth = words.Depth(leg.depth);
  const std::string time = words.Short(leg.runTime);
  std::string text = leg.decompresses
                         ? words.T(kBelowMinimum, {leg.gas, number, depth, time, words.Volume(std::max(0.0, leg.left)),
                                                   words.Volume(leg.Minimum()), words.Volume(leg.Minimum() - leg.left)})
                         : words.T(kNoWayUp, {leg.gas, number, depth, time});
  context.findings.push_back({Rule::GasShort, Severity::Danger, leg.row, leg.row, std::move(text)});
}

}  // namespace

void CheckSupply(const Context& context, const GasSupply& supply) {
  for (const GasStore& store : supply.gases) CheckStore(context, store);
  for (const LegSupply& leg : supply.legs) CheckLeg(context, supply, leg);
}

}  // namespace tav::plan_check
