#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "persist/template_file.h"
#include "tables/ascent_cards.h"

namespace tav {
namespace {

using testing::ElementsAre;

struct Step {
  double depth;
  double runTime;
  const char* gas;
  double used;
  double stop = 0;
};

/// Left at 24 min, with a replay that is a minute late: up to 21 m on air, where EAN50 is taken on the way; a stop on
/// it at 12 m, and one at 6 m that begins with oxygen. A second cut is at the surface.
TableDives TwoCuts(bool metric) {
  constexpr Step kSteps[] = {{40.5, 25, "Air", 2000},    {30, 26.5, "Air", 60.06},     {21, 27.5, "Air", 30.3},
                             {12, 28.5, "EAN50", 20},    {12, 30, "EAN50", 100.25, 2}, {6, 31, "EAN50", 0},
                             {6, 36, "Oxygen", 70.5, 5}, {0, 37, "Oxygen", 4.5}};
  TableDives cuts{ShippedDefaultTemplate(), std::vector<TableDive>(3)};
  cuts.diveTemplate.Metric = metric;
  TableDive& cut = cuts.dives[1];
  cut.head = 24;
  cut.depth = 40.5;
  for (const Step& step : kSteps) {
    cut.profile.NewWayPoint();
    Waypoint& row = cut.profile.Row(cut.profile.GetLength());
    row.Depth = step.depth;
    row.RunTime = step.runTime;
    row.GasMixName = step.gas;
    row.GasUsed = step.used;
    row.StopTime = step.stop;
    row.EndUserProfile = cut.profile.GetLength() == 1;
  }
  return cuts;
}

TEST(AscentCard, HasARowForTheBottomEachStopEachGasTakenOnTheWayAndTheSurface) {
  const std::vector<AscentCard> cards = MakeAscentCards(TwoCuts(true));
  ASSERT_EQ(cards.size(), 1U);
  EXPECT_EQ(cards[0].moment + " min, " + cards[0].depth, "24 min, 40.5");
  std::vector<std::string> rows;
  for (const CardRow& row : cards[0].rows) {
    rows.push_back(row.depth + " [" + row.stop + "] " + row.runTime + " " + row.gas + (row.gasChanges ? "!" : ""));
  }
  EXPECT_THAT(rows,
              ElementsAre("40.5 [] 24 Air", "21 [] 27 EAN50!", "12 [2] 29 EAN50", "6 [5] 35 Oxygen!", "0 [] 36 "));
}

TEST(AscentCard, TellsLitresWholeAndCubicFeetInTenths) {
  for (const bool metric : {true, false}) {
    const std::vector<AscentCard> cards = MakeAscentCards(TwoCuts(metric));
    std::vector<std::string> needed;
    for (const CardGas& gas : cards.front().needed) {
      needed.push_back(gas.mix + " " + gas.volume);
    }
    if (metric) {
      EXPECT_THAT(needed, ElementsAre("Air 90", "EAN50 120", "Oxygen 75"));
    } else {
      EXPECT_THAT(needed, ElementsAre("Air 90.4", "EAN50 120.3", "Oxygen 75.0"));
    }
  }
}

}  // namespace
}  // namespace tav
