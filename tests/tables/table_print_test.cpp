#include "tables/table_print.h"

#include <cmath>
#include <gmock/gmock.h>

#include "compute/square_dives.h"
#include "support/random_plan.h"
#include "tables/table_print_fixture.h"
#include "tables/table_remarks.h"

namespace tav {
namespace {

using Kind = RecordingSurface::Kind;
using Stroke = RecordingSurface::Stroke;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST_F(TablePrint, ATableHasItsTextsAndLinesWhereTheyAreTold) {
  const frmWaypointEditor& plan = Plan({{40, 20}});
  Print(plan, 10, kTables, false);
  EXPECT_EQ(window.shown, "Bail-out Tables");
  ASSERT_EQ(Pages(), 1);
  // Three columns: the first of three tables is centred in its cell, at 7.9 and 1.3 cm.
  const double x0 = 6.0 + (7.4 - 3.6) / 2;
  // Digits are 0.556 of their size wide, in any weight.
  const auto centred = [](double x, const std::string& text) {
    constexpr double kDigit = 0.556 * 8.25 * 20;  // 1/1440 inch
    return x - std::floor(static_cast<double>(text.size()) * kDigit / 2) / page::kUnitsPerCm;
  };
  const auto near = [](double x, double y) {
    return testing::Pair(testing::DoubleNear(x, 0.002), testing::DoubleNear(y, 0.002));
  };
  EXPECT_THAT(PlacesOf(1, "ZH-L16B  GF 0.30-0.85  21/0  OC"),
              ElementsAre(near(x0 + 0.1, 1.3), near(x0 + 7.5, 1.3), near(x0 + 14.9, 1.3)));
  EXPECT_THAT(PlacesOf(1, "Mix"), Contains(near(x0 + 0.1, 1.7)));
  EXPECT_THAT(PlacesOf(1, "20"), Contains(near(centred(x0 + 1.6 + 0.55 + 0.27, "20"), 1.7)));
  EXPECT_THAT(PlacesOf(1, "40"), Contains(near(x0 + 0.9, 2.2)));  // depth of the bottom
  EXPECT_THAT(PlacesOf(1, "21/0"), Contains(near(x0 + 0.05, 2.2)));
  const SmallTable table = MakeSmallTable(*plans.Cuts(plan.Tag(), 10).Compute(0, kGoOn), "Depth");
  const double totals = 1.7 + (table.LastRow() + 1) * 0.5;
  EXPECT_THAT(PlacesOf(1, "Run time"), Contains(near(x0 + 0.2, totals)));
  EXPECT_THAT(PlacesOf(1, table.totals[0]), Contains(near(centred(x0 + 1.6 + 0.27, table.totals[0]), totals)));
  // Every second column is grey, down to the frame.
  const double u = page::kUnitsPerCm;
  EXPECT_THAT(Drawn(1, Kind::FilledBox), Contains(AllOf(Field(&Stroke::x0, testing::DoubleNear((x0 + 2.15) * u, 1)),
                                                        Field(&Stroke::y0, testing::DoubleNear(1.73 * u, 1)),
                                                        Field(&Stroke::x1, testing::DoubleNear((x0 + 2.7) * u, 1)),
                                                        Field(&Stroke::y1, testing::DoubleNear((totals - 0.12) * u, 1)),
                                                        Field(&Stroke::colour, RGB(200, 200, 200)))));
}

TEST_F(TablePrint, EveryStopStandsInItsColumnAndInTheRowOfItsDepth) {
  frmWaypointEditor& plan = plans.New([](DiveTemplate& t) { t.ChangeGasMixes.clear(); });
  plan.SaveUserEnteredWaypoints(20, 40, 0, false);
  plan.ReEvaluateUserEnteredWaypoints();
  Print(plan, 10, kTables, false);
  const SmallTable table = MakeSmallTable(*plans.Cuts(plan.Tag(), 10).Compute(0, kGoOn), "Depth");
  ASSERT_EQ(table.depths.back(), "3");
  const auto [left, top] = PlacesOf(1, "Mix").front();
  int stops = 0;
  for (std::size_t row = 2; row < table.cells.size(); ++row) {
    for (std::size_t column = TableColumn::kFirstDive; column < table.cells[row].size(); ++column) {
      const std::string& stop = table.cells[row][column];
      if (stop.empty()) continue;
      ++stops;
      const double x = left + 1.5 + 0.55 * static_cast<double>(column - TableColumn::kFirstDive);
      EXPECT_THAT(PlacesOf(1, stop),
                  Contains(testing::Pair(AllOf(testing::Gt(x), testing::Lt(x + 0.55)),
                                         testing::DoubleNear(top + 0.5 * static_cast<double>(row), 0.01))));
    }
  }
  EXPECT_GT(stops, 6);
}

TEST_F(TablePrint, EachPageHasOneInformationColumnAndTheCutMarksOfTheGrid) {
  Print(Plan({{40, 20}}), 10, kTables, false);
  EXPECT_THAT(Texts(1), Contains("Bail-out Tables").Times(1));
  EXPECT_THAT(Texts(1), Contains("Profile: wreck.tav"));
  // Ends of the arms, as seen from the twelve crossings.
  int arms = 0;
  for (const Stroke& s : Drawn(1, Kind::Box)) {
    const bool rule = (s.x0 == s.x1) != (s.y0 == s.y1);
    const double length = (s.x1 - s.x0 + s.y1 - s.y0) / page::kUnitsPerCm;
    if (!rule || length > 0.51) continue;
    arms += length > 0.3 ? 2 : 1;
    EXPECT_GE(s.x0, 6.0 * page::kUnitsPerCm - 1);
    EXPECT_LE(s.x1, 28.2 * page::kUnitsPerCm + 1);
    EXPECT_GE(s.y0, 1.0 * page::kUnitsPerCm - 1);
    EXPECT_LE(s.y1, 20.0 * page::kUnitsPerCm + 1);
  }
  EXPECT_EQ(arms, 4 * 2 + 6 * 3 + 2 * 4);
}

TEST_F(TablePrint, RemarksStandRightBelowInBoldRed) {
  Print(Plan({{55, 20}, {20, 20}}, 5), 12, kTables, false);
  bool found = false;
  for (const Stroke& stroke : Drawn(1, Kind::PageText)) {
    if (!stroke.text.starts_with("Column")) continue;
    found = true;
    EXPECT_TRUE(stroke.font.bold) << stroke.text;
    EXPECT_EQ(stroke.colour, kRed) << stroke.text;
    EXPECT_LT(stroke.y0, 10.5 * page::kUnitsPerCm);
  }
  EXPECT_TRUE(found);
  EXPECT_THAT(Texts(1), AllOf(Contains("Bail-out, EAN50 lost"), Contains("Bail-out, All gases"),
                              Not(Contains(HasSubstr("Whole:")))));
}

TEST_F(TablePrint, WhatDoesNotComeOutWholeStandsBehind) {
  // Some fifteen columns and more than twenty rows: two cells wide, and taller than one.
  const frmWaypointEditor& plan = Plan({{95, 20}}, 7);
  Print(plan, 6, kTables, false);
  const BailoutCuts cuts = plans.Cuts(plan.Tag(), 6);
  std::vector<std::string> pointers;
  std::vector<int> whole;
  for (int page = 1; page <= Pages(); ++page) {
    for (const std::string& text : Texts(page)) {
      if (text.starts_with("Whole: ")) pointers.push_back(text.substr(7));
      if (text.starts_with("No. ")) whole.push_back(page);
    }
  }
  // The first has the room below it for its red lines; the next would lie over it.
  EXPECT_THAT(Texts(1), Contains(StartsWith("Column")));
  ASSERT_THAT(pointers, ElementsAre("1"));
  ASSERT_EQ(whole.size(), 1U);
  for (const int page : whole) {
    // Nothing of it leaves the paper.
    for (const Stroke& stroke : Drawn(page, Kind::PageText)) {
      EXPECT_LT(stroke.x0, 29 * page::kUnitsPerCm) << stroke.text;
      EXPECT_LT(stroke.y0, 20.5 * page::kUnitsPerCm) << stroke.text;
    }
  }
  // All its rows and totals are there.
  for (int i = 0; i < cuts.Scenarios(); ++i) {
    const TableDives dives = *cuts.Compute(i, kGoOn);
    const SmallTable table = MakeSmallTable(dives, "#1702");
    const std::string name = dives.lost ? *dives.lost + " lost" : "All gases";
    for (const int page : whole) {
      const std::vector<std::string> printed = Texts(page);
      if (!testing::Value(printed, Contains(AllOf(StartsWith("No. "), HasSubstr(name))))) continue;
      for (const auto& row : table.cells) EXPECT_THAT(printed, Contains(row[TableColumn::kDepth]));
      for (const std::string& total : table.totals) EXPECT_THAT(printed, Contains(total));
    }
  }
}

TEST_F(TablePrint, ATableWiderThanTheGridHasPagesOfItsOwnAndLeavesNoneBlank) {
  SquareDives dives = plans.Squares(0, {0, true, {9, 9, 1, 1, 41, 1}});  // 41 columns, no remarks
  TablePrintModule print(writer);
  print.StartTableOutput();
  print.PrintTableSet(*dives.Next(kGoOn));
  print.EndTableOutput();
  ASSERT_EQ(Pages(), 2);  // 36 columns, and 5
  EXPECT_THAT(Texts(1), AllOf(Contains("No. 1: 9 m, 1 of 2"), Contains("36")));
  EXPECT_THAT(Texts(2), AllOf(Contains("No. 1: 9 m, 2 of 2"), Contains("37"), Contains("41")));
}

TEST_F(TablePrint, TablesOfManyColumnsAreSplitBehind) {
  const frmWaypointEditor& plan = Plan({{20, 60}});
  Print(plan, 1, kTables);  // some 65 columns: wider than the sheet
  ASSERT_GT(Pages(), 5);
  // 36 columns to a part.
  std::vector<std::size_t> heads;
  for (int page = 1; page <= Pages(); ++page) {
    if (!testing::Value(Texts(page), Contains(StartsWith("No. 1")))) continue;
    heads.push_back(PlacesOf(page, "1").size());
    for (const Stroke& stroke : Drawn(page, Kind::PageText)) EXPECT_LT(stroke.x0, 28.5 * page::kUnitsPerCm);
  }
  EXPECT_EQ(heads.size(), 2U);
}

/// Every remark stands on a page with the columns that it is about, and cut marks stand on pages of whole tables alone,
/// none of them within a table.
TEST_F(TablePrint, RemarksStayWithTheirColumnsAndNoCutLeadsThroughATable) {
  const frmWaypointEditor& deep = Plan({{95, 25}, {40, 30}, {60, 10}}, 7);
  int partsWithRemarks = 0;
  for (const double interval : {1, 3, 5, 12, 30}) {
    Print(deep, interval, kTables, false);
    for (int page = 1; page <= Pages(); ++page) {
      const std::vector<std::string> printed = Texts(page);
      const bool behind = testing::Value(printed, Contains(StartsWith("No. ")));
      for (const std::string& text : printed) {
        if (!text.starts_with("Column")) continue;
        EXPECT_THAT(printed, Contains("Mix")) << interval << ", page " << page;
        partsWithRemarks += behind;
        const std::string head = text.substr(text.find(' ') + 1, text.find_first_of(",:t(", 8) - text.find(' ') - 1);
        EXPECT_THAT(printed, Contains(head.substr(0, head.find(' ')))) << text;
      }
      std::vector<Stroke> tables;
      std::vector<Stroke> marks;
      for (const Stroke& s : Drawn(page, Kind::Box)) {
        const bool rule = (s.x0 == s.x1) != (s.y0 == s.y1);
        if (rule && s.x1 - s.x0 + s.y1 - s.y0 < 0.51 * page::kUnitsPerCm) marks.push_back(s);
        if (!rule && s.x0 > TableSlots::kLeft * page::kUnitsPerCm) tables.push_back(s);
      }
      EXPECT_EQ(marks.empty(), behind) << interval << ", page " << page;
      for (const Stroke& mark : marks) {
        for (const Stroke& table : tables) {
          EXPECT_FALSE(mark.x1 > table.x0 && mark.x0 < table.x1 && mark.y1 > table.y0 && mark.y0 < table.y1)
              << interval << ", page " << page;
        }
      }
    }
  }
  EXPECT_GT(partsWithRemarks, 10);
}

// The clock of a cut within the ascent runs late in the replay; a card starts from its own moment.
TEST_F(TablePrint, HeadsTellTheModelInForceAndTheCircuitOfTheAscent) {
  frmWaypointEditor& plan = Plan({{30, 14}});
  DiveTemplate& settings = plans.documents(plan.Tag()).Template;
  settings.OpenCircuit = false;
  plan.ReEvaluateUserEnteredWaypoints();
  struct Case {
    ModelChoice model;
    bool factors;
    std::string title;
  };
  for (const Case& c : {Case{{false, false, false}, true, "ZH-L16B  GF 0.30-0.85  21/0  "},
                        Case{{false, false, false}, false, "ZH-L16B  GF #6169  21/0  "},
                        Case{{false, false, true}, true, "ZH-L16C  GF 0.30-0.85  21/0  "},
                        Case{{true, false, false}, true, "VPM  21/0  "},
                        Case{{false, true, false}, true, "ZH-L16B + VPM  GF 0.30-0.85  21/0  "}}) {
    plans.model = c.model;
    settings.UseGF = c.factors;
    EXPECT_EQ(TableTitle(*plans.Cuts(plan.Tag(), 7).Compute(0, kGoOn), writer), c.title + "OC");
    SquareDives dives = plans.Squares(plan.Tag(), {0, true, {30, 30, 1, 10, 10, 1}});
    EXPECT_EQ(TableTitle(*dives.Next(kGoOn), writer), c.title + "RB");
  }
}

TEST_F(TablePrint, RatesAndMomentsBetweenWholeNumbersAreToldAsTheyAre) {
  frmWaypointEditor& plan = plans.New();
  plan.SaveUserEnteredWaypoints(20.4, 30, 0, false);
  DiveTemplate& settings = plans.documents(plan.Tag()).Template;
  settings.AscendRates = {{0.4, 0}, {9, 4.5}};
  settings.DescendRates = {{17.5, 0}};
  plan.ReEvaluateUserEnteredWaypoints();
  const std::vector<AscentCard> cards = MakeAscentCards(*plans.Cuts(plan.Tag(), 20).Compute(0, kGoOn));
  ASSERT_EQ(cards.size(), 2U);
  EXPECT_EQ(cards[0].moment, "20");
  EXPECT_EQ(cards[1].moment, "20.4");
  EXPECT_EQ(cards[1].rows.front().runTime, "20.4");
  Print(plan, 20, kTables);
  for (const char* number : {"0.4", "4.5", "17.5"}) EXPECT_THAT(Texts(1), Contains(number));
}

TEST_F(TablePrint, TablesAndCardsHaveTheDecimalSeparatorOfTheReader) {
  platform.separators = {",", "."};
  const PrintPreview german(platform, texts);
  frmWaypointEditor& plan = Plan({{30, 14}});
  const TableDives dives = *plans.Cuts(plan.Tag(), 7).Compute(0, kGoOn);
  EXPECT_THAT(TableTitle(dives, german), HasSubstr("GF 0,30-0,85"));
  EXPECT_THAT(TableTitle(dives, writer), HasSubstr("GF 0.30-0.85"));
  TableDives half = dives;
  half.dives[1].depth = 4.5;
  half.diveTemplate.Metric = false;
  const AscentCard card = MakeAscentCards(half, platform.separators).front();
  EXPECT_EQ(card.depth, "4,5");
  EXPECT_THAT(card.needed.front().volume, HasSubstr(","));
}

TEST_F(TablePrint, EveryStopOfEveryDiveIsInACellOrInARemarkOfItsColumn) {
  std::mt19937 random(21);
  for (int n = 0; n < 60; ++n) {
    const test::RandomPlan made = test::MakePlan(random);
    test::Plans own;
    frmWaypointEditor& plan = own.New([&](DiveTemplate& t) { t = made.settings; });
    plan.UserActions = made.actions;
    plan.ReEvaluateUserEnteredWaypoints();
    if (plan.CurrentRunTime() > 300) continue;
    const BailoutCuts cuts = own.Cuts(plan.Tag(), 9);
    for (int i = 0; i < cuts.Scenarios(); ++i) {
      const TableDives dives = *cuts.Compute(i, kGoOn);
      const SmallTable table = MakeSmallTable(dives, "Depth");
      for (std::size_t dive = 0; dive < table.totals.size(); ++dive) {
        std::multimap<std::string, std::string> told;  // depth, minutes
        std::multimap<std::string, std::string> gases;
        for (std::size_t row = 1; row < table.cells.size(); ++row) {
          const std::string& minutes = table.cells[row][TableColumn::kFirstDive + dive];
          if (minutes.empty()) continue;
          told.emplace(table.cells[row][TableColumn::kDepth], minutes);
          const auto other = std::find_if(table.other_gas.begin(), table.other_gas.end(), [&](const StopRemark& r) {
            return r.dive == dive && r.depth == table.cells[row][TableColumn::kDepth];
          });
          gases.emplace(table.cells[row][TableColumn::kDepth],
                        other == table.other_gas.end() ? table.cells[row][TableColumn::kMix] : other->what);
        }
        for (const StopRemark& remark : table.left_out) {
          if (remark.dive == dive) told.emplace(remark.depth, remark.what);
        }
        std::multimap<std::string, std::string> stops;
        const ClassProfile& rows = dives.dives[dive + 1].profile;
        for (std::int16_t row = 1; row <= rows.GetLength(); ++row) {
          if (rows.getStopTime(row) == 0) continue;
          const std::string depth = FormatFixed(rows.getStopDepth(row), 0);
          stops.emplace(depth, FormatFixed(rows.getStopTime(row), 0));
          if (const auto gas = gases.find(depth); gas != gases.end()) {
            EXPECT_EQ(gas->second, MixLabel(rows.Row(row))) << depth << "\n" << test::File(made);
          }
        }
        ASSERT_EQ(told, stops) << test::File(made);
      }
    }
  }
}

}  // namespace
}  // namespace tav
