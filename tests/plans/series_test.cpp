#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "persist/template_file.h"
#include "plans/profile_commands.h"
#include "support/plan_fixture.h"
#include "support/profile_text.h"
#include "support/source_folder.h"
#include "support/text_names.h"

namespace tav {
namespace {

using testing::Contains;
using testing::ElementsAre;

std::string Rows(const frmWaypointEditor& window) { return test::RowsText(window.InputProfile); }

/// Three dives with their ascents, 90 and 45 minutes apart.
class Series : public testing::Test {
 protected:
  static frmWaypointEditor& Dived(frmWaypointEditor& window, double depth, double minutes) {
    EXPECT_TRUE(window.AddUserWaypoint(depth, minutes, 0));
    EXPECT_TRUE(window.StartDeco());
    return window;
  }
  frmWaypointEditor& After(frmWaypointEditor& window, double minutes) {
    return plans_.forms(plans_.forms.AddRepetitiveDive(window.Tag(), minutes));
  }
  DocumentState& Document(const frmWaypointEditor& window) { return plans_.documents(window.Tag()); }

  /// What `text` gives for each dive of the series, saved and opened by another program run.
  std::vector<std::string> Opened(std::string (*text)(const frmWaypointEditor&)) {
    FormatFaults faults("series.tav", FormatFaults::Mode::StopAtFirstError);
    const auto profile = ReadProfileText(ProfileFileText(plans_.forms, third_.Tag()), faults);
    test::Plans other;
    std::vector<std::string> dives;
    for (const std::int16_t number : OpenProfile(other.forms, "series.tav", profile)) {
      dives.push_back(text(other.forms(number)));
    }
    return dives;
  }

