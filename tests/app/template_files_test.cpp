#include <gtest/gtest.h>

#include "support/program_fixture.h"

namespace tav {
namespace {

using test::HeadlessProgram;

TEST(Templates, AShippedOneIsSavedAmongTheUsersOwn) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  p.Document().Template.TemplateChanged = true;
  p.platform.answers = {BoxAnswer::OK};
  p.Main().mnuSaveTemplate.Choose();
  ASSERT_EQ(p.platform.fileDialogs.size(), 1U);
  EXPECT_EQ(p.platform.fileDialogs[0].folder, p.folder.Path() / "data/template");
  EXPECT_TRUE(std::filesystem::is_directory(p.platform.fileDialogs[0].folder));
  const auto mine = p.folder.Path() / "mine";
  std::filesystem::create_directory(mine);
  p.platform.answers = {BoxAnswer::OK};
  p.platform.filesChosen.push_back(mine / "Cave.tpl");
  p.Main().mnuSaveTemplate.Choose();
  p.platform.answers = {BoxAnswer::OK};
  p.Main().mnuSaveTemplate.Choose();
  EXPECT_EQ(p.platform.fileDialogs.back().folder, mine / "");
}

TEST(Templates, LoadingOneWithoutAPlanSetsWhatNewPlansBeginWith) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  EXPECT_TRUE(p.Main().CloseDocument(1));
  const auto imperial = SourceFolder() / "template/Imperial.tpl";
  p.platform.filesChosen.push_back(imperial);
  p.Main().mnuLoadTemplate.Choose();
  EXPECT_FALSE(p.Document(0).Template.Metric);
  p.Main().mnuNewProfile.Choose();
  EXPECT_EQ(p.Active(), 1) << "the slot is used again";
  EXPECT_FALSE(p.Document().Template.Metric);
}

TEST(Templates, OneThatTellsAPartChangesNothingElse) {
  for (const bool planOpen : {true, false}) {
    SCOPED_TRACE(planOpen);
    HeadlessProgram p;
    ASSERT_TRUE(p.Start());
    if (!planOpen) p.Main().CloseDocument(1);
    const auto file = p.folder.Path() / "part.tpl";
    std::ofstream(file) << "Start Template Block\nRMV=33\nBlends Available=EAN32: 32/ 68/ 0/\nEnd Template Block\n";
    p.platform.filesChosen.push_back(file);
    p.Main().mnuLoadTemplate.Choose();
    const DiveTemplate& t = p.Document(planOpen ? 1 : 0).Template;
    EXPECT_EQ(double{t.RMV}, 33);
    EXPECT_EQ(double{t.DecoRMV}, 15);
    EXPECT_EQ(double{t.StepSize}, 3);
    EXPECT_TRUE(t.Metric && t.OpenCircuit);
    EXPECT_EQ(t.Blends.size(), 2U) << "the list of gases is that of the file";
    EXPECT_NE(p.platform.LastBox().text.find("not told here"), std::string::npos);
  }
}

TEST(Templates, OneInOtherUnitsCanTakeTheWaypointsAlong) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  EXPECT_TRUE(p.Editor().AddUserWaypoint(30, 20, 0));
  p.platform.filesChosen.push_back(SourceFolder() / "template/Imperial.tpl");
  p.platform.answers = {BoxAnswer::Yes};
  p.Main().mnuLoadTemplate.Choose();
  EXPECT_FALSE(p.Document().Template.Metric);
  const ClassProfile& rows = p.Editor().InputProfile;
  EXPECT_EQ(double{rows.getDepth(rows.GetLength())}, double{Single(98.4)});
  p.Main().mnuUndo.Choose();
  EXPECT_TRUE(p.Document().Template.Metric);
  EXPECT_EQ(double{p.Editor().UserActions.getDepth(1)}, 30) << "both go back in one step";
}

TEST(Templates, ABrokenOneLeavesThePlanAlone) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  const auto file = p.folder.Path() / "broken.tpl";
  std::ofstream(file) << "Start Template Block\r\nMetric=perhaps\r\nEnd Template Block\r\n";
  p.platform.filesChosen.push_back(file);
  p.Main().mnuLoadTemplate.Choose();
  EXPECT_NE(p.platform.LastBox().text.find("is not a valid template file, ignored"), std::string::npos);
  EXPECT_TRUE(p.Document().Template.Metric);
  EXPECT_FALSE(p.Document().Modified);
}

}  // namespace
}  // namespace tav
