#pragma once

#include <optional>
#include <vector>

#include "compute/breathed_gas.h"

namespace tav::plan_check {

/// Where a segment is at its worst, and by how much: the more, the worse.
struct Peak {
  double excess = 0;
  double value = 0;
  Single depth;
  Single time;  ///< run time
};

/// Segments on one gas, one after the other, that all break a rule.
struct Stretch {
  std::int16_t first = 0;
  std::int16_t last = 0;
  const BreathedSegment* worst = nullptr;
  Peak peak;
};

/// The stretches of a dive by a rule: `judge` gives the peak of a segment that breaks it, and nothing else.
template <class Judge>
std::vector<Stretch> Stretches(const std::vector<BreathedSegment>& segments, Judge judge) {
  std::vector<Stretch> stretches;
  const BreathedSegment* before = nullptr;
  for (const BreathedSegment& segment : segments) {
    const std::optional<Peak> peak = judge(segment);
    if (peak) {
      const bool goesOn = before != nullptr && !stretches.empty() && stretches.back().last + 1 == segment.row &&
                          before->end->GasMixName == segment.end->GasMixName;
      if (!goesOn) stretches.push_back({segment.row, segment.row, &segment, *peak});
      Stretch& stretch = stretches.back();
      stretch.last = segment.row;
      if (peak->excess > stretch.peak.excess) {
        stretch.worst = &segment;
        stretch.peak = *peak;
      }
    }
    before = &segment;
  }
  return stretches;
}

}  // namespace tav::plan_check
