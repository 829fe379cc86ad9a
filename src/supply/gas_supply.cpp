#include "supply/gas_supply.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <stdexcept>

#include "compute/compute_profile.h"
#include "compute/leg_ends.h"
#include "engine/breathing_gas.h"
#include "figures/dive_figures.h"

namespace tav {
namespace {

constexpr double kNoise = 1e-3;  // litres or cubic feet; far below what is shown

/// The legs of a plan, each with the way up from its end.
class Legs {
 public:
  Legs(const PlannedDive& dive, const SupplyChoice& choice)
      : dive_(dive),
        settings_(dive.record.Template),
        rows_(dive.plan.rows),
        choice_(choice),
        run_{settings_, dive.plan.model, dive.before, dive.record.SurfaceInterval, false, true},
        ways_(run_, rows_) {}

  std::vector<LegSupply> All() {
    std::vector<LegSupply> legs;
    for (const LegEnd& end : LegEndsOf(dive_)) legs.push_back(EndOf(end.leg, end.row));
    return legs;
  }

 private:
  [[nodiscard]] LegSupply EndOf(int number, std::int16_t row) {
    const Waypoint& end = rows_.Row(row);
    LegSupply leg;
    leg.leg = number;
    leg.row = row;
    leg.depth = end.Depth;
    leg.runTime = end.RunTime;
    leg.gas = end.GasMixName;
    // Gas is counted at the depth that the plan is computed on.
    const double perPressure = DepthPerPressure(settings_.Metric);
    leg.ambient = settings_.StartPressure + AdjustedDepth(end.Depth, settings_) / perPressure;
    const double breathing = choice_.team * choice_.stress * settings_.RMV;
    leg.sorting = breathing * choice_.minutes * leg.ambient;
    const std::optional<double> wayUp = WayUpFrom(row);
    leg.decompresses = wayUp.has_value();
    leg.ascent = breathing * wayUp.value_or(0);
    return leg;
  }

  /// Minutes times pressure of the way up on the gas of a row, until the next gas; nothing when a stop never clears.
  [[nodiscard]] std::optional<double> WayUpFrom(std::int16_t row) {
    const std::optional<ClassProfile> way = ways_.From(row, choice_.minutes);
    if (!way) return std::nullopt;
    double breathed = 0;
    // The minutes at depth are told apart from the way.
    for (auto i = static_cast<std::int16_t>(choice_.minutes > 0 ? 2 : 1); i <= way->GetLength(); ++i) {
      const Waypoint& piece = way->Row(i);
      if (piece.GasMixName != rows_.GetGasMixName(row)) break;
      const Single from = way->getDepth(static_cast<std::int16_t>(i - 1));
      const Single surface = settings_.EndPressure;
      breathed += piece.Rate == 0 ? GasUsedAtDepth(piece.Depth, piece.SegmentTime, 1, surface, settings_.Metric)
                                  : GasUsedOnRamp(from, piece.Depth, piece.Rate, 1, surface, settings_.Metric);
    }
    return breathed;
  }

