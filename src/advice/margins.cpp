#include "advice/margins.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <exception>
#include <mutex>
#include <thread>

#include "advice/lost_gas.h"
#include "advice/what_if.h"
#include "engine/breathing_gas.h"
#include "figures/dive_figures.h"
#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {
namespace {

using Kind = BrokenLimit::Kind;

constexpr double kShown = 0.05;  // half of what minutes are shown to

void SetLeg(DiveRecord& dive, std::int16_t leg, double depth, double minutes) {
  dive.UserActions.setuser(leg, depth, minutes, dive.UserActions.getmixnumber(leg));
}

/// How long the moves of a leg take, minutes.
double WayOf(const ComputedPlan& plan, std::int16_t leg) {
  double way = 0;
  for (auto row = static_cast<std::int16_t>(plan.LastRowOf(static_cast<std::int16_t>(leg - 1)) + 1);
       row <= plan.LastRowOf(leg); ++row) {
    const Waypoint& end = plan.loadedRows.Row(row);
    const Single from = plan.loadedRows.getDepth(static_cast<std::int16_t>(row - 1));
    if (end.Rate != 0) way += std::fabs((end.Depth - from) / end.Rate);
  }
  return way;
}

}  // namespace

std::optional<int> MarginRange::Count() const {
  if (!(step > 0) || !(to >= from)) return std::nullopt;
  const double steps = std::floor((to - from) / step + 1e-3);
  if (steps >= MarginGrid::kMostCells) return std::nullopt;
  return static_cast<int>(steps) + 1;
}

Single MarginRange::At(int index) const {
  constexpr double kParts = 1e4;
  return std::round((from + index * step) * kParts) / kParts + 0.0;  // never -0
}

bool MarginGrid::IsSound() const {
  const auto columns = longer.Count();
  const auto rows = deeper.Count();
  return columns && rows && *columns <= kMostCells / *rows;
}

Margins::Margins(const PlannedDive& dive, const DiveLimits& limits, const AdviceWords& words,
                 std::optional<std::int16_t> leg)
    : record_(dive.record),
      before_(dive.before != nullptr ? std::optional(*dive.before) : std::nullopt),
      model_(dive.plan.model),
      judge_(limits, model_, Before(), words),
      leg_(leg.value_or(DeepestLegOf(dive.record.UserActions))),
      fault_(dive.plan.fault) {
  const ClassUseractions& actions = record_.UserActions;
  if (fault_.IsEmpty() && DeepestLegOf(actions) == 0) fault_ = Text::NoLegs;
  if (fault_.IsEmpty() && (leg_ < 1 || leg_ > actions.GetLength() || actions.getaction(leg_) != ClassUseractions::kLeg))
    fault_ = {Text::MarginsNoSuchLeg, {std::to_string(leg_)}};
  if (!fault_.IsEmpty()) return;
  if (dive.plan.state != EditState::Ascent) record_.UserActions.AddAscent();
  if (!record_.Template.OpenCircuit) return;
  for (const std::string& gas : GasesToLose(record_.Template)) {
    Loss loss{gas, record_};
    if (LoseGases({gas}, loss.record).IsEmpty()) {
      losses_.push_back(std::move(loss));
    } else {
      neverLost_.push_back(gas);
    }
  }
}

ComputedPlan Margins::Computed(const DiveRecord& dive) const {
  EngineObserver silent;
  return Compute(dive, model_, Before(), silent);
}

DiveRecord Margins::RecordAt(Single longer, Single deeper) const {
  DiveRecord dive = record_;
  SetLeg(dive, leg_, LegDepth() + deeper, LegTime() + longer);
  return dive;
}

MarginCell Margins::Judged(Single longer, Single deeper, bool losses) const {
  MarginCell cell{longer, deeper, 0, 0, 0, 0, {Kind::Impossible, {}, Kind::Impossible, {}, 0}};
  if (!(LegDepth() + deeper > 0) || !(LegTime() + longer > 0)) return cell;
  const DiveRecord dive = RecordAt(longer, deeper);
  const ComputedPlan plan = Computed(dive);
  if (!plan.fault.IsEmpty() || WayOf(plan, leg_) - (LegTime() + longer) > kShown) return cell;
  const DiveFigures figures = FiguresOf(plan.loadedRows);
  cell.runTime = figures.runTime;
  cell.stops = figures.stopTime;
  cell.cns = figures.CNS;
  cell.otu = figures.OTU;
  cell.limit = Broken({dive, plan, Before()}, longer, deeper, losses);
  return cell;
}

