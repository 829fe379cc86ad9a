#include "graph/overlay_line.h"

#include <algorithm>
#include <cmath>

#include "picture/graph_colours.h"

namespace tav {

void DrawOverlayLine(DrawingSurface& grid, const GraphScale& scale, const std::vector<PlotPoint>& line) {
  constexpr double kDash = 120;  // drawing units
  constexpr double kGap = 75;
  double at = 0;  // within dash and gap, so that the dashes go on around corners
  for (std::size_t i = 1; i < line.size(); ++i) {
    const ScreenPoint from = scale.WorldToScreen(line[i - 1].runTime, -line[i - 1].depth);
    const ScreenPoint to = scale.WorldToScreen(line[i].runTime, -line[i].depth);
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    for (double done = 0; done < length;) {
      const bool dash = at < kDash;
      const double piece = std::min((dash ? kDash : kDash + kGap) - at, length - done);
      const auto point = [&](double along) {
        return ScreenPoint{from.x + (to.x - from.x) * along / length, from.y + (to.y - from.y) * along / length};
      };
      const ScreenPoint start = point(done);
      if (start.x > scale.PlotRight) return;  // a dive that never ends would have no end of dashes
      if (dash) {
        const ScreenPoint end = point(done + piece);
        grid.Line(start.x, start.y, end.x, end.y, graph::kOverlay);
      }
      done += piece;
      at += piece;
      if (at >= kDash + kGap - 1e-6) at = 0;
    }
  }
}

ProfilePlot::Reach Including(const std::vector<PlotPoint>& line, const ClassProfile& rows, ProfilePlot::Reach reach) {
  double time = LargestTime(rows, reach.least);
  double depth = LargestDepth(rows, reach.least);
  const double ownTime = time;
  const double ownDepth = depth;
  for (const PlotPoint& point : line) {
    time = std::max(time, double{point.runTime});
    depth = std::max(depth, double{point.depth});
  }
  return {reach.time * time / ownTime, reach.depth * depth / ownDepth, reach.least};
}

}  // namespace tav
