#include "mixer/gauge_list.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "mixer/drain.h"
#include "model/altitude.h"
#include "model/dive_template.h"

namespace tav {
namespace {

bool Negative(double amount) { return amount < 0; }

/// What to add, exactly or within the margins; nothing when neither can be: the list then tells why.
std::optional<Amounts> AmountsToAdd(const FillRequest& request, const Filling& filling, const Contents& current,
                                    GaugeList& list) {
  const Contents wanted = filling.At(request.desired, request.desiredFill);
  const Amounts exact = filling.AmountsFor(wanted, current);
  if (std::ranges::none_of(exact, Negative)) return exact;
  const auto amounts = filling.NearestTo(request.desired, request.desiredFill, current);
  if (amounts) {
    const MixShares nearest = MixOf(filling.With(current, *amounts));
    if (!OxygenMisses(nearest, request.desired) && !HeliumMisses(nearest, request.desired)) return amounts;
    list.nearest = nearest;
  }
  for (const FillGas gas : kFillOrder) {
    if (Negative(exact.at(static_cast<std::size_t>(gas)))) list.mustComeOut.push_back(gas);
  }
  return std::nullopt;
}

/// Gathers steps as a gauge shows them.
class Steps {
 public:
  Steps(double start, double mark) : last_(start), shown_(start), mark_(mark) {}

  void Take(FillGas gas, double to) {
    const double shown = mark_ > 0 ? std::round(to / mark_) * mark_ : to;
    if (to - last_ >= mark_ / 2 && shown > shown_) {
      steps_.push_back({gas, shown, 0, 0});
      shown_ = shown;
    }
    last_ = std::max(last_, to);
  }
  std::vector<FillStep> Taken() { return std::move(steps_); }

 private:
  std::vector<FillStep> steps_;
  double last_;
  double shown_;
  double mark_;
};

/// What steps really give, filled gas by gas until the gauge shows each pressure; tells it for each step.
Contents Filled(const FillRequest& request, const Filling& filling, Contents contents, std::vector<FillStep>& steps) {
  for (FillStep& step : steps) {
    const Contents& gas = filling.Gas(step.gas);
    const double amount = filling.AmountUntil(contents, gas, step.to);
    contents = contents + amount * gas;
    step.added = amount * LitresPerMol(gas);
    if (request.warm) step.warm = filling.GaugeOf(contents, *request.warm);
  }
  return contents;
}

}  // namespace

GaugeList GaugeListOf(const FillRequest& request, double mark) {
  const Filling filling(request);
  const Contents current = filling.At(request.current, request.currentFill);
  GaugeList list;
  const auto amounts = AmountsToAdd(request, filling, current, list);
  if (!amounts) {
    list.possible = false;
    list.drainTo = PressureToDrainTo(request, filling, mark);
    return list;
  }
  Steps steps(request.currentFill, mark);
  Amounts added{};
  for (const FillGas gas : kFillOrder) {
    const auto i = static_cast<std::size_t>(gas);
    if (amounts->at(i) == 0) continue;
    added.at(i) = amounts->at(i);
    steps.Take(gas, filling.GaugeOf(filling.With(current, added)));
  }
  list.steps = steps.Taken();
  list.comesOut = MixOf(Filled(request, filling, current, list.steps));
  std::vector<FillStep> ideal = IdealSteps(request, mark);
  list.byIdealSteps = MixOf(Filled(request, filling, current, ideal));
  list.oxygenOff = OxygenMisses(list.comesOut, request.desired);
  list.heliumOff = HeliumMisses(list.comesOut, request.desired);
  return list;
}

std::vector<FillStep> IdealSteps(const FillRequest& request, double mark) {
  const Filling filling(request);
  const double start = request.currentFill;
  const Amounts amounts = filling.AmountsFor(double{request.desiredFill} * FractionsOf(request.desired),
                                             start * FractionsOf(request.current));
  if (std::ranges::any_of(amounts, Negative)) return {};
  Steps steps(start, mark);
  double to = start;
  for (const FillGas gas : kFillOrder) {
    to += amounts.at(static_cast<std::size_t>(gas));
    steps.Take(gas, to);
  }
  return steps.Taken();
}

std::optional<int> MaximumOperatingDepth(Single percentO2, double ppo2, bool metric) {
  if (percentO2 <= 0) return std::nullopt;
  const double depth = (ppo2 / (percentO2 / 100) - AltitudeToPressure(0, metric)) * DepthPerPressure(metric);
  return static_cast<int>(std::floor(std::max(0.0, depth)));
}

}  // namespace tav
