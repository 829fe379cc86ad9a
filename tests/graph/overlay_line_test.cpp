#include "graph/overlay_line.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

#include "headless/recording_surface.h"
#include "picture/graph_colours.h"

namespace tav {
namespace {

/// Dashes of its own colour along the line and nowhere else, three fifths of its length.
TEST(OverlayLine, IsDashedAlongTheDive) {
  RecordingSurface grid(19000, 10000);
  GraphScale scale;
  scale.SetPlot(19000, 10000);
  scale.SetWorld(0, 100, 0, -50);
  const std::vector<PlotPoint> line{{0, 0}, {10, 40}, {60, 40}, {70, 0}};
  DrawOverlayLine(grid, scale, line, graph::kDark.overlay);
  double drawn = 0;
  for (const auto& stroke : grid.strokes) {
    EXPECT_EQ(stroke.colour, graph::kDark.overlay);
    drawn += std::hypot(stroke.x1 - stroke.x0, stroke.y1 - stroke.y0);
    bool on = false;
    for (std::size_t i = 1; i < line.size(); ++i) {
      const ScreenPoint a = scale.WorldToScreen(line[i - 1].runTime, -line[i - 1].depth);
      const ScreenPoint b = scale.WorldToScreen(line[i].runTime, -line[i].depth);
      const double length = std::hypot(b.x - a.x, b.y - a.y);
      const double off = std::abs((b.x - a.x) * (stroke.y0 - a.y) - (b.y - a.y) * (stroke.x0 - a.x)) / length;
      on = on || (off < 0.01 && stroke.x0 >= a.x - 0.01 && stroke.x1 <= b.x + 0.01);
    }
    EXPECT_TRUE(on) << stroke.x0 << " " << stroke.y0;
  }
  double length = 0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const ScreenPoint a = scale.WorldToScreen(line[i - 1].runTime, -line[i - 1].depth);
    const ScreenPoint b = scale.WorldToScreen(line[i].runTime, -line[i].depth);
    length += std::hypot(b.x - a.x, b.y - a.y);
  }
  EXPECT_NEAR(drawn / length, 120.0 / 195, 0.01);
}

/// Each plan in one colour, which its name below the plot has, too, and its neighbour has not.
TEST(KeptLines, AreToldApartByColours) {
  RecordingSurface grid(19000, 10000);
  GraphScale scale;
  scale.SetPlot(19000, 10000);
  scale.SetWorld(0, 100, 0, -50);
  std::vector<KeptLine> kept;
  for (int i = 1; i <= 5; ++i) kept.push_back({{{0, 0}, {10, 8.0 * i}, {60, 8.0 * i}}, std::to_string(i)});
  DrawKeptLines(grid, scale, kept, graph::kDark);
  Colour before = graph::kDark.overlay;
  for (int i = 1; i <= 5; ++i) {
    const auto name = std::ranges::find(grid.strokes, std::to_string(i), &RecordingSurface::Stroke::text);
    ASSERT_NE(name, grid.strokes.end());
    EXPECT_GE(name->y0, double{scale.PlotBottom});
    EXPECT_NE(name->colour, before);
    before = name->colour;
    const double y = scale.WorldToScreen(0, -8 * i).y;
    const auto level = [&](const auto& stroke) { return stroke.y0 == y && stroke.y1 == y && stroke.x0 > 2000; };
    EXPECT_GT(std::ranges::count_if(grid.strokes, level), 20);
    EXPECT_TRUE(std::ranges::all_of(
        grid.strokes, [&](const auto& stroke) { return !level(stroke) || stroke.colour == name->colour; }));
  }
}

TEST(OverlayLine, EndsAtTheEdgeOfThePlot) {
  RecordingSurface grid(19000, 10000);
  GraphScale scale;
  scale.SetPlot(19000, 10000);
  scale.SetWorld(0, 100, 0, -50);
  DrawOverlayLine(grid, scale, {{0, 6}, {1e6, 6}}, kRed);
  EXPECT_LT(grid.strokes.size(), 120U);
  EXPECT_GT(grid.strokes.size(), 80U);
}

TEST(OverlayLine, HasRoomInAPlotThatFitsThePlan) {
  ClassProfile rows;
  rows.NewWayPoint();
  rows.Row(1).Depth = 40;
  rows.Row(1).RunTime = 50;
  EXPECT_EQ(Fitted(rows, 3, {{0, 0}, {20, 30}}), Fitted(rows, 3));
  EXPECT_EQ(Fitted(rows, 3, {{0, 0}, {100, 50}}), (PlotPoint{150, 66}));
}

}  // namespace
}  // namespace tav
