#include <algorithm>
#include <gtest/gtest.h>

#include "dialogs/general_info.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

using test::HeadlessProgram;

TEST(FitPlan, IsKeptFromOneStartToTheNext) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  EXPECT_TRUE(p.Look().fitPlan && p.Main().mnuFitPlan.Checked);
  p.view.zoomed = true;
  p.Main().toolFitPlan.Press();
  EXPECT_TRUE(p.Look().fitPlan) << "all of it is shown again first";
  p.Main().toolFitPlan.Press();
  EXPECT_FALSE(p.Look().fitPlan || p.Main().mnuFitPlan.Checked);
  HeadlessProgram later;
  later.platform.settings = p.platform.settings;
  ASSERT_TRUE(later.Start());
  EXPECT_FALSE(later.Look().fitPlan || later.Main().toolFitPlan.Checked);
  later.Main().mnuFitPlan.Choose();
  EXPECT_TRUE(later.Look().fitPlan && later.Main().toolFitPlan.Checked);
}

TEST(GraphExtras, AreSwitchedOnTheirOwnAndKept) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  const GraphExtras usual{true, true, true, false};
  EXPECT_EQ(p.Look().extras, usual);
  const struct {
    MenuItem frmMain::*item;
    bool GraphExtras::*shown;
  } cases[] = {{&frmMain::mnuViewCeiling, &GraphExtras::ceiling},
               {&frmMain::mnuViewStopMinutes, &GraphExtras::stopMinutes},
               {&frmMain::mnuViewDepths, &GraphExtras::depths},
               {&frmMain::mnuViewTissues, &GraphExtras::tissues},
               {&frmMain::mnuViewLight, &GraphExtras::light}};
  GraphExtras expected = usual;
  for (const auto& known : cases) {
    (p.Main().*known.item).Choose();
    expected.*known.shown = !(expected.*known.shown);
    EXPECT_EQ(p.Look().extras, expected);
    EXPECT_EQ((p.Main().*known.item).Checked, expected.*known.shown);
  }
  HeadlessProgram later;
  later.platform.settings = p.platform.settings;
  ASSERT_TRUE(later.Start());
  EXPECT_EQ(later.Look().extras, expected);
}

TEST(WhyStop, IsToldOfStopsAndOfNothingElse) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  EXPECT_TRUE(p.Editor().AddUserWaypoint(45, 30, 0));
  p.Main().mnuStartAscent.Choose();
  const ClassProfile& rows = p.Editor().InputProfile;
  std::vector<std::string> told;
  for (std::int16_t row = 0; row <= rows.GetLength(); ++row) {
    const std::string why = p.Main().Reports().WhyStop(1, row);
    EXPECT_EQ(why.empty(), rows.GetStatus(row) != RowStatus::kStop) << row;
    if (!why.empty()) told.push_back(why);
  }
  EXPECT_GT(told.size(), 3U);
  const auto tips = [](const std::vector<std::vector<GridCell>>& cells) {
    std::vector<std::string> texts;
    for (const auto& row : cells) {
      if (!row.front().tip.empty()) texts.push_back(row.front().tip);
    }
    return texts;
  };
  EXPECT_EQ(tips(p.Main().Panes().PlanPane().schedule.fgSchedule.Cells), told);
  p.platform.onModal.emplace_back([&](Form& form) {
    const auto& info = dynamic_cast<frmGeneralInfo&>(form);
    EXPECT_EQ(tips(info.fgDecoStop.Cells), told);
    EXPECT_EQ(tips(info.fginfo.Cells), told);
  });
  p.Main().mnuDiveInformation.Choose();
}

TEST(WindowMenu, ListsTheOpenPlansAndLeadsToThem) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start({HeadlessProgram::Dive("lake-series.tav").string()}));
  const auto plans = [&] {
    std::vector<std::string> captions;
    for (const MenuEntry& entry : p.Main().Menu()) {
      if (entry.item->Name() == "plan")
        captions.push_back((entry.item->Checked ? "* " : "") + entry.item->Caption.Get());
    }
    return captions;
  };
  using Captions = std::vector<std::string>;
  EXPECT_EQ(plans(), (Captions{"&1 Plan 1 [Default.tpl]", "&2 lake-series.tav Dive:1 [Default.tpl]",
                               "* &3 lake-series.tav Dive:2 [Default.tpl] Surface Interval: 2 hrs :0 min"}));
  for (const MenuEntry& entry : p.Main().Menu()) {
    if (entry.item->Name() == "plan" && entry.item->Caption.Get().starts_with("&2")) entry.item->Choose();
  }
  EXPECT_EQ(p.Active(), 2);
  p.platform.filesChosen.push_back(p.folder.Path() / "R&D.tav");
  EXPECT_TRUE(p.Main().Files().SaveActive(true));
  EXPECT_EQ(plans()[1], "* &2 R&&D.tav Dive:1 [Default.tpl]");
  EXPECT_TRUE(p.Main().CloseDocument(2));
  EXPECT_EQ(plans(), Captions{"* &1 Plan 1 [Default.tpl]"});
  EXPECT_TRUE(p.Main().CloseDocument(1));
  EXPECT_EQ(plans(), Captions{});
  EXPECT_FALSE(p.Main().mnuWindowBar2.Visible);
}

}  // namespace
}  // namespace tav
