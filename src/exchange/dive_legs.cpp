#include "exchange/dive_legs.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "compute/leg_expansion.h"
#include "exchange/polyline.h"
#include "exchange/si_units.h"
#include "model/units.h"

namespace tav {
namespace {

constexpr double kTolerance = 1;        // m: what legs may stray from the samples
constexpr double kLineTolerance = 0.3;  // m: the part of it for straight lines
constexpr double kStepTolerance = 0.6;  // m: the part for steps beside a line; what is left is for rounding
constexpr double kTenth = 0.1;          // of a depth unit: what depths are rounded to
constexpr double kRounding = 0.005;     // min: of the end of a leg
constexpr double kSurface = 1;          // m: what a gauge shows of a diver who is up

/// At least one; samples and rates bound it to some thousands.
int Steps(double parts) { return std::max(1, static_cast<int>(std::ceil(parts))); }

double Tenths(double depth) { return std::round(depth / kTenth) * kTenth; }

class LegMaker {
 public:
  LegMaker(const std::vector<LoggedDive::Sample>& samples, const std::vector<GasFrom>& gases,
           const DiveTemplate& diveTemplate)
      : gases_(gases), template_(diveTemplate), unit_(si::FromMetres(1, diveTemplate.Metric)) {
    points_.reserve(samples.size());
    for (const LoggedDive::Sample& sample : samples) points_.push_back({sample.minutes, sample.metres * unit_});
  }

  DiveLegs Run() {
    CutAtSurface();
    constexpr double kStep = 0.25;  // m
    points_ = FillGaps(points_, kStep * unit_);
    InsertChanges();
    std::vector<bool> keep(points_.size());
    keep.front() = keep.back() = true;
    for (const std::size_t change : changes_) keep[change] = true;
    std::size_t before = 0;
    for (std::size_t i = 1; i < points_.size(); ++i) {
      if (!keep[i]) continue;
      Simplify(points_, before, i, kLineTolerance * unit_, keep);
      before = i;
    }
    MakeLegs(keep);
    made_.endDepth = points_.back().depth;
    // Between two descents a leg stays under water: what is at the surface counts no time.
    for (LogLeg& leg : made_.legs) leg.depth = std::max(leg.depth, kTenth);
    JoinLegs();
    return std::move(made_);
  }

 private:
  /// The dive ends when the diver is up for good.
  void CutAtSurface() {
    std::size_t end = points_.size();
    while (end > 1 && points_[end - 1].depth <= kSurface * unit_) --end;
    if (end == points_.size()) return;
    points_.resize(end + 1);
    points_.back().depth = 0;
  }

  /// A change of gas is a point of its own.
  void InsertChanges() {
    std::vector<DivePoint> merged;
    merged.reserve(points_.size() + gases_.size());
    std::size_t next = 1;
    for (const DivePoint& point : points_) {
      for (; next < gases_.size() && gases_[next].minutes <= point.minutes; ++next) {
        const double minutes = gases_[next].minutes;
        if (merged.empty()) continue;
        changes_.push_back(merged.size());
        if (minutes < point.minutes) merged.push_back({minutes, DepthOn(merged.back(), point, minutes)});
      }
      merged.push_back(point);
    }
    points_ = std::move(merged);
  }

  [[nodiscard]] std::int16_t MixAt(double minutes) const {
    const auto later = [](double time, const GasFrom& gas) { return time < gas.minutes; };
    const auto next = std::upper_bound(gases_.begin(), gases_.end(), minutes, later);
    return next == gases_.begin() ? next->mix : (next - 1)->mix;
  }

  void MakeLegs(const std::vector<bool>& keep) {
    std::size_t from = 0;
    for (std::size_t to = 1; to < points_.size(); ++to) {
      if (!keep[to]) continue;
      AddLine(from, to);
      from = to;
    }
    FlushLevels(points_.size() - 1);
  }

  void AddLine(std::size_t from, std::size_t to) {
    const DivePoint& a = points_[from];
    const DivePoint& b = points_[to];
    const double time = b.minutes - a.minutes;
    const double move = TimesOfLeg({0, a.depth, 0, b.depth, 0}, template_).move;
    // The part of the time that the move of a leg takes; beyond 1 the template can't follow.
    const double part = time > 0 ? std::min(1.0, move / time) : 1;
    constexpr double kSlow = 0.4;
    const bool change = std::binary_search(changes_.begin(), changes_.end(), from);
    if (levelFrom_ && change) FlushLevels(from);
    if (part < kSlow) {
      if (!levelFrom_) levelFrom_ = from;
      return;
    }
    FlushLevels(from);
    // Each step runs ahead of the line by its stay; half of that is put behind the line.
    const double ahead = std::fabs(b.depth - a.depth) * (1 - part);
    const int steps = Steps(ahead / (2 * kStepTolerance * unit_));
    const double behind = (b.depth > a.depth ? 1 : -1) * ahead / steps / 2;
    // The last move to the surface is the ascent's.
    const bool surfaces = to + 1 == points_.size() && b.depth == 0;
    for (int step = 1; step <= (surfaces ? steps - 1 : steps); ++step) {
      AddLeg(a.minutes + time * step / steps, a.depth + (b.depth - a.depth) * step / steps - behind, MixAt(a.minutes));
    }
  }

