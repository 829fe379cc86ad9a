#include "app/graph_edits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/number_text.h"
#include "support/program_fixture.h"
#include "support/typed_plan.h"

namespace tav {
namespace {

using testing::HasSubstr;

/// The program with a dive to 60 m and 45 m, and its ascent; with the plan pane or without.
class EditsOfTheGraph : public testing::TestWithParam<bool> {
 protected:
  EditsOfTheGraph() {
    EXPECT_TRUE(p.Start());
    frmWaypointEditor& editor = p.Editor();
    const std::int16_t gas = FindBlendIndex("Tx18/45", p.Document().Template);
    editor.SaveUserEnteredWaypoints(20, 60, gas, false);
    editor.SaveUserEnteredWaypoints(10.5, 45, gas, false);
    editor.ReEvaluateUserEnteredWaypoints();
    editor.StartDeco();
    if (!GetParam()) p.Main().mnuPlanPane.Choose();
    legs = p.Main().GraphEditsOf(p.Active());
  }
  std::string Rows() { return test::RowsText(p.Editor().InputProfile); }
  std::int16_t EndOf(std::int16_t leg) { return p.Editor().LastRowOf(leg); }
  std::string Typed() {
    const ClassUseractions& actions = p.Editor().UserActions;
    std::string text;
    for (std::int16_t i = 1; i <= actions.GetLength(); ++i) {
      if (actions.getaction(i) != ClassUseractions::kLeg) continue;
      text += FormatPlain(actions.getDepth(i)) + "/" + FormatPlain(actions.gettime(i)) + " ";
    }
    return text;
  }

  test::HeadlessProgram p;
  std::unique_ptr<GraphLegs> legs;
};

TEST_P(EditsOfTheGraph, AMoveShowsEachPlaceAndIsOneStepOfUndo) {
  const std::string before = Rows();
  ASSERT_TRUE(legs->BeginMove(EndOf(1)));
  EXPECT_EQ(legs->Move(3, 0), "");
  EXPECT_EQ(Typed(), "63/20 45/10.5 ");
  EXPECT_NE(Rows(), before);
  EXPECT_EQ(legs->Move(-2, 5), "") << "from where it began";
  EXPECT_EQ(Typed(), "58/25 45/10.5 ");
  EXPECT_EQ(p.Look().selected.first, EndOf(1)) << "it stays selected";
  legs->EndMove(true);
  EXPECT_EQ(Typed(), "58/25 45/10.5 ");
  EXPECT_TRUE(legs->HasAscent());
  EXPECT_TRUE(p.Document().Modified);
  EXPECT_EQ(p.Look().selected.first, EndOf(1));
  p.Main().mnuUndo.Choose();
  EXPECT_TRUE(Rows() == before);
}

TEST_P(EditsOfTheGraph, WhatIsCalledOffOrCannotBeLeavesThePlanAsItWas) {
  const std::string before = Rows();
  p.Document().Modified = false;
  for (const bool keep : {false, true}) {
    for (const auto& [depth, minutes] : {std::pair{5.0, 2.0}, {-61.0, 0.0}, {0.0, -21.0}, {500.0, 0.0}}) {
      const bool can = depth == 5;
      if (can && keep) continue;
      ASSERT_TRUE(legs->BeginMove(EndOf(1)));
      EXPECT_EQ(legs->Move(1, 1), "");
      EXPECT_EQ(legs->Move(depth, minutes).empty(), can) << depth << " " << minutes;
      legs->EndMove(keep);
      EXPECT_TRUE(Rows() == before);
      EXPECT_EQ(p.Look().asBefore, "");
      EXPECT_FALSE(p.Document().Modified);
    }
  }
  EXPECT_FALSE(legs->BeginMove(1)) << "a row within a leg";
  EXPECT_EQ(legs->Move(1, 1), "") << "no move is under way";
  EXPECT_TRUE(Rows() == before);
}

TEST_P(EditsOfTheGraph, AMoveThatACommandEndsIsKeptAndGoesNoFurther) {
  ASSERT_TRUE(legs->BeginMove(EndOf(2)));
  EXPECT_EQ(legs->Move(0, 3), "");
  p.Main().FinishEdits();
  EXPECT_EQ(legs->Move(0, 9), "");
  legs->EndMove(false);
  EXPECT_EQ(Typed(), "60/20 45/13.5 ");
}

TEST_P(EditsOfTheGraph, LegsAreAddedBehindTheLastAndRemoved) {
  const std::string before = Rows();
  const Single end = p.Editor().InputProfile.GetRunTime(EndOf(2));
  EXPECT_THAT(legs->Add(30, end), HasSubstr("30.5"));
  EXPECT_NE(legs->Add(-1, end + 4), "");
  EXPECT_NE(legs->Add(3, end + 4), "") << "above the ceiling";
  EXPECT_TRUE(Rows() == before);
  EXPECT_EQ(legs->Add(30, end + 4), "");
  EXPECT_EQ(Typed(), "60/20 45/10.5 30/4 ");
  EXPECT_TRUE(legs->HasAscent());
  EXPECT_EQ(legs->Remove(EndOf(1)), "");
  EXPECT_EQ(Typed(), "45/10.5 30/4 ");
  EXPECT_EQ(legs->Remove(1), "") << "no waypoint";
  EXPECT_EQ(legs->Remove(EndOf(2)), "");
  EXPECT_EQ(legs->Remove(EndOf(1)), "");
  EXPECT_EQ(p.Editor().InputProfile.GetLength(), 0);
  for (int i = 0; i < 4; ++i) p.Main().mnuUndo.Choose();
  EXPECT_TRUE(Rows() == before);
}

TEST_P(EditsOfTheGraph, AnotherPlanInFrontIsLeftAlone) {
  const std::string before = Rows();
  p.Main().mnuNewProfile.Choose();
  EXPECT_FALSE(legs->BeginMove(2));
  EXPECT_EQ(legs->Add(30, 500) + legs->Remove(2), "");
  legs->Select(2);
  EXPECT_EQ(p.Editor().InputProfile.GetLength(), 0);
}

INSTANTIATE_TEST_SUITE_P(, EditsOfTheGraph, testing::Bool());

}  // namespace
}  // namespace tav
