#pragma once

#include "model/dive_template.h"
#include "model/single.h"

/// Gas volumes, oxygen pressure and narcotic depth. Depths in depth units, times in minutes, surface pressure in bar or
/// atmospheres, RMV in volume per minute at surface pressure.
namespace tav {

/// Volume breathed at a constant depth, at surface pressure.
Single GasUsedAtDepth(Single depth, Single time, Single rmv, Single surfacePressure, bool Metric);

/// Volume breathed on a move at a constant rate (signed): that of the mean depth.
Single GasUsedOnRamp(Single from, Single to, Single rate, Single rmv, Single surfacePressure, bool Metric);

/// The depth that a plan is computed on: with `DepthAdjust`, 3 % and 1 m (3.3 ft) deeper, but for the surface. The
/// computed ascent has true depths.
Single AdjustedDepth(Single depth, const DiveTemplate& diveTemplate);

/// Oxygen partial pressure, bar or atmospheres.
Single PPO2AtDepth(Single depth, Single surfacePressure, Single fO2, bool Metric);

/// Equivalent narcotic depth, never below 0: the depth at which air (or, when oxygen does not count, its nitrogen) is
/// as narcotic. N2 and He in percent; `StartPressure` of the template is the surface pressure. The factor between feet
/// and metres is 3.3 here.
Single EquivalentDepthOC(bool Metric, Single depth, Single N2, Single He, bool O2Narcotic,
                         const DiveTemplate& diveTemplate);

/// The same for the diluent of a rebreather; the PPO2 does not enter.
Single EquivalentDepthCC(bool Metric, Single ppo2, Single depth, Single He, Single N2, bool O2Narcotic,
                         const DiveTemplate& diveTemplate);

}  // namespace tav
