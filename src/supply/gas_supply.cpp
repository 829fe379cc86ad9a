#include "supply/gas_supply.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <stdexcept>

#include "compute/compute_profile.h"
#include "engine/breathing_gas.h"
#include "figures/dive_figures.h"

namespace tav {
namespace {

constexpr double kNoise = 1e-3;  // litres or cubic feet; far below what is shown

/// What cylinders and rows tell of each gas.
class Stores {
 public:
  Stores(const DiveTemplate& settings, const ClassProfile& rows, const std::vector<Cylinder>& cylinders)
      : settings_(settings), rows_(rows), cylinders_(cylinders), breathed_(GasTotals(rows)) {}

  void OfPlan(const ClassProfile& plan) { plan_ = &plan; }
  /// `breathing` is the volume of a minute at the surface.
  void AddBailOut(const BailOutNeeds& needs, double breathing) {
    bailOut_ = &needs;
    breathing_ = breathing;
  }

  std::vector<GasStore> All() {
    for (const GasMix& blend : settings_.Blends) Add(blend.Name);
    for (const Cylinder& cylinder : cylinders_) Add(cylinder.Gas);
    return std::move(stores_);
  }

 private:
  void Add(const std::string& gas) {
    if (std::ranges::find(stores_, gas, &GasStore::gas) != stores_.end()) return;
    GasStore store;
    store.gas = gas;
    Fill(store);
    Breathe(store);
    Judge(store);
    if (!store.cylinders.empty() || store.Need() > 0) stores_.push_back(std::move(store));
  }

  void Fill(GasStore& store) const {
    const bool metric = settings_.Metric;
    bool bar = false;
    bool psi = false;
    for (const Cylinder& cylinder : cylinders_) {
      if (cylinder.Gas != store.gas) continue;
      store.cylinders.push_back(cylinder);
      GasStore::Line& line = store.lines.emplace_back();
      if (!cylinder.BailOut && IsDiluent(store.gas)) continue;
      (cylinder.InLitres() ? bar : psi) = true;
      const double perPressure = GasPerPressure(cylinder, metric);
      line.perPressure = perPressure / GaugePressure(1, metric, cylinder.InLitres());
      line.carried = perPressure * PressureIn(metric, cylinder, cylinder.Fill);
      line.reserve = perPressure * PressureIn(metric, cylinder, cylinder.Reserve);
      store.carried += line.carried;
      store.reserve += line.reserve;
    }
    store.gaugeInBar = bar == psi ? metric : bar;
  }

  [[nodiscard]] bool IsDiluent(const std::string& gas) const { return tav::IsDiluent(gas, *plan_, settings_); }

  [[nodiscard]] bool PlanBreathes(const std::string& gas) const {
    for (std::int16_t i = plan_->GetLength(); i > 0; --i) {
      if (plan_->getGasUsed(i) > 0 && plan_->GetGasMixName(i) == gas) return true;
    }
    return false;
  }

  void Breathe(GasStore& store) const {
    if (bailOut_ != nullptr) {
      const auto need = std::ranges::find(bailOut_->gases, store.gas, &BailOutNeed::gas);
      if (need != bailOut_->gases.end()) {
        store.bailOut = *need;
        store.worst = {0, breathing_ * need->sorting, breathing_ * need->ascent, 0};
      }
    }
    const auto gas = std::ranges::find(breathed_, store.gas, &GasTotal::Name);
    if (gas != breathed_.end()) store.used = gas->total;
    // A way out is judged by the gas that it asks for, not by its rows.
    if (store.worst.All() > store.used || (store.bailOut && plan_ != &rows_)) {
      store.firstRow = store.lastRow = store.bailOut->row;
      return;
    }
    store.bailOut.reset();
    store.worst = {};
    for (std::int16_t i = rows_.GetLength(); i > 0 && store.lastRow == 0; --i) {
      if (rows_.GetGasMixName(i) == store.gas && rows_.getGasUsed(i) > 0) store.lastRow = i;
    }
  }

  void Judge(GasStore& store) const {
    if (!FindBlend(store.gas, settings_)) {
      store.ofPlan = GasVerdict::UnknownGas;
    } else if (!(store.Need() > 0)) {
      store.ofPlan = GasVerdict::NotBreathed;
    } else if (!store.HasCylinders() && IsDiluent(store.gas) &&
               (!store.cylinders.empty() || !PlanBreathes(store.gas))) {
      store.ofPlan = GasVerdict::NotTold;
      FindRow(store, 0);
    } else if (!store.HasCylinders()) {
      store.ofPlan = GasVerdict::NoCylinder;
      FindRow(store, 0);
    } else if (store.ShownLeft(settings_.Metric) < -kNoise) {
      store.ofPlan = GasVerdict::RunsOut;
      FindRow(store, store.carried);
    } else if (store.ShownLeft(settings_.Metric) < ShownVolume(store.reserve, settings_.Metric) - kNoise) {
      store.ofPlan = GasVerdict::IntoReserve;
      FindRow(store, store.carried - store.reserve);
    }
    // From a minute whose way out never ends no gas is enough.
    const bool judged = store.ofPlan == GasVerdict::Enough || store.ofPlan == GasVerdict::IntoReserve ||
                        (store.ofPlan == GasVerdict::NotBreathed && bailOut_ != nullptr && bailOut_->gases.empty());
    if (judged && bailOut_ != nullptr && bailOut_->neverUp) store.ofPlan = GasVerdict::RunsOut;
    store.verdict = store.ofPlan;
  }

