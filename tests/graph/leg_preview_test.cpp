#include "graph/leg_preview.h"

#include <gtest/gtest.h>

#include "compute/leg_expansion.h"
#include "headless/recording_surface.h"
#include "picture/graph_colours.h"

namespace tav {
namespace {

using Kind = RecordingSurface::Kind;

struct Case {
  const char* what;
  double startTime, from;  // minutes, depth
  double endTime, to;
};

// The expansion of a leg into rows is told in minutes and depths, its preview in drawing units: the two must agree at
// every corner.
TEST(LegPreview, FollowsTheRowsOfTheLeg) {
  const Case cases[] = {{"level", 10, 30, 20, 30},
                        {"down in the first band", 0, 0, 10, 9},
                        {"down to a limit", 0, 0, 10, 20},
                        {"down over all limits", 0, 2, 30, 66},
                        {"down from a limit", 5, 20, 12, 32},
                        {"down, too short", 10, 40, 10.5, 58},
                        {"down, to the left of the start", 10, 40, 5, 58},
                        {"up within a band", 10, 19, 25, 10},
                        {"up over two limits", 10, 40, 40, 3},
                        {"up to a limit", 10, 15, 20, 6},
                        {"up to the surface", 10, 15, 30, 0},
                        {"up, too short", 40, 50, 41, 12}};
  DiveTemplate t;
  t.AscendRates = {{3, 0}, {9, 6}, {10, 20}};
  t.DescendRates = {{18, 0}, {12, 20}, {6, 40}};
  t.Blends = {AirMix()};
  GraphScale scale;
  scale.SetPlot(28800, 10000);
  scale.SetWorld(0, 180, 0, -140);
  for (const Case& known : cases) {
    SCOPED_TRACE(known.what);
    ClassProfile rows;
    Leg leg{known.startTime, known.from, known.endTime, known.to};
    GetSegmentedProfile(leg, t, rows);

    RecordingSurface surface(28800, 10000);
    DrawSegmentedLine(surface, scale, t, scale.WorldToScreen(known.startTime, -known.from),
                      scale.WorldToScreen(known.endTime, -known.to));

    std::vector<ScreenPoint> corners;  // of the rows, those of no length left out
    std::vector<Colour> limits;
    for (std::int16_t i = 1; i <= rows.GetLength(); ++i) {
      const Waypoint& row = rows.Row(i);
      if (row.SegmentTime > 0) corners.push_back(scale.WorldToScreen(row.RunTime, -row.Depth));
      if (row.Status != RowStatus::kLeg) limits.push_back(row.Status == RowStatus::kAscentBand ? graph::kYellow : kRed);
    }
    const auto lines = surface.Of(Kind::Line);
    ASSERT_EQ(lines.size(), corners.size());
    for (std::size_t i = 0; i < corners.size(); ++i) {
      EXPECT_NEAR(lines[i].x1, corners[i].x, 0.5) << i;
      EXPECT_NEAR(lines[i].y1, corners[i].y, 0.5) << i;
      EXPECT_EQ(lines[i].colour, graph::kWhite);
      if (i > 0) {
        EXPECT_EQ(lines[i].x0, lines[i - 1].x1);
        EXPECT_EQ(lines[i].y0, lines[i - 1].y1);
      }
    }
    const auto circles = surface.Of(Kind::Circle);
    ASSERT_EQ(circles.size(), limits.size());
    for (std::size_t i = 0; i < limits.size(); ++i) EXPECT_EQ(circles[i].colour, limits[i]);
  }
}

}  // namespace
}  // namespace tav
