#include "plans/scratch_run.h"

#include <stdexcept>

#include "compute/breathed_gas.h"

namespace tav {
namespace {

/// Ends an evaluation from within.
struct RunEnded {};

}  // namespace

ScratchRun::ScratchRun(const PlanServices& services, const DocumentState& document, const DocumentState* previous)
    : model_(services.model), listener_(services.observer), services_{store_,   model_,         listener_,
                                                                      display_, services.boxes, services.texts} {
  if (previous != nullptr) {
    previous_ = store_.AllocateDocumentSlot();
    store_(previous_) = *previous;
  }
  document_ = store_.AllocateDocumentSlot();
  store_(document_) = document;
}

void ScratchRun::Listener::StopHitLimit(const StopLimit& stop) {
  observer_.StopHitLimit(stop);
  if (proceed != nullptr && !(*proceed)()) throw RunEnded();
}

bool ScratchRun::Compute(const ClassProfile& plan, bool forceOC, TableDive& dive, const std::function<bool()>& proceed,
                         std::int16_t openFrom) {
  listener_.proceed = &proceed;
  std::string fault;
  try {
    fault = ComputeProfile(services_, {document_, previous_, false, forceOC, openFrom}, plan, dive.profile);
  } catch (const RunEnded&) {
    return false;
  }
  if (!fault.empty()) throw std::runtime_error(fault);
  dive.decompresses = store_(document_).Decompresses;
  const DiveTemplate& settings = store_(document_).Template;
  const auto ascent = static_cast<std::int16_t>(LastUserRow(dive.profile) + 1);
  dive.openFrom = openFrom != 0                      ? openFrom
                  : forceOC && !settings.OpenCircuit ? ascent
                                                     : FirstOpenRow(dive.profile, settings);
  return true;
}

}  // namespace tav
