#include "cli/tavplan_fixture.h"

namespace tav {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

TEST_F(Tavplan, PutsPlansBesideEachOtherWithWhatDiffers) {
  const std::string changed = Changed("wreck.tav", "GF=1, .85, .3", "GF=1, .8, .4");
  ASSERT_EQ(Run({"plan", changed, "--json"}), ExitStatus::kFine) << Err();
  json alone = OutJson()["dives"][0];
  for (json& row : alone["rows"]) row.erase("why");
  ASSERT_EQ(Run({"compare", Dive("wreck.tav"), changed, "--json"}), ExitStatus::kFine) << Err();
  const json plans = OutJson()["plans"];
  ASSERT_EQ(plans.size(), 2U);
  EXPECT_EQ(plans[0]["settings"], json({{"GF", "1,0.85,0.3"}})) << "what is the same in both is left out";
  EXPECT_EQ(plans[1]["settings"], json({{"GF", "1,0.8,0.4"}}));
  EXPECT_EQ(plans[1]["name"], "changed.tav");
  EXPECT_EQ(plans[1]["dive"], 1);
  EXPECT_EQ(plans[1]["model"], "ZH-L16B");
  EXPECT_EQ(plans[1]["rows"], alone["rows"]);
  for (const char* figure : {"run_time", "stops", "cns", "otu"}) EXPECT_EQ(plans[1][figure], alone["totals"][figure]);

  ASSERT_EQ(Run({"compare", Dive("wreck.tav"), changed}), ExitStatus::kFine);
  EXPECT_THAT(Out(), AllOf(HasSubstr("30/85"), HasSubstr("40/80"), HasSubstr("Leg 2"), HasSubstr("52 m 20 min Tx18/45"),
                           Not(HasSubstr("Step Size"))));
}

TEST_F(Tavplan, ComparesPlansOfOtherUnitsInThoseOfTheFirst) {
  ASSERT_EQ(Run({"new", "--template", "Imperial", "--leg", "100:30@EAN32", "-o", Scratch("feet.tav")}),
            ExitStatus::kFine)
      << Err();
  ASSERT_EQ(Run({"compare", Dive("nitrox.tav"), Scratch("feet.tav"), "--json"}), ExitStatus::kFine) << Err();
  const json plans = OutJson()["plans"];
  EXPECT_EQ(plans[0]["metric"], true);
  EXPECT_EQ(plans[1]["metric"], false);
  EXPECT_NEAR(plans[1]["rows"][1]["depth"], 100, 0.01) << "each in its own units";
  EXPECT_EQ(plans[0]["settings"]["StepSize"], 3);
  EXPECT_EQ(plans[1]["settings"]["StepSize"], 10);
  ASSERT_EQ(Run({"compare", Dive("nitrox.tav"), Scratch("feet.tav")}), ExitStatus::kFine);
  EXPECT_THAT(Out(), AllOf(HasSubstr("feet.tav is in other units; its stops"), HasSubstr("100 ft 30 min EAN32")));
}

TEST_F(Tavplan, ComparesTwoPlansAtLeastAndTheDivesOfSeries) {
  EXPECT_EQ(Run({"compare", Dive("wreck.tav")}), ExitStatus::kUnusableInput);
  EXPECT_THAT(Err(), HasSubstr("two plans"));
  EXPECT_EQ(Run({"compare", Dive("wreck.tav"), Dive("lake-series.tav"), "--dive", "2"}), ExitStatus::kUnusableInput);
  ASSERT_EQ(Run({"compare", Dive("lake-series.tav"), Dive("lake-series.tav"), "--dive", "2", "--json"}),
            ExitStatus::kFine);
  const json twice = OutJson()["plans"];
  EXPECT_EQ(twice[0]["dive"], 2);
  EXPECT_EQ(twice[0]["settings"], json::object());
  EXPECT_EQ(twice[0], twice[1]);
}

}  // namespace
}  // namespace tav
