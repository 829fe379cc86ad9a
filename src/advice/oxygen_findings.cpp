#include <algorithm>
#include <cmath>

#include "advice/plan_check.h"
#include "advice/stretches.h"
#include "engine/breathing_gas.h"
#include "model/numbers.h"
#include "model/text_id.h"

namespace tav::plan_check {
namespace {

double Rounded(double ppo2) { return RoundSingle(ppo2, 2); }

/// The depth at which the gas of a segment has a PPO2; 0 for a gas without oxygen.
double DepthOf(double ppo2, const BreathedSegment& segment) {
  if (segment.end->GasMixO2 == 0) return 0;
  return (ppo2 / (segment.end->GasMixO2 / 100) - segment.surface) * segment.perPressure;
}

/// The oxygen of air, percent. MinPPO2 is meant for the sea: a gas as rich is never below what the diver breathes on
/// the shore, be it of a mountain lake.
constexpr double kAirO2 = 21;

void CheckHypoxic(const Context& context) {
  const DiveTemplate& settings = context.dive.settings;
  const double limit = settings.MinPPO2;
  const auto judge = [&](const BreathedSegment& segment) -> std::optional<Peak> {
    const double ppo2 = segment.LeastPPO2At(segment.Shallower());
    if (!(Rounded(ppo2) < limit)) return std::nullopt;
    if (segment.openCircuit && segment.end->GasMixO2 >= kAirO2 && limit <= kAirO2 / 100) return std::nullopt;
    return Peak{limit - ppo2, ppo2, segment.Shallower(), segment.TimeOfShallower()};
  };
  const AdviceWords& words = context.words;
  for (const Stretch& stretch : Stretches(context.segments, judge)) {
    const BreathedSegment& worst = *stretch.worst;
    std::string text;
    if (worst.openCircuit && worst.end->GasMixO2 == 0) {
      text = words.T(Text::GasWithoutOxygen, {worst.end->GasMixName});
    } else if (worst.openCircuit) {
      const double enough = std::ceil(DepthOf(limit, worst));
      text = words.T(Text::Hypoxic,
                     {worst.end->GasMixName, words.Depth(stretch.peak.depth), words.Short(stretch.peak.time),
                      words.PPO2(stretch.peak.value), words.Fixed(limit, 2), words.Depth(enough)});
    } else {
      text = words.T(Text::HypoxicLoop, {words.Depth(stretch.peak.depth), words.Short(stretch.peak.time),
                                         words.PPO2(stretch.peak.value), words.Fixed(limit, 2)});
    }
    context.findings.push_back(
        {Rule::Hypoxic, Severity::Danger, stretch.first, stretch.last, std::move(text), stretch.peak.excess});
  }
}

constexpr double kWithinRounding = 0.02;

/// The rows tell the plan at its adjusted depths, the ascent at true ones.
Single JudgedDepth(const BreathedSegment& segment, Single depth, const CheckedDive& dive) {
  return segment.row <= dive.lastUserRow ? AdjustedDepth(depth, dive.settings) : depth;
}

/// The deepest whole depth at which the gas of a segment keeps to a PPO2; 0 or less for none.
double DeepestWithin(double ppo2, const BreathedSegment& segment, const CheckedDive& dive) {
  const double most = DepthOf(ppo2, segment);
  double depth = std::floor(most);
  while (depth > 0 && JudgedDepth(segment, depth, dive) > most) --depth;
  return depth;
}

void CheckHyperoxic(const Context& context) {
  // Above 1.6 bar convulsions come without warning, at rest as well (NOAA Diving Manual, exceptional exposures).
  constexpr double kNever = 1.6;
  constexpr double kFar = 0.2;
  const auto judge = [&](const BreathedSegment& segment) -> std::optional<Peak> {
    const double ppo2 = Rounded(segment.PPO2At(JudgedDepth(segment, segment.Deeper(), context.dive)));
    const double excess = Rounded(ppo2 - segment.ppo2Limit);
    if (excess <= Rounded(kWithinRounding)) return std::nullopt;
    return Peak{excess, ppo2, segment.Deeper(), segment.TimeOfDeeper()};
  };
  const AdviceWords& words = context.words;
  for (const Stretch& stretch : Stretches(context.segments, judge)) {
    const BreathedSegment& worst = *stretch.worst;
    const double limit = worst.ppo2Limit;
    const Peak& peak = stretch.peak;
    const std::string where = words.Depth(peak.depth);
    const std::string value = words.PPO2(peak.value);
    const double deepest = DeepestWithin(limit, worst, context.dive);
    std::string text;
    if (!worst.openCircuit) {
      text = words.T(Text::HyperoxicLoop, {where, words.Short(peak.time), value, words.Fixed(peak.excess, 2),
                                           words.Fixed(limit, 2), worst.end->GasMixName});
    } else {
      const bool somewhere = deepest > 0;
      text = words.T(somewhere ? Text::Hyperoxic : Text::HyperoxicEverywhere,
                     {worst.end->GasMixName, where, words.Short(peak.time), value, words.Fixed(peak.excess, 2),
                      words.Fixed(limit, 2), words.Depth(deepest)});
    }
    const bool danger = peak.value > Rounded(kNever) || peak.excess >= Rounded(kFar);
    context.findings.push_back({Rule::Hyperoxic, danger ? Severity::Danger : Severity::Caution, stretch.first,
                                stretch.last, std::move(text), peak.excess});
  }
}

/// Level segments alone: a loop passes through the shallow water of every descent.
void CheckSetpoint(const Context& context) {
  const auto onLoop = [](const BreathedSegment& s) { return !s.openCircuit && s.end->Rate == 0 && s.end->Depth > 0; };
  const auto tooHigh = [&](const BreathedSegment& s) -> std::optional<Peak> {
    const double ambient = s.Ambient(s.end->Depth);
    const double excess = s.end->PPO2 - ambient;
    if (!onLoop(s) || !(excess > kWithinRounding)) return std::nullopt;
    return Peak{excess, ambient, s.end->Depth, s.startTime};
  };
  const auto tooLow = [&](const BreathedSegment& s) -> std::optional<Peak> {
    const double ofDiluent = s.Ambient(s.end->Depth) * s.end->GasMixO2 / 100;
    const double excess = ofDiluent - s.end->PPO2;
    if (!onLoop(s) || !(excess > kWithinRounding)) return std::nullopt;
    return Peak{excess, ofDiluent, s.end->Depth, s.startTime};
  };
  const AdviceWords& words = context.words;
  const auto add = [&](const Stretch& stretch, int text) {
    const BreathedSegment& worst = *stretch.worst;
    const double setpoint = worst.end->PPO2;
    const double deepest = std::max(0.0, std::floor(DepthOf(setpoint, worst)));
    context.findings.push_back(
        {Rule::Setpoint, Severity::Note, stretch.first, stretch.last,
         words.T(text, {words.Fixed(setpoint, 2), words.Depth(stretch.peak.depth), words.Short(stretch.peak.time),
                        words.PPO2(stretch.peak.value), worst.end->GasMixName, words.Depth(deepest)})});
  };
  for (const Stretch& stretch : Stretches(context.segments, tooHigh)) add(stretch, Text::SetpointTooHigh);
  for (const Stretch& stretch : Stretches(context.segments, tooLow)) add(stretch, Text::SetpointTooLow);
}

}  // namespace

void CheckOxygen(const Context& context) {
  CheckHypoxic(context);
  CheckHyperoxic(context);
  if (!context.dive.settings.OpenCircuit) CheckSetpoint(context);
}

}  // namespace tav::plan_check