  /// Legs for slow slopes and levels up to a point: each goes on while its samples lie within the tolerance of one
  /// depth.
  void FlushLevels(std::size_t to) {
    if (!levelFrom_) return;
    const std::size_t from = *levelFrom_;
    levelFrom_.reset();
    const std::int16_t mix = MixAt(points_[from].minutes);
    double least = points_[from].depth;
    double most = least;
    for (std::size_t i = from + 1; i <= to; ++i) {
      const double depth = points_[i].depth;
      if (std::max(most, depth) - std::min(least, depth) > 2 * kStepTolerance * unit_) {
        AddLeg(points_[i - 1].minutes, (least + most) / 2, mix);
        least = most = points_[i - 1].depth;
      }
      least = std::min(least, depth);
      most = std::max(most, depth);
    }
    AddLeg(points_[to].minutes, (least + most) / 2, mix);
  }

  /// To a tenth of a depth unit and a hundredth of a minute.
  void AddLeg(double end, double depth, std::int16_t mix) {
    const double last = made_.legs.empty() ? 0 : made_.legs.back().end;
    const LogLeg leg{std::round(end * 100) / 100, Tenths(depth), mix, 0};
    if (leg.end > last) made_.legs.push_back(leg);
  }

  /// Where the plan is at the end of a leg.
  struct State {
    Single time;
    Single depth;
  };

  /// How far a leg strays from the samples of its time, from one sample on. The first sample behind it and where the
  /// plan is then are told, too.
  double Follow(State& state, const LogLeg& leg, std::size_t& sample) const {
    ClassProfile rows;
    rows.Row(0).RunTime = state.time;
    rows.Row(0).Depth = state.depth;
    Leg planned{state.time, state.depth, std::max(leg.end, double{state.time}), leg.depth, 0};
    GetSegmentedProfile(planned, template_, rows);
    double deviation = 0;
    std::int16_t row = 1;
    for (; sample < points_.size() && points_[sample].minutes <= planned.endTime + kRounding; ++sample) {
      const DivePoint& point = points_[sample];
      while (row < rows.GetLength() && rows.GetRunTime(row) < point.minutes) ++row;
      const Waypoint& from = rows.Row(static_cast<std::int16_t>(row - 1));
      const Waypoint& to = rows.Row(row);
      const double depth = DepthOn({from.RunTime, from.Depth}, {to.RunTime, to.Depth}, point.minutes);
      deviation = std::max(deviation, std::fabs(depth - point.depth));
    }
    state = {planned.endTime, planned.targetDepth};
    return deviation;
  }

  /// One leg in place of two, at a depth that keeps within the tolerance; nothing when there is none.
  [[nodiscard]] std::optional<LogLeg> Joined(const State& state, const LogLeg& first, const LogLeg& second,
                                             std::size_t sample) const {
    constexpr std::size_t kMostSamples = 5000;  // of a leg: enough for any, and joining stays quick
    if (first.mix != second.mix) return std::nullopt;
    double least = second.depth;
    double most = second.depth;
    for (std::size_t i = sample; i < points_.size() && points_[i].minutes <= second.end + kRounding; ++i) {
      if (i - sample > kMostSamples) return std::nullopt;
      if (points_[i].minutes < first.end) continue;
      least = std::min(least, points_[i].depth);
      most = std::max(most, points_[i].depth);
    }
    for (const double depth : {std::max(kTenth, Tenths((least + most) / 2)), first.depth, second.depth}) {
      const LogLeg leg{second.end, depth, second.mix, 0};
      State end = state;
      std::size_t behind = sample;
      if (Follow(end, leg, behind) <= kTolerance * unit_) return leg;
    }
    return std::nullopt;
  }

  /// Joins legs as long as they keep within the tolerance, and holds what comes out against the samples.
  void JoinLegs() {
    const std::vector<LogLeg> legs = std::move(made_.legs);
    made_.legs.clear();
    State state;
    std::size_t sample = 0;
    for (std::size_t i = 0; i < legs.size();) {
      LogLeg leg = legs[i];
      for (++i; i < legs.size(); ++i) {
        const auto joined = Joined(state, leg, legs[i], sample);
        if (!joined) break;
        leg = *joined;
      }
      leg.minutes = std::max(0.0, leg.end - state.time);
      made_.legs.push_back(leg);
      made_.deviation = std::max(made_.deviation, Follow(state, leg, sample));
    }
  }

  const std::vector<GasFrom>& gases_;
  const DiveTemplate& template_;
  double unit_;  // depth units in a metre
  std::vector<DivePoint> points_;
  std::vector<std::size_t> changes_;  // points at which the gas changes
  std::optional<std::size_t> levelFrom_;
  DiveLegs made_;
};

}  // namespace

DiveLegs LegsOfSamples(const std::vector<LoggedDive::Sample>& samples, const std::vector<GasFrom>& gases,
                       const DiveTemplate& diveTemplate) {
  return LegMaker(samples, gases, diveTemplate).Run();
}

}  // namespace tav
