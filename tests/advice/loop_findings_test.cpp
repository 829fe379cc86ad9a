#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "advice/plan_check.h"
#include "plans/profile_commands.h"
#include "support/english.h"
#include "support/plan_fixture.h"
#include "support/source_folder.h"

namespace tav {
namespace {

using testing::AllOf;
using testing::HasSubstr;

std::string TextOf(Rule rule, Severity severity, const std::vector<Finding>& findings) {
  const auto found = std::ranges::find(findings, rule, &Finding::rule);
  if (found == findings.end()) return {};
  EXPECT_EQ(found->severity, severity);
  return found->text;
}

std::vector<Finding> Check(test::Plans& plans, std::int16_t document) {
  return CheckPlan(plans.Planned(document),
                   AdviceWords(test::English(), {".", ""}, plans.documents(document).Template.Metric));
}

/// The example on a rebreather twice, two hours apart, the second one changed.
std::vector<Finding> SecondDive(const std::function<void(DiveTemplate&)>& change) {
  ProfileText series = ReadProfileFile(SourceFolder() / "dives/rebreather.tav");
  series.dives.push_back(series.dives.front());
  series.dives.back().SurfaceInterval = 120;
  change(series.dives.back().Template);
  test::Plans plans;
  return Check(plans, OpenProfile(plans.forms, "x.tav", series).back());
}

TEST(SurfaceIntervalCheck, WarnsOfAnIntervalOnTheLoopUntilItIsSpentOnAir) {
  const struct {
    std::function<void(DiveTemplate&)> change;
    std::string text;
  } cases[] = {
      {[](DiveTemplate&) {}, "on the loop, as if you breathed oxygen for 120 min. Tick \"Surface interval on air\""},
      {[](DiveTemplate& t) { t.Setpoint = 0.7; }, "as if you breathed EAN69 for 120 min"},
      {[](DiveTemplate& t) { t.IntervalOnAir = true; }, ""},
      {[](DiveTemplate& t) { t.OpenCircuit = true; }, ""}};
  for (const auto& each : cases) {
    const std::string text = TextOf(Rule::IntervalOnLoop, Severity::Danger, SecondDive(each.change));
    EXPECT_THAT(text, HasSubstr(each.text));
    EXPECT_EQ(text.empty(), each.text.empty()) << text;
  }
  test::Plans plans;
  const auto first = Check(plans, OpenProfile(plans.forms, SourceFolder() / "dives/rebreather.tav").front());
  EXPECT_EQ(TextOf(Rule::IntervalOnLoop, Severity::Danger, first), "") << "a first dive has no interval";
}

TEST(LoopCheck, NotesEachChangeThatTheLoopMakesUntilItKeepsItsDiluent) {
  const struct {
    std::function<void(DiveTemplate&)> change;
    std::string text;
  } cases[] = {
      {[](DiveTemplate& t) { t.OCDeco = false; }, "as diluents: Tx21/35 at 57 m, EAN50 at 21 m, Oxygen at 6 m. If"},
      {[](DiveTemplate&) {}, "as diluents: Tx21/35 at 57 m. If"},
      {[](DiveTemplate& t) { t.ChangeGasMixes.clear(); }, ""},
      {[](DiveTemplate& t) { t.KeepsDiluent = true; }, ""},
      {[](DiveTemplate& t) { t.OpenCircuit = true; }, ""}};
  for (const auto& each : cases) {
    const std::string text = TextOf(Rule::LoopChanges, Severity::Note, SecondDive(each.change));
    EXPECT_THAT(text, HasSubstr(each.text));
    EXPECT_EQ(text.empty(), each.text.empty()) << text;
  }
}

// The choice of a model acts from the next evaluation on: until then the rows are those of the model before.
TEST(PlanChecks, JudgeRowsByTheModelThatMadeThem) {
  for (const ModelChoice& now : {ModelChoice{true, false, false}, ModelChoice{false, true, false}}) {
    test::Plans plans;
    frmWaypointEditor& plan = plans.New([](DiveTemplate& t) { t.Cylinders = {{"Air", 2, 12.0, 0, 232.0, 50.0}}; });
    for (const double depth : {50.0, 3.0}) plan.SaveUserEnteredWaypoints(40, depth, 0, false);
    plan.ReEvaluateUserEnteredWaypoints();
    const auto findings = Check(plans, plan.Tag());
    const GasSupply supply = SupplyOf(plan.Planned());
    ASSERT_NE(TextOf(Rule::AboveCeiling, Severity::Danger, findings), "");
    plans.model = now;
    EXPECT_EQ(Check(plans, plan.Tag()), findings);
    const GasSupply again = SupplyOf(plan.Planned());
    for (std::size_t i = 0; i < supply.legs.size(); ++i) {
      EXPECT_EQ(again.legs[i].Minimum(), supply.legs[i].Minimum()) << i;
    }
  }
}

}  // namespace
}  // namespace tav
