#include "supply/bailout_need.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "compute/breathed_gas.h"
#include "compute/compute_profile.h"
#include "compute/plan_cut.h"
#include "engine/breathing_gas.h"

namespace tav {
namespace {

class WaysOut {
 public:
  WaysOut(const PlannedDive& dive, Single minutes)
      : settings_(dive.record.Template),
        rows_(dive.plan.rows),
        minutes_(minutes),
        openFrom_(FirstOpenRow(rows_, settings_)),
        run_{settings_, dive.plan.model, dive.before, dive.record.SurfaceInterval, false, true, openFrom_},
        ways_(run_, rows_) {}

  BailOutNeeds At(Single time) {
    std::int16_t row = 1;
    while (row < rows_.GetLength() && rows_.GetRunTime(row) < time) ++row;
    Leave(row, time);
    return std::move(needs_);
  }

  BailOutNeeds All() {
    constexpr double kMostMoments = 3000;
    const Single end = rows_.GetRunTime(rows_.GetLength());
    const double step = std::max(1.0, std::ceil(end / kMostMoments));
    std::int16_t row = 1;
    const auto moments = static_cast<int>(std::floor(end / step));
    for (int moment = 1; moment <= moments; ++moment) {
      const double time = moment * step;
      while (rows_.GetRunTime(row) < time) ++row;
      Leave(row, time);
    }
    if (rows_.getDepth(rows_.GetLength()) > 0) Leave(rows_.GetLength(), end);
    return std::move(needs_);
  }

 private:
  void Leave(std::int16_t row, Single time) {
    const Single depth = CutRow(rows_, time, row).Depth;
    if (!(depth > 0) || row >= openFrom_) return;
    const std::int16_t mix = OpenMixAt(depth, row);
    const std::optional<ClassProfile> way = ways_.FromMoment(row, time, minutes_, mix);
    if (!way) {
      if (!needs_.neverUp) needs_.neverUp = time;
      return;
    }
    std::vector<BailOutNeed> asked;
    const auto of = [&](const std::string& gas) -> BailOutNeed& {
      const auto known = std::ranges::find(asked, gas, &BailOutNeed::gas);
      return known != asked.end() ? *known : asked.emplace_back(BailOutNeed{gas, time, depth, row, 0, 0});
    };
    if (minutes_ > 0) {
      // Gas is counted at the depth that the plan is computed on.
      const double ambient =
          settings_.StartPressure + AdjustedDepth(depth, settings_) / DepthPerPressure(settings_.Metric);
      of(settings_.Blends[static_cast<std::size_t>(mix)].Name).sorting = minutes_ * ambient;
    }
    const Single surface = settings_.EndPressure;
    for (auto i = static_cast<std::int16_t>(minutes_ > 0 ? 3 : 2); i <= way->GetLength(); ++i) {
      const Waypoint& piece = way->Row(i);
      const Single from = way->getDepth(static_cast<std::int16_t>(i - 1));
      of(piece.GasMixName).ascent += piece.Rate == 0
                                         ? GasUsedAtDepth(piece.Depth, piece.SegmentTime, 1, surface, settings_.Metric)
                                         : GasUsedOnRamp(from, piece.Depth, piece.Rate, 1, surface, settings_.Metric);
    }
    for (const BailOutNeed& need : asked) Keep(need);
    const double minutesUp = way->GetRunTime(way->GetLength()) - time;
    if (minutesUp > minutesUp_) {
      minutesUp_ = minutesUp;
      needs_.longest = time;
    }
  }

  /// The gas that a way up begins with: the first of the change list that is for the depth, else that of the row.
  [[nodiscard]] std::int16_t OpenMixAt(Single depth, std::int16_t row) const {
    for (const GasChange& change : settings_.ChangeGasMixes) {
      if (depth > change.Depth) continue;
      if (const auto mix = FindBlend(change.Name, settings_)) return *mix;
    }
    return rows_.Row(row).MixNumber;
  }

  void Keep(const BailOutNeed& need) {
    const auto known = std::ranges::find(needs_.gases, need.gas, &BailOutNeed::gas);
    if (known == needs_.gases.end()) {
      needs_.gases.push_back(need);
    } else if (need.All() > known->All()) {
      *known = need;
    }
  }

  const DiveTemplate& settings_;
  const ClassProfile& rows_;
  Single minutes_;
  std::int16_t openFrom_;
  EngineRun run_;
  WaysUp ways_;
  BailOutNeeds needs_;
  double minutesUp_ = 0;
};

}  // namespace

std::vector<DearMinute> BailOutNeeds::Minutes() const {
  std::vector<DearMinute> minutes;
  const auto at = [&](Single moment) -> DearMinute& {
    const auto known = std::ranges::find(minutes, moment, &DearMinute::moment);
    return known != minutes.end() ? *known : minutes.emplace_back(DearMinute{moment, false, false, {}});
  };
  if (neverUp) at(*neverUp).neverUp = true;
  if (longest) at(*longest).longest = true;
  for (const BailOutNeed& need : gases) at(need.moment).gases.push_back(need.gas);
  return minutes;
}

BailOutNeeds BailOutNeedsOf(const PlannedDive& dive, Single minutes, std::optional<Single> only) {
  if (dive.record.Template.OpenCircuit || dive.plan.rows.GetLength() == 0 || !dive.plan.fault.IsEmpty()) return {};
  try {
    WaysOut ways(dive, minutes);
    return only ? ways.At(*only) : ways.All();
  } catch (const std::length_error&) {
    return {};
  }
}

}  // namespace tav
