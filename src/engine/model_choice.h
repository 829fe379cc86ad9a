#pragma once

namespace tav {

/// The decompression model in force. Neither mode set: ZH-L16 with the template's gradient factors. The two exclude
/// each other; were both set, VPM would win.
struct ModelChoice {
  bool VPMMode = false;     ///< the ceiling is that of the bubble model
  bool HybridMode = false;  ///< the ceiling is the deeper of the two
  bool ZHL16C = false;      ///< ZH-L16 with the C coefficients, else B
  friend bool operator==(const ModelChoice&, const ModelChoice&) = default;
};

}  // namespace tav
