#include "cli/run_notes.h"

#include <algorithm>
#include <utility>

#include "model/number_text.h"

namespace tav {

void RunNotes::Note(const std::string& text) {
  if (std::find(notes_.begin(), notes_.end(), text) == notes_.end()) notes_.push_back(text);
}

std::vector<std::string> RunNotes::Take() { return std::exchange(notes_, {}); }

void RunNotes::WarnEND(Single end, Single limit, bool Metric) {
  const std::string unit = Metric ? " m" : " ft";
  Note("END " + FormatFixed(end, 0) + unit + " is above the limit of " + FormatFixed(limit, 0) + unit);
}

void RunNotes::WarnPPO2High(Single ppo2, Single limit, bool Metric) {
  const std::string unit = Metric ? " bar" : " atm";
  Note("PPO2 " + FormatFixed(ppo2, 2) + unit + " is above the limit of " + FormatFixed(limit, 2) + unit);
}

void RunNotes::WarnPPO2Low(Single ppo2, Single limit, bool Metric) {
  const std::string unit = Metric ? " bar" : " atm";
  Note("PPO2 " + FormatFixed(ppo2, 2) + unit + " is below the limit of " + FormatFixed(limit, 2) + unit);
}

void RunNotes::StopHitLimit(const StopLimit& stop) {
  Note("THIS PLAN DOES NOT DECOMPRESS: the stop at depth " + FormatPlain(stop.depth) + " on " + stop.gas +
       " does not clear, " + stop.reason);
}

}  // namespace tav
