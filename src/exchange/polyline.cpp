#include "exchange/polyline.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tav {

double DepthOn(const DivePoint& from, const DivePoint& to, double minutes) {
  if (to.minutes <= from.minutes) return to.depth;
  return from.depth + (to.depth - from.depth) * (minutes - from.minutes) / (to.minutes - from.minutes);
}

void Simplify(const std::vector<DivePoint>& points, std::size_t first, std::size_t last, double tolerance,
              std::vector<bool>& keep) {
  std::vector<std::pair<std::size_t, std::size_t>> open{{first, last}};
  while (!open.empty()) {
    const auto [from, to] = open.back();
    open.pop_back();
    double farthest = tolerance;
    std::size_t split = from;
    for (std::size_t i = from + 1; i < to; ++i) {
      const double distance = std::fabs(points[i].depth - DepthOn(points[from], points[to], points[i].minutes));
      if (distance <= farthest) continue;
      farthest = distance;
      split = i;
    }
    if (split == from) continue;
    keep[split] = true;
    open.emplace_back(from, split);
    open.emplace_back(split, to);
  }
}

std::vector<DivePoint> FillGaps(const std::vector<DivePoint>& points, double step) {
  constexpr std::size_t kMostPoints = 100000;
  constexpr double kMostParts = 2500;  // of the deepest depth that a log may tell, in quarters of a metre, and more
  std::vector<DivePoint> filled;
  filled.reserve(points.size());
  for (const DivePoint& point : points) {
    const DivePoint from = filled.empty() ? point : filled.back();
    const double apart = std::min(kMostParts, std::fabs(point.depth - from.depth) / step);
    const int parts = static_cast<int>(std::ceil(apart));
    if (point.minutes > from.minutes && filled.size() < kMostPoints) {
      for (int part = 1; part < parts; ++part) {
        const double minutes = from.minutes + (point.minutes - from.minutes) * part / parts;
        filled.push_back({minutes, DepthOn(from, point, minutes)});
      }
    }
    filled.push_back(point);
  }
  return filled;
}

}  // namespace tav
