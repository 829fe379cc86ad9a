#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/program_fixture.h"

namespace tav {
namespace {

using test::HeadlessProgram;
using testing::SizeIs;
using testing::StartsWith;

TEST(Warnings, ComeOnceForAPlanUntilWhatTheyWarnOfChanges) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  p.WarnByBoxes();
  const auto news = [&] {
    const std::size_t boxes = p.platform.boxes.size();
    p.platform.boxes.clear();
    return boxes;
  };
  EXPECT_TRUE(p.Editor().AddUserWaypoint(60, 20, 0));
  EXPECT_EQ(news(), 2U) << "PPO2 and END";
  p.Main().mnuStartAscent.Choose();
  EXPECT_EQ(news(), 0U) << "they are those of the leg";
  p.Main().mnuUndo.Choose();
  p.Main().mnuRedo.Choose();
  p.Main().ApplyToProfile();
  EXPECT_EQ(news(), 0U);
  p.Document().Template.MaxPPO2 = 1.3;
  p.Main().ApplyToProfile();
  EXPECT_EQ(news(), 1U) << "another limit";
  p.Document().Template.PPO2High = false;
  p.Main().ApplyToProfile();
  p.Document().Template.PPO2High = true;
  p.Main().ApplyToProfile();
  EXPECT_EQ(news(), 1U) << "it was gone in between";
  while (p.Main().mnuUndo.Enabled) p.Main().mnuUndo.Choose();
  while (p.Main().mnuRedo.Enabled) p.Main().mnuRedo.Choose();
  EXPECT_EQ(news(), 0U) << "undo and redo bring nothing new";

  const auto file = p.folder.Path() / "deep-air.tav";
  p.platform.filesChosen.push_back(file);
  ASSERT_TRUE(p.Main().Files().SaveActive(false));
  p.Main().ApplyToProfile();
  EXPECT_EQ(news(), 0U) << "it has a file now";
  ASSERT_TRUE(p.Main().Files().SaveActive(false));
  EXPECT_TRUE(p.Main().CloseDocument(p.Active()));
  EXPECT_TRUE(p.Main().OpenFile(file));
  EXPECT_EQ(news(), 0U) << "the same plan again";
  EXPECT_TRUE(p.Main().CloseDocument(p.Active()));
  p.Main().mnuNewProfile.Choose();
  p.Document().Template.MaxPPO2 = 1.3;
  EXPECT_TRUE(p.Editor().AddUserWaypoint(60, 20, 0));
  EXPECT_EQ(news(), 2U) << "another plan with the same number";
}

TEST(Warnings, NameAPlanThatIsNotInFront) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  p.WarnByBoxes();
  EXPECT_TRUE(p.Editor().AddUserWaypoint(60, 20, 0));
  ASSERT_THAT(p.platform.boxes, SizeIs(2));
  EXPECT_THAT(p.platform.boxes[0].text, StartsWith("The END"));
  const auto file = p.folder.Path() / "deep-air.tav";
  p.platform.filesChosen.push_back(file);
  ASSERT_TRUE(p.Main().Files().SaveActive(false));
  HeadlessProgram again;
  ASSERT_TRUE(again.Start());
  EXPECT_TRUE(again.Main().OpenFile(file));
  ASSERT_THAT(again.platform.boxes, SizeIs(2));
  for (const ShownBox& box : again.platform.boxes) EXPECT_THAT(box.text, StartsWith("deep-air.tav"));
}

}  // namespace
}  // namespace tav
