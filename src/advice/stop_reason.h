#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "advice/checked_dive.h"
#include "figures/advice_words.h"

namespace tav {

/// Why a stop lasts as long as it does: what the leading compartment holds at its end, and what it may hold at the next
/// stop. In the minute before it held more.
struct StopReason {
  std::int16_t row = 0;
  int compartment = 1;   ///< 1 to 16
  Single halfTimeN2;     ///< minutes
  Single halfTimeHe;     ///< minutes
  Single load;           ///< helium and nitrogen, bar or atmospheres
  Single tolerated;      ///< at the next stop, bar or atmospheres
  Single nextStop;       ///< depth; 0 for the surface
  Single GF;             ///< gradient factor in force, a fraction; 1 where none is used or the bubble model decided
  bool bubbles = false;  ///< the bubble model decided, else ZH-L16
  bool ZHL16C = false;   ///< with the C coefficients
};

/// One for each stop of the computed ascent, in order.
std::vector<StopReason> StopReasons(const CheckedDive& dive);

/// The reason as a sentence.
std::string TextOf(const StopReason& reason, const AdviceWords& words);

/// Those of a dive by row.
std::map<std::int16_t, std::string> StopReasonTexts(const CheckedDive& dive, const AdviceWords& words);

/// "ZH-L16B", "ZH-L16C" or "VPM": the model that decided.
std::string ModelOf(const StopReason& reason);

}  // namespace tav
