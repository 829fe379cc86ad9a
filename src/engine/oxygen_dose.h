#pragma once

#include "model/single.h"

/// Oxygen exposure. Depths in depth units, times in minutes, fO2 as a fraction, surface pressure and PPO2 in bar
/// (metric) or atmospheres. The dose models are stated in atmospheres: metric pressures are multiplied by 0.9887
/// (1 / 1.01325, rounded up) first. Each result is 0 where the model gives no dose.
namespace tav {

/// Pulmonary dose (OTU) of a constant PPO2: time * (0.5 / (ppo2 - 0.5))^(-5/6); exactly 0 at and below 0.5.
/// Source: the unit pulmonary toxic dose of Bardin and Lambertsen, 1970.
Single OTUForPPO2(Single ppo2, Single time, bool Metric);
Single OTUAtDepth(Single depth, Single time, Single fO2, Single surfacePressure, bool Metric);

/// The same over a move at a constant rate (depth units per minute, signed): the integral of the formula above,
/// 3/11 * T / (Hi - Lo) * [((p - 0.5) / 0.5)^(11/6)] from Lo to Hi, over the part above 0.5.
Single OTUOnRamp(Single from, Single to, Single rate, Single fO2, Single surfacePressure, bool Metric);

/// Central nervous system dose of a constant PPO2 as a fraction of the exposure limit (1 is the whole limit). Above a
/// PPO2 of 60 and at or below 0.5 the result is 0.
/// Source: the single-exposure limits of the NOAA Diving Manual, joined by straight lines.
Single CNSForPPO2(Single ppo2, Single time, bool Metric);
Single CNSAtDepth(Single depth, Single time, Single fO2, Single surfacePressure, bool Metric);

/// The same over a move at a constant rate: within each line of the limits, the integral of dt / (slope * p + limit).
Single CNSOnRamp(Single from, Single to, Single rate, Single fO2, Single surfacePressure, bool Metric);

/// CNS left after a time at the surface: a half-time of 90 minutes. Pulmonary dose is carried in full.
Single CNSAfterSurfaceInterval(Single cns, Single minutes);

}  // namespace tav
