#pragma once

#include <cstdint>

#include "dialogs/dialog_services.h"

namespace tav {

/// To be called when a plan has got a new template and has not been computed with it yet. A plan holds its depths as
/// bare numbers: where the units have changed and the plan has waypoints, asks whether the depths are to be converted,
/// and does so; else 21 m become 21 ft.
void OfferToConvertDepths(const DialogServices& services, std::int16_t document, bool wasMetric);

}  // namespace tav
