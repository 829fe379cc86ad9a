#include "picture/profile_plot.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless/recording_surface.h"
#include "picture/graph_colours.h"

namespace tav {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::Not;
using Kind = RecordingSurface::Kind;
using Stroke = RecordingSurface::Stroke;

// An empty plan, or one up to 60 minutes and 60 deep: 100 units to the minute, 8900 to 130 of depth, from y 550.
class ProfilePlotTest : public testing::Test {
 protected:
  Waypoint& Add(double time, double depth, const std::string& gas = "Air", bool doShow = true,
                std::int16_t status = RowStatus::kLeg) {
    profile.NewWayPoint();
    Waypoint& row = profile.Row(profile.GetLength());
    row.RunTime = time;
    row.Depth = depth;
    row.GasMixName = gas;
    row.DoShow = doShow;
    row.Status = status;
    return row;
  }
  void Draw() { plot.Redraw(profile, RoomToGrow(profile), 3); }
  [[nodiscard]] std::vector<Stroke> Labels() const {
    std::vector<Stroke> labels = grid.Of(Kind::Text);
    std::erase_if(labels, [](const Stroke& text) { return text.colour != graph::kYellow; });
    return labels;
  }

  RecordingSurface container{10000, 7500};
  RecordingSurface grid{19000, 10000};
  ProfilePlot plot{container, grid};
  ClassProfile profile;
};

TEST_F(ProfilePlotTest, TheWorldLeavesRoomForThePlanToGrow) {
  const struct {
    double time;
    double depth;
    double right;
    double bottom;
  } cases[] = {
      {0, 0, 190, -130}, {60, 60, 190, -130}, {61.3, 60, 190, -130}, {64, 66, 200, -150}, {100, 100, 310, -210}};
  for (const auto& known : cases) {
    SCOPED_TRACE(known.time);
    profile.clear();
    if (known.time > 0) Add(known.time, known.depth);
    Draw();
    EXPECT_EQ(plot.Scale().WorldLeft, 0);
    EXPECT_EQ(plot.Scale().WorldTop, 0);
    EXPECT_EQ(plot.Scale().WorldRight, known.right);
    EXPECT_EQ(plot.Scale().WorldBottom, known.bottom);
  }
}

TEST_F(ProfilePlotTest, AxesOfAnEmptyPlan) {
  Draw();
  const auto times = grid.Of(Kind::Text);
  EXPECT_EQ(times[1], (Stroke{Kind::Text, 900, 350, 0, 0, kBlack, "10"}));
  EXPECT_EQ(times.back(), (Stroke{Kind::Text, 18700, 350, 0, 0, kBlack, "190"})) << "not over the edge";
  EXPECT_THAT(grid.strokes, Contains(Stroke{Kind::Line, 1000, 9450, 1000, 550, graph::kGrey, ""}));
  const Stroke six = container.Of(Kind::Text)[1];
  EXPECT_EQ(six.x0, 500);                              // ends 200 left of the axis
  EXPECT_NEAR(six.y0, 550 + 410.77 + 300 - 90, 0.01);  // centred on 6
  EXPECT_THAT(container.strokes, Contains(Stroke{Kind::Line, 780, 850, 780, 7500, graph::kWhite, ""}));
  EXPECT_THAT(grid.strokes, Contains(Stroke{Kind::Line, 0, 550, 19000, 550, graph::kWhite, ""}));
}

// From 0 on at 1, 2, 5, 10, ... minutes, and as many times the distance of stops, as densely as the numbers have room.
TEST_F(ProfilePlotTest, TheAxesHaveRoundSteps) {
  const struct {
    double width, height, stopStep;
    const char *time, *depth;  // behind 0
  } cases[] = {{19000, 10000, 3, "10", "6"},     {133000, 10000, 3, "1", "6"},  {30000, 22000, 3, "5", "3"},
               {9000, 3000, 3, "20", "30"},      {4000, 1500, 3, "50", "60"},   {19000, 10000, 10, "10", "10"},
               {19000, 4000, 10, "10", "20"},    {19000, 1900, 10, "10", "50"}, {19000, 27000, 2.5, "10", "2.5"},
               {19000, 27000, 3.26, "10", "3.3"}};
  for (const auto& known : cases) {
    SCOPED_TRACE(testing::Message() << known.width << " x " << known.height << ", stops at " << known.stopStep);
    RecordingSurface sized(known.width, known.height);
    RecordingSurface around(known.width, known.height + 300);
    ProfilePlot(around, sized).Redraw(profile, RoomToGrow(profile), known.stopStep);
    const auto times = sized.Of(Kind::Text);
    const auto depths = around.Of(Kind::Text);
    ASSERT_GE(times.size(), 3U);
    ASSERT_GE(depths.size(), 3U);
    EXPECT_EQ(times[0].text + " " + times[1].text, std::string("0 ") + known.time);
    EXPECT_EQ(depths[0].text + " " + depths[1].text, std::string("0 ") + known.depth);
    for (std::size_t i = 1; i < times.size(); ++i) {
      EXPECT_GT(times[i].x0, times[i - 1].x0 + sized.TextWidth(times[i - 1].text, false));
    }
    for (std::size_t i = 1; i < depths.size(); ++i) EXPECT_GT(depths[i].y0, depths[i - 1].y0 + 180);
  }
  RecordingSurface flat(19000, 0);
  ProfilePlot(container, flat).Redraw(profile, RoomToGrow(profile), 3);
  EXPECT_THAT(container.Texts(), testing::IsEmpty()) << "an axis without extent";
}

TEST_F(ProfilePlotTest, AFittedPlanFillsThePlot) {
  const struct {
    double time, depth, right, bottom;
    bool ascent;
  } cases[] = {{70, 57, 75, -63, true},
               {100, 60, 110, -66, true},
               {5, 3, 15, -12, true},
               {20, 12, 45, -39, false},
               {100, 60, 150, -78, false}};
  for (const auto& known : cases) {
    profile.clear();
    Add(known.time - 1, known.depth);
    Add(known.time, known.ascent ? 0 : known.depth);
    plot.Redraw(profile, Fitted(profile, 3), 3);
    EXPECT_EQ(plot.Scale().WorldRight, known.right);
    EXPECT_EQ(plot.Scale().WorldBottom, known.bottom);
  }
  profile.Row(2).RunTime = 30000;  // a stop that never clears
  profile.Row(2).SegmentTime = 29901;
  EXPECT_EQ(Fitted(profile, 3).runTime, 150);
}

TEST_F(ProfilePlotTest, RowsAreJoinedAndMarkedByTheirKind) {
  Add(10, 13);
  Add(20, 26, "Air", true, RowStatus::kDescentBand);
  Add(30, 13, "Air", false, RowStatus::kAscentBand);
  Add(40, 13, "Air", true, RowStatus::kStop);
  Add(50, 0, "Air", true, RowStatus::kAscentEnd);
  profile.Row(0).DoShow = false;
  Draw();
  const auto circles = grid.Of(Kind::FilledCircle);
  ASSERT_EQ(circles.size(), 4U);
  EXPECT_EQ(circles[0], (Stroke{Kind::FilledCircle, 1000, 1440, 50, 0, graph::kWhite, ""}));
  EXPECT_EQ(circles[1], (Stroke{Kind::FilledCircle, 2000, 2330, 50, 0, kRed, ""}));
  EXPECT_EQ(circles[2], (Stroke{Kind::FilledCircle, 4000, 1440, 50, 0, graph::kBlue, ""}));
  EXPECT_EQ(circles[3], (Stroke{Kind::FilledCircle, 5000, 550, 50, 0, graph::kGreen, ""}));
  EXPECT_THAT(grid.strokes, Contains(Stroke{Kind::Circle, 4000, 1440, 50, 0, graph::kDark.stopOutline, ""}));
  const std::vector<Stroke> legs = grid.Of(Kind::Thick);
  ASSERT_EQ(legs.size(), 6U);  // the first of no length, at the start row
  for (std::size_t i = 1; i < legs.size(); ++i) {
    EXPECT_EQ(legs[i].x0, legs[i - 1].x1);
    EXPECT_EQ(legs[i].y0, legs[i - 1].y1);
  }
  EXPECT_EQ(legs[0].x0, 0);
  EXPECT_EQ(legs[0].y0, 550);
  EXPECT_EQ(legs[5].x1, 5000);
  EXPECT_EQ(legs[5].y1, 550);
}

TEST_F(ProfilePlotTest, ARedrawBeginsAtTheStartOfTheDive) {
  Add(10, 13);
  Draw();
  const auto once = grid.strokes;
  Draw();
  EXPECT_EQ(grid.strokes, once);
}

TEST_F(ProfilePlotTest, TheFirstGasStandsAtTheStart) {
  Add(10, 13, "Trimix");
  Draw();
  ASSERT_EQ(Labels().size(), 1U);
  EXPECT_EQ(Labels()[0], (Stroke{Kind::Text, 500, 570, 0, 0, graph::kYellow, "Trimix", TextFont{.bold = true}}));
  EXPECT_THAT(grid.strokes, Contains(Stroke{Kind::Line, 70, 620, 500, 750, kBlack, ""}));
  EXPECT_THAT(grid.strokes, Contains(Stroke{Kind::Line, 500, 750, 1140, 750, kBlack, ""}));
}

TEST_F(ProfilePlotTest, TheLineBelowAGasIsAsLongAsItsBoldName) {
  struct BoldSurface : RecordingSurface {
    using RecordingSurface::RecordingSurface;
    [[nodiscard]] double TextWidth(const std::string& text, bool bold) const override {
      return (bold ? 150 : 100) * static_cast<double>(text.size());
    }
  } letters(19000, 10000);
  Add(10, 13, "Trimix");
  ProfilePlot(container, letters).Redraw(profile, RoomToGrow(profile), 3);
  EXPECT_THAT(letters.strokes, Contains(Stroke{Kind::Line, 500, 750, 1440, 750, kBlack, ""}));
}

TEST_F(ProfilePlotTest, AGasChangeIsNamedWhereItTakesPlace) {
  const struct {
    const char* what;
    double time;  // of the row before or of the change
    bool doShow;
    Stroke label;
    bool circle;
  } cases[] = {
      {"marked row: the gas that follows it", 20, true, {Kind::Text, 2500, 1460, 0, 0, graph::kYellow, "EAN50"}, false},
      {"unmarked row: its own gas, up and left",
       20,
       false,
       {Kind::Text, 960, 1010, 0, 0, graph::kYellow, "EAN50"},
       true},
      {"unmarked row with no room at the left",
       9.9,
       false,
       {Kind::Text, 1490, 1640, 0, 0, graph::kYellow, "EAN50"},
       true},
  };
  for (const auto& known : cases) {
    SCOPED_TRACE(known.what);
    profile.clear();
    Add(5, 13);
    Add(known.time, 13, known.doShow ? "Air" : "EAN50", known.doShow);
    Add(30, 13, "EAN50");
    Draw();
    const auto labels = Labels();
    // A marked row names the gas of the next one: the row before an unmarked change does so, too.
    ASSERT_FALSE(labels.empty());
    EXPECT_EQ(labels.front().text, "Air");
    EXPECT_NEAR(labels.back().x0, known.label.x0, 0.01);
    EXPECT_NEAR(labels.back().y0, known.label.y0, 0.01);
    EXPECT_EQ(labels.back().text, "EAN50");
    EXPECT_EQ(grid.Of(Kind::Circle).size(), known.circle ? 1U : 0U);
  }
}

TEST_F(ProfilePlotTest, AGasThatTheFirstStopBeginsWithIsNamedAtIt) {
  Add(25, 45, "Air", true);
  Add(27, 21, "Air", false);
  Add(32, 21, "EAN50", true);
  Add(33, 18, "EAN50", false);
  Draw();
  ASSERT_EQ(Labels().size(), 2U);
  EXPECT_EQ(Labels()[1].text, "EAN50");
}

// At marked rows the names go down, at the others up.
TEST_F(ProfilePlotTest, NineGasesTakenAtOnceAreAllRead) {
  for (const bool marked : {true, false}) {
    profile.clear();
    for (int i = 1; i <= 10; ++i) Add(20 + i / 100.0, 30, "Gas " + std::to_string(i), marked);
    Draw();
    std::vector<Stroke> labels = Labels();
    labels.erase(labels.begin());  // at the start of the dive
    ASSERT_EQ(labels.size(), 9U);
    std::ranges::sort(labels, {}, &Stroke::y0);
    for (std::size_t i = 1; i < labels.size(); ++i)
      EXPECT_GE(labels[i].y0, labels[i - 1].y0 + 179.99) << labels[i].text;
  }
}

TEST_F(ProfilePlotTest, TheLastRowAndAnUnchangedGasHaveNoLabel) {
  Add(10, 13);
  Add(20, 13);
  Add(30, 13, "EAN50", false);
  Draw();
  // The start, and the marked row before the change; the last row, itself a change, none.
  ASSERT_EQ(Labels().size(), 2U);
  EXPECT_EQ(Labels()[1].x0, 2500);
  EXPECT_THAT(grid.strokes, Not(Contains(Field(&Stroke::kind, Kind::Circle))));
}

}  // namespace
}  // namespace tav
