#pragma once

#include <array>
#include <cstdint>

#include "engine/compartment_kernels.h"

namespace tav {

/// Rate constants ln 2 / half-time of the 16 compartments, each rounded to 32 bits.
const CompartmentPair& RateConstants();

/// exp(-k t) of every compartment. The segment times of a dive repeat (a minute or a tenth of one at a stop, the same
/// ramp between any two stops), and 32 exponentials cost more than all other arithmetic of a segment together.
class DecayFactors {
 public:
  /// The factors of a time in minutes. The reference holds until the next call.
  const CompartmentPair& For(Single time);

 private:
  struct Entry {
    Single time = -1;  // no segment has a negative time; the entry is empty
    CompartmentPair factors;
  };

  static constexpr std::size_t kEntries = 16;
  std::array<Entry, kEntries> entries_;
};

}  // namespace tav
