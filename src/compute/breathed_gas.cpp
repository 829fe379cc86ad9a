#include "compute/breathed_gas.h"

#include <algorithm>

namespace tav {

double BreathedSegment::LeastPPO2At(double depth) const {
  const double ambient = Ambient(depth);
  return openCircuit ? ambient * end->GasMixO2 / 100 : std::min<double>(end->PPO2, ambient);
}

double BreathedSegment::PPO2At(double depth) const {
  return std::max(LeastPPO2At(depth), Ambient(depth) * end->GasMixO2 / 100);
}

BreathedShares BreathedSegment::SharesAt(double depth) const {
  const double inert = end->GasMixN2 + end->GasMixHe;
  if (openCircuit || inert == 0) return {end->GasMixO2 / 100, end->GasMixN2 / 100, end->GasMixHe / 100};
  const double oxygen = LeastPPO2At(depth) / Ambient(depth);
  return {oxygen, (1 - oxygen) * end->GasMixN2 / inert, (1 - oxygen) * end->GasMixHe / inert};
}

namespace {

/// How deep the diver has been on another gas than a given one.
class DeepestOnGases {
 public:
  void Add(const std::string& gas, Single depth) {
    if (gas == gas_) {
      depth_ = std::max(depth_, depth);
    } else if (depth > depth_) {
      others_ = depth_;
      gas_ = gas;
      depth_ = depth;
    } else {
      others_ = std::max(others_, depth);
    }
  }
  [[nodiscard]] Single OnOtherThan(const std::string& gas) const { return gas == gas_ ? others_ : depth_; }

 private:
  std::string gas_;
  Single depth_ = -1.0;   // on `gas_`, the deepest of all
  Single others_ = -1.0;  // on the other gases
};

}  // namespace

std::int16_t FirstOpenRow(const ClassProfile& rows, const DiveTemplate& settings) {
  if (settings.OpenCircuit) return 1;
  const auto behind = static_cast<std::int16_t>(rows.GetLength() + 1);
  if (!settings.OCDeco) return behind;
  auto row = static_cast<std::int16_t>(LastUserRow(rows) + 1);
  while (row < behind && rows.GetStatus(row) != RowStatus::kStop) ++row;
  return row;
}

std::vector<BreathedSegment> BreathedSegments(const BreathedDive& dive) {
  const DiveTemplate& settings = dive.settings;
  std::vector<BreathedSegment> segments;
  segments.reserve(static_cast<std::size_t>(dive.rows.GetLength()));
  DeepestOnGases deepest;  // since the diver left the surface
  bool stopping = false;
  for (std::int16_t i = 1; i <= dive.rows.GetLength(); ++i) {
    BreathedSegment segment;
    segment.row = i;
    segment.end = &dive.rows.Row(i);
    const Waypoint& before = dive.rows.Row(static_cast<std::int16_t>(i - 1));
    segment.from = before.Depth;
    segment.startTime = before.RunTime;
    segment.surface = dive.SurfacePressure(i);
    segment.perPressure = DepthPerPressure(settings.Metric);
    if (segment.from == 0 && segment.end->Rate > 0) deepest = {};
    if (segment.end->Rate > 0) stopping = false;
    stopping = stopping || segment.end->Status == RowStatus::kStop;
    segment.openCircuit = i >= dive.openFrom;
    const std::string& gas = segment.end->GasMixName;
    // A gas of the list that is breathed on the way down, or at the bottom, has not been changed to for decompression.
    const auto taken = [&](const GasChange& change) {
      return change.Name == gas && segment.Deeper() <= change.Depth &&
             (i > dive.lastUserRow || deepest.OnOtherThan(gas) >= change.Depth);
    };
    const bool deco = stopping || std::ranges::any_of(settings.ChangeGasMixes, taken);
    segment.ppo2Limit = deco ? settings.DecoPPO2 : settings.MaxPPO2;
    deepest.Add(gas, segment.Deeper());
    segments.push_back(segment);
  }
  return segments;
}

double GasDensity(const BreathedShares& shares, double ambientBar) {
  constexpr double kOxygen = 1.411;
  constexpr double kNitrogen = 1.234;
  constexpr double kHelium = 0.1762;
  return ambientBar * (shares.O2 * kOxygen + shares.N2 * kNitrogen + shares.He * kHelium);
}

double DensityAt(const BreathedSegment& segment, double depth, bool metric) {
  constexpr double kBarPerAtmosphere = 1.01325;
  return GasDensity(segment.SharesAt(depth), segment.Ambient(depth) * (metric ? 1.0 : kBarPerAtmosphere));
}

}  // namespace tav
