#include "plans/profile_commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/plan_fixture.h"
#include "support/scratch_folder.h"
#include "support/source_folder.h"
#include "support/text_names.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;

const fs::path kSeries = SourceFolder() / "dives/lake-series.tav";

TEST(OpenProfile, LinksItsDivesAndNumbersThemFromOne) {
  test::Plans plans;
  const auto opened = OpenProfile(plans.forms, kSeries);
  EXPECT_THAT(opened, ElementsAre(1, 2));
  EXPECT_EQ(plans.forms(1).NextProfile, 2);
  EXPECT_EQ(plans.forms(2).PrevProfile, 1);
  EXPECT_EQ(plans.documents(2).PreviousDocument, 1);
  EXPECT_EQ(plans.forms(1).DiveNumber, 1);
  EXPECT_EQ(plans.forms(2).DiveNumber, 2);
  EXPECT_EQ(plans.documents(1).StartCNS, Single(0));
  EXPECT_GT(plans.documents(2).StartCNS, 0);
  EXPECT_EQ(plans.documents(2).StartOTU, plans.documents(1).TotalOTU);
  EXPECT_EQ(plans.documents(2).ProfileFolder, kSeries.parent_path().string() + "/");
  EXPECT_FALSE(plans.documents(1).Modified);
  EXPECT_EQ(plans.forms.Caption(1), Numbered("lake-series.tav<DiveNumber>:1<CaptionTemplate>Default.tpl]"));
  EXPECT_THAT(plans.forms.Caption(2), testing::StartsWith(Numbered("lake-series.tav<DiveNumber>:2")));
  EXPECT_THAT(plans.display.told, testing::ElementsAre(1, 1, 2, 2))
      << "each when it is whole, the first when it has a number, and the last in front";
  EXPECT_EQ(ProfileFileText(plans.forms, 2), ReadTextFile(kSeries)) << "opening changes nothing";
}

TEST(OpenProfile, AddsNothingOfABrokenFile) {
  const test::ScratchFolder folder;
  const fs::path broken = folder.Path() / "broken.tav";
  WriteTextFile(broken, ReadTextFile(kSeries) + "Start Template Block\r\n");
  test::Plans plans;
  plans.New();
  EXPECT_THROW(OpenProfile(plans.forms, broken), FileError);
  EXPECT_THROW(OpenProfile(plans.forms, folder.Path() / "none.tav"), FileError);
  EXPECT_EQ(plans.documents.UpperBound(), 1);
}

TEST(SaveProfile, NamesAllDivesOfTheSeriesAfterTheFile) {
  const test::ScratchFolder folder;
  test::Plans plans;
  OpenProfile(plans.forms, kSeries);
  plans.forms(2).AddUserWaypoint(5, 3, 0);
  plans.documents(1).Modified = true;
  const fs::path file = folder.Path() / "other.tav";
  EXPECT_THROW(SaveProfile(plans.forms, 2, folder.Path() / "none" / "other.tav"), FileError);
  EXPECT_TRUE(plans.documents(1).Modified && plans.documents(2).Modified);
  EXPECT_EQ(plans.documents(1).ProfileName, "lake-series.tav");

  SaveProfile(plans.forms, 2, file);
  for (const std::int16_t n : {std::int16_t{1}, std::int16_t{2}}) {
    EXPECT_EQ(plans.documents(n).ProfileName, "other.tav");
    EXPECT_EQ(plans.documents(n).ProfileFolder, folder.Path().string() + "/");
    EXPECT_FALSE(plans.documents(n).Modified);
  }
  const auto again = ReadProfileFile(file);
  ASSERT_EQ(again.dives.size(), 2U);
  EXPECT_EQ(again.dives[1].UserActions, plans.forms(2).UserActions);
}

}  // namespace
}  // namespace tav
