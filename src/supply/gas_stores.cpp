#include <algorithm>
#include <cmath>
#include <numeric>

#include "figures/dive_figures.h"
#include "supply/gas_supply.h"

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

std::vector<GasStore> StoresOf(const ClassProfile& rows, const DiveTemplate& settings,
                               const std::vector<Cylinder>& cylinders, const BailOutNeeds& bailOut, double breathing,
                               const ClassProfile* plan) {
  Stores stores(settings, rows, cylinders);
  if (plan != nullptr) stores.OfPlan(*plan);
  stores.AddBailOut(bailOut, breathing);
  return stores.All();
}

}  // namespace tav
