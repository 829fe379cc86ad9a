#include "mixer/filling.h"

#include <algorithm>
#include <cmath>

namespace tav {
namespace {

// Amounts of less than this share of the contents are what the arithmetic leaves of nothing: 0.01 % of the mix.
constexpr double kNothing = 1e-4;

/// A mix as a point: oxygen and helium, each in its margins.
struct Point {
  double x = 0;
  double y = 0;
};

Point PointOf(const MixShares& mix) { return {mix.O2 / kOxygenMargin, mix.He / kHeliumMargin}; }

double Cross(const Point& a, const Point& b, const Point& c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

/// The weights of the corners of a triangle that give the point of it nearest to another. A flat triangle will do.
Amounts NearestWeights(const std::array<Point, 3>& corners, const Point& to) {
  const double area = Cross(corners[0], corners[1], corners[2]);
  constexpr double kFlat = 1e-9;
  if (std::fabs(area) > kFlat) {
    const Amounts inside = {Cross(to, corners[1], corners[2]) / area, Cross(corners[0], to, corners[2]) / area,
                            Cross(corners[0], corners[1], to) / area};
    if (std::ranges::all_of(inside, [](double weight) { return weight >= 0; })) return inside;
  }
  Amounts best{};
  double least = -1;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const std::size_t j = (i + 1) % corners.size();
    const Point along{corners[j].x - corners[i].x, corners[j].y - corners[i].y};
    const double length = along.x * along.x + along.y * along.y;
    const double part = length > 0 ? ((to.x - corners[i].x) * along.x + (to.y - corners[i].y) * along.y) / length : 0;
    const double share = std::clamp(part, 0.0, 1.0);
    const double distance = std::hypot(corners[i].x + share * along.x - to.x, corners[i].y + share * along.y - to.y);
    if (least >= 0 && distance >= least) continue;
    least = distance;
    best = {};
    best.at(i) = 1 - share;
    best.at(j) = share;
  }
  return best;
}

}  // namespace

MixShares MixOf(const Contents& contents) {
  const double sum = contents.Sum();
  if (sum <= 0) return {};
  return {100 * contents.O2 / sum, 100 * contents.He / sum, 100 * contents.N2 / sum};
}

Contents FractionsOf(const MixShares& percent) { return {percent.O2 / 100, percent.He / 100, percent.N2 / 100}; }

Filling::Filling(const FillRequest& request)
    : barPerUnit_(request.metric ? 1 : kBarPerAtmosphere / kPsiPerBar),
      kelvin_(request.celsius + kCelsius),
      gases_{Contents{0, 1, 0}, Contents{1, 0, 0}, FractionsOf(request.top)} {}

Contents Filling::At(const MixShares& percent, double pressure) const {
  return ContentsAt(FractionsOf(percent), pressure * barPerUnit_, kelvin_);
}

double Filling::GaugeOf(const Contents& contents) const { return PressureOf(contents, kelvin_) / barPerUnit_; }

double Filling::GaugeOf(const Contents& contents, double celsius) const {
  return PressureOf(contents, celsius + kCelsius) / barPerUnit_;
}

Contents Filling::With(const Contents& contents, const Amounts& amounts) const {
  Contents sum = contents;
  for (const FillGas gas : kFillOrder) sum = sum + amounts.at(static_cast<std::size_t>(gas)) * Gas(gas);
  return sum;
}

double Filling::AmountUntil(const Contents& contents, const Contents& gas, double pressure) const {
  const double from = GaugeOf(contents) - pressure;
  if (from >= 0) return 0;
  const auto miss = [&](double amount) { return GaugeOf(contents + amount * gas) - pressure; };
  // False position, the Illinois way: the gauge rises nearly in proportion to the gas.
  double below = 0;
  double missBelow = from;
  double above = -from * barPerUnit_ / (kGergGasConstant * kelvin_ / 100);
  double missAbove = miss(above);
  constexpr double kMore = 1.2;
  while (missAbove < 0) {
    below = above;
    missBelow = missAbove;
    above *= kMore;
    missAbove = miss(above);
  }
  constexpr int kMostSteps = 100;
  constexpr double kSmallest = 1e-11;
  int side = 0;
  for (int i = 0; i < kMostSteps && above - below > kSmallest * above; ++i) {
    const double middle = (missAbove * below - missBelow * above) / (missAbove - missBelow);
    const double missMiddle = miss(middle);
    if (std::fabs(missMiddle) <= kSmallest * pressure) return middle;
    if (missMiddle < 0) {
      below = middle;
      missBelow = missMiddle;
      if (side < 0) missAbove /= 2;
      side = -1;
    } else {
      above = middle;
      missAbove = missMiddle;
      if (side > 0) missBelow /= 2;
      side = 1;
    }
  }
  return (below + above) / 2;
}

Amounts Filling::AmountsFor(const Contents& wanted, const Contents& current) const {
  const Contents& topGas = Gas(FillGas::Top);
  const double top = (wanted.N2 - current.N2) / topGas.N2;
  Amounts amounts = {wanted.He - current.He - top * topGas.He, wanted.O2 - current.O2 - top * topGas.O2, top};
  for (double& amount : amounts) {
    if (std::fabs(amount) < kNothing * wanted.Sum()) amount = 0;
  }
  return amounts;
}

std::optional<Amounts> Filling::NearestTo(const MixShares& percent, double pressure, const Contents& current) const {
  double sum = At(percent, pressure).Sum();
  Amounts amounts{};
  // The room that is left hangs a little on the mix that will be in it.
  constexpr int kMostRounds = 50;
  for (int round = 0; round < kMostRounds; ++round) {
    const double room = sum - current.Sum();
    if (room <= 0) return std::nullopt;
    std::array<Point, 3> corners;
    for (const FillGas gas : kFillOrder) {
      corners.at(static_cast<std::size_t>(gas)) = PointOf(MixOf(current + room * Gas(gas)));
    }
    // Nobody fills helium into a nitrox to thin its oxygen.
    if (percent.He <= 0) corners[0] = corners[1];
    amounts = NearestWeights(corners, PointOf(percent));
    if (percent.He <= 0) amounts = {0, amounts[0] + amounts[1], amounts[2]};
    for (double& amount : amounts) amount *= room;
    const double next = At(MixOf(With(current, amounts)), pressure).Sum();
    constexpr double kSmallest = 1e-9;
    if (std::fabs(next - sum) < kSmallest * sum) break;
    sum = next;
  }
  return amounts;
}

bool OxygenMisses(const MixShares& mix, const MixShares& wanted) {
  return std::fabs(mix.O2 - wanted.O2) > kOxygenMargin;
}

bool HeliumMisses(const MixShares& mix, const MixShares& wanted) {
  return std::fabs(mix.He - wanted.He) > kHeliumMargin;
}

double LitresPerMol(const Contents& gas) {
  constexpr double kRoom = 20;
  return 1 / ContentsAt(gas, 1, kRoom + kCelsius).Sum();
}

}  // namespace tav
