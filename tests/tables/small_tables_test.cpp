#include "tables/small_tables.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "persist/template_file.h"
#include "tables/table_remarks.h"
#include "tables/table_slots.h"

namespace tav {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A row of a dive: where it goes, on what, and for a stop how long.
struct Leg {
  double depth;
  double rate;
  std::int16_t mix;
  double stop = 0;
};

const std::vector<std::pair<double, double>> kMixes{{21, 0}, {18, 45}, {50, 0}, {100, 0}};

TableDive Dive(double head, const std::vector<Leg>& legs) {
  TableDive dive{head, legs.empty() ? 0 : legs.front().depth, true, {}};
  double time = 0;
  for (const Leg& leg : legs) {
    dive.profile.NewWayPoint();
    Waypoint& row = dive.profile.Row(dive.profile.GetLength());
    row.Depth = leg.depth;
    row.Rate = leg.rate;
    row.MixNumber = leg.mix;
    row.GasMixO2 = kMixes[static_cast<std::size_t>(leg.mix)].first;
    row.GasMixHe = kMixes[static_cast<std::size_t>(leg.mix)].second;
    row.PPO2 = 1;
    row.RunTime = time += leg.stop > 0 ? leg.stop : 1;
    row.StopTime = leg.stop;
    row.StopDepth = leg.stop > 0 ? leg.depth : 0;
    row.Status = leg.stop > 0 ? RowStatus::kStop : RowStatus::kAscentEnd;
  }
  return dive;
}

SmallTable Table(const std::vector<TableDive>& dives) {
  TableDives family{ShippedDefaultTemplate(), {Dive(0, {})}, true};
  family.dives.insert(family.dives.end(), dives.begin(), dives.end());
  return MakeSmallTable(family, "Depth");
}

/// Remarks as "head depth what".
std::vector<std::string> Told(const std::vector<StopRemark>& remarks) {
  std::vector<std::string> texts;
  for (const StopRemark& r : remarks) texts.push_back(r.head + " " + r.depth + " " + r.what);
  return texts;
}

/// Down to 50 m, a time there, and up by stops; a rate of -9 is a way up.
std::vector<Leg> Square(std::vector<Leg> ascent, std::int16_t bottom = 0) {
  std::vector<Leg> legs{{50, 18, bottom}, {50, 0, bottom}};
  legs.insert(legs.end(), ascent.begin(), ascent.end());
  return legs;
}

TEST(SmallTables, ADiveWithoutStopsHasItsBottomAndItsTotal) {
  const SmallTable table = Table({Dive(5, Square({{0, -9, 0}}))});
  EXPECT_THAT(table.cells, ElementsAre(ElementsAre("Mix", "Depth", "", "5"), ElementsAre("21/0", "50", "", "")));
  EXPECT_THAT(table.totals, ElementsAre("3"));
  EXPECT_NEAR(table.Height(), 1.9, 1e-6);
  EXPECT_NEAR(table.Width(), 2.6, 1e-6);
}

TEST(SmallTables, RowsAreTheStopsAndGasChangesOfTheLastDiveOnTheGasThatFollows) {
  const SmallTable table = Table({
      Dive(10, Square({{6, -9, 0}, {6, 0, 3, 0.4}, {0, -9, 3}})),
      Dive(20, Square({{21, -9, 0}, {15, -9, 2}, {9, -9, 2}, {9, 0, 2, 2}, {6, -9, 2}, {6, 0, 3, 12}, {0, -9, 3}})),
  });
  EXPECT_THAT(table.cells, ElementsAre(ElementsAre("Mix", "Depth", "", "10", "20"),  //
                                       ElementsAre("21/0", "50", "", "", ""),        //
                                       ElementsAre("50/0", "21", "", "", ""),        // change on the way
                                       ElementsAre("50/0", "9", "", "", "2"),        //
                                       ElementsAre("100/0", "6", "", "0", "12")));   // below half a minute
  EXPECT_THAT(table.left_out, IsEmpty());
  EXPECT_THAT(table.other_gas, IsEmpty());
}

TEST(SmallTables, AChangeOfGasRightAtTheBottomHasTheFirstRowOfItsDepth) {
  const SmallTable table = Table({Dive(10, Square({{50, 0, 1, 3}, {0, -9, 1}}))});
  EXPECT_THAT(table.cells, ElementsAre(ElementsAre("Mix", "Depth", "", "10"),  //
                                       ElementsAre("21/0", "50", "", "3"),     // the stop lands here
                                       ElementsAre("18/45", "50", "", ""),     // the change
                                       ElementsAre("18/45", "50", "", "")));   // the stop as a level stretch
  EXPECT_THAT(Told(table.other_gas), ElementsAre("10 50 18/45"));
}

TEST(SmallTables, WhatTheTableDropsOrLabelsWithAnotherGasIsTold) {
  const SmallTable table = Table({
      Dive(10, Square({{12, -9, 0}, {12, 0, 0, 2}, {9, -9, 0}, {9, 0, 0, 3}, {0, -9, 0}})),
      // 9.4 m has the text of 9 m, and the stop there comes later.
      Dive(20, Square({{9, -9, 0}, {9, 0, 2, 4}, {9.4, -9, 2}, {9.4, 0, 2, 5}, {0, -9, 2}})),
      Dive(30, Square({{9, -9, 0}, {9, 0, 2, 1}, {0, -9, 2}})),
  });
  EXPECT_EQ(table.cells[2], (std::vector<std::string>{"50/0", "9", "", "3", "5", "1"}));
  EXPECT_THAT(Told(table.left_out), ElementsAre("10 12 2", "20 9 4"));
  EXPECT_THAT(Told(table.other_gas), ElementsAre("10 9 21/0"));
  EXPECT_THAT(TableRemarks(table, {}, false),
              ElementsAre("Column 10: also stop at 12 m 2 min on 21/0", "Column 10: breathe 21/0 at 9 m",
                          "Column 20: also stop at 9 m 4 min on 50/0", "Column 20: stop at 9.4 m instead of 9 m"));
}

TEST(SmallTables, DepthsOfHalfAMetreAreToldAsTheyAreBesideTheCells) {
  const SmallTable table = Table({Dive(10, Square({{4.5, -9, 0}, {4.5, 0, 0, 3}, {0, -9, 0}}))});
  EXPECT_EQ(table.cells[2][1], FormatFixed(4.5, 0));
  EXPECT_THAT(table.depths, ElementsAre("Depth", "50", "4.5"));
  EXPECT_THAT(table.other_depth, IsEmpty());
}

TEST(SmallTables, DivesOfOneOrNoRowAreNoFault) {
  EXPECT_EQ(Table({Dive(1, {{3, 18, 0}})}).cells[1][1], "3");
  EXPECT_EQ(Table({Dive(1, {})}).totals[0], "0");
  EXPECT_EQ(Table({}).Dives(), 0);
}

TEST(SmallTables, ColumnsWithOneRemarkShareALine) {
  const std::vector<Leg> oxygen = Square({{9, -9, 0}, {9, 0, 2, 1}, {6, -9, 2}, {6, 0, 3, 1}, {0, -9, 3}});
  const std::vector<Leg> without = Square({{9, -9, 0}, {9, 0, 2, 1}, {6, -9, 2}, {6, 0, 2, 1}, {0, -9, 2}});
  const std::vector<Leg> air = Square({{9, -9, 0}, {9, 0, 0, 1}, {6, -9, 0}, {6, 0, 2, 1}, {0, -9, 0}});
  SmallTable table = Table({Dive(5, without), Dive(10, without), Dive(15, oxygen), Dive(20, without), Dive(25, without),
                            Dive(30, without), Dive(35, air), Dive(40, oxygen)});
  table.warnings.push_back({0, "5", {GasWarning::Kind::LowPPO2, 1, 2, 3, 0, 0.10, "Tx10/70"}});
  RemarkWords feet;
  feet.unit = "ft";
  EXPECT_THAT(TableRemarks(table, feet, true), ElementsAre("Columns 5, 10, 20 to 30: breathe 50/0 at 6 ft",
                                                           "Column 5: PPO2 too low to breathe at 3 ft to 0 ft",
                                                           "Column 35: breathe 21/0 at 9 ft; breathe 50/0 at 6 ft"));
}

TEST(SmallTables, ColumnsWithOneHeadAreToldApartAndALongDescentIsTold) {
  const std::vector<Leg> air = Square({{9, -9, 0}, {9, 0, 0, 1}, {0, -9, 0}});
  const std::vector<Leg> oxygen = Square({{9, -9, 0}, {9, 0, 2, 1}, {0, -9, 2}});
  SmallTable table = Table({Dive(10, oxygen), Dive(30, oxygen), Dive(30.4, air), Dive(40, oxygen)});
  table.other_gas = {{2, "30", "9", "21/0", "9"}};
  EXPECT_THAT(TableRemarks(table, {}, true), ElementsAre("Column 30 (2 of 2): breathe 21/0 at 9 m"));
  table.other_gas.clear();
  table.long_descent = {{0, "10", "", "11.1"}, {1, "30", "", "11.1"}};
  RemarkWords german;
  german.numbers = {",", "."};
  EXPECT_THAT(TableRemarks(table, german, true),
              ElementsAre("Columns 10, 30 (1 of 2): the descent alone takes 11,1 min, the bottom time is as long"));
}

// --- Places.

struct Placed {
  double width, height;
  int page;
  double x, y;
};
class Places : public testing::TestWithParam<std::vector<Placed>> {};

TEST_P(Places, FollowTheGrid) {
  TableSlots slots;
  int n = 0;
  for (const Placed& p : GetParam()) {
    const TablePlace place = slots.PlaceTable(p.width, p.height);
    EXPECT_EQ(place.page, p.page) << "table " << ++n;
    EXPECT_NEAR(place.x, p.x, 1e-5) << "table " << n;
    EXPECT_NEAR(place.y, p.y, 1e-5) << "table " << n;
  }
}

constexpr double kTen = 7.1;     // the width of ten columns
constexpr double kEleven = 7.6;  // and so on
constexpr double kForty = 22.1;
constexpr double kFortyOne = 22.6;

INSTANTIATE_TEST_SUITE_P(
    , Places,
    testing::Values(
        // Seven of one cell.
        std::vector<Placed>{{kTen, 3, 1, 6.15, 1.3},
                            {kTen, 3, 1, 13.55, 1.3},
                            {kTen, 3, 1, 20.95, 1.3},
                            {kTen, 3, 1, 6.15, 10.8},
                            {kTen, 3, 1, 13.55, 10.8},
                            {kTen, 3, 1, 20.95, 10.8},
                            {kTen, 3, 2, 6.15, 1.3}},
        // A tall one takes the cell below, too; one of 7.4 does not.
        std::vector<Placed>{{kTen, 7.9, 1, 6.15, 1.3},
                            {kTen, 7.4, 1, 13.55, 1.3},
                            {kTen, 3, 1, 20.95, 1.3},
                            {kTen, 3, 1, 13.55, 10.8},
                            {kTen, 3, 1, 20.95, 10.8},
                            {kTen, 3, 2, 6.15, 1.3}},
        // Too tall for the lower row: the same place on a page that stays free.
        std::vector<Placed>{{kTen, 3, 1, 6.15, 1.3},
                            {kTen, 3, 1, 13.55, 1.3},
                            {kTen, 3, 1, 20.95, 1.3},
                            {kTen, 9.9, 2, 6.15, 10.8},
                            {kTen, 3, 2, 6.15, 1.3}},
        // Two cells: the third column stays empty.
        std::vector<Placed>{{kEleven, 3, 1, 6.3, 1.3}, {kEleven, 3, 1, 6.3, 10.8}, {kEleven, 3, 2, 6.3, 1.3}},
        // From the middle only as wide as 10.3.
        std::vector<Placed>{
            {kTen, 3, 1, 6.15, 1.3}, {10.1, 3, 1, 13.7, 1.3}, {kTen, 3, 1, 6.15, 10.8}, {10.6, 3, 2, 6.3, 1.3}},
        // A whole row, and wider than the grid.
        std::vector<Placed>{{kForty, 3, 1, 6.05, 1.3}, {kForty, 3, 1, 6.05, 10.8}, {kForty, 3, 2, 6.05, 1.3}},
        std::vector<Placed>{{kTen, 3, 1, 6.15, 1.3}, {kFortyOne, 3, 2, 0, 1.3}, {kFortyOne, 3, 3, 0, 1.3}}));

}  // namespace
}  // namespace tav
