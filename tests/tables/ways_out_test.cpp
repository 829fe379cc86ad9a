#include <gmock/gmock.h>

#include "advice/what_if.h"
#include "tables/table_print_fixture.h"

namespace tav {
namespace {

using Kind = RecordingSurface::Kind;
using Stroke = RecordingSurface::Stroke;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

class WaysOutPage : public TablePrint {
 protected:
  /// 35 min at 65 m on a loop, Tx18/45 (blend 5), with bail-out of 2 x 12 l and cylinders of Tx21/35, EAN50 and oxygen.
  frmWaypointEditor& Rebreather(std::int16_t cylindersOfEAN50) {
    frmWaypointEditor& plan = plans.New([&](DiveTemplate& t) {
      t.OpenCircuit = false;
      t.OCDeco = true;
      t.ChangeGasMixes.emplace_back();
      t.ChangeGasMixes.back().Name = "Tx21/35";
      t.ChangeGasMixes.back().Depth = 57;
      ResolveGasChanges(t);
      t.Cylinders = {{"Tx18/45", 4, 12, 0, 200, 30, true},
                     {"EAN50", cylindersOfEAN50, 11, 0, 200, 20},
                     {"Tx21/35", 2, 11, 0, 200, 20},
                     {"Oxygen", 2, 11, 0, 200, 20}};
    });
    plan.SaveUserEnteredWaypoints(35, 65, 5, false);
    plan.SaveUserEnteredWaypoints(-1, -1, 5, true);
    plan.ReEvaluateUserEnteredWaypoints();
    return plan;
  }