  void FindRow(GasStore& store, double volume) const {
    if (!store.bailOut) store.firstRow = RowThatPasses(store, volume);
  }

  /// The row in which more than a volume has been breathed.
  [[nodiscard]] std::int16_t RowThatPasses(const GasStore& store, double volume) const {
    double used = 0;
    for (std::int16_t i = 0; i < store.lastRow; ++i) {
      if (rows_.GetGasMixName(i) != store.gas) continue;
      used += rows_.getGasUsed(i);
      if (used > volume + kNoise) return i;
    }
    return store.lastRow;
  }

  const DiveTemplate& settings_;
  const ClassProfile& rows_;
  const std::vector<Cylinder>& cylinders_;
  std::vector<GasTotal> breathed_;
  const ClassProfile* plan_ = &rows_;
  const BailOutNeeds* bailOut_ = nullptr;
  double breathing_ = 0;
  std::vector<GasStore> stores_;
};

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
    int leg = 0;
    std::int16_t before = 0;
    const ClassUseractions& actions = dive_.record.UserActions;
    for (std::int16_t n = 1; n <= actions.GetLength(); ++n) {
      const std::int16_t last = dive_.plan.LastRowOf(n);
      if (actions.getaction(n) == ClassUseractions::kLeg) {
        ++leg;
        if (last > before && rows_.getDepth(last) > 0) legs.push_back(EndOf(leg, last));
      }
      before = last;
    }
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

bool IsDiluent(const std::string& gas, const ClassProfile& plan, const DiveTemplate& settings) {
  if (settings.OpenCircuit) return false;
  for (std::int16_t i = LastUserRow(plan); i > 0; --i) {
    if (plan.GetGasMixName(i) == gas) return true;
  }
  return false;
}

double ShownVolume(double volume, bool metric) {
  const double parts = metric ? 1 : 10;
  return std::round(Single(volume) * parts) / parts;
}

double PressureToActBy(double pressure, bool inBar) {
  const double step = inBar ? 10 : 100;
  return std::ceil((pressure - kNoise) / step) * step;
}

bool GasStore::HasCylinders() const { return std::ranges::any_of(lines, &Line::Counts); }

GasStore::Gauges GasStore::At(double left) const {
  std::vector<double> held;
  held.reserve(lines.size());
  for (const Line& line : lines) held.push_back(line.carried);
  std::size_t end = lines.size();
  while (end > 0 && !lines[end - 1].Counts()) --end;
  const auto breathe = [&]() -> std::size_t {
    for (const bool reserves : {false, true}) {
      for (std::size_t i = 0; i < end; ++i) {
        if (!lines[i].Counts()) continue;
        held[i] = 0;
        const double rest = left - std::accumulate(held.begin(), held.end(), 0.0);
        const double least = reserves ? 0 : lines[i].reserve;
        held[i] = rest;
        if (rest >= least - kNoise || (reserves && i + 1 == end)) return i;
        held[i] = least;
      }
    }
    return 0;
  };
  Gauges gauges;
  gauges.breathed = breathe();
  gauges.pressures.reserve(lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    gauges.pressures.push_back(lines[i].Counts() ? std::optional(held[i] / lines[i].perPressure) : std::nullopt);
  }
  return gauges;
}

double GasStore::LeftToActBy(double left) const {
  const Gauges gauges = At(left);
  const double pressure = gauges.pressures.at(gauges.breathed).value_or(0);
  const double toActBy = PressureToActBy(pressure, cylinders[gauges.breathed].InLitres());
  return left + (toActBy - pressure) * lines[gauges.breathed].perPressure;
}

std::optional<double> GasStore::Pressure(double left) const {
  if (!HasCylinders()) return std::nullopt;
  const Gauges gauges = At(left);
  return GaugePressure(*gauges.pressures[gauges.breathed], cylinders[gauges.breathed].InLitres(), gaugeInBar);
}

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

std::vector<GasStore> StoresOf(const ClassProfile& rows, const DiveTemplate& settings,
                               const std::vector<Cylinder>& cylinders, const BailOutNeeds& bailOut, double breathing,
                               const ClassProfile* plan) {
  Stores stores(settings, rows, cylinders);
  if (plan != nullptr) stores.OfPlan(*plan);
  stores.AddBailOut(bailOut, breathing);
  return stores.All();
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
