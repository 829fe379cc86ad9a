#pragma once

#include <cstdint>
#include <vector>

#include "model/dive_template.h"
#include "model/profile.h"

/// What the diver breathes on each segment of a dive, on open circuit or from the loop. Pressures in bar or
/// atmospheres.
namespace tav {

/// Rows of a dive and on what they are breathed. What it refers to outlives it and is not changed meanwhile.
struct BreathedDive {
  const ClassProfile& rows;
  const DiveTemplate& settings;
  std::int16_t lastUserRow = 0;  ///< the computed ascent follows
  std::int16_t openFrom = 1;     ///< the first row on open circuit; beyond the last for none

  /// Surface pressure of the plan, or of the ascent, bar or atmospheres.
  [[nodiscard]] Single SurfacePressure(std::int16_t row) const {
    return row <= lastUserRow ? settings.StartPressure : settings.EndPressure;
  }
};

/// The first row of a plan with its ascent that is breathed on open circuit: all on open circuit, none on a rebreather,
/// but for those from the first stop of the computed ascent on where its stops are on open circuit.
std::int16_t FirstOpenRow(const ClassProfile& rows, const DiveTemplate& settings);

/// Fractions of what is breathed.
struct BreathedShares {
  double O2 = 0;
  double N2 = 0;
  double He = 0;
};

/// One segment: the row that it ends in, and where it began.
struct BreathedSegment {
  std::int16_t row = 0;
  const Waypoint* end = nullptr;
  Single from;              ///< depth at its start
  Single startTime;         ///< run time at its start
  Single surface;           ///< pressure
  double perPressure = 10;  ///< depth units per unit of pressure
  bool openCircuit = true;
  Single ppo2Limit;  ///< `DecoPPO2` from the first stop on and on a gas of the change list, else `MaxPPO2`

  [[nodiscard]] Single Deeper() const { return from > end->Depth ? from : end->Depth; }
  [[nodiscard]] Single Shallower() const { return from < end->Depth ? from : end->Depth; }
  /// Run time at which the deeper, or the shallower, end is reached; the start of a level segment.
  [[nodiscard]] Single TimeOfDeeper() const { return end->Depth > from ? end->RunTime : startTime; }
  [[nodiscard]] Single TimeOfShallower() const { return end->Depth < from ? end->RunTime : startTime; }
  [[nodiscard]] double Ambient(double depth) const { return surface + depth / perPressure; }
  /// The most that the PPO2 comes to at a depth. A loop holds its setpoint, but never more than pure oxygen gives;
  /// right after diluent was added it is the diluent's, where that is higher.
  [[nodiscard]] double PPO2At(double depth) const;
  /// The least that it comes to: a loop that is not fed falls to its setpoint.
  [[nodiscard]] double LeastPPO2At(double depth) const;
  /// A loop at its setpoint.
  [[nodiscard]] BreathedShares SharesAt(double depth) const;
};

/// All segments, in the order of their rows, from row 1.
std::vector<BreathedSegment> BreathedSegments(const BreathedDive& dive);

/// Density of a gas, g/l, as G. Anthony and S. Mitchell reckon it ("Respiratory physiology of rebreather diving", in:
/// Rebreathers and scientific diving, 2016): O2 1.411, N2 1.234, He 0.1762 g/l at 1 bar and 0 C. Their 5.2 g/l then are
/// air at 31 m.
double GasDensity(const BreathedShares& shares, double ambientBar);

/// Density of a segment's gas at a depth, g/l. `metric`: its pressures are bar, else atmospheres.
double DensityAt(const BreathedSegment& segment, double depth, bool metric);

/// Recommended and highest density, g/l, of the same source: above them carbon dioxide is retained.
constexpr double kDensityRecommended = 5.2;
constexpr double kDensityHighest = 6.2;

}  // namespace tav
