#include "app/what_if_form.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pages/preview_form.h"
#include "support/profile_text.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// The program with a plan, and its comparison beside it.
struct Compared : test::HeadlessProgram {
  explicit Compared(const char* dive) {
    EXPECT_TRUE(Start({Dive(dive).string()}));
    Main().mnuWhatIf.Choose();
  }
  [[nodiscard]] frmWhatIf& Window() {
    for (const auto& form : platform.modeless) {
      if (auto* window = dynamic_cast<frmWhatIf*>(form.get())) return *window;
    }
    throw std::logic_error("the window is not open");
  }
  std::string RunTime(int column) {
    for (const auto& row : Window().fgColumns.Cells.Get()) {
      if (row[0].text == "Run time, min") return row[static_cast<std::size_t>(column) + 1].text;
    }
    return {};
  }
  std::vector<PlotPoint> Overlay() { return Look().overlay; }
};

TEST(WhatIfWindow, ComputesByTheModelOfThePlan) {
  Compared p("wreck.tav");
  const std::string planned = p.RunTime(0);
  const std::string longer = p.RunTime(1);
  p.Main().mnuBulhmannC.Choose();
  p.Window().PlanChanged();
  EXPECT_EQ(p.RunTime(0), planned) << "a mark computes nothing";
  EXPECT_EQ(p.RunTime(1), longer);
  p.Main().ApplyToProfile();
  EXPECT_NE(p.RunTime(0), planned);
}

TEST(WhatIfWindow, FollowsItsFieldsAtOnce) {
  Compared p("wreck.tav");
  frmWhatIf& window = p.Window();
  EXPECT_EQ(window.Caption.Get(), "What if: wreck.tav");
  EXPECT_EQ(window.tbLonger.Text.Get(), "5");
  EXPECT_EQ(window.tbDeeper.Text.Get(), "3");
  const std::string planned = p.RunTime(0);
  const std::string longer = p.RunTime(1);
  window.udLonger.Up();
  EXPECT_EQ(window.tbLonger.Text.Get(), "6");
  EXPECT_EQ(window.fgColumns.Cells.Get()[1][2].text, "+6 min");
  EXPECT_NE(p.RunTime(1), longer);
  EXPECT_EQ(p.RunTime(0), planned);
  const std::string deeper = p.RunTime(2);
  window.tbDeeper.Type("12.5");
  EXPECT_EQ(window.fgColumns.Cells.Get()[1][3].text, "+12.5 m");
  EXPECT_NE(p.RunTime(2), deeper);
  // What is no number in the range leaves the columns as they were, and is marked.
  for (const char* text : {"", "many", "-1", "1000"}) {
    window.tbDeeper.Type(text);
    EXPECT_EQ(window.tbDeeper.ForeColor.Get(), kRed) << text;
    EXPECT_EQ(window.fgColumns.Cells.Get()[1][3].text, "+12.5 m");
  }
  window.tbDeeper.Type("0.5");
  window.udDeeper.Down();
  EXPECT_EQ(window.tbDeeper.Text.Get(), "0") << "never below nothing";
  EXPECT_EQ(p.RunTime(2), planned);
}

TEST(WhatIfWindow, FollowsThePlanAndTheActiveWindow) {
  Compared p("wreck.tav");
  const std::string planned = p.RunTime(0);
  p.Document().Template.GFHigh = 0.7;
  p.Editor().ReEvaluateUserEnteredWaypoints();
  EXPECT_NE(p.RunTime(0), planned);
  p.Main().mnucleardecopoints.Choose();
  EXPECT_TRUE(p.Window().lbNotice.Visible);
  EXPECT_THAT(p.Window().lbNotice.Caption.Get(), HasSubstr("no ascent"));
  p.Main().mnuNewProfile.Choose();
  EXPECT_THAT(p.Window().lbNotice.Caption.Get(), HasSubstr("no legs"));
  EXPECT_FALSE(p.Window().cbSlate.Enabled);
  EXPECT_THAT(p.Window().fgColumns.Cells.Get(), IsEmpty());
  // In feet the wish is 10 ft.
  p.Document().Template.Metric = false;
  p.Editor().AddUserWaypoint(130, 20, 0);
  EXPECT_EQ(p.Window().tbDeeper.Text.Get(), "10");
  EXPECT_EQ(p.Window().lbUnit.Caption.Get(), "ft");
  // Without a plan nothing is left to compare, and one window is enough.
  const std::size_t open = p.platform.modeless.size();
  p.Main().mnuWhatIf.Choose();
  EXPECT_EQ(p.platform.modeless.size(), open);
}

