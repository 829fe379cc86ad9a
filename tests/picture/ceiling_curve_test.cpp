#include "picture/ceiling_curve.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless/recording_surface.h"
#include "support/plan_fixture.h"

namespace tav {
namespace {

using testing::ElementsAre;

GraphScale ScaleOf(double minutes, double depth) {
  GraphScale scale;
  scale.SetPlot(19000, 10000);
  scale.SetWorld(0, minutes, 0, -depth);
  return scale;
}

DiveMoment At(double time, double ceiling) {
  DiveMoment moment;
  moment.time = time;
  moment.ceiling = ceiling;
  return moment;
}

TEST(CeilingCurve, HasAPieceForEachTimeBelowTheSurfaceAndNoCornerTooMany) {
  // 100 units to the minute, and from y 550 on 89 to the metre.
  const GraphScale scale = ScaleOf(190, 100);
  const auto curves = CeilingCurves(
      {At(0, 0), At(1, 0), At(2, 1), At(3, 2), At(4, 3), At(4, 6), At(5, 6), At(6, 0), At(7, 0), At(8, 2)}, scale);
  ASSERT_EQ(curves.size(), 2U);
  EXPECT_THAT(curves[0], ElementsAre(SurfacePoint{100, 550}, SurfacePoint{400, 817}, SurfacePoint{400, 1084},
                                     SurfacePoint{500, 1084}, SurfacePoint{600, 550}));
  EXPECT_THAT(curves[1], ElementsAre(SurfacePoint{700, 550}, SurfacePoint{800, 728}));
  RecordingSurface surface(19000, 10000);
  DrawCeiling(surface, {At(0, 0), At(1, 0)}, scale, graph::kDark);
  EXPECT_TRUE(surface.strokes.empty());
}

/// y of a curve at an x.
double Height(const std::vector<SurfacePoint>& curve, double x) {
  for (std::size_t i = 1; i < curve.size(); ++i) {
    if (x > curve[i].x || x < curve[i - 1].x || curve[i].x == curve[i - 1].x) continue;
    return curve[i - 1].y + (curve[i].y - curve[i - 1].y) * (x - curve[i - 1].x) / (curve[i].x - curve[i - 1].x);
  }
  return curve.back().y;
}

TEST(CeilingCurve, LiesWithinAPixelOfEachMomentOfADive) {
  test::Plans plans;
  frmWaypointEditor& window = plans.New();
  const DiveTemplate& settings = plans.documents(window.Tag()).Template;
  window.SaveUserEnteredWaypoints(25, 60, FindBlendIndex("Tx18/45", settings), false);
  window.ReEvaluateUserEnteredWaypoints();
  ASSERT_TRUE(window.StartDeco());
  const auto moments = window.Planned().Moments();
  const GraphScale scale = ScaleOf(200, 70);
  const auto curves = CeilingCurves(moments, scale);
  ASSERT_EQ(curves.size(), 1U);
  EXPECT_LT(curves[0].size(), moments.size() / 5);
  for (std::size_t i = 1; i + 1 < moments.size(); ++i) {
    if (moments[i].ceiling == 0 || moments[i].row != -1 || moments[i].time == moments[i - 1].time) continue;
    const ScreenPoint at = scale.WorldToScreen(moments[i].time, -moments[i].ceiling);
    EXPECT_NEAR(Height(curves[0], at.x), at.y, 15) << moments[i].time;
  }
}

}  // namespace
}  // namespace tav
