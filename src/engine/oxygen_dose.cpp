#include "engine/oxygen_dose.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "model/dive_template.h"
#include "model/numbers.h"

namespace tav {
namespace {

constexpr double kThreshold = 0.5;
constexpr double kAtmospheresPerBar = 0.9887;

double ToAtmospheres(double pressure, bool Metric) { return Metric ? pressure * kAtmospheresPerBar : pressure; }

double AmbientAtmospheres(double depth, double surfacePressure, bool Metric) {
  return ToAtmospheres(depth / DepthPerPressure(Metric) + surfacePressure, Metric);
}

/// Limit in minutes = slope * PPO2 + intercept, for low < PPO2 <= high.
struct ExposureLimit {
  Single low;
  Single high;
  Single slope;
  Single intercept;
};

constexpr std::array<ExposureLimit, 11> kExposureLimits = {{{0.5, 0.6, -1800, 1800},
                                                            {0.6, 0.7, -1500, 1620},
                                                            {0.7, 0.8, -1200, 1410},
                                                            {0.8, 0.9, -900, 1170},
                                                            {0.9, 1.1, -600, 900},
                                                            {1.1, 1.5, -300, 570},
                                                            {1.5, 1.6, -750, 1245},
                                                            {1.6, 1.7, -351, 606},
                                                            {1.7, 1.8, -80, 146},
                                                            {1.8, 2.0, -0.001, 2},
                                                            {2.0, 60.0, -0.001, 1}}};

double OTURate(double ppo2) { return std::exp(-5.0 / 6.0 * std::log(kThreshold / (ppo2 - kThreshold))); }

Single OTU(Single ppo2, Single time) { return ppo2 > kThreshold ? time * OTURate(ppo2) : 0.0; }

Single CNS(Single ppo2, Single time) {
  for (const ExposureLimit& limit : kExposureLimits) {
    if (ppo2 > limit.low && ppo2 <= limit.high) return time / (limit.slope * ppo2 + limit.intercept);
  }
  return 0;
}

/// The part of a ramp above the threshold.
struct OxygenRamp {
  Single high;         ///< the larger PPO2 of the two ends
  Single low;          ///< the smaller, but not below the threshold
  double timeAbove;    ///< minutes above the threshold
  bool level = false;  ///< the PPO2 does not change: a constant dose over timeAbove
};

OxygenRamp MakeRamp(Single from, Single to, Single rate, Single fO2, Single surfacePressure, bool Metric) {
  const Single start = fO2 * AmbientAtmospheres(from, surfacePressure, Metric);
  const Single end = fO2 * AmbientAtmospheres(to, surfacePressure, Metric);
  const double time = (to - from) / rate;
  const Single smaller = MinSingle(start, end);
  OxygenRamp ramp{MaxSingle(start, end), MaxSingle(smaller, kThreshold), 0.0};
  if (ramp.high <= kThreshold || time == 0) return ramp;
  // A move so short that both ends share one 32-bit pressure.
  ramp.level = ramp.high == smaller;
  ramp.timeAbove = ramp.level ? time : (ramp.high - ramp.low) * time / (ramp.high - smaller);
  return ramp;
}

/// ((p - 0.5) / 0.5)^(11/6)
double OTUPower(double ppo2) {
  return ppo2 == kThreshold ? 0.0 : std::exp(11.0 / 6.0 * std::log((ppo2 - kThreshold) / kThreshold));
}

/// The dose of the part of a ramp that lies within one line of the limits.
double CNSWithin(const ExposureLimit& limit, const OxygenRamp& ramp, bool rising) {
  if (ramp.high <= limit.low || ramp.low > limit.high) return 0;
  const double smaller = std::max<double>(limit.low, ramp.low);
  const double larger = std::min<double>(limit.high, ramp.high);
  const double start = rising ? smaller : larger;
  const double change = rising ? larger - smaller : smaller - larger;
  const double time = std::fabs(change) * ramp.timeAbove / (ramp.high - ramp.low);
  if (time == 0) return 0;
  const double startLimit = limit.slope * start + limit.intercept;
  const double limitPerMinute = change / time * limit.slope;
  return (std::log(std::fabs(time * limitPerMinute + startLimit)) - std::log(std::fabs(startLimit))) / limitPerMinute;
}

}  // namespace

Single OTUForPPO2(Single ppo2, Single time, bool Metric) { return OTU(ToAtmospheres(ppo2, Metric), time); }

Single OTUAtDepth(Single depth, Single time, Single fO2, Single surfacePressure, bool Metric) {
  return OTU(AmbientAtmospheres(depth, surfacePressure, Metric) * fO2, time);
}

Single OTUOnRamp(Single from, Single to, Single rate, Single fO2, Single surfacePressure, bool Metric) {
  const OxygenRamp ramp = MakeRamp(from, to, rate, fO2, surfacePressure, Metric);
  if (ramp.timeAbove == 0) return 0;
  if (ramp.level) return OTU(ramp.high, ramp.timeAbove);
  return 3.0 / 11.0 * ramp.timeAbove / (ramp.low - ramp.high) * (OTUPower(ramp.low) - OTUPower(ramp.high));
}

Single CNSForPPO2(Single ppo2, Single time, bool Metric) { return CNS(ToAtmospheres(ppo2, Metric), time); }

Single CNSAtDepth(Single depth, Single time, Single fO2, Single surfacePressure, bool Metric) {
  return CNS(AmbientAtmospheres(depth, surfacePressure, Metric) * fO2, time);
}

Single CNSOnRamp(Single from, Single to, Single rate, Single fO2, Single surfacePressure, bool Metric) {
  const OxygenRamp ramp = MakeRamp(from, to, rate, fO2, surfacePressure, Metric);
  if (ramp.timeAbove == 0) return 0;
  if (ramp.level) return CNS(ramp.high, ramp.timeAbove);
  double dose = 0;
  for (const ExposureLimit& limit : kExposureLimits) dose += CNSWithin(limit, ramp, from <= to);
  return dose;
}

Single CNSAfterSurfaceInterval(Single cns, Single minutes) { return cns * std::exp2(-minutes / 90.0); }

}  // namespace tav
