#include "picture/ceiling_curve.h"

#include <algorithm>
#include <limits>

namespace tav {
namespace {

constexpr double kNear = 7.5;  // drawing units; half a pixel of a usual screen

/// Takes the points of a curve from left to right and keeps those that it needs. From the point kept last, the lines
/// that pass all points since near enough lie between two slopes; when there are none left, the point before is kept.
class Corners {
 public:
  void Take(SurfacePoint point) {
    if (kept_.empty()) {
      Keep(point);
    } else if (point.x <= kept_.back().x || point.x <= last_.x) {
      // A step, where another gradient factor takes over.
      if (!(last_ == kept_.back())) Keep(last_);
      Keep(point);
    } else {
      if (!Fits(point)) Keep(last_);
      const double run = point.x - kept_.back().x;
      low_ = std::max(low_, (point.y - kNear - kept_.back().y) / run);
      high_ = std::min(high_, (point.y + kNear - kept_.back().y) / run);
    }
    last_ = point;
  }
  std::vector<SurfacePoint> End() {
    if (!kept_.empty() && !(last_ == kept_.back())) kept_.push_back(last_);
    return std::move(kept_);
  }

 private:
  [[nodiscard]] bool Fits(SurfacePoint point) const {
    const double slope = (point.y - kept_.back().y) / (point.x - kept_.back().x);
    return low_ <= slope && slope <= high_;
  }
  void Keep(SurfacePoint point) {
    kept_.push_back(point);
    last_ = point;
    low_ = -std::numeric_limits<double>::infinity();
    high_ = std::numeric_limits<double>::infinity();
  }

  std::vector<SurfacePoint> kept_;
  SurfacePoint last_;
  double low_ = 0;
  double high_ = 0;
};

}  // namespace

std::vector<std::vector<SurfacePoint>> CeilingCurves(const std::vector<DiveMoment>& moments, const GraphScale& scale) {
  std::vector<std::vector<SurfacePoint>> curves;
  const auto place = [&](const DiveMoment& moment) {
    const ScreenPoint at = scale.WorldToScreen(moment.time, -moment.ceiling);
    return SurfacePoint{at.x, std::min<double>(at.y, scale.PlotBottom)};
  };
  for (std::size_t i = 0; i < moments.size(); ++i) {
    if (moments[i].ceiling <= 0) continue;
    Corners corners;
    if (i > 0) corners.Take(place(moments[i - 1]));
    for (; i < moments.size() && moments[i].ceiling > 0; ++i) corners.Take(place(moments[i]));
    if (i < moments.size()) corners.Take(place(moments[i]));
    curves.push_back(corners.End());
  }
  return curves;
}

void DrawCeiling(DrawingSurface& surface, const std::vector<DiveMoment>& moments, const GraphScale& scale,
                 const graph::Scheme& colours) {
  const double top = scale.WorldToScreen(0, 0).y;
  for (const std::vector<SurfacePoint>& curve : CeilingCurves(moments, scale)) {
    std::vector<SurfacePoint> area = curve;
    area.push_back({curve.back().x, top});
    area.push_back({curve.front().x, top});
    surface.FilledPolygon(area, colours.ceilingShade);
    for (std::size_t i = 1; i < curve.size(); ++i) {
      surface.Line(curve[i - 1].x, curve[i - 1].y, curve[i].x, curve[i].y, colours.ceilingLine,
                   DrawingSurface::LineStyle::Thick);
    }
  }
}

}  // namespace tav
