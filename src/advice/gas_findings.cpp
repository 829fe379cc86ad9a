#include <algorithm>
#include <cmath>
#include <optional>

#include "advice/plan_check.h"
#include "advice/stretches.h"
#include "engine/breathing_gas.h"
#include "model/gas_name.h"
#include "model/text_id.h"

namespace tav::plan_check {
namespace {

/// The least whole per cent of helium with which the END keeps to its limit at a depth; where nitrogen alone is
/// narcotic, the most of it. As the engine reckons the END.
int MildestShare(Single depth, const DiveTemplate& t) {
  int share = t.O2Narcotic ? 0 : 100;
  const auto end = [&] {
    return t.O2Narcotic ? EquivalentDepthOC(t.Metric, depth, 0, share, true, t)
                        : EquivalentDepthOC(t.Metric, depth, share, 0, false, t);
  };
  while (share >= 0 && share <= 100 && end() > t.MaximalEND) share += t.O2Narcotic ? 1 : -1;
  return std::clamp(share, 0, 100);
}

void CheckNarcotic(const Context& context) {
  constexpr double kNoise = 0.1;  // depth units
  const DiveTemplate& t = context.dive.settings;
  const auto judge = [&](const BreathedSegment& segment) -> std::optional<Peak> {
    const Waypoint& row = *segment.end;
    const double atStart = EquivalentDepthOC(t.Metric, segment.from, row.GasMixN2, row.GasMixHe, t.O2Narcotic, t);
    const double end = std::max<double>(row.END, atStart);
    if (!(end - t.MaximalEND > kNoise)) return std::nullopt;
    const bool level = row.Rate == 0;
    return level || atStart >= row.END ? Peak{end - t.MaximalEND, end, segment.from, segment.startTime}
                                       : Peak{end - t.MaximalEND, end, row.Depth, row.RunTime};
  };
  const AdviceWords& words = context.words;
  for (const Stretch& stretch : Stretches(context.segments, judge)) {
    const BreathedSegment& worst = *stretch.worst;
    const bool ofPlan = worst.row <= context.dive.lastUserRow && worst.end->Rate == 0;
    const double depth = ofPlan ? AdjustedDepth(stretch.peak.depth, t) : stretch.peak.depth;
    context.findings.push_back(
        {Rule::Narcotic, Severity::Caution, stretch.first, stretch.last,
         words.T(t.O2Narcotic ? Text::NarcoticForHelium : Text::NarcoticForNitrogen,
                 {worst.end->GasMixName, words.Depth(stretch.peak.depth), words.Short(stretch.peak.time),
                  words.Depth(stretch.peak.value), words.Depth(stretch.peak.excess), words.Depth(t.MaximalEND),
                  words.Fixed(MildestShare(depth, t), 0)})});
  }
}

/// The whole unit of depth down to which the density stays as recommended. It grows with depth, from a loop as well.
double DepthOfDensity(const BreathedSegment& segment, Single deeper, const DiveTemplate& t) {
  double depth = std::floor(double{deeper});
  while (depth > 0 && DensityAt(segment, depth, t.Metric) > kDensityRecommended) --depth;
  return depth;
}

void CheckDensity(const Context& context) {
  const DiveTemplate& t = context.dive.settings;
  const auto judge = [&](const BreathedSegment& segment) -> std::optional<Peak> {
    const double density = DensityAt(segment, segment.Deeper(), t.Metric);
    if (!(density > kDensityRecommended)) return std::nullopt;
    return Peak{density, density, segment.Deeper(), segment.TimeOfDeeper()};
  };
  const AdviceWords& words = context.words;
  for (const Stretch& stretch : Stretches(context.segments, judge)) {
    const Peak& peak = stretch.peak;
    const bool danger = peak.value > kDensityHighest;
    const BreathedSegment& worst = *stretch.worst;
    context.findings.push_back(
        {Rule::Density, danger ? Severity::Danger : Severity::Caution, stretch.first, stretch.last,
         words.T(worst.openCircuit ? Text::Dense : Text::DenseLoop,
                 {worst.end->GasMixName, words.Depth(peak.depth), words.Short(peak.time), words.Fixed(peak.value, 2),
                  words.Fixed(danger ? kDensityHighest : kDensityRecommended, 1),
                  words.Depth(DepthOfDensity(worst, peak.depth, t)), words.Fixed(kDensityRecommended, 1)})});
  }
}

/// The rule of fifths of technical diving: on the way up nitrogen may rise by a fifth of what helium falls by.
/// Background: D. Doolette and S. Mitchell, "Biophysical basis for inner ear decompression sickness", J. Appl.
/// Physiol. 94, 2003.
bool BreaksFifths(const BreathedShares& from, const BreathedShares& to) {
  constexpr double kFifth = 0.2;
  constexpr double kNoise = 1e-4;  // of a percentage in 32 bits
  const double helium = from.He - to.He;
  return helium > kNoise && to.N2 - from.N2 > helium * kFifth + kNoise;
}

/// The most whole per cent of nitrogen of a gas, or of a diluent, with its own oxygen and the rest helium, that keep to
/// the rule; nothing when none do.
std::optional<int> MostNitrogen(const BreathedShares& from, const BreathedSegment& now) {
  Waypoint gas = *now.end;
  BreathedSegment with = now;
  with.end = &gas;
  const double inert = 100 - gas.GasMixO2;
  for (int nitrogen = static_cast<int>(inert); nitrogen >= 0; --nitrogen) {
    gas.GasMixN2 = nitrogen;
    gas.GasMixHe = inert - nitrogen;
    if (!BreaksFifths(from, with.SharesAt(now.from))) return nitrogen;
  }
  return std::nullopt;
}

void CheckCounterDiffusion(const Context& context) {
  const AdviceWords& words = context.words;
  const std::vector<BreathedSegment>& segments = context.segments;
  for (std::size_t i = 1; i < segments.size(); ++i) {
    const BreathedSegment& now = segments[i];
    const BreathedSegment& before = segments[i - 1];
    const bool sameGas = now.end->GasMixName == before.end->GasMixName && now.openCircuit == before.openCircuit;
    if (sameGas || now.from == 0) continue;
    const BreathedShares from = before.SharesAt(now.from);
    const BreathedShares to = now.SharesAt(now.from);
    const double helium = from.He - to.He;
    const double nitrogen = to.N2 - from.N2;
    if (!BreaksFifths(from, to)) continue;
    const std::optional<int> most = MostNitrogen(from, now);
    context.findings.push_back(
        {Rule::CounterDiffusion, Severity::Note, now.row, now.row,
         words.T(most ? Text::CounterDiffusion : Text::CounterDiffusionAlways,
                 {before.end->GasMixName, now.end->GasMixName, words.Depth(now.from), words.Short(now.startTime),
                  words.Fixed(helium * 100, 0), words.Fixed(nitrogen * 100, 0), std::to_string(most.value_or(0)),
                  words.Short(now.end->GasMixO2)})});
  }
}

/// A gas is filled and analysed by its name.
void CheckNames(const Context& context) {
  constexpr double kRounding = 0.5;  // per cent: names tell whole numbers
  const AdviceWords& words = context.words;
  std::vector<std::string> met;
  for (const BreathedSegment& segment : context.segments) {
    const Waypoint& row = *segment.end;
    if (std::ranges::find(met, row.GasMixName) != met.end()) continue;
    met.push_back(row.GasMixName);
    const auto named = MixOfName(row.GasMixName);
    const auto differ = [](Single a, Single b) { return std::fabs(a - b) > kRounding; };
    if (!named || !(differ(named->O2, row.GasMixO2) || differ(named->He, row.GasMixHe))) continue;
    context.findings.push_back(
        {Rule::GasName, Severity::Caution, segment.row, segment.row,
         words.T(Text::GasNameTellsOther, {row.GasMixName, words.Short(row.GasMixO2), words.Short(row.GasMixHe),
                                           words.Short(named->O2), words.Short(named->He)})});
  }
}

}  // namespace

void CheckGas(const Context& context) {
  CheckNarcotic(context);
  CheckDensity(context);
  CheckCounterDiffusion(context);
  CheckNames(context);
}

}  // namespace tav::plan_check
