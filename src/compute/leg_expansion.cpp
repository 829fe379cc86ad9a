#include "compute/leg_expansion.h"

namespace tav {
namespace {

/// Appends the pieces of one leg, keeping the depth, the time and the run time reached.
class Expansion {
 public:
  Expansion(Leg& leg, const DiveTemplate& diveTemplate, ClassProfile& profile)
      : leg_(leg),
        template_(diveTemplate),
        profile_(profile),
        depth_(leg.startDepth),
        time_(leg.startTime),
        runTime_(leg.startTime) {}

  void Level() { Append(leg_.targetDepth, leg_.endTime - leg_.startTime, 0, RowStatus::kLeg); }

  void Ascend() {
    const auto& bands = template_.AscendRates;
    for (auto band = bands.rbegin(); band != bands.rend(); ++band) {
      if (depth_ <= band->Depth) continue;
      if (leg_.targetDepth > band->Depth) {
        Move(leg_.targetDepth, depth_ - leg_.targetDepth, -band->Rate, RowStatus::kLeg);
        FinishNotBefore(time_);
        Append(leg_.targetDepth, leg_.endTime - time_, 0, RowStatus::kLeg);
        return;
      }
      if (leg_.targetDepth < bands.front().Depth) leg_.targetDepth = bands.front().Depth;
      Move(band->Depth, depth_ - band->Depth, -band->Rate, RowStatus::kAscentBand);
    }
    // The move ended on the shallowest limit, which is the target. No level row follows: what is left of the leg's time
    // is not spent.
    FinishNotBefore(time_);
  }

  void Descend() {
    const auto& bands = template_.DescendRates;
    std::size_t next = 0;
    for (; next < bands.size() && !(depth_ < bands[next].Depth && leg_.targetDepth <= bands[next].Depth); ++next) {
      if (depth_ >= bands[next].Depth) continue;
      Move(bands[next].Depth, bands[next].Depth - depth_, bands[next - 1].Rate, RowStatus::kDescentBand);
    }
    Move(leg_.targetDepth, leg_.targetDepth - depth_, bands[next - 1].Rate, RowStatus::kLeg);
    FinishNotBefore(time_);
    if (time_ != leg_.endTime) Append(leg_.targetDepth, leg_.endTime - time_, 0, RowStatus::kLeg);
  }

 private:
  void FinishNotBefore(Single time) {
    if (leg_.endTime < time) leg_.endTime = time;
  }

  void Move(Single to, Single distance, Single rate, std::int16_t status) {
    const Single finish = time_ + distance / (rate < 0 ? -rate : double{rate});
    Append(to, finish - time_, rate, status);
    depth_ = to;
    time_ = finish;
  }

  void Append(Single depth, Single segmentTime, Single rate, std::int16_t status) {
    SaveUserProfile(profile_, template_, depth, segmentTime, rate, runTime_, status, leg_.mix);
    runTime_ += segmentTime;
  }

  Leg& leg_;
  const DiveTemplate& template_;
  ClassProfile& profile_;
  Single depth_;
  Single time_;
  Single runTime_;
};

}  // namespace

void GetSegmentedProfile(Leg& leg, const DiveTemplate& diveTemplate, ClassProfile& profile) {
  Expansion expansion(leg, diveTemplate, profile);
  if (leg.targetDepth == leg.startDepth) {
    expansion.Level();
  } else if (leg.targetDepth < leg.startDepth) {
    expansion.Ascend();
  } else {
    expansion.Descend();
  }
}

LegTimes TimesOfLeg(Leg leg, const DiveTemplate& diveTemplate) {
  ClassProfile rows;
  GetSegmentedProfile(leg, diveTemplate, rows);
  LegTimes times;
  for (std::int16_t i = 1; i <= rows.GetLength(); ++i) {
    (rows.GetRate(i) == 0 ? times.level : times.move) += rows.GetSegmentTime(i);
  }
  return times;
}

void SaveUserProfile(ClassProfile& profile, const DiveTemplate& diveTemplate, Single depth, Single segmentTime,
                     Single rate, Single startTime, std::int16_t status, std::int16_t mix) {
  const GasMix& gas = diveTemplate.Blends.at(static_cast<std::size_t>(mix));
  profile.NewWayPoint();
  Waypoint& row = profile.Row(profile.GetLength());
  row.Depth = depth;
  row.SegmentTime = segmentTime;
  row.Rate = rate;
  row.RunTime = startTime + segmentTime;
  row.MixNumber = mix;
  row.Status = status;
  row.GasMixO2 = gas.O2;
  row.GasMixN2 = gas.N2;
  row.GasMixHe = gas.He;
  row.GasMixName = gas.Name;
}

}  // namespace tav
