#pragma once

#include <vector>

#include "engine/gradient_factors.h"
#include "engine/model_choice.h"
#include "model/profile.h"

namespace tav {

/// GF99 and surface GF at the end of each row, row 0 included. `rows` are as the engine left them, with their loads,
/// and `model` made them. The ambient pressure of the user's rows rests on `StartPressure`, that of the computed ascent
/// on `EndPressure`.
std::vector<GradientsInUse> RowGradients(const ClassProfile& rows, const DiveTemplate& settings,
                                         const ModelChoice& model);

}  // namespace tav
