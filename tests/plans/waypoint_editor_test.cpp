#include "plans/waypoint_editor.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <utility>

#include "model/number_text.h"
#include "model/template_faults.h"
#include "support/plan_fixture.h"
#include "support/profile_text.h"
#include "support/text_names.h"

namespace tav {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Editor : public testing::Test {
 protected:
  void ExpectState(EditState state) {
    EXPECT_EQ(plan_.State(), state);
    EXPECT_EQ(plan_.CurrentRunTime(), plan_.InputProfile.GetRunTime(plan_.InputProfile.GetLength()));
  }
  [[nodiscard]] std::string Rows() const { return test::RowsText(plan_.InputProfile); }
  DocumentState& Document() { return plans_.documents(plan_.Tag()); }

  test::Plans plans_;
  frmWaypointEditor& plan_ = plans_.New();
};

TEST_F(Editor, GoesFromEmptyToLegsToAscentAndBack) {
  ExpectState(EditState::Empty);
  EXPECT_EQ(plan_.InputProfile.GetPPO2(0), Single(Document().Template.EndPressure * 0.21));
  ASSERT_TRUE(plan_.AddUserWaypoint(40, 25, 0));
  ExpectState(EditState::Legs);
  EXPECT_TRUE(Document().Modified);
  EXPECT_FALSE(plan_.CanBeFollowed());
  const std::string legs = Rows();

  ASSERT_TRUE(plan_.StartDeco());
  ExpectState(EditState::Ascent);
  EXPECT_TRUE(plan_.CanBeFollowed());
  const std::string ascent = Rows();
  plan_.ReEvaluateUserEnteredWaypoints();
  ExpectState(EditState::Ascent);
  EXPECT_EQ(Rows(), ascent) << "evaluated twice";

  plan_.mnucleardecopoints();
  ExpectState(EditState::Legs);
  EXPECT_FALSE(plan_.CanBeFollowed());
  EXPECT_EQ(Rows(), legs) << "without the ascent";
  plan_.mnucleardecopoints();
  EXPECT_EQ(plan_.UserActions.GetLength(), 1) << "there is no ascent to clear";

  plan_.mnuclearlastwaypoint();
  ExpectState(EditState::Empty);
  EXPECT_EQ(plan_.CurrentRunTime(), Single(0));
}

TEST_F(Editor, TellsEachChangeOnce) {
  const std::pair<const char*, std::function<void()>> changes[] = {
      {"waypoint", [this] { plan_.AddUserWaypoint(40, 25, 0); }},
      {"ascent", [this] { plan_.StartDeco(); }},
      {"clear ascent", [this] { plan_.mnucleardecopoints(); }},
      {"clear last", [this] { plan_.mnuclearlastwaypoint(); }},
      {"clear all", [this] { plan_.mnuclearallwaypoints(); }},
      {"evaluate", [this] { plan_.ReEvaluateUserEnteredWaypoints(); }}};
  for (const auto& [what, change] : changes) {
    plans_.display.told.clear();
    change();
    EXPECT_THAT(plans_.display.told, ElementsAre(plan_.Tag())) << what;
  }
}

TEST_F(Editor, ClearsTheLastWaypointOrAll) {
  plan_.AddUserWaypoint(30, 10, 0);
  const std::string one = Rows();
  plan_.AddUserWaypoint(20, 15, 0);
  plan_.mnuclearlastwaypoint();
  EXPECT_EQ(Rows(), one);
  plan_.StartDeco();
  plan_.mnuclearlastwaypoint();
  ExpectState(EditState::Legs);
  EXPECT_EQ(Rows(), one) << "the ascent was the last action";
  plan_.StartDeco();
  plan_.mnuclearallwaypoints();
  ExpectState(EditState::Empty);
  EXPECT_EQ(plan_.UserActions.GetLength(), 0);
}

TEST_F(Editor, GoesOnFromTheEndOfAnAscentInsideTheList) {
  plan_.AddUserWaypoint(30, 30, 0);
  plan_.StartDeco();
  const std::int16_t surfaced = plan_.InputProfile.GetLength();
  ASSERT_TRUE(plan_.AddUserWaypoint(9, 20, 0));
  ExpectState(EditState::Legs);
  const ClassProfile& rows = plan_.InputProfile;
  EXPECT_EQ(rows.getDepth(surfaced), Single(0));
  EXPECT_EQ(rows.getDepth(static_cast<std::int16_t>(surfaced + 1)), Single(9));
  EXPECT_NEAR(rows.GetRunTime(rows.GetLength()), rows.GetRunTime(surfaced) + 20, 1e-4);
  EXPECT_GT(rows.GetRate(static_cast<std::int16_t>(surfaced + 1)), 0);
}

TEST_F(Editor, StartsTheNextLegWhereALegThatWasTooShortEnds) {
  plan_.AddUserWaypoint(36, 1, 0);  // takes two minutes at 18 m/min
  plan_.AddUserWaypoint(36, 3, 0);
  EXPECT_EQ(plan_.CurrentRunTime(), Single(5));
}

TEST_F(Editor, RefusesAWaypointThatCannotBe) {
  plan_.AddUserWaypoint(50, 40, 0);
  Document().Modified = false;
  const std::string before = Rows();
  EXPECT_GT(plan_.InputProfile.GetCeiling(plan_.InputProfile.GetLength()), 5);
  EXPECT_FALSE(plan_.AddUserWaypoint(5, 10, 0));
  EXPECT_FALSE(plan_.AddUserWaypoint(60, -1, 0));
  EXPECT_FALSE(plan_.AddUserWaypoint(60, 10, 77));
  EXPECT_THAT(plans_.boxes.shown, ElementsAre(Numbered("<AboveCeiling>"), Numbered("<LegTime>"), Numbered("<LegGas>")));
  EXPECT_EQ(LegFault(10, 60, 77, Document().Template).values.back().plain,
            std::to_string(Document().Template.Blends.size() - 1))
      << "the last gas that there is";
  EXPECT_EQ(plan_.UserActions.GetLength(), 1);
  EXPECT_EQ(Rows(), before);
  EXPECT_FALSE(Document().Modified);
}

TEST_F(Editor, TellsWhyItCannotComputeAndRecovers) {
  plan_.AddUserWaypoint(30, 30, 1);
  plan_.StartDeco();
  const std::string rows = Rows();
  const DiveTemplate sound = Document().Template;
  const auto expectFault = [&](const std::string& reason) {
    plan_.ReEvaluateUserEnteredWaypoints();
    EXPECT_EQ(plan_.EvaluationFault(), reason);
    ExpectState(EditState::Empty);
    EXPECT_EQ(plan_.InputProfile.GetLength(), 0);
    EXPECT_EQ(plan_.UserActions.GetLength(), 2);
    Document().Template = sound;
  };
  Document().Template.DescendRates.clear();
  Document().Template.StepSize = 0;
  expectFault(Numbered("<StepTooSmall>; <NoRate>"));
  Document().Template.Blends.resize(1);
  expectFault(Numbered("<ActionFault>"));
  Document().Template.StepSize = 0.1;
  plan_.UserActions.setuser(1, 9000, 90000, 1);
  expectFault(Numbered("<TooManyRows>"));

  plan_.UserActions.setuser(1, 30, 30, 1);
  plan_.ReEvaluateUserEnteredWaypoints();
  EXPECT_EQ(plan_.EvaluationFault(), "");
  EXPECT_EQ(Rows(), rows);
}

TEST_F(Editor, KeepsThePlanWhenAnAscentCannotBeComputed) {
  plan_.AddUserWaypoint(30, 30, 0);
  Document().Modified = false;
  const std::string rows = Rows();
  Document().Template.EndPressure = 0;
  EXPECT_FALSE(plan_.StartDeco());
  EXPECT_THAT(plans_.boxes.shown, ElementsAre(Numbered("<KeyOutside>")));
  EXPECT_EQ(plan_.UserActions.GetLength(), 1);
  EXPECT_EQ(Rows(), rows);
  EXPECT_FALSE(Document().Modified);
  ExpectState(EditState::Legs);
}

/// Wants the trace, so that each action is replayed from the start, and keeps the warnings.
struct Listener : EngineObserver {
  explicit Listener(bool trace) : traces(trace) {}
  void WarnEND(const LimitWarning& w) override { warnings.push_back("END " + FormatPlain(w.value)); }
  void WarnPPO2High(const LimitWarning& w) override { warnings.push_back("high " + FormatPlain(w.value)); }
  void WarnPPO2Low(const LimitWarning& w) override { warnings.push_back("low " + FormatPlain(w.value)); }
  [[nodiscard]] bool WantsTrace() const override { return traces; }
  bool traces;
  std::vector<std::string> warnings;
};

TEST(ReplayMemory, GivesTheRowsAndWarningsOfAReplayFromTheStart) {
  std::mt19937 random(5);
  std::size_t warned = 0;
  for (int n = 0; n < 200; ++n) {
    std::string rows[2];
    std::vector<std::string> warnings[2];
    ClassUseractions actions;
    for (std::size_t legs = 2 + random() % 6; legs > 0; --legs) {
      actions.NewAction();
      const auto mix = static_cast<std::int16_t>(random() % 8);
      actions.setuser(actions.GetLength(), static_cast<double>(random() % 70), static_cast<double>(random() % 15), mix);
      if (random() % 8 == 0) actions.setdeco(actions.GetLength());
    }
    const bool openCircuit = random() % 2 == 0;
    for (const bool trace : {false, true}) {
      DocumentStore documents;
      const ModelChoice model;
      Listener listener(trace);
      test::RecordedDisplay display;
      test::ScriptedBoxes boxes;
      const TextSource texts;
      DocumentForms forms({documents, model, listener, display, boxes, texts});
      documents(0).Template = ShippedDefaultTemplate();
      DiveTemplate& settings = documents(0).Template;
      settings.OpenCircuit = openCircuit;
      settings.PPO2Low = settings.PPO2High = settings.MaxEnd = true;
      frmWaypointEditor& plan = forms(forms.LoadNewDoc());
      plan.UserActions = actions;
      plan.ReEvaluateUserEnteredWaypoints();
      ASSERT_EQ(plan.EvaluationFault(), "");
      rows[trace] = test::RowsText(plan.InputProfile);
      warnings[trace] = listener.warnings;
    }
    ASSERT_EQ(rows[0], rows[1]);
    ASSERT_EQ(warnings[0], warnings[1]);
    warned += warnings[0].size();
  }
  EXPECT_GT(warned, 100U);
}

struct Closing {
  const char* what;
  bool modified;
  std::vector<BoxAnswer> answers;
  bool saves;
  bool closes;
  int questions;
  int saveCalls;
};

TEST(Closing, AsksOnceAboutUnsavedChangesAndLosesNothingUnasked) {
  const Closing cases[] = {{"unchanged", false, {}, false, true, 0, 0},
                           {"cancelled", true, {BoxAnswer::Cancel}, true, false, 1, 0},
                           {"saved", true, {BoxAnswer::Yes}, true, true, 1, 1},
                           {"not saved after all", true, {BoxAnswer::Yes}, false, false, 1, 1},
                           {"given up", true, {BoxAnswer::No}, true, true, 1, 0}};
  for (const Closing& known : cases) {
    SCOPED_TRACE(known.what);
    test::Plans plans;
    frmWaypointEditor& plan = plans.New();
    plan.AddUserWaypoint(30, 20, 0);
    plan.StartDeco();
    DocumentState& document = plans.documents(plan.Tag());
    document.Modified = known.modified;
    plans.boxes.answers = known.answers;
    int saveCalls = 0;
    const bool closes = plan.Form_QueryUnload(true, [&] {
      ++saveCalls;
      return known.saves;
    });
    EXPECT_EQ(closes, known.closes);
    EXPECT_EQ(saveCalls, known.saveCalls);
    EXPECT_EQ(static_cast<int>(plans.boxes.shown.size()), known.questions);
    for (const std::string& question : plans.boxes.shown) {
      EXPECT_EQ(question, Numbered("<UnsavedName><UntitledPlan>1<CaptionTemplate>Default.tpl]]?\r\n<UnsavedQuestion>"));
    }
    EXPECT_EQ(document.TotalOTU == 0, known.closes && known.modified) << "what the next dive starts from";
    EXPECT_EQ(plan.UserActions.GetLength(), 2);
  }
}

TEST(Closing, LeavesNothingToThePlanThatTakesItsNumber) {
  test::Plans plans;
  frmWaypointEditor& first = plans.New();
  const std::string empty = test::RowsText(first.InputProfile);
  first.AddUserWaypoint(30, 20, 0);
  first.StartDeco();
  const std::int16_t second = plans.forms.AddRepetitiveDive(first.Tag(), 60);
  plans.forms(second).AddUserWaypoint(20, 20, 0);
  plans.forms(second).StartDeco();
  EXPECT_TRUE(plans.forms(second).Form_QueryUnload(true, [] { return false; }));
  plans.forms.Unload(second);
  plans.display.told.clear();
  frmWaypointEditor& next = plans.New();
  ASSERT_EQ(next.Tag(), second);
  EXPECT_EQ(test::RowsText(next.InputProfile), empty);
  EXPECT_EQ(next.UserActions.GetLength(), 0);
  EXPECT_EQ(next.State(), EditState::Empty);
  EXPECT_EQ(next.CurrentRunTime(), Single(0));
  EXPECT_EQ(next.DiveNumber, 1);
  EXPECT_EQ(next.PrevProfile, -1);
  EXPECT_EQ(plans.forms.Caption(2), Numbered("<UntitledPlan>2<CaptionTemplate>Default.tpl]"));
  next.mnucleardecopoints();
  EXPECT_EQ(test::RowsText(next.InputProfile), empty) << "no ascent of the old plan comes back";
}

TEST(Closing, ALaterDiveNeverAsks) {
  test::Plans plans;
  frmWaypointEditor& first = plans.New();
  first.AddUserWaypoint(30, 20, 0);
  first.StartDeco();
  frmWaypointEditor& second = plans.forms(plans.forms.AddRepetitiveDive(first.Tag(), 60));
  second.AddUserWaypoint(20, 20, 0);
  EXPECT_TRUE(second.Form_QueryUnload(true, [] { return false; }));
  EXPECT_THAT(plans.boxes.shown, IsEmpty());
}

TEST(WantedLegs, ComeWithTheAscentUnlessItWasTakenOff) {
  test::Plans plans;
  frmWaypointEditor& plan = plans.New();
  const auto actions = [&plan] {
    std::string text;
    for (std::int16_t i = 1; i <= plan.UserActions.GetLength(); ++i) {
      const bool leg = plan.UserActions.getaction(i) == ClassUseractions::kLeg;
      text += leg ? FormatPlain(plan.UserActions.getDepth(i)) + " " : "up ";
    }
    return text;
  };
  ASSERT_TRUE(plan.AddWantedLeg(40, 25, 0) && plan.AddWantedLeg(30, 10, 0));
  EXPECT_EQ(actions(), "40 30 up ");
  EXPECT_EQ(plan.InputProfile.getDepth(plan.LastRowOfLegs()), Single(30));
  plan.AddWantedLeg(3, 10, 0);
  EXPECT_EQ(actions(), "40 30 up ") << "above the ceiling that the legs end with";
  plan.mnucleardecopoints();
  ASSERT_TRUE(plan.AddWantedLeg(25, 5, 0));
  EXPECT_EQ(actions(), "40 30 25 ");
  ASSERT_TRUE(plan.StartDeco() && plan.AddWantedLeg(20, 5, 0));
  EXPECT_EQ(actions(), "40 30 25 20 up ");
  plan.mnucleardecopoints();
  plan.mnuclearallwaypoints();
  ASSERT_TRUE(plan.AddWantedLeg(25, 5, 0));
  EXPECT_EQ(actions(), "25 ") << "kept while the plan is empty";
}

}  // namespace
}  // namespace tav
