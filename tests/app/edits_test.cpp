// What is being entered, what it does to the plan, and that nothing of it is lost or lands in another plan.

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/program_fixture.h"

namespace tav {
namespace {

using test::HeadlessProgram;
using testing::HasSubstr;

constexpr int kTime = PlanPaneLegs::kTime;

/// A plan of one leg, saved in a file, and a program that has opened it.
struct Opened : HeadlessProgram {
  Opened() {
    EXPECT_TRUE(Start());
    Quick("30", "25");
    EXPECT_TRUE(SaveAs("plan.tav"));
    platform.boxes.clear();
  }
  frmPlanPane& Pane() { return Main().Panes().PlanPane(); }
  void Quick(const std::string& depth, const std::string& time) {
    Pane().tbQuickDepth.Type(depth);
    Pane().tbQuickTime.Type(time);
    Pane().cbQuick.Press();
  }
  bool SaveAs(const std::string& name) {
    platform.filesChosen.push_back(folder.Path() / name);
    return Main().Files().SaveActive(true);
  }
  bool IsMarked(std::int16_t document) { return Look(document).modified; }
  std::string Template(const std::string& name, const std::string& change) {
    std::string text = test::FileText(SourceFolder() / "template/Default.tpl");
    const auto file = folder.Path() / name;
    std::ofstream(file, std::ios::binary) << text << change;
    return file.string();
  }
};

TEST(Edits, AreAChangeBeforeTheirPlanIsClosed) {
  const struct {
    const char* what;
    std::function<void(Opened&)> leave;
  } kWays[] = {
      {"close", [](Opened& p) { p.Main().mnuClose.Choose(); }},
      {"close control", [](Opened& p) { p.Main().CloseDocument(p.Active()); }},
      {"end", [](Opened& p) { p.Main().Form::Unload(true); }},
  };
  for (const auto& way : kWays) {
    SCOPED_TRACE(way.what);
    Opened p;
    p.Pane().legs.fgLegs.Type(1, kTime, "28");
    way.leave(p);  // the question is answered with Cancel
    ASSERT_EQ(p.platform.boxes.size(), 1U);
    EXPECT_EQ(p.Main().OpenDocuments().size(), 1U);
    EXPECT_EQ(p.Editor().UserActions.gettime(1), 28);
  }
}

TEST(Edits, OfAClosedPlanAreNoStepOfTheNextOneInItsPlace) {
  Opened p;
  const std::int16_t closed = p.Active();
  p.platform.answers = {BoxAnswer::No};
  p.Pane().legs.fgLegs.Type(1, kTime, "28");
  ASSERT_TRUE(p.Main().CloseDocument(closed));
  p.Main().LoadNewDoc();
  ASSERT_EQ(p.Active(), closed);
  EXPECT_FALSE(p.Main().mnuUndo.Enabled);
  p.Main().mnuUndo.Choose();
  p.Pane().Finish();
  EXPECT_EQ(p.Editor().UserActions.GetLength(), 0);
  EXPECT_FALSE(p.Main().mnuUndo.Enabled || p.Document().Modified);
}

TEST(Edits, MarkEveryWindowOfTheSeriesThatChanged) {
  Opened p;
  const std::int16_t first = p.Active();
  const std::int16_t second = p.program.Forms().AddRepetitiveDive(first, 60);
  ASSERT_TRUE(p.SaveAs("series.tav"));
  EXPECT_FALSE(p.IsMarked(first) || p.IsMarked(second));
  p.Quick("20", "10");
  EXPECT_TRUE(p.IsMarked(first) && p.IsMarked(second));
  p.Main().LoadNewDoc();
  EXPECT_FALSE(p.IsMarked(p.Active()));
  p.Main().Activate(first);
  p.Main().Files().SaveActive(false);
  EXPECT_FALSE(p.IsMarked(first) || p.IsMarked(second));
}

TEST(Undo, BackToTheSavedPlanLeavesNothingToSave) {
  Opened p;
  const std::int16_t plan = p.Active();
  p.Quick("20", "10");
  EXPECT_TRUE(p.IsMarked(plan));
  p.Main().mnuUndo.Choose();
  EXPECT_FALSE(p.IsMarked(plan));
  p.Main().mnuUndo.Choose();
  EXPECT_TRUE(p.IsMarked(plan)) << "the file has the leg";
  p.Main().mnuRedo.Choose();
  EXPECT_FALSE(p.IsMarked(plan));
}

TEST(Undo, BringsNameFolderAndTitleOfTheTemplateBack) {
  Opened p;
  const std::int16_t plan = p.Active();
  const std::string folder = p.Document().Template.TemplateFolder;
  ASSERT_TRUE(p.Main().OpenFile(p.Template("Deep.tpl", "")));
  EXPECT_EQ(p.Look(plan).caption, "plan.tav [Deep.tpl]");
  p.Main().mnuUndo.Choose();
  EXPECT_EQ(p.Look(plan).caption, "plan.tav [Default.tpl]");
  EXPECT_EQ(p.Document().TemplateTitle, "Default.tpl");
  EXPECT_EQ(p.Document().Template.TemplateFolder, folder);
  p.Main().mnuRedo.Choose();
  EXPECT_EQ(p.Look(plan).caption, "plan.tav [Deep.tpl]");
  EXPECT_EQ(p.Document().Template.TemplateFolder, p.folder.Path().string() + "/");
}

TEST(Undo, KeepsTheNameThatATemplateWasSavedUnder) {
  Opened p;
  p.Pane().settings.tbHighGF.Type("0.70");
  p.Pane().Finish();
  p.Quick("20", "10");
  p.platform.answers = {BoxAnswer::OK};
  p.platform.filesChosen.push_back(p.folder.Path() / "Mine.tpl");
  p.Main().mnuSaveTemplate.Choose();
  for (int i = 0; i < 2; ++i) {
    p.Main().mnuUndo.Choose();
    EXPECT_EQ(p.Document().Template.Templatename, "Mine.tpl");
    EXPECT_EQ(p.Document().Template.TemplateFolder, p.folder.Path().string() + "/");
    EXPECT_THAT(p.Look(p.Active()).caption, HasSubstr("[Mine.tpl]"));
  }
}

/// Seven legs from a spreadsheet, of which one can't be read.
constexpr const char* kSeven = "40\t5\n38\t3\n36\t3\n3o\t3\n30\t3\n25\t3\n20\t3\n";

TEST(MarkedCells, AreTheUsersUntilTheyAreGivenUp) {
  Opened p;
  const std::int16_t plan = p.Active();
  const std::string file = test::FileText(p.folder.Path() / "plan.tav");
  p.platform.clipboardText = kSeven;
  p.Pane().legs.mnuPasteLegs.Choose();
  const int rows = p.Pane().legs.fgLegs.Rows();
  EXPECT_TRUE(p.IsMarked(plan)) << "counts as changed";
  EXPECT_NE(p.Look(plan).asBefore, "");
  EXPECT_THAT(p.Main().Panes().CheckPane().lbNothing.Caption.Get(), HasSubstr("Leg"));

  p.Main().mnuClose.Choose();
  EXPECT_THAT(p.platform.LastBox().text, HasSubstr("Leg 5: Depth is not a number."));
  p.Main().Form::Unload(true);
  EXPECT_EQ(p.platform.boxes.size(), 2U);
  EXPECT_EQ(p.Main().OpenDocuments().size(), 1U);
  p.Main().mnuSaveProfile.Choose();
  EXPECT_THAT(p.platform.LastBox().text, HasSubstr("Leg 5: Depth is not a number."));
  EXPECT_TRUE(p.IsMarked(plan));
  EXPECT_EQ(test::FileText(p.folder.Path() / "plan.tav"), file);

  p.Main().LoadNewDoc();
  EXPECT_EQ(p.Pane().lbFault.Caption.Get(), "");
  p.Main().Activate(plan);
  EXPECT_EQ(p.Pane().legs.fgLegs.Rows(), rows);
  EXPECT_THAT(p.Pane().lbFault.Caption.Get(), HasSubstr("Leg 5"));
  // Filled, they are the plan.
  p.Pane().legs.fgLegs.Edit(5, PlanPaneLegs::kDepth, "30");
  EXPECT_EQ(p.Editor().UserActions.GetLength(), 9);
  EXPECT_EQ(p.Look(plan).asBefore, "");
  p.Main().mnuUndo.Choose();
  EXPECT_FALSE(p.IsMarked(plan));

  p.Pane().legs.mnuPasteLegs.Choose();
  p.Main().mnuUndo.Choose();
  EXPECT_EQ(p.Editor().UserActions.GetLength(), 2);
  EXPECT_FALSE(p.IsMarked(plan)) << "given up";
}

TEST(MarkedCells, FollowThePlanUnderThem) {
  Opened p;
  p.Document().Template.Blends[static_cast<std::size_t>(FindBlendIndex("EAN32", p.Document().Template))].Name = "Mine";
  p.Editor().ReEvaluateUserEnteredWaypoints();
  p.Pane().legs.fgLegs.Edit(1, PlanPaneLegs::kGas, "Mine");
  p.platform.clipboardText = "20\t\n";
  p.Pane().legs.fgLegs.SelectCell(2, PlanPaneLegs::kDepth);
  p.Pane().legs.mnuPasteLegs.Choose();
  const auto gasOf = [&](int row) { return p.Pane().legs.fgLegs.Text(row, PlanPaneLegs::kGas); };
  ASSERT_EQ(gasOf(1) + gasOf(2), "MineMine");
  // The blend of the same number is another one now.
  const auto blend = static_cast<std::size_t>(p.Editor().UserActions.getmixnumber(1));
  const auto rename = [&](const std::string& name) {
    p.Document().Template.Blends[blend].Name = name;
    p.Editor().ReEvaluateUserEnteredWaypoints();
  };
  rename("EAN30");
  EXPECT_EQ(gasOf(1), "EAN30");
  EXPECT_THAT(p.Pane().MarkedCells(p.Active()), HasSubstr("Mine")) << "which the template does not have any more";
  rename("Mine");
  // Feet for metres, with the depths converted, and a leg more from the graph.
  p.Document().Template.Metric = false;
  p.Editor().ConvertDepths(false);
  p.Editor().ReEvaluateUserEnteredWaypoints();
  EXPECT_EQ(p.Pane().legs.fgLegs.Text(1, PlanPaneLegs::kDepth), "98.4");
  EXPECT_EQ(p.Pane().legs.fgLegs.Text(2, PlanPaneLegs::kDepth), "65.6");
  p.Main().mnucleardecopoints.Choose();
  EXPECT_FALSE(p.Pane().legs.ckAscent.Value);
  EXPECT_EQ(p.Pane().legs.fgLegs.Text(2, PlanPaneLegs::kDepth), "65.6");
  p.Main().mnuclearallwaypoints.Choose();
  EXPECT_EQ(p.Pane().MarkedCells(p.Active()), "");
}

}  // namespace
}  // namespace tav
