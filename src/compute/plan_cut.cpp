#include "compute/plan_cut.h"

namespace tav {

Single CreateNewWay(const ClassProfile& profile, Single time, std::int16_t row) {
  const Waypoint& end = profile.Row(row);
  if (end.Rate == 0) return end.Depth;
  return (time - end.RunTime + end.SegmentTime) * end.Rate + end.Depth - end.SegmentTime * end.Rate;
}

Waypoint CutRow(const ClassProfile& profile, Single time, std::int16_t row) {
  Waypoint cut = profile.Row(row);
  cut.Depth = CreateNewWay(profile, time, row);
  cut.RunTime = time;
  cut.StopDepth = 0;
  cut.StopTime = 0;
  cut.Status = RowStatus::kLeg;
  cut.SegmentTime = time - profile.GetRunTime(static_cast<std::int16_t>(row - 1));
  return cut;
}

}  // namespace tav
