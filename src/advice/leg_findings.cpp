#include <cmath>

#include "advice/plan_check.h"
#include "model/numbers.h"
#include "model/text_id.h"

namespace tav::plan_check {
namespace {

void CheckLength(const Context& context, int leg, std::int16_t first, std::int16_t last, Single asked) {
  constexpr double kShown = 0.05;  // half of what minutes are shown to
  const CheckedDive& dive = context.dive;
  const AdviceWords& words = context.words;
  double move = 0;
  for (std::int16_t row = first; row <= last; ++row) {
    const Waypoint& end = dive.rows.Row(row);
    if (end.Rate != 0) move += std::fabs((end.Depth - dive.Before(row).Depth) / end.Rate);
  }
  if (!(move - asked > kShown)) return;
  context.findings.push_back({Rule::LegLengthened, Severity::Note, first, last,
                              words.T(Text::LegLengthened, {std::to_string(leg), words.Depth(dive.rows.getDepth(last)),
                                                            words.Short(move), words.Short(asked)})});
}

void CheckEachLeg(const Context& context) {
  const ComputedPlan& plan = context.dive.planned.plan;
  const ClassUseractions& actions = context.dive.planned.record.UserActions;
  int leg = 0;
  for (std::int16_t n = 1; n <= actions.GetLength(); ++n) {
    if (actions.getaction(n) != ClassUseractions::kLeg) continue;
    ++leg;
    const auto first = static_cast<std::int16_t>(plan.LastRowOf(static_cast<std::int16_t>(n - 1)) + 1);
    const std::int16_t last = plan.LastRowOf(n);
    if (last < first) continue;
    CheckLength(context, leg, first, last, actions.gettime(n));
    if (actions.getDepth(n) != 0) continue;
    const AdviceWords& words = context.words;
    context.findings.push_back({Rule::LegAtSurface, Severity::Note, first, last,
                                words.T(Text::LegAtSurface, {std::to_string(leg), words.Short(actions.gettime(n))})});
  }
}

void CheckDecompression(const Context& context) {
  if (context.dive.decompresses) return;
  const ClassProfile& rows = context.dive.rows;
  const DiveTemplate& settings = context.dive.settings;
  std::int16_t stop = rows.GetLength();
  // The stop that hit the limit lasted longest by far.
  for (std::int16_t i = 1; i <= rows.GetLength() && i > 0; ++i) {
    if (rows.GetStatus(i) == RowStatus::kStop && rows.getStopTime(i) > rows.getStopTime(stop)) stop = i;
  }
  // From a bottom that is no deeper than the last stop the ascent waits for the surface at the bottom itself.
  const Single depth = rows.getDepth(stop);
  const bool atBottom =
      depth == rows.getDepth(context.dive.lastUserRow) && depth <= settings.LastStop && depth > settings.StepSize;
  const AdviceWords& words = context.words;
  context.findings.push_back({Rule::DoesNotDecompress, Severity::Danger, stop, stop,
                              words.T(atBottom ? Text::LastStopTooDeep : Text::StopNeverClears,
                                      {words.Depth(depth), rows.GetGasMixName(stop), words.Depth(settings.LastStop),
                                       words.Depth(settings.StepSize)})});
}

/// The stops are reckoned for the pressure at the end: that of the wrong place makes them wrong from the first on.
void CheckPressures(const Context& context) {
  const DiveTemplate& settings = context.dive.settings;
  constexpr int kShown = 3;
  const Single start = RoundSingle(settings.StartPressure, kShown);
  const Single end = RoundSingle(settings.EndPressure, kShown);
  if (start == end) return;
  const AdviceWords& words = context.words;
  const auto told = [&](double pressure) { return words.Fixed(pressure, kShown) + " " + words.PressureUnit(); };
  context.findings.push_back(
      {Rule::TwoPressures, Severity::Note, 0, 0, words.T(Text::TwoPressures, {told(start), told(end)})});
}

}  // namespace

void CheckLegs(const Context& context) {
  CheckEachLeg(context);
  CheckDecompression(context);
  CheckPressures(context);
}

}  // namespace tav::plan_check
