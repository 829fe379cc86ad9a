#include "picture/profile_plot.h"

#include <algorithm>
#include <cmath>

#include "model/number_text.h"
#include "model/numbers.h"
#include "picture/ceiling_curve.h"
#include "picture/graph_colours.h"

namespace tav {
namespace {

constexpr double kRadius = 50;
constexpr double kGap = 100;  // between two numbers of an axis

Single Largest(const ClassProfile& profile, Single Waypoint::*field, Single least) {
  Single largest = least;
  for (int i = 0; i <= profile.GetLength(); ++i) {
    largest = MaxSingle(largest, profile.Row(static_cast<std::int16_t>(i)).*field);
  }
  return largest;
}

int Whole(double value) { return static_cast<int>(std::nearbyint(value)); }

/// Of how many marks of an axis one has a number, for numbers of that size to lie apart.
int MarksPerNumber(double size, double markDistance) {
  return markDistance > 0 ? std::max(1, static_cast<int>(std::ceil((size + kGap) / markDistance))) : 1;
}

}  // namespace

Single LargestDepth(const ClassProfile& profile, Single least) { return Largest(profile, &Waypoint::Depth, least); }
Single LargestTime(const ClassProfile& profile, Single least) { return Largest(profile, &Waypoint::RunTime, least); }

void ProfilePlot::Redraw(const ClassProfile& profile, Reach reach, double timeZoom,
                         const std::vector<DiveMoment>& moments, const Behind& behind) {
  gasLabels_.clear();
  container_.Clear(graph::kBackground);
  grid_.Clear(graph::kBackground);
  scale_.SetPlot(grid_.Width(), grid_.Height());
  scale_.SetWorld(0, reach.time * LargestTime(profile, reach.least), 0,
                  -reach.depth * LargestDepth(profile, reach.least));
  grid_.FilledBox(scale_.PlotLeft, scale_.PlotTop, scale_.PlotRight, scale_.PlotBottom, kBlack);
  DrawCeiling(grid_, moments, scale_);
  Xaxis(timeZoom);
  Yaxis();
  if (behind) behind(scale_);
  PrevPlotTime_ = 0;
  PrevPlotY_ = 0;
  for (int i = 0; i <= profile.GetLength(); ++i) {
    PlotWayPoint(profile, static_cast<std::int16_t>(i), i == profile.GetLength());
  }
}

void ProfilePlot::Xaxis(double timeZoom) {
  constexpr int kSteps = 30;
  const int step = std::max(2, Whole(scale_.WorldRight / (kSteps * timeZoom)));
  const int last = Whole(scale_.WorldRight - step);
  const double distance = scale_.WorldToScreen(step, 0).x - scale_.WorldToScreen(0, 0).x;
  const int each = MarksPerNumber(grid_.TextWidth(FormatFixed(last, 0)), distance);
  int mark = 0;
  for (int v = Whole(scale_.WorldLeft + step); v <= last; v += step) {
    const double x = scale_.WorldToScreen(v, 0).x;
    grid_.Line(x, scale_.PlotBottom, x, scale_.PlotTop - 100, graph::kGrey);
    if (++mark % each != 0) continue;
    const std::string number = FormatFixed(v, 0);
    grid_.Text(x - grid_.TextWidth(number) / 2, scale_.PlotTop - 200, number, kBlack);
  }
}

void ProfilePlot::Yaxis() {
  constexpr int kSteps = 15;
  const int step = std::max(1, Whole((scale_.WorldTop - scale_.WorldBottom) / kSteps));
  const double top = scale_.WorldToScreen(0, scale_.WorldTop).y;
  const double axis = scale_.PlotLeft + kPlotPlaceX;
  container_.Line(axis - 20, top + kPlotPlaceY, axis - 20, container_.Height(), graph::kWhite);
  grid_.Line(scale_.PlotLeft, top, scale_.PlotRight, top, graph::kWhite);
  const int last = Whole(-scale_.WorldBottom - step);
  const int each = MarksPerNumber(container_.TextHeight(), scale_.WorldToScreen(0, -step).y - top);
  int mark = 0;
  for (int d = Whole(scale_.WorldTop + step); d <= last; d += step) {
    const double y = scale_.WorldToScreen(0, -d).y;
    grid_.Line(scale_.PlotLeft, y, scale_.PlotRight, y, graph::kGrey, DrawingSurface::LineStyle::Dotted);
    grid_.Line(scale_.PlotLeft - 100, y, scale_.PlotLeft, y, graph::kGrey);
    container_.Line(axis - 100, y + kPlotPlaceY, axis, y + kPlotPlaceY, graph::kWhite);
    if (++mark % each != 0) continue;
    const std::string number = FormatFixed(d, 0);
    container_.Text(axis - 200 - container_.TextWidth(number), y + kPlotPlaceY - container_.TextHeight() / 2, number,
                    kBlack);
  }
}

/// The kinds of marks differ in shape, too: a triangle points the way of a move, a diamond ends it.
void ProfilePlot::DrawShape(std::int16_t status, ScreenPoint at) {
  constexpr double kReach = 1.9 * kRadius;
  const double side = 0.87 * kReach;  // of an equilateral triangle, half
  std::vector<SurfacePoint> corners;
  switch (status) {
    case RowStatus::kDescentBand:
      corners = {{at.x, at.y + kReach}, {at.x - side, at.y - kReach / 2}, {at.x + side, at.y - kReach / 2}};
      break;
    case RowStatus::kAscentBand:
      corners = {{at.x, at.y - kReach}, {at.x - side, at.y + kReach / 2}, {at.x + side, at.y + kReach / 2}};
      break;
    case RowStatus::kAscentEnd:
      corners = {{at.x, at.y - kReach}, {at.x + kReach, at.y}, {at.x, at.y + kReach}, {at.x - kReach, at.y}};
      break;
    default:
      return;
  }
  grid_.FilledPolygon(corners, graph::OfStatus(status));
}

void ProfilePlot::PlotWayPoint(const ClassProfile& profile, std::int16_t row, bool isLast) {
  const Waypoint& point = profile.Row(row);
  const Single y = -point.Depth;
  const ScreenPoint at = scale_.WorldToScreen(point.RunTime, y);
  if (point.DoShow) {
    DrawShape(point.Status, at);
    grid_.FilledCircle(at.x, at.y, kRadius, graph::OfStatus(point.Status));
    // Dark blue can't be seen on black.
    if (point.Status == RowStatus::kStop) grid_.Circle(at.x, at.y, kRadius, graph::kStopOutline);
  }
  if (!isLast) PlotGasChanges(profile, row, at);
  const ScreenPoint before = scale_.WorldToScreen(PrevPlotTime_, PrevPlotY_);
  grid_.Line(before.x, before.y, at.x, at.y, graph::kWhite, DrawingSurface::LineStyle::Thick);
  PrevPlotTime_ = point.RunTime;
  PrevPlotY_ = y;
}

void ProfilePlot::PlotGasChanges(const ClassProfile& profile, std::int16_t row, ScreenPoint at) {
  const auto nameOf = [&](int i) { return profile.Row(static_cast<std::int16_t>(i)).GasMixName; };
  if (row == 0) {
    PlotGasUsed(at, nameOf(1), LabelPlace::DownRight, 0);
  } else if (profile.Row(row).DoShow) {
    if (nameOf(row + 1) != nameOf(row)) PlotGasUsed(at, nameOf(row + 1), LabelPlace::DownRight, row);
  } else if (nameOf(row) != nameOf(row - 1)) {
    constexpr double kRoomAtTheLeft = 1000;
    grid_.Circle(at.x, at.y, kRadius, graph::kOrange);
    PlotGasUsed(at, nameOf(row), at.x >= kRoomAtTheLeft ? LabelPlace::UpLeft : LabelPlace::DownRight,
                static_cast<std::int16_t>(row - 1));
  }
}

void ProfilePlot::PlotGasUsed(ScreenPoint at, const std::string& text, LabelPlace place, std::int16_t changeRow) {
  // The lines come first: they touch the tails of letters.
  const double width = grid_.TextWidth(text, true);
  const double height = grid_.TextHeight(true);
  const double x = at.x;
  const double y = at.y;
  if (place == LabelPlace::UpLeft) {
    const double left = x - 500 - width - 40;
    // Above the plot it would hide the numbers of the time axis.
    const double under = std::max(y - 250, scale_.PlotTop + height);
    grid_.Line(x - 40, y - 70, x - 500, under, kBlack);
    grid_.Line(x - 500, under, left, under, kBlack);
    grid_.Text(left, under - height, text, graph::kYellow, true);
    gasLabels_.push_back({changeRow, left, under - height, left + width, under});
  } else {
    grid_.Line(x + 70, y + 70, x + 500, y + 200, kBlack);
    grid_.Line(x + 500, y + 200, x + 500 + width + 40, y + 200, kBlack);
    grid_.Text(x + 500, y + 200 - height, text, graph::kYellow, true);
    gasLabels_.push_back({changeRow, x + 500, y + 200 - height, x + 500 + width + 40, y + 200});
  }
}

}  // namespace tav
