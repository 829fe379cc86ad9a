#pragma once

#include <string>

#include "model/dive_template.h"
#include "platform/text_source.h"

namespace tav {

/// What heads tell of a rebreather plan because it could be computed otherwise: what its loop does with the gases of
/// the change list and, of a repetitive dive, where its surface interval is spent. Empty on open circuit.
std::string LoopState(const DiveTemplate& settings, bool repetitive, const TextSource& texts);

}  // namespace tav
