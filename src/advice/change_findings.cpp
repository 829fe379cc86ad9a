#include <algorithm>
#include <cmath>

#include "advice/plan_check.h"
#include "engine/breathing_gas.h"
#include "model/numbers.h"

namespace tav::plan_check {
namespace {

constexpr int kHidden = 7613;
constexpr int kHiddenAtSameDepth = 7614;
constexpr int kUnknown = 7615;
constexpr int kTooDeep = 7616;

class ChangeList {
 public:
  explicit ChangeList(const Context& context)
      : context_(context), words_(context.words), settings_(context.dive.settings) {
    for (const GasChange& change : settings_.ChangeGasMixes) {
      // A list whose last entry was taken away keeps a blank one.
      if (!change.Name.empty()) entries_.push_back(&change);
    }
  }

  void Check() const {
    for (const GasChange* change : entries_) {
      const auto mix = FindBlend(change->Name, settings_);
      if (!mix) {
        Add(Rule::ChangeUnknown, *change, words_.T(kUnknown, {change->Name, words_.Depth(change->Depth)}));
        continue;
      }
      CheckHidden(*change);
      CheckDepth(*change, settings_.Blends[static_cast<std::size_t>(*mix)]);
    }
  }

 private:
  /// The ascent takes the first entry at or below its depth.
  void CheckHidden(const GasChange& change) const {
    const auto hides = [&](const GasChange* other) {
      return other->Depth >= change.Depth && FindBlend(other->Name, settings_);
    };
    const auto self = std::ranges::find(entries_, &change);
    const auto hider = std::find_if(entries_.begin(), self, hides);
    if (hider == self) return;
    const GasChange& other = **hider;
    Add(Rule::ChangeHidden, change,
        words_.T(other.Depth == change.Depth ? kHiddenAtSameDepth : kHidden,
                 {change.Name, words_.Depth(change.Depth), other.Name, words_.Depth(other.Depth), MendingOrder()}));
  }

  /// The entries by rising depth: "Oxygen 6 m, EAN50 21 m".
  [[nodiscard]] std::string MendingOrder() const {
    std::vector<const GasChange*> order = entries_;
    std::ranges::stable_sort(order, {}, [](const GasChange* change) { return double{change->Depth}; });
    std::string text;
    for (const GasChange* change : order) {
      text += (text.empty() ? "" : ", ") + change->Name + " " + words_.Depth(change->Depth);
    }
    return text;
  }

  void CheckDepth(const GasChange& change, const GasMix& mix) const {
    constexpr double kWithinRounding = 0.02;
    const double fraction = mix.O2 / 100;
    const double ppo2 = RoundSingle(PPO2AtDepth(change.Depth, settings_.EndPressure, fraction, settings_.Metric), 2);
    const double excess = RoundSingle(ppo2 - settings_.DecoPPO2, 2);
    if (excess <= RoundSingle(kWithinRounding, 2)) return;
    const double deepest =
        std::floor((settings_.DecoPPO2 / fraction - settings_.EndPressure) * DepthPerPressure(settings_.Metric));
    Add(Rule::ChangeHyperoxic, change,
        words_.T(kTooDeep, {change.Name, words_.Depth(change.Depth), words_.PPO2(ppo2), words_.Fixed(excess, 2),
                            words_.Fixed(settings_.DecoPPO2, 2), words_.Depth(std::max(deepest, 0.0))}));
  }

  /// The rows are those of the ascent from the depth of the change on.
  void Add(Rule rule, const GasChange& change, std::string text) const {
    const auto& segments = context_.segments;
    const auto first = std::ranges::find_if(segments, [&](const BreathedSegment& segment) {
      return segment.row > context_.dive.lastUserRow && segment.from <= change.Depth;
    });
    const bool any = first != segments.end();
    context_.findings.push_back({rule, Severity::Caution, any ? first->row : std::int16_t{0},
                                 any ? segments.back().row : std::int16_t{0}, std::move(text)});
  }

  const Context& context_;
  const AdviceWords& words_;
  const DiveTemplate& settings_;
  std::vector<const GasChange*> entries_;
};

}  // namespace

void CheckChanges(const Context& context) { ChangeList(context).Check(); }

}  // namespace tav::plan_check