  /// The figures in 14 points of a column of the first page, a text for each row: "21 3 49 EAN50".
  [[nodiscard]] std::vector<std::string> RowsOfColumn(std::size_t column) const {
    std::map<double, std::map<double, std::string>> rows;
    for (const Stroke& stroke : Drawn(1, Kind::PageText)) {
      const double x = stroke.x0 / page::kUnitsPerCm - TableSlots::kLeft;
      if (stroke.font.points != 14 || std::floor(x / TableSlots::kCellWidth) != static_cast<double>(column)) continue;
      const std::string text = ReplaceAll(stroke.text, "Oxygen (O2)", "O2");
      if (!text.empty()) rows[stroke.y0][stroke.x0] = ReplaceAll(text, "O2", "Oxygen");
    }
    std::vector<std::string> lines;
    for (const auto& [y, words] : rows) {
      std::string& line = lines.emplace_back();
      for (const auto& [x, text] : words) line += (line.empty() ? "" : " ") + text;
    }
    return lines;
  }
};

TEST_F(WaysOutPage, ComesFirstAndLeavesTheTablesWhereTheyAre) {
  const frmWaypointEditor& plan = Rebreather(2);
  const auto tables = [&](int from) {
    std::vector<std::string> pages;
    for (int page = from; page <= Pages(); ++page) {
      std::string& all = pages.emplace_back();
      for (const Stroke& s : Drawn(page, Kind::PageText)) {
        all += s.text + " " + std::to_string(s.x0) + " " + std::to_string(s.y0) + "\n";
      }
    }
    return pages;
  };
  Print(plan, 10, kTables, false);
  const auto alone = tables(1);
  Print(plan, 10, kTables);
  EXPECT_THAT(Texts(1), Contains(HasSubstr("wreck.tav, ")));
  EXPECT_EQ(tables(2), alone);
  for (const BailoutParts parts : {kCards, kTables}) {
    // Cards alone do without.
    Print(plan, 10, parts);
    EXPECT_EQ(testing::Value(Texts(1), Contains(HasSubstr("wreck.tav, "))), parts.tables);
  }
}

TEST_F(WaysOutPage, OfOpenCircuitIsTheLongestFromTheEndOfALegWithEachGasLost) {
  // The second leg is the longest to come up from; the third is shallow.
  const frmWaypointEditor& plan = Plan({{30, 10}, {50, 20}, {20, 5}}, 5);
  Print(plan, 10, kTables);
  const std::vector<std::string> printed = Texts(1);
  EXPECT_THAT(printed, Contains("Leave at 30 min, 50 m").Times(3));
  for (const char* name : {"All gases", "EAN50 lost", "Oxygen lost"}) EXPECT_THAT(printed, Contains(name));
  // With all gases it is the table's column of that minute.
  const BailoutCuts cuts = plans.Cuts(plan.Tag(), 30);
  const std::vector<AscentCard> cards = MakeAscentCards(*cuts.Compute(cuts.Scenarios() - 1, kGoOn));
  std::vector<std::string> rows;
  for (const CardRow& row : cards.front().rows) {
    rows.push_back(row.depth + (row.stop.empty() ? "" : " " + row.stop) + " " + row.runTime +
                   (row.gas.empty() ? "" : " " + row.gas));
  }
  EXPECT_EQ(RowsOfColumn(0), rows);
}

TEST_F(WaysOutPage, FourWaysStandSideBySideOverTheWholePage) {
  frmWaypointEditor& plan = plans.New([](DiveTemplate& t) {
    t.ChangeGasMixes.emplace_back();
    t.ChangeGasMixes.back().Name = "Tx21/35";
    t.ChangeGasMixes.back().Depth = 57;
    ResolveGasChanges(t);
  });
  plan.SaveUserEnteredWaypoints(20, 60, 5, false);
  plan.ReEvaluateUserEnteredWaypoints();
  Print(plan, 10, kTables);
  std::vector<double> columns;
  for (const Stroke& text : Drawn(1, Kind::PageText)) {
    if (text.text == "Leave at 20 min, 60 m") columns.push_back(text.x0 / page::kUnitsPerCm);
  }
  ASSERT_EQ(columns.size(), 4U);
  for (std::size_t i = 1; i < 4; ++i) EXPECT_NEAR(columns[i] - columns[i - 1], 5.55, 0.01);
}

TEST_F(WaysOutPage, OfOpenCircuitHasTheLegThatIsWorstForEachLoss) {
  const frmWaypointEditor& plan = Plan({{57, 25}, {27, 20}}, 5);
  Print(plan, 10, kTables);
  // With all gases the way up from the deep leg takes longest, without EAN50 that from the second one.
  EXPECT_THAT(Texts(1), Contains("Leave at 25 min, 57 m"));
  EXPECT_THAT(Texts(1), Contains("Leave at 45 min, 27 m"));
}

TEST_F(WaysOutPage, HasTheMinutesOfTheComparisonAndTheRowsOfTheTables) {
  const frmWaypointEditor& plan = Rebreather(1);
  Print(plan, 10, kTables);
  const BailoutCuts cuts = plans.Cuts(plan.Tag(), 1);
  const TableDives all = *cuts.Compute(cuts.Scenarios() - 1, kGoOn);
  const std::vector<std::string> printed = Texts(1);
  std::size_t column = 0;
  for (const WhatIfColumn& way : WhatIf(plans.Planned(plan.Tag())).Columns({})) {
    if (way.kind != WhatIfColumn::Kind::BailOut) continue;
    EXPECT_THAT(printed,
                Contains("Leave at " + FormatPlain(way.minute.moment) + " min, " + FormatFixed(way.depth, 0) + " m"));
    const auto cut = std::ranges::find(all.dives, way.minute.moment, &TableDive::head);
    ASSERT_NE(cut, all.dives.end());
    const std::vector<std::string> rows = RowsOfColumn(column++);
    std::size_t row = 0;
    for (std::int16_t i = 1; i <= cut->profile.GetLength(); ++i) {
      const Waypoint& stop = cut->profile.Row(i);
      if (stop.StopTime == 0) continue;
      const std::string begin = FormatPlain(stop.StopDepth) + " " + FormatPlain(stop.StopTime) + " ";
      while (row < rows.size() && !(rows[row].starts_with(begin) && rows[row].ends_with(" " + stop.GasMixName))) ++row;
      EXPECT_LT(row, rows.size()) << begin << stop.GasMixName << " at " << way.minute.moment;
    }
    // Need, carried and verdict are those of the comparison.
    for (const GasNeed& gas : way.gas) {
      EXPECT_THAT(printed, Contains(HasSubstr(", " + FormatFixed(Single(gas.need), 0) + "\u00a0l of " +
                                              FormatFixed(Single(*gas.carried), 0) + "\u00a0l")))
          << gas.mix;
    }
  }
  EXPECT_GE(column, 2U);
  EXPECT_EQ(RowsOfColumn(column).size(), 0U);
}

/// EAN50 asks for 3,030 l: a cylinder of 11 l holds 2,200 l.
TEST_F(WaysOutPage, AGasThatIsNotEnoughIsToldOnPageAndCard) {
  struct Case {
    std::int16_t cylinders;
    std::string verdict;
    bool onCard;
  };
  for (const Case& c : {Case{1, "! EAN50: too little, ", true}, Case{2, "EAN50: enough, ", false}}) {
    const frmWaypointEditor& plan = Rebreather(c.cylinders);
    for (const BailoutParts parts : {kTables, kCards}) {
      Print(plan, 35, parts);
      const bool told = parts.tables || c.onCard;
      EXPECT_EQ(testing::Value(Texts(1), Contains(testing::StartsWith(c.verdict))), told) << c.verdict;
    }
  }
}

/// Until the moment it is that of the plan, whose stops end on whole minutes, then that of the way up.
TEST_F(WaysOutPage, TheGasOfACutWithinTheAscentIsThatOfThePlanUntilThere) {
  frmWaypointEditor& plan = Plan({{60, 20}}, 5);
  const PlannedDive planned = plans.Planned(plan.Tag());
  const WayOutSupply supply(planned);
  const BailoutCuts cuts = plans.Cuts(plan.Tag(), 1);
  std::map<std::string, double> until;
  int stops = 0;
  for (std::int16_t i = 1; i < planned.plan.rows.GetLength(); ++i) {
    const Waypoint& row = planned.plan.rows.Row(i);
    until[row.GasMixName] += row.GasUsed;
    if (row.StopTime == 0) continue;
    ++stops;
    const TableDive cut = cuts.At(row.RunTime);
    std::map<std::string, double> all = until;
    for (auto up = static_cast<std::int16_t>(LastUserRow(cut.profile) + 1); up <= cut.profile.GetLength(); ++up) {
      all[cut.profile.GetGasMixName(up)] += cut.profile.getGasUsed(up);
    }
    for (const GasStore& store : supply.Of(planned.record.Template, cut)) {
      EXPECT_NEAR(store.used, all[store.gas], 0.01) << store.gas << " at " << cut.head;
    }
  }
  EXPECT_GT(stops, 5);
}

}  // namespace
}  // namespace tav
