#include <cmath>
#include <gmock/gmock.h>

#include "pages/arial_measure.h"
#include "tables/table_print_fixture.h"
#include "tables/table_remarks.h"

namespace tav {
namespace {

using Kind = RecordingSurface::Kind;
using Stroke = RecordingSurface::Stroke;
using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(TablePrint, ACardTellsTheWholeAscentFromItsMoment) {
  const frmWaypointEditor& plan = Plan({{40, 25}});
  const BailoutCuts cuts = plans.Cuts(plan.Tag(), 7);
  const TableDives dives = *cuts.Compute(cuts.Scenarios() - 1, kGoOn);
  const std::vector<AscentCard> cards = MakeAscentCards(dives);
  ASSERT_EQ(cards.size(), dives.dives.size() - 1);
  for (std::size_t i = 0; i < cards.size(); ++i) {
    const ClassProfile& rows = dives.dives[i + 1].profile;
    const std::int16_t bottom = LastUserRow(rows);
    EXPECT_EQ(cards[i].rows.front().runTime, cards[i].moment);
    EXPECT_EQ(cards[i].rows.back().depth, "0");
    const double ascent = rows.GetRunTime(rows.GetLength()) - rows.GetRunTime(bottom);
    // Rounded up: no stop seems to end before it began.
    EXPECT_EQ(cards[i].rows.back().runTime,
              FormatFixed(Single(std::ceil(dives.dives[i + 1].head + ascent - 0.001)), 0));
    for (std::size_t row = 1; row < cards[i].rows.size(); ++row) {
      const double stop = ParseLenient(cards[i].rows[row].stop);
      EXPECT_GE(ParseLenient(cards[i].rows[row].runTime), ParseLenient(cards[i].rows[row - 1].runTime) + stop - 1)
          << "card " << cards[i].moment;
    }
    std::map<std::string, double> used;
    std::vector<std::string> stops;
    std::vector<std::string> told;
    for (auto row = static_cast<std::int16_t>(bottom + 1); row <= rows.GetLength(); ++row) {
      used[rows.GetGasMixName(row)] += rows.getGasUsed(row);
      if (rows.getStopTime(row) == 0) continue;
      stops.push_back(FormatPlain(rows.getDepth(row)) + " " + FormatPlain(rows.getStopTime(row)) + " " +
                      rows.GetGasMixName(row));
    }
    for (const CardRow& row : cards[i].rows) {
      if (!row.stop.empty()) told.push_back(row.depth + " " + row.stop + " " + row.gas);
    }
    EXPECT_EQ(told, stops);
    ASSERT_EQ(cards[i].needed.size(), used.size());
    for (const CardGas& gas : cards[i].needed) EXPECT_EQ(gas.volume, FormatFixed(Single(used[gas.mix]), 0));
  }
  EXPECT_NE(dives.dives.back().profile.GetRunTime(LastUserRow(dives.dives.back().profile)), dives.dives.back().head)
      << "the replay is late";
}

TEST_F(TablePrint, ChangesOnTheWayAndGasesThatAreTooLeanAreMarked) {
  frmWaypointEditor& plan = Plan({{60, 12}}, 7);
  const BailoutCuts cuts = plans.Cuts(plan.Tag(), 12);
  const auto marked = [&](int scenario, bool CardRow::*flag) {
    std::vector<std::string> rows;
    const std::vector<AscentCard> cards = MakeAscentCards(*cuts.Compute(scenario, kGoOn));
    for (const CardRow& row : cards.front().rows) {
      if (row.*flag) rows.push_back(row.depth + " " + row.gas);
    }
    return rows;
  };
  ASSERT_EQ(plans.documents(plan.Tag()).Template.ChangeGasMixes.size(), 2U);
  EXPECT_THAT(marked(2, &CardRow::gasChanges), Each(testing::AnyOf(HasSubstr("EAN50"), HasSubstr("Oxygen"))));
  EXPECT_EQ(marked(2, &CardRow::gasChanges).size(), 2U);
  // Without EAN50 Tx10/70 is breathed up to 9 m, at 0.19 bar; without both gases up to 3 m, at 0.13 bar.
  for (int i = 0; i < 2; ++i) EXPECT_THAT(marked(i, &CardRow::warned), IsEmpty());
  plans.documents(plan.Tag()).Template.ChangeGasMixes.resize(1);
  const BailoutCuts one = plans.Cuts(plan.Tag(), 12);
  const TableDives none = *one.Compute(0, kGoOn);
  const std::vector<AscentCard> cards = MakeAscentCards(none);
  EXPECT_TRUE(cards.front().rows[cards.front().rows.size() - 2].warned);
  // Table and card have the same words.
  const SmallTable table = MakeSmallTable(none, "Depth");
  ASSERT_FALSE(table.warnings.empty());
  EXPECT_EQ(table.warnings.front().warning, cards.front().warnings.front());
  Print(plan, 12, {true, true});
  const std::string words = WarningText(cards.front().warnings.front(), RemarkWordsOf(texts, true));
  std::vector<std::string> told;
  for (int page = 1; page <= Pages(); ++page) {
    for (const std::string& text : Texts(page)) told.push_back(text);
  }
  EXPECT_THAT(told, Contains("Column 12: " + words));
  EXPECT_THAT(told, Contains("! " + words));
}

TEST_F(TablePrint, CardsStandSixToAPageAndALongAscentGoesOnInTheNext) {
  Print(Plan({{30, 14}}), 2, kCards);
  // Cuts at 2 to 14 and in the ascent, three scenarios; none at the surface.
  const BailoutCuts cuts = plans.Cuts(1, 2);
  std::size_t cards = 0;
  for (int i = 0; i < cuts.Scenarios(); ++i) cards += MakeAscentCards(*cuts.Compute(i, kGoOn)).size();
  EXPECT_EQ(Pages(), static_cast<int>((cards + 5) / 6));
  std::size_t heads = 0;
  for (const std::string& text : Texts(1)) heads += static_cast<std::size_t>(text.starts_with("Leave at "));
  EXPECT_EQ(heads, 6U);

  Print(Plan({{90, 25}}, 7), 25, kCards);
  EXPECT_THAT(Texts(1), AllOf(Contains("1/2"), Contains("2/2")));
  std::vector<double> depths;  // bold, in the first column of cards
  for (const Stroke& stroke : Drawn(1, Kind::PageText)) {
    if (stroke.font.points == 14 && stroke.font.bold &&
        stroke.text.find_first_not_of("0123456789") == std::string::npos) {
      depths.push_back(ParseLenient(stroke.text));
    }
  }
  EXPECT_GT(depths.size(), 15U);
  EXPECT_EQ(depths.front(), 90);
}

TEST_F(TablePrint, ALongNameStaysWithinItsCard) {
  const std::string name = "A deco gas with a name for two of its kind 50";
  frmWaypointEditor& plan = Plan({{30, 14}});
  DiveTemplate& settings = plans.documents(plan.Tag()).Template;
  for (GasMix& mix : settings.Blends) mix.Name = mix.Name == "EAN50" ? name : mix.Name;
  for (GasChange& change : settings.ChangeGasMixes) change.Name = change.Name == "EAN50" ? name : change.Name;
  plan.ReEvaluateUserEnteredWaypoints();
  Print(plan, 7, kCards);
  int names = 0;
  for (int number = 1; number <= Pages(); ++number) {
    for (const Stroke& stroke : Drawn(number, Kind::PageText)) {
      if (!stroke.text.starts_with("A de")) continue;
      ++names;
      const double from = stroke.x0 / page::kUnitsPerCm - TableSlots::kLeft;
      const double to = from + ArialMeasure().TextWidth(stroke.text, stroke.font) / page::kUnitsPerCm;
      EXPECT_EQ(std::floor(from / TableSlots::kCellWidth), std::floor(to / TableSlots::kCellWidth)) << stroke.text;
      EXPECT_TRUE(stroke.text.ends_with("50") || stroke.text.ends_with("50 lost")) << stroke.text;
    }
  }
  EXPECT_GT(names, 4);
}

TEST_F(TablePrint, NamesThatDifferInTheMiddleAreTold) {
  frmWaypointEditor& plan = Plan({{30, 14}});
  DiveTemplate& settings = plans.documents(plan.Tag()).Template;
  const auto rename = [](std::string& name) {
    if (name == "EAN50") name = "Deco EAN50 left 80";
    if (name == "Oxygen") name = "Deco Oxyg. left 80";
  };
  for (GasMix& mix : settings.Blends) rename(mix.Name);
  for (GasChange& change : settings.ChangeGasMixes) rename(change.Name);
  plan.ReEvaluateUserEnteredWaypoints();
  Print(plan, 7, kCards);
  for (int number = 1; number <= Pages(); ++number)
    EXPECT_THAT(Texts(number), testing::Not(Contains(HasSubstr("\u2026"))));
}

TEST_F(TablePrint, NoCardIsMadeOfACutAtTheSurface) {
  // The ascent ends on a whole minute.
  const frmWaypointEditor& plan = Plan({{30, 14}});
  const TableDives dives = *plans.Cuts(plan.Tag(), 1).Compute(0, kGoOn);
  ASSERT_EQ(double{dives.dives.back().depth}, 0);
  EXPECT_EQ(MakeAscentCards(dives).size(), dives.dives.size() - 2);
}

TEST_F(TablePrint, ACancelWithinTheCardsShowsNothing) {
  const frmWaypointEditor& plan = Plan({{30, 14}});
  const BailoutCuts cuts = plans.Cuts(plan.Tag(), 2);
  TablePrintModule print(writer);
  print.StartTableOutput();
  print.PrintTableSet(*cuts.Compute(0, kGoOn));
  int asked = 0;
  print.EndTableOutput([&] { return ++asked < 3; });
  EXPECT_EQ(asked, 3);
  EXPECT_EQ(window.shown, "");
}

}  // namespace
}  // namespace tav
