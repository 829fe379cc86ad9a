#include "compute/scratch_run.h"

#include "compute/breathed_gas.h"
#include "compute/compute_profile.h"

namespace tav {
namespace {

/// Ends an evaluation from within.
struct RunEnded {};

}  // namespace

void ScratchRun::Listener::StopHitLimit(const StopLimit& stop) {
  ObserverRelay::StopHitLimit(stop);
  if (proceed != nullptr && !(*proceed)()) throw RunEnded();
}

bool ScratchRun::Compute(const ClassProfile& plan, bool forceOC, TableDive& dive, const std::function<bool()>& proceed,
                         std::int16_t openFrom) {
  listener_.proceed = &proceed;
  const DiveTemplate& settings = start_.settings;
  const EngineRun run{settings, start_.model, start_.before ? &*start_.before : nullptr, start_.surfaceInterval, false,
                      forceOC,  openFrom};
  EndState end;
  Message fault;
  try {
    fault = ComputeProfile(run, plan, dive.profile, end, listener_);
  } catch (const RunEnded&) {
    return false;
  }
  if (!fault.IsEmpty()) throw MessageError("", fault);
  dive.decompresses = end.Decompresses;
  const auto ascent = static_cast<std::int16_t>(LastUserRow(dive.profile) + 1);
  dive.openFrom = openFrom != 0                      ? openFrom
                  : forceOC && !settings.OpenCircuit ? ascent
                                                     : FirstOpenRow(dive.profile, settings);
  return true;
}

}  // namespace tav
