#pragma once

#include "engine/compartment_kernels.h"
#include "model/dive_template.h"

namespace tav {

/// How much of the pressure difference that the M-values allow is in use, as fractions: of the 16 compartments the
/// largest
///
///   (load - ambient) / (M-value - ambient),  M-value = ambient / b + a,
///
/// where the load is helium and nitrogen together, and a and b are weighted by the two; 0 where no load is above
/// ambient, 1 on the line of the M-values. The M-values are those of ZH-L16, whichever model sets the ceilings.
/// Source: E. C. Baker, "Understanding M-values" (1998), his "per cent M-value gradient"; gradient factors limit it.
struct GradientsInUse {
  Single gf99;       ///< at the depth where the diver is
  Single surfaceGF;  ///< if the diver were at the surface of `EndPressure` at once
};

/// `surface` is the surface pressure where the loads are, bar or atmospheres, and `depth` below it in depth units.
GradientsInUse GradientsOf(const Loads& loads, const MValueCoefficients& m, const DiveTemplate& settings,
                           Single surface, Single depth);

}  // namespace tav
