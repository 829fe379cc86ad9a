#pragma once

#include <string>

#include "engine/model_choice.h"
#include "model/dive_template.h"

namespace tav {

/// "ZH-L16B" or "ZH-L16C": the table of coefficients that a model takes.
inline std::string TableName(const ModelChoice& model) { return model.ZHL16C ? "ZH-L16C" : "ZH-L16B"; }

/// The name of a model, the same wherever a user reads it: "ZH-L16B", "VPM", "ZH-L16B + VPM".
inline std::string ModelName(const ModelChoice& model) {
  if (model.VPMMode) return "VPM";
  return model.HybridMode ? TableName(model) + " + VPM" : TableName(model);
}

/// Gradient factors are switched on, and act: on all models but VPM alone.
inline bool GradientFactorsAct(const DiveTemplate& settings, const ModelChoice& model) {
  return settings.UseGF && !model.VPMMode;
}

}  // namespace tav
