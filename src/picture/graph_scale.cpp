#include "picture/graph_scale.h"

#include <algorithm>
#include <cmath>

namespace tav {

Single RoundDownToStep(Single value, int step) {
  const double whole = std::nearbyint(value);  // halves to even
  if (std::fmod(whole, step) == 0) return whole;
  return std::floor(value / step) * step;
}

Single RoundUpToStep(Single value, int step) {
  const Single outwards = value <= 0 ? value - step : value + step;
  return RoundDownToStep(outwards, step);
}

void GraphScale::SetPlot(Single width, Single height) {
  constexpr double kMargin = 0.055;
  constexpr double kNumbers = 200;
  // In a low window the numbers of the time axis still need their room.
  PlotTop = std::max(kMargin * height, std::min(kNumbers, height / 2));
  PlotBottom = height - PlotTop;
  PlotLeft = 0;
  PlotRight = width;
}

void GraphScale::SetWorld(Single left, Single right, Single top, Single bottom) {
  WorldLeft = left;
  WorldRight = right;
  WorldTop = top;
  WorldBottom = bottom;
}

ScreenPoint GraphScale::WorldToScreen(Single time, Single y) const {
  ScreenPoint point{-1, -1};
  if (WorldRight != WorldLeft) point.x = (PlotRight - PlotLeft) / (WorldRight - WorldLeft) * time + PlotLeft;
  if (WorldBottom != WorldTop) point.y = (PlotBottom - PlotTop) / (WorldBottom - WorldTop) * y + PlotTop;
  return point;
}

WorldPoint GraphScale::ScreenToWorld(Single x, Single y) const {
  const auto tenths = [](double value) { return std::floor(value * 10) / 10; };
  return {tenths((x - PlotLeft) * (WorldRight - WorldLeft) / (PlotRight - PlotLeft)),
          tenths((y - PlotTop) * (WorldBottom - WorldTop) / (PlotBottom - PlotTop))};
}

bool GraphScale::InsidePlot(Single x, Single y) const {
  return PlotLeft <= x && x <= PlotRight && PlotTop <= y && y <= PlotBottom;
}

ScreenPoint GraphScale::OntoPlot(ScreenPoint at) const {
  const auto between = [](double value, double low, double high) { return std::max(low, std::min(value, high)); };
  return {between(at.x, PlotLeft, PlotRight), between(at.y, PlotTop, PlotBottom)};
}

Single GraphScale::Drate(Single rate) const {
  const ScreenPoint from = WorldToScreen(0, 0);
  const ScreenPoint to = WorldToScreen(10, 10 * rate);
  return (to.x - from.x) / (to.y - from.y);
}

Single GraphScale::Ddepth(Single depth) const { return WorldToScreen(0, -depth).y; }

}  // namespace tav
