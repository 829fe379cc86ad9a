#include "figures/row_gradients.h"

namespace tav {

std::vector<GradientsInUse> RowGradients(const ClassProfile& rows, const DiveTemplate& settings,
                                         const ModelChoice& model) {
  const MValueCoefficients mValues = MValuesOf(settings.Metric, model.ZHL16C);
  const std::int16_t lastUserRow = LastUserRow(rows);
  std::vector<GradientsInUse> gradients;
  gradients.reserve(static_cast<std::size_t>(rows.GetLength()) + 1);
  for (int i = 0; i <= rows.GetLength(); ++i) {
    const Waypoint& row = rows.Row(static_cast<std::int16_t>(i));
    const Single surface = i <= lastUserRow ? settings.StartPressure : settings.EndPressure;
    gradients.push_back(GradientsOf({row.HeCompartments, row.N2Compartments}, mValues, settings, surface, row.Depth));
  }
  return gradients;
}

}  // namespace tav
