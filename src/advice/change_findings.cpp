#include <algorithm>
#include <cmath>

#include "advice/plan_check.h"
#include "engine/breathing_gas.h"
#include "model/numbers.h"
#include "model/text_id.h"

namespace tav::plan_check {
namespace {

const double kWithinRounding = RoundSingle(0.02, 2);

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
        Add(Rule::ChangeUnknown, *change, words_.T(Text::ChangeToUnknown, {change->Name, words_.Depth(change->Depth)}));
        continue;
      }
      if (!CheckHidden(*change)) CheckSkipped(*change);
      CheckDepth(*change, settings_.Blends[static_cast<std::size_t>(*mix)]);
    }
  }

 private:
  /// The ascent takes the first entry at or below its depth.
  [[nodiscard]] bool CheckHidden(const GasChange& change) const {
    const auto hides = [&](const GasChange* other) {
      return other->Depth >= change.Depth && FindBlend(other->Name, settings_);
    };
    const auto self = std::ranges::find(entries_, &change);
    const auto hider = std::find_if(entries_.begin(), self, hides);
    if (hider == self) return false;
    const GasChange& other = **hider;
    Add(Rule::ChangeHidden, change,
        words_.T(other.Depth == change.Depth ? Text::ChangeHiddenAtDepth : Text::ChangeHidden,
                 {change.Name, words_.Depth(change.Depth), other.Name, words_.Depth(other.Depth), MendingOrder()}));
    return true;
  }

  /// The ascent changes its gas where it begins and at the depths of possible stops: an entry that lies above them all,
  /// or whose depths up to the next of them an earlier entry takes, is never looked at.
  void CheckSkipped(const GasChange& change) const {
    Single taken = -1.0;  // by entries ahead of it
    for (const GasChange* other : entries_) {
      if (other == &change) break;
      if (FindBlend(other->Name, settings_)) taken = std::max(taken, other->Depth);
    }
    const Single start = context_.dive.rows.getDepth(context_.dive.lastUserRow);
    if (start > taken && start <= change.Depth) return;
    const double next = NextStopBelow(taken);
    if (next <= change.Depth) return;
    const bool aboveLast = change.Depth < settings_.LastStop && taken < settings_.LastStop;
    Add(Rule::ChangeSkipped, change,
        words_.T(aboveLast ? Text::ChangeAboveLastStop : Text::ChangeBetweenStops,
                 {change.Name, words_.Depth(change.Depth), words_.Depth(next)}));
  }

  /// The shallowest possible stop that is deeper than a depth.
  [[nodiscard]] double NextStopBelow(Single depth) const {
    double stop = settings_.LastStop;
    if (!(stop > 0)) stop = settings_.StepSize;
    if (stop > depth) return stop;
    stop = (std::floor(depth / settings_.StepSize) + 1) * settings_.StepSize;
    return stop;
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

  [[nodiscard]] double PPO2At(Single depth, double fraction) const {
    return RoundSingle(PPO2AtDepth(depth, settings_.EndPressure, fraction, settings_.Metric), 2);
  }
  /// Over the limit of stops.
  [[nodiscard]] double ExcessAt(Single depth, double fraction) const {
    return RoundSingle(PPO2At(depth, fraction) - settings_.DecoPPO2, 2);
  }

  void CheckDepth(const GasChange& change, const GasMix& mix) const {
    const double fraction = mix.O2 / 100;
    const double excess = ExcessAt(change.Depth, fraction);
    if (excess <= kWithinRounding) return;
    const double ppo2 = PPO2At(change.Depth, fraction);
    double deepest = std::floor(double{change.Depth});
    while (deepest > 0 && ExcessAt(deepest, fraction) > kWithinRounding) --deepest;
    // Above the last stop it would never be taken.
    const bool somewhere = deepest > 0 && deepest >= settings_.LastStop;
    Add(Rule::ChangeHyperoxic, change,
        words_.T(somewhere ? Text::ChangeTooDeep : Text::ChangeTooRich,
                 {change.Name, words_.Depth(change.Depth), words_.PPO2(ppo2), words_.Fixed(excess, 2),
                  words_.Fixed(settings_.DecoPPO2, 2), words_.Depth(deepest)}));
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
