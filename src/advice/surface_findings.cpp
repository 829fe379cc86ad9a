#include "advice/plan_check.h"
#include "model/template_faults.h"

namespace tav::plan_check {

/// An altitude and a pressure that can't both be right: the plan is computed on the pressure.
void CheckSurface(const Context& context) {
  constexpr int kAtStart = 8166;
  constexpr int kAtEnd = 8167;
  const DiveTemplate& t = context.dive.settings;
  const AdviceWords& words = context.words;
  const auto check = [&](int text, Single altitude, Single pressure, std::int16_t row) {
    const auto usual = ContradictedPressure(altitude, pressure, t.Metric);
    if (!usual) return;
    context.findings.push_back({Rule::SurfacePressure, Severity::Note, row, row,
                                words.T(text, {words.Depth(altitude), words.PPO2(pressure), words.PPO2(*usual)})});
  };
  check(kAtStart, t.StartAltitude, t.StartPressure, 1);
  check(kAtEnd, t.EndAltitude, t.EndPressure, context.dive.rows.GetLength());
}

}  // namespace tav::plan_check