TEST(WhatIfWindow, DrawsTheChosenColumnOverTheGraphUntilItIsCleared) {
  Compared p("wreck.tav");
  frmWhatIf& window = p.Window();
  const std::int16_t document = p.Active();
  EXPECT_THAT(p.Overlay(), IsEmpty()) << "the plan is on the graph already";
  window.cbGraph.Select(1);
  const ClassProfile& longer = window.Columns()[1].rows;
  ASSERT_THAT(p.Overlay(), SizeIs(static_cast<std::size_t>(longer.GetLength()) + 1));
  EXPECT_EQ(p.Overlay().back().runTime, longer.GetRunTime(longer.GetLength()));
  const auto before = p.Overlay();
  window.udLonger.Up();
  EXPECT_NE(p.Overlay(), before) << "it follows the fields";
  window.cbGraph.Select(0);
  EXPECT_THAT(p.Overlay(), IsEmpty());
  window.cbGraph.Select(2);
  EXPECT_FALSE(p.Overlay().empty());
  p.Main().mnuNewProfile.Choose();
  EXPECT_FALSE(p.Look(document).overlay.empty()) << "another plan is in front";
  EXPECT_THAT(p.Overlay(), IsEmpty());
  p.Main().Activate(document);
  EXPECT_EQ(window.cbGraph.ListIndex, 2);
  window.Command1.Press();
  // Without its window the line follows the plan.
  const auto chosen = p.Overlay();
  EXPECT_FALSE(chosen.empty());
  p.Document().Template.GFHigh = 0.7;
  p.Editor().ReEvaluateUserEnteredWaypoints();
  EXPECT_GT(p.Overlay().back().runTime, chosen.back().runTime);
  p.Main().mnuWhatIf.Choose();
  EXPECT_EQ(p.Window().cbGraph.ListIndex, 2);
  p.Main().mnuClearLine.Choose();
  EXPECT_THAT(p.Overlay(), IsEmpty());
  EXPECT_EQ(p.Window().cbGraph.ListIndex, 0);
}

TEST(WhatIfWindow, KeepsTheLineOfAPlanInFeet) {
  Compared p("wreck.tav");
  p.Window().Command1.Press();
  p.Main().mnuNewProfile.Choose();
  p.Document().Template.Metric = false;
  p.Editor().AddUserWaypoint(130, 20, 0);
  p.Main().mnuWhatIf.Choose();
  p.Window().tbDeeper.Type("17");
  p.Window().cbGraph.Select(2);
  const auto line = p.Overlay();
  p.Window().Command1.Press();
  p.Main().mnuWhatIf.Choose();
  EXPECT_EQ(p.Window().tbDeeper.Text.Get(), "17");
  EXPECT_EQ(p.Overlay(), line);
  // Seventeen of another unit are another dive.
  p.Window().Command1.Press();
  p.Document().Template.Metric = true;
  p.Editor().ReEvaluateUserEnteredWaypoints();
  EXPECT_THAT(p.Overlay(), IsEmpty());
}

