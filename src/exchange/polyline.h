#pragma once

#include <cstddef>
#include <vector>

namespace tav {

/// Where a diver is at a time.
struct DivePoint {
  double minutes = 0;
  double depth = 0;
};

/// The depth at a time on the straight line between two points.
double DepthOn(const DivePoint& from, const DivePoint& to, double minutes);

/// Marks the points to keep between two that are kept, by Douglas and Peucker: those from which the straight line
/// strays by more than the tolerance. Distance is that in depth.
void Simplify(const std::vector<DivePoint>& points, std::size_t first, std::size_t last, double tolerance,
              std::vector<bool>& keep);

/// The points with others on the lines between those that are more than `step` of depth apart, 100,000 in all at most.
std::vector<DivePoint> FillGaps(const std::vector<DivePoint>& points, double step);

}  // namespace tav
