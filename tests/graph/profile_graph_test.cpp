#include "graph/profile_graph.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "../support/plan_fixture.h"
#include "headless/recording_surface.h"
#include "model/number_text.h"
#include "picture/graph_colours.h"

namespace tav {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

struct RecordedWindow : GraphWindow {
  void ShowReadOut(double x, double y, const std::string& text) override {
    readOut = text;
    readOutPlace = {x, y};
  }
  void HideReadOut() override { readOut.clear(); }
  void ShowCeiling(const std::string& text, Colour colour) override {
    ceiling = text;
    ceilingColour = colour;
  }
  void ShowCross(bool shown) override { cross = shown; }
  void ShowPopup() override { ++popups; }
  void NewWaypoint(Single depth, Single segmentTime) override { waypoints.emplace_back(depth, segmentTime); }
  void ViewRow(std::int16_t row) override { viewed.push_back(row); }

  std::string readOut;
  ScreenPoint readOutPlace;
  std::string ceiling;
  Colour ceilingColour = 0;
  bool cross = false;
  int popups = 0;
  std::vector<std::pair<double, double>> waypoints;
  std::vector<std::int16_t> viewed;
};

struct Texts : TextSource {
  std::string GetResString(int id) const override {
    switch (id) {
      case 1222:
        return "(m)";
      case 1502:
        return "T\xC3\xA4";  // a letter of two bytes
      default:
        return TextSource::GetResString(id);
    }
  }
};

constexpr double kDown = 18;  // rate of descent of the default template

// 190 minutes on 19000 units, 130 m on 8900 units from y 550. The window shows 10000 units of it.
class Graph : public testing::Test {
 protected:
  Graph() {
    graph.RedrawProfile(container, grid, bars);
    plans.documents(document).Modified = false;
  }
  void AddLeg(double depth, double minutes) {
    ASSERT_TRUE(editor.AddUserWaypoint(depth, minutes, 0));
    graph.RedrawProfile(container, grid, bars);
  }
  static Single X(double time) { return 100 * time; }
  static Single Y(double depth) { return 550 + 8900.0 / 130 * depth; }
  void Press(double time, double depth) { graph.MouseDown(false, X(time), Y(depth), grid); }
  void Move(double time, double depth) { graph.MouseMove(X(time), Y(depth), 10000, grid); }
  void Release() { graph.MouseUp(grid); }

