#include "app/document_plan.h"

#include <gtest/gtest.h>

#include "support/plan_fixture.h"
#include "support/text_names.h"

namespace tav {
namespace {

TEST(DocumentPlan, FollowsEachEvaluation) {
  test::Plans plans;
  frmWaypointEditor& editor = plans.New();
  DocumentPlan plan(plans.forms, editor.Tag(), {});
  ASSERT_TRUE(editor.AddUserWaypoint(45, 30, 0));
  const auto lastMoment = [&] { return plan().moments.empty() ? -1.0 : double{plan().moments.back().time}; };
  EXPECT_EQ(lastMoment(), 30);
  EXPECT_EQ(plan().notice, Numbered("<LacksAscent>")) << "it has no ascent";
  ASSERT_TRUE(editor.StartDeco());
  EXPECT_EQ(lastMoment(), editor.CurrentRunTime());
  EXPECT_EQ(plan().notice, "");
  frmWaypointEditor& second = plans.forms(plans.forms.AddRepetitiveDive(editor.Tag(), 60));
  DocumentPlan empty(plans.forms, second.Tag(), {});
  const Compartments start = empty().startLoads;
  ASSERT_TRUE(second.AddUserWaypoint(0, 0, 0));
  for (std::size_t i = 0; i < kCompartments; ++i) {
    EXPECT_NEAR(start[i], second.InputProfile.GetPercentCompartments(1)[i], 1e-6)
        << "as a leg of no time at the surface";
  }
  plans.forms.Link(second.Tag(), -1, -1);
  plans.documents(editor.Tag()).Decompresses = false;
  EXPECT_EQ(plan().notice, Numbered("<DoesNotDecompress>"));
  plans.documents(editor.Tag()).Template.StepSize = 0;  // can't be planned on
  editor.ReEvaluateUserEnteredWaypoints();
  EXPECT_EQ(lastMoment(), -1);
  EXPECT_EQ(plan().notice, editor.EvaluationFault());
}

}  // namespace
}  // namespace tav
