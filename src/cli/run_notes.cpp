#include "cli/run_notes.h"

#include <algorithm>
#include <utility>

#include "model/number_text.h"

namespace tav {

void RunNotes::Note(const std::string& text) {
  if (std::find(notes_.begin(), notes_.end(), text) == notes_.end()) notes_.push_back(text);
}

std::vector<std::string> RunNotes::Take() { return std::exchange(notes_, {}); }

void RunNotes::WarnEND(const LimitWarning& warning) {
  const std::string unit = warning.metric ? " m" : " ft";
  Note("END " + FormatFixed(warning.value, 0) + unit + " is above the limit of " + FormatFixed(warning.limit, 0) +
       unit);
}

void RunNotes::WarnPPO2High(const LimitWarning& warning) {
  const std::string unit = warning.metric ? " bar" : " atm";
  Note("PPO2 " + FormatFixed(warning.value, 2) + unit + " is above the limit of " + FormatFixed(warning.limit, 2) +
       unit);
}

void RunNotes::WarnPPO2Low(const LimitWarning& warning) {
  const std::string unit = warning.metric ? " bar" : " atm";
  Note("PPO2 " + FormatFixed(warning.value, 2) + unit + " is below the limit of " + FormatFixed(warning.limit, 2) +
       unit);
}

void RunNotes::StopHitLimit(const StopLimit& stop) {
  Note("THIS PLAN DOES NOT DECOMPRESS: the stop at depth " + FormatPlain(stop.depth) + " on " + stop.gas +
       " does not clear, " + stop.reason);
}

}  // namespace tav
