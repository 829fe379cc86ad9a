#include "mixer/drain.h"

#include <algorithm>
#include <cmath>

namespace tav {
namespace {

/// The shares of its contents, from 0 to 1, that a cylinder may keep so that nothing has to come out. What there is to
/// add of each gas changes in proportion to what is kept, from `whenEmpty` to `now`.
struct KeptShare {
  double least = 0;
  double most = 1;
};

KeptShare ShareToKeep(const Amounts& whenEmpty, const Amounts& now) {
  KeptShare share;
  for (std::size_t i = 0; i < now.size(); ++i) {
    const double full = now.at(i);
    const double empty = whenEmpty.at(i);
    if (full >= 0 && empty >= 0) continue;
    const double turns = full == empty ? 2 : empty / (empty - full);
    if (full < 0 && empty >= 0) share.most = std::min(share.most, turns);
    if (full >= 0 && empty < 0) share.least = std::max(share.least, turns);
    if (full < 0 && empty < 0) share.least = 2;  // no share will do
  }
  return share;
}

/// The most pressure with which a fill comes out within its margins.
std::optional<double> MostWithinMargins(const FillRequest& request, const Filling& filling) {
  const auto works = [&](double pressure) {
    const Contents kept = filling.At(request.current, pressure);
    const auto amounts = filling.NearestTo(request.desired, request.desiredFill, kept);
    if (!amounts) return false;
    const MixShares mix = MixOf(filling.With(kept, *amounts));
    return !OxygenMisses(mix, request.desired) && !HeliumMisses(mix, request.desired);
  };
  // What is kept may help as well as hinder: down in steps, then between the last two.
  constexpr int kSteps = 20;
  const double step = request.currentFill / kSteps;
  int kept = kSteps;
  while (kept >= 0 && !works(kept * step)) --kept;
  if (kept < 0) return std::nullopt;
  double most = kept * step;
  double tooMuch = most + step;
  constexpr int kHalvings = 10;
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = (most + tooMuch) / 2;
    (works(middle) ? most : tooMuch) = middle;
  }
  return most;
}

}  // namespace

std::optional<Single> PressureToDrainTo(const FillRequest& request, const Filling& filling, double mark) {
  const double open = request.metric ? 1.0 : kPsiPerBar;
  const auto downTo = [](double pressure, double step) {
    return step > 0 ? std::floor(pressure / step) * step : pressure;
  };
  const Contents current = filling.At(request.current, request.currentFill);
  const Contents wanted = filling.At(request.desired, request.desiredFill);
  const KeptShare share = ShareToKeep(filling.AmountsFor(wanted, {}), filling.AmountsFor(wanted, current));
  const bool exact = share.least <= share.most;
  const double least = exact ? filling.GaugeOf(share.least * current) : 0;
  const double most = exact ? filling.GaugeOf(share.most * current) : 0;
  if (exact && downTo(most, mark) >= std::max(open, least)) return downTo(most, mark);
  constexpr double kFine = 0.1;
  const double fine = mark > 0 ? kFine : 0;
  if (const auto nearly = MostWithinMargins(request, filling)) {
    return *nearly < open ? downTo(*nearly, fine) : std::max(downTo(*nearly, mark), open);
  }
  return exact ? std::optional<Single>(downTo(most, fine)) : std::nullopt;
}

}  // namespace tav
