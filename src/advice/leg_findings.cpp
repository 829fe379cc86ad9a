#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "advice/plan_check.h"
#include "engine/compartment_kernels.h"
#include "engine/vpm.h"

namespace tav::plan_check {
namespace {

constexpr int kAboveCeiling = 7617;
constexpr int kDoesNotDecompress = 7618;
constexpr int kLengthened = 7619;
constexpr int kAtSurface = 7620;
constexpr int kCNSHigh = 7621;
constexpr int kCNSBeyond = 7622;
constexpr int kOTU = 7623;

std::int16_t Next(std::int16_t n) { return static_cast<std::int16_t>(n + 1); }

class Legs {
 public:
  explicit Legs(const Context& context) : context_(context), words_(context.words), dive_(context.dive) {}

  void Check() {
    const ClassUseractions& actions = dive_.window.UserActions;
    int leg = 0;
    for (std::int16_t n = 1; n <= actions.GetLength(); ++n) {
      const bool isLeg = actions.getaction(n) == ClassUseractions::kLeg;
      if (isLeg) ++leg;
      const std::int16_t first = Next(dive_.window.LastRowOf(static_cast<std::int16_t>(n - 1)));
      const std::int16_t last = dive_.window.LastRowOf(n);
      for (std::int16_t row = first; row <= last; ++row) NoteDepth(row, isLeg ? leg : 0);
      if (!isLeg || last < first) continue;
      CheckLength(leg, first, last, actions.gettime(n));
      if (actions.getDepth(n) == 0) {
        Add(Rule::LegAtSurface, Severity::Note, first, last,
            words_.T(kAtSurface, {std::to_string(leg), words_.Short(actions.gettime(n))}));
      }
    }
    CloseCeiling();
  }

 private:
  void Add(Rule rule, Severity severity, std::int16_t first, std::int16_t last, std::string text) {
    context_.findings.push_back({rule, severity, first, last, std::move(text)});
  }

  /// Rows that lie above the ceiling, one after the other.
  struct Breach {
    int leg;
    std::int16_t first;
    std::int16_t last;
    double since;   // run time
    double excess;  // depth units
    Single depth;
    double ceiling;
  };

  /// The ceiling at the end of a row, depth units. Rows of the plan hold that of ZH-L16 with the M-values themselves.
  /// For the bubble model they hold one without its over-pressure, which is known only when the ascent begins; here it
  /// is that of the deepest depth so far.
  [[nodiscard]] double CeilingAt(std::int16_t row) const {
    const Waypoint& end = dive_.rows.Row(row);
    if (!dive_.model.VPMMode && !dive_.model.HybridMode) return end.Ceiling;
    const DiveTemplate& t = dive_.settings;
    const CompartmentKernels& kernels = BestKernels();
    const Loads loads{end.HeCompartments, end.N2Compartments};
    const double surface = t.EndPressure * DepthPerPressure(t.Metric);
    const double bubbles = kernels.LargestLoad(loads) - VPMGradient(deepest_, t.EndPressure, t.Metric) - surface;
    const double table =
        dive_.model.VPMMode ? 0 : kernels.DeepestCeiling(loads, MValuesOf(t.Metric, dive_.model.ZHL16C), 1.0, surface);
    return std::max({bubbles, table, 0.0});
  }

  /// `leg` is 0 for a row of a computed ascent, which never goes above its ceiling.
  void NoteDepth(std::int16_t row, int leg) {
    constexpr double kNoise = 0.05;  // half of what a depth is shown to
    const Waypoint& end = dive_.rows.Row(row);
    deepest_ = std::max(deepest_, end.Depth);
    const double ceiling = CeilingAt(row);
    const double excess = ceiling - end.Depth;
    const double before = std::exchange(excess_, excess);
    if (leg == 0 || !(excess > kNoise)) {
      CloseCeiling();
      return;
    }
    if (!breach_) {
      // Depth and ceiling both move; in the middle of a segment they are taken as straight lines.
      const double start = dive_.Before(row).RunTime;
      const double share = before < 0 ? before / (before - excess) : 0;
      breach_ = Breach{leg, row, row, start + share * (end.RunTime - start), excess, end.Depth, ceiling};
    }
    breach_->last = row;
    if (excess > breach_->excess) {
      breach_->excess = excess;
      breach_->depth = end.Depth;
      breach_->ceiling = ceiling;
    }
  }

