#include "graph/profile_graph.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <utility>

#include "app/document_plan.h"
#include "headless/recording_surface.h"
#include "model/number_text.h"
#include "model/number_texts.h"
#include "picture/graph_colours.h"
#include "support/plan_fixture.h"
#include "support/text_names.h"

namespace tav {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

struct RecordedWindow : GraphWindow {
  void ShowReadOut(double x, double y, const std::string& text) override {
    readOut = text;
    readOutPlace = {x, y};
  }
  void HideReadOut() override { readOut.clear(); }
  void ShowCross(bool shown) override { cross = shown; }
  void ShowPopup() override { ++popups; }
  void MarkModified() override { modified = true; }
  void NewWaypoint(Single depth, Single segmentTime) override { waypoints.emplace_back(depth, segmentTime); }
  void ViewRow(std::int16_t row) override { viewed.push_back(row); }
  void EditRow(std::int16_t row) override { edited.push_back(row); }

  std::string readOut;
  ScreenPoint readOutPlace;
  bool cross = false;
  int popups = 0;
  bool modified = false;
  std::vector<std::pair<double, double>> waypoints;
  std::vector<std::int16_t> viewed;
  std::vector<std::int16_t> edited;
};

constexpr double kDown = 18;  // rate of descent of the default template

// 190 minutes on 19000 units, 130 m on 8900 units from y 550. The window shows 10000 units of it. Numbers have commas.
class Graph : public testing::Test {
 protected:
  Graph() { graph.RedrawProfile(container, grid, bars); }
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
  frmWaypointEditor& editor = plans.New();
  DocumentPlan plan{plans.forms, editor.Tag(), {",", "."}};
  RecordedWindow window;
  ProfileGraph graph{[this] { return plan(); }, window};
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
  Press(10, 36.1);
  EXPECT_THAT(window.viewed, testing::ElementsAre(2));
  EXPECT_FALSE(graph.Dragging());
  Release();
  EXPECT_THAT(window.waypoints, IsEmpty());
  EXPECT_FALSE(window.modified);
}

TEST_F(Graph, TheRightButtonOpensTheMenuAndStartsNoDrag) {
  graph.MouseDown(true, X(30), Y(20), grid);
  EXPECT_EQ(window.popups, 1);
  EXPECT_FALSE(graph.Dragging());
  EXPECT_EQ(window.readOut, "");
}

TEST_F(Graph, ADragGivesAWaypointAfterTheLastRow) {
  AddLeg(36, 10);
  Press(30, 20);
  EXPECT_EQ(window.readOut, "20,0 m, 30,0 min");
  Move(24.55, 40.02);
  EXPECT_EQ(window.readOut, "40,1 m, 24,5 min");
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
  EXPECT_EQ(graph.Scale().WorldRight, 190) << "an empty plan has room to grow";
  AddLeg(36, 20);
  graph.RedrawProfile(container, grid, bars, {1, true});
  EXPECT_EQ(graph.Scale().WorldRight, 45) << "legs have room for one more";
  ASSERT_TRUE(editor.StartDeco());
  graph.RedrawProfile(container, grid, bars, {1, true});
  const double end = editor.InputProfile.GetRunTime(editor.InputProfile.GetLength());
  EXPECT_LE(graph.Scale().WorldRight, end * 1.06 + 5);
  EXPECT_GE(graph.Scale().WorldRight, end);
}

TEST_F(Graph, AnEmptyPlanTellsHowToBegin) {
  const std::string hint = Numbered("<GraphHint>");
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
  EXPECT_EQ(window.readOut, "50,0 m, 40,0 min");
  Release();
  ASSERT_THAT(window.waypoints, SizeIs(1));
  EXPECT_NEAR(window.waypoints[0].first, 50, 0.11);
  EXPECT_NEAR(window.waypoints[0].second, 40, 0.11);
}

TEST_F(Graph, AboveTheSurfaceLineIsTheSurface) {
  AddLeg(6, 10);
  Press(30, 20);
  Move(40, -0.5);  // the plot is still under the tip of the pointer
  EXPECT_EQ(window.readOut, "0,0 m, 40,0 min");
  Release();
  ASSERT_THAT(window.waypoints, SizeIs(1));
  EXPECT_EQ(window.waypoints[0].first, 0);
}

TEST_F(Graph, ThePointerReadsTheMomentUnderIt) {
  AddLeg(36, 25);
  ASSERT_TRUE(editor.StartDeco());
  graph.RedrawProfile(container, grid, bars);
  graph.leaving = [&](Single time) { return plan.LeavingAt(time); };
  const auto plot = grid.strokes;
  const Waypoint& bottom = editor.InputProfile.Row(2);
  const auto up = Leaving(editor.Planned()).AtEndOf(2);
  ASSERT_TRUE(up.open);
  Move(25.02, 60);
  const NumberTexts numbers(",", ".");
  const std::string start = "25,0 min, 36,0 m, Air\n<PPO2> 0,97 bar, <Ceiling> " + numbers.Fixed(bottom.Ceiling, 1) +
                            " m\n<GF99> 0 %, <SurfaceGF> ";
  const std::string end = "<LeavingNow>: " + numbers.Short(up.open->minutes) + " <Minutes>\n  Air " +
                          numbers.Fixed(up.open->gas.at(0).total, 0) + " <Litres>";
  EXPECT_THAT(window.readOut, AllOf(StartsWith(Numbered(start)), HasSubstr(Numbered(end))));
  ASSERT_THAT(grid.inverted, SizeIs(1));
  EXPECT_NEAR(grid.inverted[0].x0, X(25), 0.5);
  Move(1, 100);
  EXPECT_THAT(window.readOut, StartsWith("1,0 min, 18,0 m, Air\n"));
  EXPECT_THAT(grid.inverted, SizeIs(1));
  graph.MouseMove(X(25), Y(60), 10000, grid, true);
  ASSERT_GT(grid.inverted.size(), 20U) << "the way out, in dots";
  EXPECT_NEAR(grid.inverted[1].x0, X(25), 0.5);
  EXPECT_NEAR(grid.inverted[1].y0, Y(36), 0.5);
  EXPECT_NEAR(grid.inverted.back().x1, X(25 + up.open->minutes), 80);
  const struct {
    const char* what;
    std::function<void()> leave;
  } ways[] = {{"behind the dive", [&] { Move(100, 20); }},
              {"off the plot", [&] { Move(1, 140); }},
              {"off the window", [&] { graph.MouseLeave(grid); }},
              {"a button", [&] { Press(2, 36); }},
              {"drawn anew", [&] { graph.RedrawProfile(container, grid, bars); }}};
  for (const auto& way : ways) {
    SCOPED_TRACE(way.what);
    Move(1, 100);
    EXPECT_NE(window.readOut, "");
    way.leave();
    EXPECT_EQ(window.readOut, "");
    EXPECT_THAT(grid.inverted, IsEmpty());
    EXPECT_EQ(grid.strokes, plot);
  }
}

TEST_F(Graph, FeetAreNamed) {
  plans.documents(editor.Tag()).Template.Metric = false;
  Press(30, 20);
  EXPECT_EQ(window.readOut, "20,0 ft, 30,0 min");
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
  EXPECT_TRUE(window.modified);
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
  const auto told = [&] {
    graph.RedrawProfile(container, grid, bars);
    const auto title =
        std::ranges::find(container.strokes, Numbered("<GraphCeiling>"), &RecordingSurface::Stroke::text);
    return std::ranges::find_if(title + 1, container.strokes.end(), [](const auto& s) { return !s.text.empty(); });
  };
  EXPECT_EQ(told()->text, "0");
  AddLeg(12, 5);
  EXPECT_EQ(told()->text, "0,0 m");
  EXPECT_EQ(told()->colour, kBlack);
  AddLeg(50, 40);
  const Single ceiling = editor.InputProfile.GetCeiling(editor.InputProfile.GetLength());
  EXPECT_EQ(told()->text, WriteLocaleNumber(FormatFixed(ceiling, 1), {",", "."}) + " m");
  EXPECT_EQ(told()->colour, graph::kYellow);
  editor.mnuclearallwaypoints();
  EXPECT_EQ(told()->text, "0");
}

// What it asks of the legs, whose last row ends one; row 2 and 4 are waypoints.
struct RecordedLegs : GraphLegs {
  bool HasAscent() const override { return ascent; }
  bool EndsLeg(std::int16_t row) const override { return row == 2 || row == 4; }
  void Select(std::int16_t row) override { asked.push_back("select " + std::to_string(row)); }
  bool BeginMove(std::int16_t row) override {
    asked.push_back("begin " + std::to_string(row));
    return free;
  }
  std::string Move(Single depth, Single minutes) override {
    asked.push_back("move " + FormatFixed(depth, 0) + " " + FormatFixed(minutes, 0));
    return refusal;
  }
  [[nodiscard]] std::string Refusal() const override { return "held"; }
  [[nodiscard]] bool IsMoving() const override { return true; }
  void EndMove(bool keep) override { asked.emplace_back(keep ? "keep" : "drop"); }
  std::string Remove(std::int16_t row) override {
    asked.push_back("remove " + std::to_string(row));
    return refusal;
  }
  std::string Add(Single depth, Single runTime) override {
    asked.push_back("add " + FormatFixed(depth, 0) + " " + FormatFixed(runTime, 0));
    return refusal;
  }
  std::vector<std::string> Take() { return std::exchange(asked, {}); }

