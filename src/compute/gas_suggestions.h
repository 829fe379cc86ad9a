#pragma once

#include <optional>

#include "model/dive_template.h"
#include "model/single.h"

/// The best gas for a depth within the limits of a template: PPO2 (`MaxPPO2`, or `Setpoint` on a rebreather) and END
/// (`MaximalEND`). Depth in depth units.
namespace tav {

/// Fractions, 0 to 1.
struct MixFractions {
  Single O2;
  Single N2;
  Single He;
};

/// x rounded down to a hundredth, by way of 32 bits: 0.35, which is 0.349999994 there, stays 0.35.
Single RoundDown(Single x);

/// Nothing when no mix of oxygen and nitrogen keeps the END.
std::optional<MixFractions> SuggestNitrox(Single depth, const DiveTemplate& t);
/// Nothing when no mix of oxygen and helium keeps the END.
std::optional<MixFractions> SuggestHeliox(Single depth, const DiveTemplate& t);
/// A trimix is always offered.
MixFractions SuggestTrimix(Single depth, const DiveTemplate& t);

}  // namespace tav
