#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "advice/loads_within.h"
#include "advice/passing.h"
#include "advice/plan_check.h"
#include "engine/compartment_kernels.h"
#include "engine/vpm.h"
#include "model/text_id.h"

namespace tav::plan_check {
namespace {

std::int16_t Next(std::int16_t n) { return static_cast<std::int16_t>(n + 1); }

/// Rows that lie above a ceiling, one after the other.
struct Breach {
  int leg;
  std::int16_t first;
  std::int16_t last;
  double since;     ///< run time
  double crossing;  ///< depth at which the way leads through the ceiling
  double excess;    ///< at its most, depth units
  Single depth;     ///< where it is at its most
  double ceiling;
};

/// The breaches of one ceiling.
class BreachFinder {
 public:
  /// The next row of a dive; `leg` is 0 for a row of a computed ascent, which never goes above its ceiling.
  /// `ceilingAt(share)` is the ceiling after a share of its time.
  template <class CeilingAt>
  void Add(int leg, std::int16_t row, const Waypoint& before, const Waypoint& end, double ceiling,
           CeilingAt ceilingAt) {
    constexpr double kNoise = 0.05;  // half of what a depth is shown to
    const double excess = ceiling - end.Depth;
    const double former = std::exchange(excess_, excess);
    if (leg == 0 || !(excess > kNoise)) {
      open_ = false;
      return;
    }
    if (!std::exchange(open_, true)) {
      const auto below = [&](double share) {
        return before.Depth + (end.Depth - before.Depth) * share - ceilingAt(share);
      };
      const Passing passing = former < 0 ? PassingIn(before, end, 0, [&](double share) { return -below(share); })
                                         : Passing{before.RunTime, before.Depth};
      found_.push_back({leg, row, row, passing.time, passing.depth, excess, end.Depth, ceiling});
    }
    Breach& breach = found_.back();
    breach.last = row;
    if (excess > breach.excess) {
      breach.excess = excess;
      breach.depth = end.Depth;
      breach.ceiling = ceiling;
    }
  }
  [[nodiscard]] const std::vector<Breach>& Found() const { return found_; }

 private:
  std::vector<Breach> found_;
  bool open_ = false;
  double excess_ = 0;  // of the row before; negative below the ceiling
};

class Ceilings {
 public:
  explicit Ceilings(const Context& context) : context_(context), dive_(context.dive) {}

  void Check() {
    const ClassUseractions& actions = dive_.planned.record.UserActions;
    int legs = 0;
    for (std::int16_t n = 1; n <= actions.GetLength(); ++n) {
      const bool isLeg = actions.getaction(n) == ClassUseractions::kLeg;
      if (isLeg) ++legs;
      const std::int16_t last = dive_.planned.plan.LastRowOf(n);
      for (std::int16_t row = Next(dive_.planned.plan.LastRowOf(static_cast<std::int16_t>(n - 1))); row <= last;
           ++row) {
        Add(isLeg ? legs : 0, row);
      }
    }
    std::vector<Breach> ofFactors = ofFactors_.Found();
    for (Breach breach : ofModel_.Found()) {
      // Above both ceilings the graver word is the one that is told, and the depth that keeps to both.
      std::erase_if(ofFactors, [&](const Breach& milder) {
        const bool same = milder.first <= breach.last && milder.last >= breach.first;
        if (same) breach.crossing = std::max(breach.crossing, milder.crossing);
        return same;
      });
      Tell(breach, Severity::Danger, Text::LegAboveCeiling);
    }
    for (const Breach& breach : ofFactors) Tell(breach, Severity::Caution, Text::LegAboveCeilingOfGF);
  }

 private:
  void Add(int leg, std::int16_t row) {
    const Waypoint& end = dive_.rows.Row(row);
    deepest_ = std::max(deepest_, end.Depth);
    const Waypoint& before = dive_.Before(row);
    const auto within = [&](double share) {
      return LoadsWithin(context_.segments[static_cast<std::size_t>(row) - 1], before, share, dive_.settings);
    };
    const Loads loads{end.HeCompartments, end.N2Compartments};
    ofModel_.Add(leg, row, before, end, CeilingOfModel(loads),
                 [&](double share) { return CeilingOfModel(within(share)); });
    if (dive_.settings.UseGF && !dive_.model.VPMMode) {
      ofFactors_.Add(leg, row, before, end, CeilingOfTable(loads, dive_.settings.GFLow),
                     [&](double share) { return CeilingOfTable(within(share), dive_.settings.GFLow); });
    }
  }

  [[nodiscard]] double Surface() const { return dive_.settings.EndPressure * DepthPerPressure(dive_.settings.Metric); }

  [[nodiscard]] double CeilingOfTable(const Loads& loads, double factor) const {
    return kernels_.DeepestCeiling(loads, mValues_, factor, Surface());
  }

  /// That of ZH-L16 with the M-values themselves, as rows of the plan hold it. For the bubble model they hold one
  /// without its over-pressure, which is known only when the ascent begins; here it is that of the deepest depth so
  /// far.
  [[nodiscard]] double CeilingOfModel(const Loads& loads) const {
    const DiveTemplate& t = dive_.settings;
    double ceiling = dive_.model.VPMMode ? 0 : CeilingOfTable(loads, 1.0);
    if (dive_.model.VPMMode || dive_.model.HybridMode) {
      const double gradient = VPMGradient(deepest_, t.EndPressure, t.Metric);
      ceiling = std::max(ceiling, kernels_.LargestLoad(loads) - gradient - Surface());
    }
    return std::max(ceiling, 0.0);
  }

  void Tell(const Breach& breach, Severity severity, int text) const {
    const AdviceWords& words = context_.words;
    const DiveTemplate& t = dive_.settings;
    context_.findings.push_back(
        {Rule::AboveCeiling, severity, breach.first, breach.last,
         words.T(text, {std::to_string(breach.leg), words.Depth(breach.depth), words.Depth(breach.ceiling),
                        words.Depth(breach.excess), words.Short(breach.since), words.Depth(std::ceil(breach.crossing)),
                        words.Fixed(t.GFLow * 100, 0)}),
         breach.excess});
  }

  const Context& context_;
  const CheckedDive& dive_;
  const CompartmentKernels& kernels_ = BestKernels();
  MValueCoefficients mValues_ = MValuesOf(dive_.settings.Metric, dive_.model.ZHL16C);
  Single deepest_;
  BreachFinder ofModel_;
  BreachFinder ofFactors_;
};

}  // namespace

void CheckCeilings(const Context& context) { Ceilings(context).Check(); }

}  // namespace tav::plan_check
