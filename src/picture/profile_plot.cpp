#include "picture/profile_plot.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "model/number_text.h"
#include "model/numbers.h"
#include "picture/ceiling_curve.h"
#include "picture/graph_colours.h"

namespace tav {
namespace {

constexpr double kRadius = 50;

Single Largest(const ClassProfile& profile, Single Waypoint::*field, Single least) {
  Single largest = least;
  for (int i = 0; i <= profile.GetLength(); ++i) {
    largest = MaxSingle(largest, profile.Row(static_cast<std::int16_t>(i)).*field);
  }
  return largest;
}

/// The marks of an axis of that length: multiples of the least of 1, 2, 5, 10, ... times `unit` that lie at least so
/// far apart, `distance` drawing units being one unit. None on an axis without extent.
std::vector<double> Marks(double length, double unit, double distance, double apart) {
  std::vector<double> marks;
  if (!(distance > 0) || !(unit > 0)) return marks;
  constexpr std::array kFactors{1.0, 2.0, 5.0};
  std::size_t i = 0;
  double factor = 1;
  while (factor * distance < apart) {
    ++i;
    factor = kFactors[i % 3] * std::pow(10, i / 3);
  }
  for (int mark = 0; mark * factor * unit <= length + 1e-6; ++mark) marks.push_back(mark * factor * unit);
  return marks;
}

}  // namespace

Single LargestDepth(const ClassProfile& profile, Single least) { return Largest(profile, &Waypoint::Depth, least); }
Single LargestTime(const ClassProfile& profile, Single least) { return Largest(profile, &Waypoint::RunTime, least); }

PlotPoint RoomToGrow(const ClassProfile& profile) {
  constexpr int kTens = 10;
  constexpr double kLeast = 60;
  return {RoundUpToStep(3 * LargestTime(profile, kLeast), kTens),
          -RoundUpToStep(-2 * LargestDepth(profile, kLeast), kTens)};
}

PlotPoint Fitted(const ClassProfile& profile, Single stopStep, const std::vector<PlotPoint>& beside) {
  constexpr double kTimeStep = 5;
  constexpr double kDay = 24 * 60;
  const bool ascent = profile.getDepth(profile.GetLength()) <= 0;
  const double least = ascent ? 10 : 30;
  double time = least;
  for (std::int16_t row = 0; row <= profile.GetLength(); ++row) {
    if (profile.Row(row).SegmentTime > kDay) break;
    time = std::max<double>(time, profile.GetRunTime(row));
  }
  double depth = LargestDepth(profile, least);
  for (const PlotPoint& point : beside) {
    time = std::max<double>(time, point.runTime);
    depth = std::max<double>(depth, point.depth);
  }
  const auto upTo = [](double value, double step) { return std::ceil(value / step) * step; };
  return {upTo(time * (ascent ? 1.06 : 1.5), kTimeStep),
          upTo(depth * (ascent ? 1.08 : 1.3), std::max(0.1, double{stopStep}))};
}

void ProfilePlot::Redraw(const ClassProfile& profile, PlotPoint corner, Single stopStep,
                         const std::vector<DiveMoment>& moments, const Behind& behind) {
  gasLabels_.clear();
  container_.Clear(colours_.around);
  grid_.Clear(colours_.around);
  scale_.SetPlot(grid_.Width(), grid_.Height());
  scale_.SetWorld(0, corner.runTime, 0, -corner.depth);
  grid_.FilledBox(scale_.PlotLeft, scale_.PlotTop, scale_.PlotRight, scale_.PlotBottom, colours_.ground);
  DrawCeiling(grid_, moments, scale_, colours_);
  Xaxis();
  Yaxis(stopStep);
  if (behind) behind(scale_);
  PrevPlotTime_ = 0;
  PrevPlotY_ = 0;
  for (int i = 0; i <= profile.GetLength(); ++i) {
    PlotWayPoint(profile, static_cast<std::int16_t>(i), i == profile.GetLength());
  }
}

void ProfilePlot::Xaxis() {
  constexpr double kApart = 700;
  constexpr double kGap = 150;  // between two numbers
  const double minute = scale_.WorldToScreen(1, 0).x - scale_.PlotLeft;
  const double apart = std::max(kApart, grid_.TextWidth(FormatFixed(scale_.WorldRight, 0)) + kGap);
  for (const double time : Marks(scale_.WorldRight, 1, minute, apart)) {
    const double x = scale_.WorldToScreen(time, 0).x;
    grid_.Line(x, scale_.PlotBottom, x, scale_.PlotTop, colours_.raster);
    const std::string number = FormatFixed(time, 0);
    const double width = grid_.TextWidth(number);
    // Those at the ends stay on the surface.
    const double left =
        std::clamp<double>(x - width / 2, scale_.PlotLeft, std::max<double>(0, scale_.PlotRight - width));
    grid_.Text(left, scale_.PlotTop - 200, number, kBlack);
  }
}

void ProfilePlot::Yaxis(Single stopStep) {
  constexpr double kApart = 400;
  constexpr double kGap = 100;
  const double top = scale_.WorldToScreen(0, scale_.WorldTop).y;
  const double axis = scale_.PlotLeft + kPlotPlaceX;
  container_.Line(axis - 20, top + kPlotPlaceY, axis - 20, container_.Height(), colours_.line);
  grid_.Line(scale_.PlotLeft, top, scale_.PlotRight, top, colours_.line);
  const double step = scale_.WorldToScreen(0, -stopStep).y - top;
  const double apart = std::max(kApart, container_.TextHeight() + kGap);
  for (const double depth : Marks(-scale_.WorldBottom, stopStep, step, apart)) {
    const double y = scale_.WorldToScreen(0, -depth).y;
    if (depth > 0) {
      grid_.Line(scale_.PlotLeft, y, scale_.PlotRight, y, colours_.raster, DrawingSurface::LineStyle::Dotted);
    }
    container_.Line(axis - 100, y + kPlotPlaceY, axis, y + kPlotPlaceY, colours_.line);
    const std::string number = FormatPlain(RoundSingle(depth, 1));
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
  grid_.FilledPolygon(corners, colours_.OfStatus(status));
}

void ProfilePlot::PlotWayPoint(const ClassProfile& profile, std::int16_t row, bool isLast) {
  const Waypoint& point = profile.Row(row);
  const Single y = -point.Depth;
  const ScreenPoint at = scale_.WorldToScreen(point.RunTime, y);
  if (point.DoShow) {
    DrawShape(point.Status, at);
    grid_.FilledCircle(at.x, at.y, kRadius, colours_.OfStatus(point.Status));
    // Dark blue can't be seen on black.
    if (point.Status == RowStatus::kStop) grid_.Circle(at.x, at.y, kRadius, colours_.stopOutline);
  }
  if (!isLast) PlotGasChanges(profile, row, at);
  const ScreenPoint before = scale_.WorldToScreen(PrevPlotTime_, PrevPlotY_);
  grid_.Line(before.x, before.y, at.x, at.y, colours_.line, DrawingSurface::LineStyle::Thick);
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
  } else if (nameOf(row + 1) != nameOf(row) && profile.Row(static_cast<std::int16_t>(row + 1)).DoShow) {
    // At the very first stop: the way to it is on the gas before.
    PlotGasUsed(at, nameOf(row + 1), LabelPlace::DownRight, row);
  }
}

void ProfilePlot::PlotGasUsed(ScreenPoint at, const std::string& text, LabelPlace place, std::int16_t changeRow) {
  const double width = grid_.TextWidth(text, true);
  const double height = grid_.TextHeight(true);
  const bool upLeft = place == LabelPlace::UpLeft;
  // The line to the text ends at (x, under); below or above a label that is there.
  const double x = at.x + (upLeft ? -500 : 500);
  const double left = upLeft ? x - width - 40 : x;
  double under = at.y + (upLeft ? -250 : 200);
  const auto touches = [&](const GasLabel& other) {
    return left < other.right && other.left < left + width + 40 && under - height < other.bottom && other.top < under;
  };
  for (int tried = 0; tried < 8 && std::ranges::any_of(gasLabels_, touches); ++tried)
    under += upLeft ? -height : height;
  // Above the plot it would hide the numbers of the time axis.
  under = std::max(under, scale_.PlotTop + height);
  const double end = upLeft ? left : x + width + 40;
  // The lines come first: they touch the tails of letters.
  grid_.Line(at.x + (upLeft ? -40 : 70), at.y + (upLeft ? -70 : 70), x, under, colours_.leader);
  grid_.Line(x, under, end, under, colours_.leader);
  grid_.Text(left, under - height, text, colours_.gas, true);
  gasLabels_.push_back({changeRow, left, under - height, left + width + (upLeft ? 0 : 40), under});
}

}  // namespace tav