  bool ascent = true;
  bool free = true;
  std::string refusal;
  std::vector<std::string> asked;
};

class GraphOfLegs : public Graph {
 protected:
  GraphOfLegs() {
    AddLeg(36, 10);
    AddLeg(50, 10);
    editor.StartDeco();
    graph.legs = &legs;
    graph.RedrawProfile(container, grid, bars);
  }
  RecordedLegs legs;
};

TEST_F(GraphOfLegs, TheMouseMovesAWaypointByWholeStepsAndOnlyWhatIsMovedFar) {
  const struct {
    const char* what;
    std::function<void()> act;
    std::vector<std::string> asked;
  } cases[] = {
      {"a click", [&] { Press(10.5, 36.4), Move(10.6, 36.7), Release(); }, {"select 2"}},
      {"a drag",
       [&] { Press(10, 36), Move(12.3, 39.6), Move(12.4, 39.7), Release(); },
       {"begin 2", "move 4 2", "keep"}},
      {"one off the plot", [&] { Press(10, 36), Move(13, 200), Release(); }, {"begin 2", "move 94 3", "keep"}},
      {"one that is called off",
       [&] { Press(20, 50), Move(20, 47), graph.CancelDrag(grid), Release(); },
       {"begin 4", "move -3 0", "drop"}},
      {"away from all", [&] { Press(10, 100), Move(20, 90), Release(); }, {"select 0"}},
      {"a segment", [&] { Press(15, 50.5), Release(); }, {"select 4"}},
      {"the way down", [&] { Press(1.8, 31.5), Release(); }, {"select 1"}},
      {"two clicks beside the plan", [&] { graph.DoubleClick(X(41.4), Y(29.7), grid); }, {"add 30 41"}},
  };
  for (const auto& known : cases) {
    SCOPED_TRACE(known.what);
    known.act();
    EXPECT_EQ(legs.Take(), known.asked);
    EXPECT_FALSE(graph.Dragging());
  }
  graph.DoubleClick(X(10), Y(36), grid);
  EXPECT_THAT(window.edited, testing::ElementsAre(2));
  EXPECT_THAT(window.viewed, IsEmpty());
  EXPECT_THAT(window.waypoints, IsEmpty());
  EXPECT_FALSE(window.modified);
  legs.ascent = false;  // as long as there is none, legs are added by drags, and rows shown
  Press(10, 36), Release();
  EXPECT_THAT(window.viewed, testing::ElementsAre(2));
  graph.DoubleClick(X(41.4), Y(29.7), grid);
  Release();
  EXPECT_THAT(window.waypoints, SizeIs(1)) << "a double click, too, begins a leg";
  legs.Take();
  Press(60, 20), Release();
  EXPECT_THAT(window.waypoints, SizeIs(2));
  EXPECT_THAT(legs.Take(), IsEmpty());
}

TEST_F(GraphOfLegs, KeysMoveTheSelectedWaypoint) {
  EXPECT_FALSE(graph.Nudge(1, 0)) << "nothing is selected";
  EXPECT_FALSE(graph.RemoveSelected());
  EXPECT_TRUE(graph.SelectNext(1));
  EXPECT_TRUE(graph.SelectNext(-1));
  EXPECT_EQ(legs.Take(), (std::vector<std::string>{"select 2", "select 4"}));
  graph.SelectRows(2, 2);
  EXPECT_TRUE(graph.Nudge(1, 0));
  EXPECT_TRUE(graph.SelectNext(1));
  EXPECT_FALSE(graph.SelectNext(-1)) << "it is the first";
  EXPECT_TRUE(graph.RemoveSelected());
  plans.documents(editor.Tag()).Template.Metric = false;
  EXPECT_TRUE(graph.Nudge(-1, -1));
  EXPECT_EQ(legs.Take(), (std::vector<std::string>{"begin 2", "move 1 0", "keep", "select 4", "remove 2", "begin 2",
                                                   "move -5 -1", "keep"}));
  legs.refusal = "No.";
  EXPECT_TRUE(graph.Nudge(0, 1));
  EXPECT_EQ(legs.Take().back(), "drop");
  EXPECT_EQ(window.readOut, "No.");
  graph.SelectRows(3, 3);
  EXPECT_FALSE(graph.Nudge(1, 0)) << "no waypoint";
}

TEST_F(GraphOfLegs, ThePlotStaysWhileAWaypointIsMovedAndTheReasonOfARefusalIsRead) {
  graph.RedrawProfile(container, grid, bars, {1, true});
  const Single right = graph.Scale().WorldRight;
  const auto at = [&](double time, double depth) { return graph.Scale().WorldToScreen(time, -depth); };
  graph.MouseDown(false, at(20, 50).x, at(20, 50).y, grid);
  graph.MouseMove(at(26, 50).x, at(26, 50).y, 10000, grid);
  EXPECT_THAT(window.readOut, StartsWith("50 m, 26 min\n"));
  AddLeg(50, 90);
  graph.RedrawProfile(container, grid, bars, {1, true});
  EXPECT_EQ(graph.Scale().WorldRight, right);
  legs.refusal = "Not there.";
  graph.MouseMove(at(26, 40).x, at(26, 40).y, 10000, grid);
  EXPECT_EQ(window.readOut, "40 m, 26 min\nNot there.");
  Release();
  EXPECT_EQ(window.readOut, "Not there.");
  EXPECT_EQ(legs.Take().back(), "drop");
  graph.RedrawProfile(container, grid, bars, {1, true});
  EXPECT_GT(graph.Scale().WorldRight, right);
}

TEST_F(Graph, TheTipTellsOfTheNearestRowAndWhatElseThereIsToTellOfIt) {
  AddLeg(36, 2);
  AddLeg(36, 1);
  graph.rowRemark = [](std::int16_t row) { return row == 1 ? std::string("because of " + std::to_string(row)) : ""; };
  EXPECT_EQ(graph.TipAt(X(15), Y(36)), "");
  EXPECT_EQ(graph.TipAt(X(2.9), Y(36)), Numbered("<Depth>: 36,0 m\n<RunTime>: 3,0 min\n<Gas>: Air\n<PPO2>: 0,97 bar\n"
                                                 "<Ceiling>: 0,0 m"));
  EXPECT_THAT(graph.TipAt(X(2.1), Y(36)), AllOf(HasSubstr("2,0 min"), EndsWith(": 0,0 m\nbecause of 1")));
}

}  // namespace
}  // namespace tav
