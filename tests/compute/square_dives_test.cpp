#include "compute/square_dives.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/text_id.h"
#include "support/plan_fixture.h"
#include "support/profile_text.h"

namespace tav {
namespace {

const RunProgress kGoOn = [](int, int) { return true; };

TEST(TableAxes, AreRefusedByTheFirstFault) {
  struct Case {
    TableAxes axes;
    int text;
  };
  for (const Case& c : {
           Case{{9, 54, 3, 5, 45, 5}, 0}, Case{{9, 9, 3, 5, 5, 5}, 0}, Case{{0, 0, 1, 0, 0, 1}, 0},
           Case{{54, 9, 0, 45, 5, 0}, Text::TablesDepthsSwapped}, Case{{9, 54, 0, 45, 5, 0}, Text::TablesDepthInterval},
           Case{{9, 54, -3, 5, 45, 5}, Text::TablesDepthInterval},
           Case{{-9, 54, 3, 45, 5, 0}, Text::TablesTimesSwapped},
           Case{{-9, 54, 3, -5, 45, 0}, Text::TablesTimeInterval},
           Case{{-9, 54, 3, -5, -1, 5}, Text::TablesStartTimeNegative},
           Case{{-9, -5, 3, 5, 45, 5}, Text::TablesStartDepthNegative},
           Case{{9, 20000, 3, 5, 45, 5}, Text::TablesBeyondPlanning},
           Case{{9, 54, 3, 5, 1e30, 5}, Text::TablesBeyondPlanning},
           Case{{1, 1000, 1, 1, 1000, 1}, Text::TablesTooMany}, Case{{1, 100, 1, 1, 100, 1}, 0},  // 10,000 dives
       }) {
    EXPECT_EQ(TextOf(FindAxesFault(c.axes)), c.text) << c.axes.StartDepth << " " << c.axes.EndDepth;
  }
}

class Tables : public testing::Test {
 protected:
  Tables() { plans_.documents(0).Template.PPO2High = plans_.documents(0).Template.PPO2Low = false; }

  std::vector<TableDives> All(bool fast, const TableAxes& axes, std::int16_t mix = 0) {
    SquareDives dives = plans_.Squares(0, {mix, fast, axes});
    EXPECT_TRUE(dives.Fault().IsEmpty());
    std::vector<TableDives> tables;
    while (auto table = dives.Next(kGoOn)) tables.push_back(std::move(*table));
    EXPECT_FALSE(dives.Cancelled());
    return tables;
  }

  test::Plans plans_;
};

TEST_F(Tables, HoldADiveForEachDepthAndTime) {
  const auto tables = All(true, {9, 54, 3, 5, 45, 5});
  ASSERT_EQ(tables.size(), 16U);
  for (std::size_t i = 0; i < tables.size(); ++i) {
    ASSERT_EQ(tables[i].dives.size(), 10U);
    EXPECT_EQ(tables[i].dives[0].profile.GetLength(), 0);
    for (std::size_t j = 1; j < 10; ++j) {
      const TableDive& dive = tables[i].dives[j];
      EXPECT_EQ(double{dive.head}, 5.0 * static_cast<double>(j));
      const std::int16_t bottom = LastUserRow(dive.profile);
      EXPECT_EQ(double{dive.profile.getDepth(bottom)}, 9.0 + 3 * static_cast<double>(i));
      EXPECT_NEAR(dive.profile.GetRunTime(bottom), dive.head, 0.01);
    }
  }
}

TEST_F(Tables, TheDescentCountsOrIsLeftOut) {
  // 54 m at 18 m/min: three minutes down.
  const auto fast = All(true, {54, 54, 1, 2, 10, 8});
  const auto slow = All(false, {54, 54, 1, 2, 10, 8});
  EXPECT_NEAR(fast[0].dives[1].profile.GetRunTime(2), 2 + 54 / 10000.0, 1e-4);
  EXPECT_NEAR(slow[0].dives[1].profile.GetRunTime(1), 3, 1e-4) << "as long as the descent takes";
  EXPECT_EQ(LastUserRow(slow[0].dives[1].profile), 1);
  EXPECT_EQ(double{slow[0].dives[1].head}, 2);
  EXPECT_NEAR(slow[0].dives[2].profile.GetSegmentTime(2), 7, 1e-4);
  EXPECT_GT(fast[0].dives[2].profile.GetRunTime(fast[0].dives[2].profile.GetLength()),
            slow[0].dives[2].profile.GetRunTime(slow[0].dives[2].profile.GetLength()));
  EXPECT_EQ(fast[0].diveTemplate.DescendRates.size(), 1U);
  EXPECT_EQ(double{fast[0].diveTemplate.DescendRates[0].Rate}, 1000);
}

TEST_F(Tables, ADiveIsThatOfAPlan) {
  frmWaypointEditor& plan = plans_.New();
  plan.SaveUserEnteredWaypoints(25, 60, 5, false);
  plan.SaveUserEnteredWaypoints(-1, -1, 5, true);
  plan.ReEvaluateUserEnteredWaypoints();
  const ClassProfile dive = All(false, {60, 60, 1, 25, 25, 1}, 5)[0].dives[1].profile;
  ASSERT_EQ(dive.GetLength(), plan.InputProfile.GetLength());
  for (std::int16_t i = static_cast<std::int16_t>(LastUserRow(dive) + 1); i <= dive.GetLength(); ++i) {
    EXPECT_EQ(test::RowText(dive.Row(i)).substr(0, 60), test::RowText(plan.InputProfile.Row(i)).substr(0, 60));
  }
}

TEST_F(Tables, EndAtOnceAndLeaveTheTemplateAlone) {
  const DiveTemplate before = plans_.documents(0).Template;
  for (int end = 1; end <= 5; ++end) {
    SquareDives dives = plans_.Squares(0, {0, true, {9, 12, 3, 5, 10, 5}});
    int asked = 0;
    int tables = 0;
    int last = 0;
    while (dives.Next([&](int done, int of) {
      EXPECT_EQ(of, 4);
      EXPECT_TRUE(done == last || done == last + 1) << done;
      last = done;
      return ++asked < end;
    })) {
      ++tables;
    }
    EXPECT_TRUE(dives.Cancelled());
    EXPECT_EQ(asked, end);
    EXPECT_EQ(tables, end > 3 ? 1 : 0);
    EXPECT_EQ(plans_.documents(0).Template.DescendRates.size(), before.DescendRates.size());
    EXPECT_EQ(plans_.documents(0).Template.DescendRates[0].Rate, before.DescendRates[0].Rate);
    EXPECT_EQ(double{plans_.documents(0).TotalOTU}, 0);
  }
}

TEST_F(Tables, ATemplateWithFaultsHasNoRun) {
  plans_.documents(0).Template.DescendRates.clear();
  EXPECT_FALSE(plans_.Squares(0, {0, false, {9, 12, 3, 5, 10, 5}}).Fault().IsEmpty());
}

}  // namespace
}  // namespace tav