  test::Plans plans;
  Texts texts;
  DocumentForms forms{{plans.documents, plans.model, plans.observer, plans.display, plans.boxes, texts}};
  std::int16_t document = forms.LoadNewDoc();
  frmWaypointEditor& editor = forms(document);
  RecordedWindow window;
  ProfileGraph graph{forms, document, window};
  RecordingSurface container{10000, 7500};
  RecordingSurface grid{19000, 10000};
  RecordingSurface bars{10000, 2500};
};

TEST_F(Graph, AClickHitsARowWithinHalfAMinuteAndHalfADepthUnit) {
  AddLeg(36, 10);
  AddLeg(36, 10);
  const struct {
    double time;
    double depth;
    std::optional<std::int16_t> row;
  } cases[] = {{0.3, 0.3, 0},
               {2, 36, 1},
               {10.45, 36.35, 2},
               {9.55, 35.65, 2},
               {20, 36, 3},
               {10.65, 36, std::nullopt},
               {9.3, 36, std::nullopt},
               {10, 36.7, std::nullopt},
               {10, 35.3, std::nullopt},
               {10, 0, std::nullopt}};
  for (const auto& known : cases) {
    SCOPED_TRACE(testing::Message() << known.time << " min, " << known.depth << " m");
    EXPECT_EQ(graph.RowAt(X(known.time), Y(known.depth)), known.row);
  }
}

TEST_F(Graph, MarksTheRowsThatAreSelected) {
  AddLeg(36, 10);
  AddLeg(18, 10);
  const auto rings = [&] {
    graph.RedrawProfile(container, grid, bars);
    return std::ranges::count_if(grid.strokes, [](const RecordingSurface::Stroke& stroke) {
      return stroke.kind == RecordingSurface::Kind::Circle && stroke.colour == graph::kYellow;
    });
  };
  EXPECT_EQ(rings(), 0);
  graph.SelectRows(1, 2);
  EXPECT_EQ(rings(), 2);
  EXPECT_EQ(graph.SelectedSpan(), std::pair(double{X(0)}, double{X(10)}));
  // Rows that are no longer there are left out.
  graph.SelectRows(2, 99);
  EXPECT_EQ(rings(), editor.InputProfile.GetLength() - 1);
  graph.SelectRows(0, 0);
  EXPECT_EQ(rings(), 0);
  EXPECT_FALSE(graph.SelectedSpan());
}

TEST_F(Graph, AClickOnARowShowsItAndStartsNoDrag) {
  AddLeg(36, 10);
  plans.documents(document).Modified = false;
  Press(10, 36.1);
  EXPECT_THAT(window.viewed, testing::ElementsAre(2));
  EXPECT_FALSE(graph.Dragging());
  Release();
  EXPECT_THAT(window.waypoints, IsEmpty());
  EXPECT_FALSE(plans.documents(document).Modified);
}

TEST_F(Graph, TheRightButtonOpensTheMenuAndStartsNoDrag) {
  graph.MouseDown(true, X(30), Y(20), grid);
  EXPECT_EQ(window.popups, 1);
  EXPECT_FALSE(graph.Dragging());
  EXPECT_EQ(window.readOut, "");
}

TEST_F(Graph, APressMarksTheWholeSeriesAsChanged) {
  AddLeg(36, 10);
  editor.StartDeco();
  const std::int16_t second = forms.AddRepetitiveDive(document, 60);
  ProfileGraph later(forms, second, window);
  later.RedrawProfile(container, grid, bars);
  plans.documents(document).Modified = false;
  plans.documents(second).Modified = false;
  later.MouseDown(false, X(30), Y(20), grid);
  EXPECT_TRUE(plans.documents(second).Modified);
  EXPECT_TRUE(plans.documents(document).Modified);
}

TEST_F(Graph, ADragGivesAWaypointAfterTheLastRow) {
  AddLeg(36, 10);
  Press(30, 20);
  EXPECT_EQ(window.readOut, "20.0 m. 30.0 Min.");
  Move(24.55, 40.02);
  EXPECT_EQ(window.readOut, "40.1 m. 24.5 Min.");
  EXPECT_EQ(window.readOutPlace, (ScreenPoint{X(24.55) + 50, Y(40.02) + 50}));
  Release();
  EXPECT_EQ(window.readOut, "");
  ASSERT_THAT(window.waypoints, SizeIs(1));
  EXPECT_NEAR(window.waypoints[0].first, 40.1, 1e-5);
  EXPECT_NEAR(window.waypoints[0].second, 14.5, 1e-5);
  Release();
  EXPECT_THAT(window.waypoints, SizeIs(1));
}

TEST_F(Graph, AClickGivesAWaypointUnderThePointer) {
  AddLeg(36, 10);
  const auto plot = grid.strokes;
  const struct {
    double atTime, atDepth, depth, minutes;
  } cases[] = {{30, 20, 20, 20}, {30, -3, 0, 20}, {30, 135, 130, 20}, {195, 20, 20, 180}};
  for (const auto& known : cases) {
    SCOPED_TRACE(testing::Message() << known.atTime << " min, " << known.atDepth << " m");
    Press(known.atTime, known.atDepth);
    EXPECT_THAT(grid.inverted, testing::Not(IsEmpty())) << "the leg shows";
    Release();
    ASSERT_FALSE(window.waypoints.empty());
    EXPECT_NEAR(window.waypoints.back().first, known.depth, 0.11);
    EXPECT_NEAR(window.waypoints.back().second, known.minutes, 0.11);
    EXPECT_EQ(grid.strokes, plot);
    EXPECT_THAT(grid.inverted, IsEmpty());
  }
}

TEST_F(Graph, OnlyAPlanThatIsThereFillsTheWindow) {
  graph.RedrawProfile(container, grid, bars, {1, true});
  EXPECT_THAT(grid.Texts(), Contains("180")) << "an empty plan has room to grow";
  AddLeg(36, 20);
  graph.RedrawProfile(container, grid, bars, {1, true});
  EXPECT_THAT(grid.Texts(), Contains("28"));
  EXPECT_THAT(grid.Texts(), testing::Not(Contains("30")));
}

TEST_F(Graph, AnEmptyPlanTellsHowToBegin) {
  const std::string hint = "*StringID 7101*";
  EXPECT_THAT(grid.Texts(), Contains(hint));
  EXPECT_LT(std::ranges::find(grid.strokes, hint, &RecordingSurface::Stroke::text)->x0, 9200) << "in sight";
  AddLeg(36, 10);
  EXPECT_THAT(grid.Texts(), testing::Not(Contains(hint)));
  editor.mnuclearlastwaypoint();
  graph.RedrawProfile(container, grid, bars);
  EXPECT_THAT(grid.Texts(), Contains(hint));
}

TEST_F(Graph, AReleaseOutsideKeepsTheLastPointInside) {
  Press(30, 20);
  Move(40, 50);
  for (const auto& [time, depth] : {std::pair{-1.0, 50.0}, {191.0, 50.0}, {40.0, 131.0}, {40.0, -1.0}}) {
    window.cross = true;
    Move(time, depth);
    EXPECT_FALSE(window.cross) << time << " " << depth;
  }
  EXPECT_EQ(window.readOut, "50.0 m. 40.0 Min.");
  Release();
  ASSERT_THAT(window.waypoints, SizeIs(1));
  EXPECT_NEAR(window.waypoints[0].first, 50, 0.11);
  EXPECT_NEAR(window.waypoints[0].second, 40, 0.11);
}

TEST_F(Graph, AboveTheSurfaceLineIsTheSurface) {
  AddLeg(6, 10);
  Press(30, 20);
  Move(40, -0.5);  // the plot is still under the tip of the pointer
  EXPECT_EQ(window.readOut, "0.0 m. 40.0 Min.");
  Release();
  ASSERT_THAT(window.waypoints, SizeIs(1));
  EXPECT_EQ(window.waypoints[0].first, 0);
}

TEST_F(Graph, FeetAreNamed) {
  plans.documents(document).Template.Metric = false;
  Press(30, 20);
  EXPECT_EQ(window.readOut, "20.0 ft. 30.0 Min.");
}

TEST_F(Graph, TheDragDrawsOnlyItsPreviewAndLeavesNothing) {
  AddLeg(36, 10);
  const auto plot = grid.strokes;
  Press(30, 20);
  Move(20, 60);
  Move(30, 50);
  ASSERT_THAT(grid.inverted, SizeIs(2));  // down, then level
  EXPECT_NEAR(grid.inverted[0].x1, X(10 + (50 - 36) / kDown), 0.5);
  EXPECT_NEAR(grid.inverted[1].x1, X(30), 0.5);
  EXPECT_NEAR(grid.inverted[1].y1, Y(50), 0.5);
  Move(30, 140);  // outside
  Move(12, 3);    // over limits, with circles
  EXPECT_THAT(grid.inverted, SizeIs(testing::Ge(3U)));
  Release();
  EXPECT_THAT(grid.inverted, IsEmpty());
  EXPECT_EQ(grid.strokes, plot);
}

TEST_F(Graph, ACancelledDragGivesNoWaypoint) {
  const struct {
    const char* what;
    std::function<void()> cancel;
    int popups;
  } cases[] = {{"called off", [&] { graph.CancelDrag(grid); }, 0},
               {"right button", [&] { graph.MouseDown(true, X(40), Y(50), grid); }, 1}};
  for (const auto& known : cases) {
    SCOPED_TRACE(known.what);
    Press(30, 20);
    Move(40, 50);
    known.cancel();
    EXPECT_FALSE(graph.Dragging());
    EXPECT_EQ(window.readOut, "");
    EXPECT_THAT(grid.inverted, IsEmpty());
    Release();
    EXPECT_THAT(window.waypoints, IsEmpty());
    EXPECT_EQ(window.popups, known.popups);
  }
}

TEST_F(Graph, ARedrawDuringADragStartsItsPreviewAnew) {
  Press(30, 20);
  Move(40, 50);
  AddLeg(36, 10);
  Move(50, 60);
  ASSERT_THAT(grid.inverted, SizeIs(2));
  EXPECT_NEAR(grid.inverted[0].x0, X(10), 0.5);
  EXPECT_NEAR(grid.inverted[0].y0, Y(36), 0.5);
}

TEST_F(Graph, ThePointerIsACrossOverTheVisiblePlot) {
  Move(91.1, 20);
  EXPECT_TRUE(window.cross);
  Move(91.2, 20);  // 887 units short of the window's edge
  EXPECT_FALSE(window.cross);
}

TEST_F(Graph, TheCeilingIsThatOfTheLastRow) {
  EXPECT_EQ(window.ceiling, "0");
  AddLeg(12, 5);
  EXPECT_EQ(window.ceiling, "0.0 m");
  EXPECT_EQ(window.ceilingColour, kBlack);
  AddLeg(50, 40);
  EXPECT_EQ(window.ceiling, FormatFixed(editor.InputProfile.GetCeiling(editor.InputProfile.GetLength()), 1) + " m");
  EXPECT_EQ(window.ceilingColour, graph::kYellow);
  editor.mnuclearallwaypoints();
  graph.RedrawProfile(container, grid, bars);
  EXPECT_EQ(window.ceiling, "0");
  EXPECT_EQ(window.ceilingColour, kBlack);
}

TEST_F(Graph, TheTipTellsOfTheNearestRow) {
  AddLeg(36, 2);
  AddLeg(36, 1);
  EXPECT_EQ(graph.TipAt(X(15), Y(36)), "");
  const std::string tip = graph.TipAt(X(2.9), Y(36));
  EXPECT_EQ(tip,
            "*StringID 7028*: 36.0 m\n*StringID 7029*: 3.0 min\n*StringID 7030*: Air\n*StringID 7031*: 0.97 bar\n"
            "*StringID 7032*: 0.0 m");
  EXPECT_THAT(graph.TipAt(X(2.1), Y(36)), HasSubstr("2.0 min"));
  EXPECT_THAT(graph.Description(), testing::EndsWith("*StringID 7028*: 36.0 m, *StringID 7029*: 3.0 min, "
                                                     "*StringID 7030*: Air, *StringID 7031*: 0.97 bar, "
                                                     "*StringID 7032*: 0.0 m\n"));
  EXPECT_EQ(std::ranges::count(graph.Description(), '\n'), editor.InputProfile.GetLength());
}

TEST_F(Graph, TheTipEndsWithWhatElseThereIsToTellOfTheRow) {
  AddLeg(36, 2);
  AddLeg(36, 1);
  graph.rowRemark = [](std::int16_t row) { return row == 1 ? std::string("because of " + std::to_string(row)) : ""; };
  EXPECT_THAT(graph.TipAt(X(2), Y(36)), testing::EndsWith(": 0.0 m\nbecause of 1"));
  EXPECT_THAT(graph.TipAt(X(3), Y(36)), testing::EndsWith(": 0.0 m"));
}

using Kind = RecordingSurface::Kind;

/// 30 min at 45 m on air, with its ascent on the gases of the template.
TEST_F(Graph, TellsCeilingDepthsAndMinutesAsFarAsTheyAreAskedFor) {
  AddLeg(45, 30);
  ASSERT_TRUE(editor.StartDeco());
  const ClassProfile& rows = editor.InputProfile;
  std::int16_t firstStop = 1;
  while (rows.GetStatus(firstStop) != RowStatus::kStop) ++firstStop;
  const std::string depth = FormatFixed(rows.getDepth(firstStop), 0) + " m";
  const std::string runTime = FormatFixed(rows.GetRunTime(rows.GetLength()), 0) + " min";
  const std::string lastStop = FormatFixed(rows.getStopTime(rows.GetLength() - 1), 0) + "'";
  for (int shown = 0; shown < 8; ++shown) {
    SCOPED_TRACE(shown);
    const GraphExtras extras{(shown & 1) != 0, (shown & 2) != 0, (shown & 4) != 0};
    graph.RedrawProfile(container, grid, bars, {1, false, extras});
    // A mark has at most four corners, the ceiling's curve one each tenth of a minute.
    const auto isCurve = [](const std::vector<SurfacePoint>& corners) { return corners.size() > 4; };
    EXPECT_EQ(std::ranges::any_of(grid.polygons, isCurve), extras.ceiling);
    EXPECT_EQ(std::ranges::count(grid.Texts(), lastStop) == 1, extras.stopMinutes);
    for (const std::string& text : {depth, runTime, std::string("21 m"), std::string("6 m")}) {
      EXPECT_EQ(std::ranges::count(grid.Texts(), text) > 0, extras.depths) << text;
    }
  }
  graph.RedrawProfile(container, grid, bars, {1, false, {false, false, false}});
  const auto plain = grid.strokes;
  RecordingSurface alone(19000, 10000);
  ProfilePlot(container, alone).Redraw(rows, ProfilePlot::kRoomToGrow);
  EXPECT_EQ(plain, alone.strokes) << "the plan itself is drawn alike";
}

TEST_F(Graph, FiguresNeverTouchEachOther) {
  for (const auto& [minutes, width] : {std::pair{30.0, 19000.0}, {60.0, 19000.0}, {90.0, 6000.0}, {30.0, 3000.0}}) {
    SCOPED_TRACE(testing::Message() << minutes << " min on " << width);
    editor.mnuclearallwaypoints();
    ASSERT_TRUE(editor.AddUserWaypoint(60, minutes, 0));
    ASSERT_TRUE(editor.StartDeco());
    RecordingSurface small(width, 5000);
    graph.RedrawProfile(container, small, bars);
    std::vector<RecordingSurface::Stroke> figures = small.Of(Kind::Text);
    std::erase_if(figures, [](const auto& text) { return text.colour != graph::kLabel; });
    EXPECT_GE(figures.size(), 3U);
    for (std::size_t i = 0; i < figures.size(); ++i) {
      EXPECT_LE(figures[i].x0 + small.TextWidth(figures[i].text, false), width);
      for (std::size_t k = 0; k < i; ++k) {
        const bool apart = figures[i].x0 >= figures[k].x0 + small.TextWidth(figures[k].text, false) ||
                           figures[k].x0 >= figures[i].x0 + small.TextWidth(figures[i].text, false) ||
                           std::fabs(figures[i].y0 - figures[k].y0) >= 180;
        EXPECT_TRUE(apart) << figures[i].text << " and " << figures[k].text;
      }
    }
  }
}

TEST_F(Graph, TheCeilingFollowsEachEvaluation) {
  AddLeg(45, 30);
  const auto before = grid.polygons;
  ASSERT_EQ(before.size(), 1U);
  graph.RedrawProfile(container, grid, bars);
  EXPECT_EQ(grid.polygons, before);
  AddLeg(45, 10);
  EXPECT_NE(grid.polygons, before);
  plans.documents(document).Template.StepSize = 0;  // can't be planned on
  editor.ReEvaluateUserEnteredWaypoints();
  graph.RedrawProfile(container, grid, bars);
  EXPECT_TRUE(grid.polygons.empty());
}

TEST_F(Graph, NumbersInWordsHaveTheUsersSeparator) {
  ProfileGraph german(forms, document, window, {",", "."});
  ASSERT_TRUE(editor.AddUserWaypoint(36.5, 20, 0));
  german.RedrawProfile(container, grid, bars);
  EXPECT_THAT(window.ceiling, HasSubstr(","));
  EXPECT_THAT(german.TipAt(X(20), Y(36.5)), HasSubstr("*StringID 7028*: 36,5 m\n"));
  EXPECT_THAT(german.Description(), HasSubstr("0,98 bar"));
  german.MouseDown(false, X(30), Y(20), grid);
  EXPECT_EQ(window.readOut, "20,0 m. 30,0 Min.");
}

TEST_F(Graph, TheDepthTitleRunsDownwardsLetterByLetter) {
  EXPECT_THAT(graph.DepthLetters(), testing::ElementsAre("T", "\xC3\xA4", "(m)"));
}

TEST_F(Graph, APictureShowsAllOfTheGraphAndChangesNothing) {
  AddLeg(36, 10);
  const DiveTemplate before = plans.documents(document).Template;
  window.ceiling = "untouched";
  RecordingSurface picture(20000, 12000);
  graph.DrawPicture(picture, {true, true, true, true});
  EXPECT_EQ(window.ceiling, "untouched");
  EXPECT_EQ(plans.documents(document).Template.DescendRates[0].DrawRate, before.DescendRates[0].DrawRate);
  const auto shown = picture.Texts();
  for (const char* text : {"*StringID 1308*", "*StringID 1501*", "*StringID 1503* ", "\xC3\xA4", "(m)",
                           "*StringID 7765*", "10 min", "75", "65"}) {
    EXPECT_THAT(shown, Contains(text));
  }
  for (const auto& stroke : picture.strokes) {
    EXPECT_GE(stroke.x0, 0) << stroke.text;
    EXPECT_GE(stroke.y0, 0) << stroke.text;
    EXPECT_LE(stroke.x0, 20000) << stroke.text;
    EXPECT_LE(stroke.y0, 12000) << stroke.text;
  }
}

}  // namespace
}  // namespace tav