  void CloseCeiling() {
    if (!breach_) return;
    Add(Rule::AboveCeiling, Severity::Danger, breach_->first, breach_->last,
        words_.T(kAboveCeiling, {std::to_string(breach_->leg), words_.Depth(breach_->depth),
                                 words_.Depth(breach_->ceiling), words_.Depth(breach_->excess),
                                 words_.Short(breach_->since), words_.Depth(std::ceil(breach_->ceiling))}));
    breach_.reset();
  }

  void CheckLength(int leg, std::int16_t first, std::int16_t last, Single asked) {
    constexpr double kShown = 0.05;  // half of what minutes are shown to
    double move = 0;
    for (std::int16_t row = first; row <= last; ++row) {
      const Waypoint& end = dive_.rows.Row(row);
      if (end.Rate != 0) move += std::fabs((end.Depth - dive_.Before(row).Depth) / end.Rate);
    }
    if (!(move - asked > kShown)) return;
    Add(Rule::LegLengthened, Severity::Note, first, last,
        words_.T(kLengthened, {std::to_string(leg), words_.Depth(dive_.rows.getDepth(last)), words_.Short(move),
                               words_.Short(asked)}));
  }

  const Context& context_;
  const AdviceWords& words_;
  const CheckedDive& dive_;
  Single deepest_;
  double excess_ = 0;  // of the row before; negative below the ceiling
  std::optional<Breach> breach_;
};

void CheckDecompression(const Context& context) {
  if (context.dive.decompresses) return;
  const ClassProfile& rows = context.dive.rows;
  std::int16_t stop = rows.GetLength();
  // The stop that hit the limit lasted longest by far.
  for (std::int16_t i = 1; i <= rows.GetLength(); ++i) {
    if (rows.GetStatus(i) == RowStatus::kStop && rows.getStopTime(i) > rows.getStopTime(stop)) stop = i;
  }
  const AdviceWords& words = context.words;
  context.findings.push_back(
      {Rule::DoesNotDecompress, Severity::Danger, stop, stop,
       words.T(kDoesNotDecompress, {words.Depth(rows.getDepth(stop)), rows.GetGasMixName(stop)})});
}

/// CNS: the single-exposure limits of the NOAA Diving Manual are 100 %; 80 % is the usual margin. OTU: 300 a day is
/// what R. Hamilton's REPEX allows on dives of many days.
void CheckDoses(const Context& context) {
  constexpr double kCNSMargin = 0.8;
  constexpr double kCNSLimit = 1.0;
  constexpr double kOTUADay = 300;
  const ClassProfile& rows = context.dive.rows;
  const AdviceWords& words = context.words;
  const std::int16_t last = rows.GetLength();
  const auto firstAbove = [&](auto dose, double limit) {
    std::int16_t row = 1;
    while (row < last && dose(rows.Row(row)) < limit) ++row;
    return row;
  };
  const auto cns = [](const Waypoint& row) { return double{row.TotalCNS}; };
  const auto otu = [](const Waypoint& row) { return double{row.TotalOTU}; };
  if (cns(rows.Row(last)) >= kCNSMargin) {
    const bool danger = cns(rows.Row(last)) >= kCNSLimit;
    const std::int16_t first = firstAbove(cns, danger ? kCNSLimit : kCNSMargin);
    context.findings.push_back({Rule::CNS, danger ? Severity::Danger : Severity::Caution, first, last,
                                words.T(danger ? kCNSBeyond : kCNSHigh,
                                        {words.Fixed(cns(rows.Row(last)) * 100, 0), words.Short(rows.GetRunTime(first)),
                                         words.Depth(rows.getDepth(first)), rows.GetGasMixName(first)})});
  }
  if (otu(rows.Row(last)) >= kOTUADay) {
    const std::int16_t first = firstAbove(otu, kOTUADay);
    context.findings.push_back({Rule::OTU, Severity::Caution, first, last,
                                words.T(kOTU, {words.Fixed(otu(rows.Row(last)), 0), words.Short(rows.GetRunTime(first)),
                                               words.Depth(rows.getDepth(first)), rows.GetGasMixName(first)})});
  }
}

}  // namespace

void CheckLegs(const Context& context) {
  Legs(context).Check();
  CheckDecompression(context);
  CheckDoses(context);
}

}  // namespace tav::plan_check