  test::Plans plans_;
  frmWaypointEditor& first_ = Dived(plans_.New(), 40, 25);
  frmWaypointEditor& second_ = Dived(After(first_, 90), 30, 30);
  frmWaypointEditor& third_ = Dived(After(second_, 45), 20, 40);
};

TEST_F(Series, CarriesOxygenDosesOverTheInterval) {
  EXPECT_EQ(Document(second_).StartCNS, Single(Document(first_).TotalCNS / 2));
  EXPECT_NEAR(Document(third_).StartCNS, Document(second_).TotalCNS * std::pow(2, -0.5), 1e-7);
  EXPECT_EQ(Document(third_).StartOTU, Document(second_).TotalOTU);
  EXPECT_EQ(third_.InputProfile.getOTU(0), Document(third_).StartOTU);
  EXPECT_EQ(third_.InputProfile.getCNS(0), Document(third_).StartCNS);
  EXPECT_GT(Document(third_).TotalCNS, Document(third_).StartCNS);
  EXPECT_EQ(Document(third_).PreviousDocument, second_.Tag());
  EXPECT_EQ(third_.getFirstProfile(), first_.Tag());
  EXPECT_EQ(first_.getLastProfile(), third_.Tag());
  EXPECT_EQ(third_.DiveNumber, 3);
  EXPECT_EQ(plans_.forms.Caption(second_.Tag()),
            Numbered("<UntitledPlan>1<DiveNumber>:2<CaptionTemplate>Default.tpl]<CaptionInterval> <HoursAndMinutes>"));
  EXPECT_EQ(plans_.forms.Caption(first_.Tag()), Numbered("<UntitledPlan>1<DiveNumber>:1<CaptionTemplate>Default.tpl]"));
}

TEST_F(Series, IsTheSameAfterOpeningItsFile) {
  EXPECT_THAT(Opened(Rows), ElementsAre(Rows(first_), Rows(second_), Rows(third_)));
  first_.ReEvaluateUserEnteredWaypoints();
  EXPECT_THAT(Opened(Rows), ElementsAre(Rows(first_), Rows(second_), Rows(third_))) << "evaluated twice";
}

// No-stop dives: a stop row tells whole minutes, so a replay of one holds it longer than the ascent did.
TEST_F(Series, WithoutAnIntervalIsOneLongDive) {
  frmWaypointEditor& one = Dived(plans_.New([](DiveTemplate& t) { t.UseGF = false; }), 18, 15);
  const ClassProfile apart = Dived(After(one, 0), 12, 20).InputProfile;
  Document(one).NextDocument = -1;
  const ClassProfile& whole = Dived(one, 12, 20).InputProfile;
  for (std::int16_t i = 1; i <= apart.GetLength(); ++i) {
    const auto same = static_cast<std::int16_t>(whole.GetLength() - apart.GetLength() + i);
    for (std::size_t c = 0; c < kCompartments; ++c) {
      EXPECT_NEAR(apart.GetPercentCompartments(i)[c], whole.GetPercentCompartments(same)[c], 1e-6);
    }
  }
}

// Loads are pressures in the depth units of a dive; the next dive may have other units.
TEST_F(Series, CarriesTheLoadsOverIntoOtherUnits) {
  const ClassProfile metres = Dived(After(third_, 60), 30.48, 20).InputProfile;
  Document(third_).NextDocument = -1;
  frmWaypointEditor& fourth = After(third_, 60);
  LoadTemplateFile(Document(fourth).Template, SourceFolder() / "template/Imperial.tpl");
  const ClassProfile& feet = Dived(fourth, 100, 20).InputProfile;
  for (std::size_t c = 0; c < kCompartments; ++c) {
    EXPECT_NEAR(feet.GetPercentCompartments(2)[c], metres.GetPercentCompartments(2)[c], 0.02) << c;
  }
}

TEST_F(Series, RecomputesLaterDivesWhenAnEarlierOneChanges) {
  const std::string before = Rows(third_);
  first_.mnucleardecopoints();
  EXPECT_EQ(second_.EvaluationFault(), Numbered("<DiveNotComputed>"));
  EXPECT_EQ(third_.EvaluationFault(), Numbered("<DiveNotComputed>"));
  EXPECT_EQ(third_.State(), EditState::Empty);
  plans_.display.told.clear();
  Dived(first_, 30, 40);
  EXPECT_THAT(plans_.display.told, Contains(third_.Tag()));
  EXPECT_THAT(Opened(Rows), ElementsAre(Rows(first_), Rows(second_), Rows(third_))) << "loads and oxygen doses";
  EXPECT_NE(Rows(third_), before);
}

TEST_F(Series, ClosesTheGapThatADiveLeaves) {
  const std::string before = Rows(third_);
  EXPECT_TRUE(second_.Form_QueryUnload(true, nullptr));
  plans_.forms.Unload(second_.Tag());
  EXPECT_EQ(first_.NextProfile, third_.Tag());
  EXPECT_EQ(third_.PrevProfile, first_.Tag());
  EXPECT_EQ(Document(third_).PreviousDocument, first_.Tag());
  EXPECT_EQ(third_.DiveNumber, 2);
  EXPECT_THAT(plans_.forms.Caption(third_.Tag()), testing::StartsWith(Numbered("<UntitledPlan>1<DiveNumber>:2")));
  EXPECT_THAT(Opened(Rows), ElementsAre(Rows(first_), Rows(third_)));
  EXPECT_NE(Rows(third_), before);

  const std::int16_t reused = plans_.forms.LoadNewDoc();
  EXPECT_EQ(reused, second_.Tag());
  EXPECT_EQ(plans_.forms(reused).PrevProfile, -1);
  EXPECT_EQ(plans_.forms(reused).State(), EditState::Empty);
  EXPECT_EQ(plans_.documents(reused).SurfaceInterval, Single(0));
}

TEST_F(Series, LosesItsLastDiveAlone) {
  const std::string before = Rows(second_);
  EXPECT_TRUE(third_.Form_QueryUnload(true, nullptr));
  EXPECT_EQ(second_.NextProfile, -1);
  EXPECT_EQ(Rows(second_), before);
  EXPECT_TRUE(second_.CanBeFollowed());
  EXPECT_FALSE(first_.CanBeFollowed()) << "a dive can only be added behind the last";
}

TEST_F(Series, GoesWithItsFirstDive) {
  plans_.display.told.clear();
  Document(first_).Modified = false;
  EXPECT_TRUE(first_.Form_QueryUnload(true, nullptr));
  EXPECT_THAT(plans_.display.told, ElementsAre(third_.Tag(), second_.Tag()));
  EXPECT_TRUE(Document(second_).SlotFree);
  EXPECT_TRUE(Document(third_).SlotFree);
  EXPECT_EQ(first_.NextProfile, -1);
}

}  // namespace
}  // namespace tav
