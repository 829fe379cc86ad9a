#include "app/margins_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/compare_form.h"
#include "app/main_form.h"
#include "app/margins_pane.h"
#include "persist/profile_file.h"
#include "plans/profile_commands.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

using testing::HasSubstr;
using testing::SizeIs;

struct Mapped : test::HeadlessProgram {
  explicit Mapped(const char* dive) {
    EXPECT_TRUE(Start({Dive(dive).string()}));
    Main().mnuMargins.Choose();
  }
  template <class Form>
  Form& Window() {
    for (const auto& form : platform.modeless) {
      if (auto* window = dynamic_cast<Form*>(form.get())) return *window;
    }
    throw std::logic_error("the window is not open");
  }
  /// What the view does as long as there is something to compute.
  frmMargins& Computed() {
    auto& window = Window<frmMargins>();
    while (window.cmMap.WantsMore) window.cmMap.GoOn();
    return window;
  }
};

TEST(MarginsWindow, ReadsACellAndComparesItsDive) {
  Mapped p("nitrox.tav");
  frmMargins& window = p.Computed();
  ASSERT_THAT(window.Work().Cells(), SizeIs(31 * 19));
  EXPECT_EQ(window.cmMap.Map.Get().marked, 6 * 31 + 10);
  window.cmMap.Step(0, 0);
  EXPECT_THAT(window.lbCell.Caption.Get(), HasSubstr("0 min, 0 m: run time"));
  window.cmMap.Step(5, 3);
  EXPECT_THAT(window.lbCell.Caption.Get(), HasSubstr("+5 min, +3 m: run time"));
  const MarginCell cell = window.Work().Cells()[static_cast<std::size_t>(window.cmMap.Selected)];
  window.cmMap.PressReturn();
  ASSERT_THAT(p.Look().kept, SizeIs(1));
  EXPECT_EQ(p.Look().kept[0].line.back().runTime, cell.runTime);
  const auto& head = p.Window<frmCompare>().fgColumns.Cells.Get()[0];
  EXPECT_THAT(head[1].text, HasSubstr("+5 min, +3 m"));
}

TEST(MarginsWindow, ArrowsMoveInAMapOfOneColumn) {
  Mapped p("nitrox.tav");
  CellMap& map = p.Window<frmMargins>().cmMap;
  CellMap::Content column;
  column.columns = 1;
  column.rows = 3;
  map.Map = column;
  map.Selected = -1;
  map.Step(0, 1);
  EXPECT_EQ(map.Selected, 1);
}

TEST(MarginsWindow, FollowsThePlanAndTakesTheLongestStayIntoItInOneStep) {
  Mapped p("nitrox.tav");
  frmMargins& window = p.Computed();
  ASSERT_TRUE(window.Work().Stay());
  const int minutes = window.Work().Stay()->minutes;
  const std::int16_t leg = 1;
  const Single before = p.Editor().UserActions.gettime(leg);
  ASSERT_NE(Single(minutes), before);
  ASSERT_TRUE(window.cbTake.Enabled);
  window.cbTake.Press();
  EXPECT_EQ(p.Editor().UserActions.gettime(leg), minutes);
  EXPECT_TRUE(window.cmMap.WantsMore) << "another plan, another map";
  p.Computed();
  EXPECT_FALSE(window.cbTake.Enabled) << "it is there";
  p.Main().mnuUndo.Choose();
  EXPECT_EQ(p.Editor().UserActions.gettime(leg), before);
}

TEST(MarginsWindow, TakesTheStayOfALegThatIsShorterThanItsWay) {
  Mapped p("nitrox.tav");
  ClassUseractions& legs = p.Editor().UserActions;
  legs.setuser(1, legs.getDepth(1), 1, legs.getmixnumber(1));
  p.Main().ApplyToProfile();
  const int minutes = p.Computed().Work().Stay()->minutes;
  p.Window<frmMargins>().cbTake.Press();
  EXPECT_EQ(legs.gettime(1), minutes);
}

TEST(MarginsWindow, KeepsTheLimitsWithThePlanAndMarksWhatIsNone) {
  Mapped p("nitrox.tav");
  frmMargins& window = p.Computed();
  const int longest = window.Work().Stay()->minutes;
  window.tbRun.Type("many");
  window.tbRun.Leave();
  EXPECT_EQ(window.tbRun.ForeColor, kRed);
  EXPECT_FALSE(p.Document().Template.Limits);
  // What is sound beside it is kept.
  window.ckGas.Set(false);
  EXPECT_FALSE(LimitsOf(p.Document().Template).gas);
  EXPECT_EQ(window.tbRun.Text.Get(), "many") << "it is not taken away";
  window.ckGas.Set(true);
  window.tbRun.Type("45");
  window.tbRun.Leave();
  EXPECT_EQ(window.tbRun.ForeColor, -1);
  EXPECT_LT(p.Computed().Work().Stay()->minutes, longest);
  EXPECT_THAT(ProfileFileText(p.program.Forms(), p.Active()), HasSubstr("# Limits= 45/ / 100/ 1/"));
  EXPECT_TRUE(p.Document().Modified);
  // A plan without a leg has nothing to ask about.
  p.Main().LoadNewDoc();
  EXPECT_FALSE(window.cmMap.WantsMore);
  EXPECT_FALSE(window.cbTake.Enabled);
  EXPECT_THAT(window.lbState.Caption.Get(), HasSubstr("leg"));
}

TEST(MarginsPane, ShowsADiveOfTheMapOverThePlanUntilItIsHidden) {
  test::HeadlessProgram p;
  ASSERT_TRUE(p.Start({test::HeadlessProgram::Dive("wreck.tav").string()}));
  frmMarginsPane& pane = p.Main().Panes().MarginsPane();
  EXPECT_FALSE(pane.IsLoaded()) << "only who asks for it waits for it";
  p.Main().mnuMarginsPane.Choose();
  while (pane.cmMap.WantsMore) pane.cmMap.GoOn();
  EXPECT_THAT(pane.lbLongest.Caption.Get(), HasSubstr("57 m"));
  pane.cmMap.Step(3, 2);
  ASSERT_THAT(p.Look().kept, SizeIs(1));
  EXPECT_EQ(p.Look().kept[0].name, "59 m, 11 min");
  // The plan changes: so does the dive that is so much more.
  ClassUseractions& legs = p.Editor().UserActions;
  legs.setuser(1, legs.getDepth(1), 10, legs.getmixnumber(1));
  p.Main().ApplyToProfile();
  EXPECT_EQ(p.Look().kept[0].name, "59 m, 13 min");
  p.Main().mnuMarginsPane.Choose();
  EXPECT_THAT(p.Look().kept, SizeIs(0));
}

}  // namespace
}  // namespace tav
