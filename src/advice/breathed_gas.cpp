#include "advice/breathed_gas.h"

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

std::vector<BreathedSegment> BreathedSegments(const CheckedDive& dive) {
  const DiveTemplate& settings = dive.settings;
  std::vector<BreathedSegment> segments;
  segments.reserve(static_cast<std::size_t>(dive.rows.GetLength()));
  DeepestOnGases deepest;  // since the diver left the surface
  bool stopping = false;
  bool circuitOpened = settings.OpenCircuit;
  for (std::int16_t i = 1; i <= dive.rows.GetLength(); ++i) {
    BreathedSegment segment;
    segment.row = i;
    segment.end = &dive.rows.Row(i);
    segment.from = dive.Before(i).Depth;
    segment.startTime = dive.Before(i).RunTime;
    segment.surface = dive.SurfacePressure(i);
    segment.perPressure = DepthPerPressure(settings.Metric);
    if (segment.from == 0 && segment.end->Rate > 0) deepest = {};
    if (segment.end->Rate > 0) stopping = false;
    const bool stop = segment.end->Status == RowStatus::kStop;
    stopping = stopping || stop;
    // A rebreather dive with its stops on open circuit leaves the loop at the first stop of the computed ascent.
    circuitOpened = circuitOpened || (settings.OCDeco && stop && i > dive.lastUserRow);
    segment.openCircuit = circuitOpened;
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

}  // namespace tav
