#include <algorithm>
#include <cmath>

#include "advice/plan_check.h"
#include "advice/stretches.h"
#include "engine/breathing_gas.h"

namespace tav::plan_check {
namespace {

constexpr int kNarcoticHelium = 7608;
constexpr int kNarcoticNitrogen = 7609;
constexpr int kDense = 7610;
constexpr int kDenseLoop = 7611;
constexpr int kCounterDiffusion = 7612;

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
    // Narcotic is what is not helium, or the nitrogen alone. At the limit it has the pressure that air, or its
    // nitrogen, has at MaximalEND.
    const double surface = t.StartPressure * DepthPerPressure(t.Metric);
    const double share = (surface + t.MaximalEND) / (surface + stretch.peak.depth) * 100;
    constexpr double kNitrogenOfAir = 0.79;
    const std::string mend =
        t.O2Narcotic ? words.Fixed(std::ceil(100 - share), 0) : words.Fixed(std::floor(share * kNitrogenOfAir), 0);
    context.findings.push_back({Rule::Narcotic, Severity::Caution, stretch.first, stretch.last,
                                words.T(t.O2Narcotic ? kNarcoticHelium : kNarcoticNitrogen,
                                        {stretch.worst->end->GasMixName, words.Depth(stretch.peak.depth),
                                         words.Short(stretch.peak.time), words.Depth(stretch.peak.value),
                                         words.Depth(stretch.peak.excess), words.Depth(t.MaximalEND), mend})});
  }
}

/// Recommended and highest density, g/l. Above them carbon dioxide is retained: G. Anthony and S. Mitchell,
/// "Respiratory physiology of rebreather diving", in: Rebreathers and scientific diving, 2016.
constexpr double kDensityRecommended = 5.2;
constexpr double kDensityHighest = 6.2;

double BarPerPressure(const DiveTemplate& t) { return t.Metric ? 1.0 : 1.01325; }

double DensityAt(const BreathedSegment& segment, double depth, const DiveTemplate& t) {
  return GasDensity(segment.SharesAt(depth), segment.Ambient(depth) * BarPerPressure(t));
}

/// The whole unit of depth down to which the density stays as recommended. It grows with depth, from a loop as well.
double DepthOfDensity(const BreathedSegment& segment, Single deeper, const DiveTemplate& t) {
  double depth = std::floor(double{deeper});
  while (depth > 0 && DensityAt(segment, depth, t) > kDensityRecommended) --depth;
  return depth;
}

void CheckDensity(const Context& context) {
  const DiveTemplate& t = context.dive.settings;
  const auto judge = [&](const BreathedSegment& segment) -> std::optional<Peak> {
    const double density = DensityAt(segment, segment.Deeper(), t);
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
         words.T(worst.openCircuit ? kDense : kDenseLoop,
                 {worst.end->GasMixName, words.Depth(peak.depth), words.Short(peak.time), words.Fixed(peak.value, 2),
                  words.Fixed(danger ? kDensityHighest : kDensityRecommended, 1),
                  words.Depth(DepthOfDensity(worst, peak.depth, t)), words.Fixed(kDensityRecommended, 1)})});
  }
}

/// The rule of fifths of technical diving: on the way up nitrogen may rise by a fifth of what helium falls by.
/// Background: D. Doolette and S. Mitchell, "Biophysical basis for inner ear decompression sickness", J. Appl.
/// Physiol. 94, 2003.
void CheckCounterDiffusion(const Context& context) {
  constexpr double kFifth = 0.2;
  constexpr double kNoise = 1e-4;  // of a percentage in 32 bits
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
    if (!(helium > kNoise && nitrogen > helium * kFifth + kNoise)) continue;
    const double most = std::floor((from.N2 + helium * kFifth + kNoise) * 100);
    context.findings.push_back(
        {Rule::CounterDiffusion, Severity::Note, now.row, now.row,
         words.T(kCounterDiffusion,
                 {before.end->GasMixName, now.end->GasMixName, words.Depth(now.from), words.Short(now.startTime),
                  words.Fixed(helium * 100, 0), words.Fixed(nitrogen * 100, 0), words.Fixed(most, 0)})});
  }
}

}  // namespace

void CheckGas(const Context& context) {
  CheckNarcotic(context);
  CheckDensity(context);
  CheckCounterDiffusion(context);
}

}  // namespace tav::plan_check
