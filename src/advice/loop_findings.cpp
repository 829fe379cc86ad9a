#include "advice/plan_check.h"
#include "model/text_id.h"

namespace tav::plan_check {
namespace {

/// What a loop at the surface comes to: "oxygen", "EAN69".
std::string BreathedAtSurface(const DiveTemplate& settings, const AdviceWords& words) {
  const double share = settings.Setpoint / settings.StartPressure * 100;
  return share >= 99.5 ? words.T(Text::OxygenOnLoop) : "EAN" + words.Fixed(share, 0);
}

/// On the loop a surface interval empties the tissues as a setpoint's oxygen does, and nobody spends it so.
void CheckInterval(const Context& context) {
  const CheckedDive& dive = context.dive;
  const DiveTemplate& settings = dive.settings;
  const bool onLoop = !settings.OpenCircuit && !settings.IntervalOnAir;
  if (dive.planned.before == nullptr || !onLoop || dive.surfaceInterval == 0) return;
  const AdviceWords& words = context.words;
  context.findings.push_back(
      {Rule::IntervalOnLoop, Severity::Danger, 0, 0,
       words.T(Text::IntervalOnLoop, {words.Short(dive.surfaceInterval), BreathedAtSurface(settings, words)})});
}

/// The gases of the change list are mostly those of the bail-out. A loop that takes them in turn as diluents is
/// computed with less helium and nitrogen than the diver then breathes.
void CheckDiluent(const Context& context) {
  const CheckedDive& dive = context.dive;
  if (dive.settings.OpenCircuit || dive.settings.KeepsDiluent) return;
  const AdviceWords& words = context.words;
  std::string changes;
  std::int16_t first = 0;
  std::int16_t last = 0;
  for (const BreathedSegment& segment : context.segments) {
    const std::string& gas = segment.end->GasMixName;
    if (segment.row <= dive.lastUserRow || segment.openCircuit || gas == dive.Before(segment.row).GasMixName) continue;
    if (first == 0) first = segment.row;
    last = segment.row;
    changes += (changes.empty() ? "" : ", ") + words.T(Text::LoopChangeAt, {gas, words.Depth(segment.from)});
  }
  if (first == 0) return;
  context.findings.push_back(
      {Rule::LoopChanges, Severity::Note, first, last, words.T(Text::LoopChangesDiluent, {changes})});
}

}  // namespace

void CheckLoop(const Context& context) {
  CheckInterval(context);
  CheckDiluent(context);
}

}  // namespace tav::plan_check