TEST(WhatIfWindow, ShowsTheColumnsThatArePicked) {
  Compared p("rebreather.tav");
  frmWhatIf& window = p.Window();
  const auto ids = [&] {
    std::vector<std::string> names;
    for (const WhatIfColumn& column : p.Window().Columns()) names.push_back(column.PickName());
    return names;
  };
  const auto untick = [&](const char* text) {
    const auto& items = window.ckPick.Items.Get();
    const auto item = std::ranges::find(items, text, &CheckList::Item::text);
    ASSERT_NE(item, items.end()) << text;
    window.ckPick.Tick(static_cast<int>(item - items.begin()), false);
  };
  const auto all = ids();
  for (const char* text : {"longer", "deeper", "lost Tx21/35", "all deco gases lost", "bail-out"}) untick(text);
  EXPECT_THAT(ids(), testing::ElementsAre("planned", "both", "lost Oxygen", "lost EAN50"));
  window.tbFactors.Type("40/85 30/70");
  const auto picked = testing::ElementsAre("planned", "both", "lost Oxygen", "lost EAN50", "gf 40/85", "gf 30/70");
  EXPECT_THAT(ids(), picked);
  for (const char* text : {"40", "85/40", "0/85", "40/200", "40/85/90", "a/b"}) {
    window.tbFactors.Type(text);
    EXPECT_EQ(window.tbFactors.ForeColor.Get(), kRed) << text;
    EXPECT_THAT(ids(), picked) << text;
  }
  EXPECT_THAT(window.lbNotice.Caption.Get(), HasSubstr("\"a/b\" is no pair of gradient factors"));
  // What is not shown is remembered, and what the line on the graph is computed by.
  window.cbGraph.Select(5);
  const auto line = p.Overlay();
  window.Command1.Press();
  p.Main().mnuWhatIf.Choose();
  EXPECT_THAT(ids(), picked);
  EXPECT_EQ(p.Window().cbGraph.ListIndex, 5);
  EXPECT_EQ(p.Overlay(), line);
  EXPECT_EQ(p.Window().ckPick.Items.Get().size(), 8U);
}

TEST(WhatIfWindow, CopiesAndPrintsWhatItShows) {
  Compared p("rebreather.tav");
  frmWhatIf& window = p.Window();
  const auto& columns = window.Columns();
  const auto wayOut = std::ranges::find(columns, "bail-out 35", &WhatIfColumn::Id);
  ASSERT_NE(wayOut, columns.end());
  EXPECT_EQ(window.fgColumns.Cells.Get()[1][static_cast<std::size_t>(wayOut - columns.begin()) + 1].text,
            "at 35 min, 65 m");
  window.cbCopy.Press();
  EXPECT_THAT(p.platform.clipboardText, HasSubstr("bail-out"));
  EXPECT_THAT(p.platform.clipboardText, HasSubstr("at 35 min, 65 m"));
  std::vector<std::string> pages;
  window.cbGraph.Select(1);
  for (const int with : {frmWhatIf::ThePlan, frmWhatIf::ThePlanAndTheChosen, frmWhatIf::AllColumns}) {
    window.cbWith.Select(with);
    window.cbSlate.Press();
    const auto preview = std::dynamic_pointer_cast<PrintPrev>(p.platform.modeless.back());
    ASSERT_NE(preview, nullptr);
    pages.push_back(preview->getPageMax());
  }
  EXPECT_THAT(pages, testing::ElementsAre("1", "1", "3"));
}

TEST(SlateCommand, CoversTheDiveOrTheSeries) {
  test::HeadlessProgram p;
  ASSERT_TRUE(p.Start({p.Dive("wreck.tav").string()}));
  p.Main().mnuSlate.Choose();
  const auto preview = std::dynamic_pointer_cast<PrintPrev>(p.platform.modeless.back());
  ASSERT_NE(preview, nullptr);
  EXPECT_EQ(preview->getPageMax(), "1");
  EXPECT_EQ(preview->Caption.Get(), "Slate");
}

}  // namespace
}  // namespace tav
