#pragma once

#include <optional>

#include "mixer/filling.h"

namespace tav {

/// What to drain a cylinder to before a fill that is not possible, in the unit of the request, rounded down to a mark:
/// the most that lets it come out as wanted; where that is less than an open cylinder holds, the most that lets it come
/// out within its margins. Less than that only where nothing else helps; nothing where draining does not help.
std::optional<Single> PressureToDrainTo(const FillRequest& request, const Filling& filling, double mark);

}  // namespace tav
