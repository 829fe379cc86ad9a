#pragma once

#include <string>

namespace tav {

/// The marks of the menu of models, by which windows and reports name the model.
struct ModelMarks {
  bool ZHL16B = true;
  bool ZHL16C = false;
  bool Hybrid = false;
  bool VPMEnabled = false;  ///< VPM can be chosen
};

/// The name of the table: "ZH-L16B" or "ZH-L16C".
inline std::string TableName(const ModelMarks& marks) { return marks.ZHL16B ? "ZH-L16B" : "ZH-L16C"; }

/// The model of a plan in the long report: "Hybrid_B", "ZH-L16C", "VPM", ...
inline std::string ModelText(const ModelMarks& marks) {
  if (marks.ZHL16C) return marks.Hybrid ? "Hybrid_C" : "ZH-L16C";
  if (marks.ZHL16B) return marks.Hybrid ? "Hybrid_B" : "ZH-L16B";
  return marks.VPMEnabled ? "VPM" : "";
}

}  // namespace tav
