#include "mixer/gauge_list.h"

#include <algorithm>
#include <cmath>

#include "model/altitude.h"
#include "model/dive_template.h"

namespace tav {
namespace {

// Amounts of less than this share of the contents are what the arithmetic leaves of nothing: 0.01 % of the mix.
constexpr double kNothing = 1e-4;

constexpr double kOxygenMargin = 0.5;  // percent
constexpr double kHeliumMargin = 1.0;

double Rounded(double value, double mark) { return mark > 0 ? std::round(value / mark) * mark : value; }

double PerBar(const FillRequest& request) { return request.metric ? 1.0 : kPsiPerBar; }

/// mol per litre of each gas to add, in the order of filling.
using Amounts = std::vector<double>;

Amounts AmountsToAdd(const Contents& wanted, const Contents& current) {
  const double air = (wanted.N2 - current.N2) / kRealAirN2;
  Amounts amounts = {wanted.He - current.He, wanted.O2 - current.O2 - air * kRealAirO2, air};
  for (double& amount : amounts) {
    if (std::fabs(amount) < kNothing * wanted.Sum()) amount = 0;
  }
  return amounts;
}

/// The shares of its contents, from 0 to 1, that a cylinder may keep so that nothing has to come out. What there is to
/// add of each gas changes in proportion to what is kept, from `whenEmpty` to `now`.
struct KeptShare {
  double least = 0;
  double most = 1;
};

KeptShare ShareToKeep(const Amounts& whenEmpty, const Amounts& now) {
  KeptShare share;
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (now[i] >= 0 && whenEmpty[i] >= 0) continue;
    const double turns = now[i] == whenEmpty[i] ? 2 : whenEmpty[i] / (whenEmpty[i] - now[i]);
    if (now[i] < 0 && whenEmpty[i] >= 0) share.most = std::min(share.most, turns);
    if (now[i] >= 0 && whenEmpty[i] < 0) share.least = std::max(share.least, turns);
    if (now[i] < 0 && whenEmpty[i] < 0) share.least = 2;  // no share will do
  }
  return share;
}

/// The most that a cylinder may hold for ideal gases to be possible, in the units of the request; nothing when no
/// pressure will do.
std::optional<double> MostForIdealGases(FillRequest request) {
  const auto amounts = [](const FillRequest& fill) {
    const FillResult result = Recalculate(fill);
    return Amounts{result.Heneed, result.AirO2, result.Air};
  };
  const Amounts now = amounts(request);
  const double fill = request.currentFill;
  request.currentFill = 0;
  const KeptShare share = ShareToKeep(amounts(request), now);
  return share.least > share.most ? std::nullopt : std::optional(share.most * fill);
}

void SayWhatMustComeOut(const FillRequest& request, const Contents& wanted, const Contents& current,
                        const Amounts& amounts, double mark, GaugeList& list) {
  for (std::size_t i = 0; i < amounts.size(); ++i) {
    if (amounts[i] < 0) list.mustComeOut.push_back(kFillOrder[i]);
  }
  const KeptShare share = ShareToKeep(AmountsToAdd(wanted, {}), amounts);
  if (share.least > share.most) return;
  const auto pressure = [&](double kept) {
    return PressureOf({kept * current.O2, kept * current.He, kept * current.N2}) * PerBar(request);
  };
  // The sheet tells the amounts for ideal gases, too: both have to be possible where both can be.
  const double least = pressure(share.least);
  double most = pressure(share.most);
  if (const auto ideal = MostForIdealGases(request); ideal && *ideal >= least) most = std::min(most, *ideal);
  const auto downTo = [most](double step) { return step > 0 ? std::floor(most / step) * step : most; };
  // As a gauge shows it, unless that is a vacuum or drains too much.
  constexpr double kFine = 0.1;
  const double marked = downTo(mark);
  list.drainTo = marked >= std::max(PerBar(request), least) ? marked : downTo(mark > 0 ? kFine : 0);
}

/// What the steps really give, filled gas by gas until the gauge shows each pressure.
void WorkBackwards(const FillRequest& request, const Contents& current, GaugeList& list) {
  Contents contents = current;
  double last = request.currentFill;
  const MixShares& start = request.current;
  Contents ideal = {start.O2 * last / 100, start.He * last / 100, start.N2 * last / 100};
  for (FillStep& step : list.steps) {
    const double amount = AmountUntil(contents, step.gas, step.to / PerBar(request));
    contents = With(contents, step.gas, amount);
    step.added = amount * kGasConstant * kFillTemperature;
    ideal = With(ideal, step.gas, step.to - last);
    last = step.to;
  }
  list.comesOut = contents.Mix();
  list.ifIdeal = ideal.Mix();
  list.oxygenOff = std::fabs(list.comesOut.O2 - request.desired.O2) > kOxygenMargin;
  list.heliumOff = std::fabs(list.comesOut.He - request.desired.He) > kHeliumMargin;
}

/// Gathers steps as a gauge shows them.
class Steps {
 public:
  Steps(double start, double mark) : last_(start), mark_(mark) {}

  void Take(FillGas gas, double to) {
    const double least = mark_ > 0 ? mark_ * (1 - 1e-6) : 0;
    if (to - last_ >= least && to > last_) steps_.push_back({gas, Rounded(to, mark_), 0});
    last_ = std::max(last_, to);
  }
  std::vector<FillStep> Taken() { return std::move(steps_); }

 private:
  std::vector<FillStep> steps_;
  double last_;
  double mark_;
};

}  // namespace

GaugeList GaugeListOf(const FillRequest& request, double mark) {
  const double perBar = PerBar(request);
  const Contents current = ContentsAt(request.current, request.currentFill / perBar);
  const Contents wanted = ContentsAt(request.desired, request.desiredFill / perBar);
  const Amounts amounts = AmountsToAdd(wanted, current);
  GaugeList list;
  if (std::ranges::any_of(amounts, [](double amount) { return amount < 0; })) {
    SayWhatMustComeOut(request, wanted, current, amounts, mark, list);
    return list;
  }
  Steps steps(request.currentFill, mark);
  Contents contents = current;
  for (std::size_t i = 0; i < amounts.size(); ++i) {
    if (amounts[i] == 0) continue;
    contents = With(contents, kFillOrder[i], amounts[i]);
    steps.Take(kFillOrder[i], PressureOf(contents) * perBar);
  }
  list.steps = steps.Taken();
  WorkBackwards(request, current, list);
  return list;
}

std::vector<FillStep> IdealSteps(const FillRequest& request, double mark) {
  const FillResult result = Recalculate(request);
  if (result.AirImpossible) return {};
  Steps steps(request.currentFill, mark);
  double to = request.currentFill;
  for (const auto& [gas, percentBar] :
       {std::pair(FillGas::Helium, result.Heneed), {FillGas::Oxygen, result.AirO2}, {FillGas::Air, result.Air}}) {
    to += percentBar / 100 * PerBar(request);
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