BrokenLimit Margins::Broken(const PlannedDive& dive, Single longer, Single deeper, bool losses) const {
  BrokenLimit broken = judge_.OfDive(dive);
  if (broken.IsBroken()) return broken;
  if (losses && !record_.Template.OpenCircuit) broken = judge_.OfBailOuts(dive);
  if (broken.IsBroken()) return broken;
  for (const Loss& loss : losses_) {
    if (!losses) break;
    DiveRecord without = loss.record;
    SetLeg(without, leg_, LegDepth() + deeper, LegTime() + longer);
    broken = judge_.OfLoss(without, loss.gas);
    if (broken.IsBroken()) return broken;
  }
  return judge_.OfTotals(dive.plan);
}

std::vector<MarginCell> Margins::Cells(const MarginGrid& grid, int threads,
                                       const std::function<void(std::size_t done)>& tell) const {
  const int columns = grid.Columns();
  std::vector<MarginCell> cells(static_cast<std::size_t>(columns * grid.Rows()));
  std::atomic<std::size_t> next = 0;
  std::mutex door;
  std::exception_ptr failure;
  const auto compute = [&](bool here) {
    for (std::size_t i = next++; i < cells.size(); i = next++) {
      const auto n = static_cast<int>(i);
      cells[i] = At(grid.longer.At(n % columns), grid.deeper.At(n / columns));
      if (here && tell) tell(i + 1);
    }
  };
  const auto work = [&](bool here) {
    try {
      compute(here);
    } catch (...) {
      next = cells.size();
      const std::lock_guard lock(door);
      failure = std::current_exception();
    }
  };
  std::vector<std::jthread> helpers;
  for (int i = 1; i < threads; ++i) helpers.emplace_back(work, false);
  work(true);
  helpers.clear();  // waits for them
  if (failure) std::rethrow_exception(failure);
  return cells;
}

int Margins::ShortestOf(DiveRecord dive, std::int16_t leg) const {
  SetLeg(dive, leg, dive.UserActions.getDepth(leg), 1);
  const ComputedPlan plan = Computed(dive);
  return plan.fault.IsEmpty() ? std::max(1, static_cast<int>(std::ceil(WayOf(plan, leg) - kShown))) : 1;
}

bool Margins::Lengthen(LongestStay& stay) const {
  if (stay.next == 0) stay.next = ShortestOf(record_, leg_);
  stay.beyond = At(stay.next - LegTime(), 0);
  stay.binds = stay.beyond.limit;
  if (stay.binds.IsBroken()) return false;
  stay.minutes = stay.next;
  stay.at = stay.beyond;
  if (stay.minutes >= LongestStay::kMost) return false;
  ++stay.next;
  return true;
}

std::vector<NoStopTime> Margins::NoStopTimes() const {
  const double step = record_.Template.Metric ? 3 : 10;
  const double perPressure = DepthPerPressure(record_.Template.Metric);
  const std::int16_t mix = record_.UserActions.getmixnumber(leg_);
  DiveRecord dive = record_;
  dive.UserActions.clear();
  dive.UserActions.AddLeg(1, step, mix);
  dive.UserActions.AddAscent();
  const auto hasStops = [&](double depth, int minutes) {
    SetLeg(dive, 1, depth, minutes);
    const ComputedPlan plan = Computed(dive);
    return !plan.fault.IsEmpty() || !plan.end.Decompresses || FiguresOf(plan.loadedRows).stopTime > 0;
  };
  std::vector<NoStopTime> times;
  const GasMix& gas = record_.Template.Blends.at(static_cast<std::size_t>(mix));
  for (double depth = 3 * step;; depth += step) {
    const double ambient = record_.Template.StartPressure + AdjustedDepth(depth, record_.Template) / perPressure;
    // On a loop the diluent alone may be too much.
    if (RoundSingle(gas.O2 / 100 * ambient, 2) > record_.Template.MaxPPO2) break;
    SetLeg(dive, 1, depth, 1);
    int minutes = ShortestOf(dive, 1);
    if (hasStops(depth, minutes)) break;
    while (minutes < LongestStay::kMost && !hasStops(depth, minutes + 1)) ++minutes;
    times.push_back({depth, minutes});
  }
  return times;
}

}  // namespace tav