  const PlannedDive& dive_;
  const DiveTemplate& settings_;
  const ClassProfile& rows_;
  const SupplyChoice& choice_;
  EngineRun run_;
  WaysUp ways_;
};

/// What a leg leaves in its cylinders, and when to turn on it.
void HoldAgainstStore(LegSupply& leg, const GasStore& store, TurnRule rule) {
  leg.left = store.carried - leg.used;
  if (!leg.decompresses) return;
  const double kept = std::max(leg.Minimum(), store.reserve);
  if (kept <= store.carried) {
    leg.turnLeft = store.carried - (store.carried - kept) * ShareOf(rule);
  }
}

/// The legs are in the order of their rows.
void HoldAgainstStores(GasSupply& supply, const ClassProfile& rows) {
  std::map<std::string, double> used;
  std::int16_t row = 0;
  for (LegSupply& leg : supply.legs) {
    for (; row <= leg.row; ++row) used[rows.GetGasMixName(row)] += rows.getGasUsed(row);
    const GasStore* store = supply.Of(leg.gas);
    leg.used = used[leg.gas];
    if (store == nullptr || !store->HasCylinders()) continue;
    HoldAgainstStore(leg, *store, supply.choice.rule);
  }
}

/// A gas that does not hold the minimum of a leg is too little, whatever the plan leaves of it.
void JudgeByLegs(GasSupply& supply) {
  for (GasStore& store : supply.gases) {
    for (const LegSupply& leg : supply.legs) {
      if (leg.gas != store.gas) continue;
      const GasStore::Worst asked{leg.used, leg.sorting, leg.ascent, leg.leg};
      if (leg.decompresses && asked.All() > store.worst.All()) store.worst = asked;
      const bool judged = store.verdict == GasVerdict::Enough || store.verdict == GasVerdict::IntoReserve;
      if (judged && supply.VerdictOf(leg) == GasVerdict::RunsOut) store.verdict = GasVerdict::RunsOut;
    }
  }
}

/// The dearest minute of each gas, in the form of a leg.
std::vector<LegSupply> WaysOut(const GasSupply& supply, const DiveTemplate& settings) {
  const double breathing = supply.choice.team * supply.choice.stress * settings.RMV;
  std::vector<LegSupply> ways;
  for (const GasStore& store : supply.gases) {
    if (!store.bailOut) continue;
    const BailOutNeed& need = *store.bailOut;
    LegSupply way;
    way.leg = static_cast<int>(ways.size()) + 1;
    way.row = need.row;
    way.depth = need.depth;
    way.runTime = need.moment;
    way.gas = need.gas;
    way.ambient = settings.StartPressure + AdjustedDepth(need.depth, settings) / DepthPerPressure(settings.Metric);
    way.sorting = breathing * need.sorting;
    way.ascent = breathing * need.ascent;
    way.turns = false;
    way.left = store.carried;
    ways.push_back(std::move(way));
  }
  return ways;
}

}  // namespace

const GasStore* GasSupply::Of(const std::string& gas) const {
  const auto found = std::ranges::find(gases, gas, &GasStore::gas);
  return found == gases.end() ? nullptr : &*found;
}

double GasSupply::ShownLeft(const LegSupply& leg) const {
  const GasStore* store = Of(leg.gas);
  if (store == nullptr || !store->HasCylinders()) return 0;
  return ShownVolume(store->carried, metric) - ShownVolume(leg.used, metric);
}

GasVerdict GasSupply::VerdictOf(const LegSupply& leg) const {
  const GasStore* store = Of(leg.gas);
  if (!leg.decompresses) return GasVerdict::RunsOut;
  if (store == nullptr) return GasVerdict::NoCylinder;
  if (!store->HasCylinders()) return store->verdict;
  const double left = ShownLeft(leg) - (leg.turns ? 0 : leg.ShownMinimum(metric));
  if (ShownLeft(leg) < leg.ShownMinimum(metric) - kNoise) return GasVerdict::RunsOut;
  return left < ShownVolume(store->reserve, metric) - kNoise ? GasVerdict::IntoReserve : GasVerdict::Enough;
}

bool GasSupply::PassesTurn(const LegSupply& leg) const {
  const GasStore* store = Of(leg.gas);
  return store != nullptr && leg.turnLeft && leg.left < store->LeftToActBy(*leg.turnLeft) - kNoise;
}

GasSupply SupplyOf(const PlannedDive& dive, const SupplyChoice& choice, const std::vector<Cylinder>& cylinders) {
  const DiveTemplate& settings = dive.record.Template;
  const ClassProfile& rows = dive.plan.rows;
  GasSupply supply;
  supply.choice = choice;
  supply.metric = settings.Metric;
  if (cylinders.empty() || rows.GetLength() == 0 || !dive.plan.fault.IsEmpty()) return supply;
  const BailOutNeeds bailOut = BailOutNeedsOf(dive, choice.minutes);
  supply.neverUp = bailOut.neverUp;
  supply.gases = StoresOf(rows, settings, cylinders, bailOut, choice.team * choice.stress * settings.RMV);
  if (!settings.OpenCircuit) {
    supply.waysOut = WaysOut(supply, settings);
    supply.loop = LoopUseOf(dive);
    return supply;
  }
  try {
    supply.legs = Legs(dive, choice).All();
  } catch (const std::length_error&) {
    // A way up in steps so small that no table of rows holds it.
    return supply;
  }
  HoldAgainstStores(supply, rows);
  JudgeByLegs(supply);
  return supply;
}

GasSupply SupplyOf(const PlannedDive& dive) {
  const DiveTemplate& settings = dive.record.Template;
  return SupplyOf(dive, SupplyChoiceOf(settings), settings.Cylinders);
}

}  // namespace tav
