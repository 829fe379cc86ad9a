#include "app/compare_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/program_fixture.h"

namespace tav {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

struct Desk : test::HeadlessProgram {
  explicit Desk(const char* dive) { EXPECT_TRUE(Start({Dive(dive).string()})); }
  frmCompare& Window() {
    for (const auto& form : platform.modeless) {
      if (auto* window = dynamic_cast<frmCompare*>(form.get())) return *window;
    }
    throw std::logic_error("the window is not open");
  }
  std::vector<GridCell> Row(const std::string& label) {
    for (const auto& row : Window().fgColumns.Cells.Get()) {
      if (row[0].text == label) return row;
    }
    return {};
  }
};

TEST(Comparison, KeepsThePlanAsItWasAndShowsWhatBecameOther) {
  Desk p("wreck.tav");
  p.Main().mnuKeepPlan.Choose();
  EXPECT_THAT(p.Main().sbStatusBar.Caption.Get(), HasSubstr("1"));
  ASSERT_THAT(p.Look().kept, SizeIs(1));
  const std::vector<PlotPoint> before = p.Look().kept[0].line;
  DiveTemplate changed = p.Document().Template;
  changed.GFLow = 0.4;
  p.Document().Template = changed;
  p.Main().ApplyToProfile();
  EXPECT_EQ(p.Look().kept[0].line, before) << "what is kept does not follow the plan";

  p.Main().mnuCompare.Choose();
  const std::vector<GridCell> factors = p.Row("GF low-high");
  ASSERT_THAT(factors, SizeIs(3));
  EXPECT_EQ(factors[1].text, "30/85");
  EXPECT_EQ(factors[2].text, "40/85");
  EXPECT_TRUE(factors[2].bold) << "what differs stands out";
  EXPECT_THAT(p.Row("Last Stop"), IsEmpty()) << "what is the same does not";

  const std::int16_t front = p.Active();
  ASSERT_TRUE(p.Main().OpenFile(test::HeadlessProgram::Dive("nitrox.tav")));
  EXPECT_THAT(p.Look().kept, IsEmpty()) << "it lies behind what became of it, and behind no other plan";
  p.program.Forms().Activate(front);

  // A tick taken away takes column and line along; clearing takes all.
  p.Window().ckPick.Tick(0, false);
  EXPECT_THAT(p.Row("Run time, min"), SizeIs(2));
  EXPECT_THAT(p.Look().kept, IsEmpty());
  p.Window().ckPick.Tick(0, true);
  EXPECT_THAT(p.Look().kept, SizeIs(1));
  p.Main().mnuClearKept.Choose();
  EXPECT_THAT(p.Window().ckPick.Items.Get(), SizeIs(1)) << "the other plan is still open";
  EXPECT_THAT(p.Look().kept, IsEmpty());
  EXPECT_FALSE(p.Main().mnuClearKept.Enabled);
}

TEST(Comparison, TakesOtherOpenPlansAndTellsWhyOneCanNotBeKept) {
  Desk p("wreck.tav");
  ASSERT_TRUE(p.Main().OpenFile(test::HeadlessProgram::Dive("nitrox.tav")));
  p.Main().mnuCompare.Choose();
  ASSERT_THAT(p.Window().ckPick.Items.Get(), SizeIs(1));
  EXPECT_EQ(p.Window().ckPick.Items.Get()[0].text, "wreck.tav");
  EXPECT_THAT(p.Row("Run time, min"), SizeIs(2));
  p.Window().ckPick.Tick(0, true);
  EXPECT_THAT(p.Row("Run time, min"), SizeIs(3));
  p.Main().LoadNewDoc();
  p.Main().mnuKeepPlan.Choose();
  EXPECT_THAT(p.Look().kept, IsEmpty());
  EXPECT_THAT(p.Main().sbStatusBar.Caption.Get(), HasSubstr("leg"));
  p.Window().PlanChanged();
  EXPECT_FALSE(p.Window().cbPrint.Enabled);
}

}  // namespace
}  // namespace tav
