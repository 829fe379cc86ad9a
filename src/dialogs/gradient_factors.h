#pragma once

#include "model/numbers.h"

/// Gradient factors as users enter them.
namespace tav::gradient_factors {

/// What a number in a field means, to a hundredth: from 2 on it is per cent.
inline Single Entered(Single number) {
  constexpr double kPerCentFrom = 2;
  return RoundSingle(number >= kPerCentFrom ? Single(number / 100) : number, 2);
}

/// The highest one that is taken; `veryHigh` is the switch of the command line.
inline Single Highest(bool veryHigh) { return veryHigh ? 1.2 : 1.0; }

inline bool ArePair(Single low, Single high, Single highest) { return low > 0 && high <= highest && low < high; }

/// A pair that puts more on a diver than the limits of the model while it stops deep: only with a warning.
constexpr double kBoldHighAbove = 1.0;
constexpr double kBoldLowUpTo = 0.4;
inline bool IsBold(Single low, Single high) { return high > kBoldHighAbove && low <= Single(kBoldLowUpTo); }

}  // namespace tav::gradient_factors
