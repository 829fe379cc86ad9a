#include "advice/plan_check.h"
#include "model/template_faults.h"
#include "model/text_id.h"

namespace tav::plan_check {

/// An altitude and a pressure that can't both be right: the plan is computed on the pressure.
void CheckSurface(const Context& context) {
  const DiveTemplate& t = context.dive.settings;
  const AdviceWords& words = context.words;
  const auto check = [&](int text, Single altitude, Single pressure, std::int16_t row) {
    const auto usual = ContradictedPressure(altitude, pressure, t.Metric);
    if (!usual) return;
    context.findings.push_back({Rule::SurfacePressure, Severity::Note, row, row,
                                words.T(text, {words.Depth(altitude), words.PPO2(pressure), words.PPO2(*usual)})});
  };
  check(Text::StartPressureUnusual, t.StartAltitude, t.StartPressure, 1);
  check(Text::EndPressureUnusual, t.EndAltitude, t.EndPressure, context.dive.rows.GetLength());
}

}  // namespace tav::plan_check
