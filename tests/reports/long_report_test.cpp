#include "reports/long_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless/headless_platform.h"
#include "pages/arial_measure.h"
#include "pages/page_player.h"
#include "pages/page_units.h"
#include "reports/dive_report.h"
#include "support/plan_fixture.h"
#include "support/scratch_folder.h"
#include "support/text_names.h"

namespace tav {
namespace {

using Stroke = RecordingSurface::Stroke;
using Kind = RecordingSurface::Kind;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

constexpr double kCm = 567;

/// Long reports on recording surfaces; each text is its number.
class LongReports : public testing::Test {
 protected:
  LongReports() { platform.temporaryFolder = folder.Path(); }

  /// A report of rows without a computation behind them.
  void Write(int rows, std::int16_t status, bool stops) {
    ClassProfile profile;
    for (int i = 1; i <= rows; ++i) {
      profile.NewWayPoint();
      Waypoint& row = profile.Row(static_cast<std::int16_t>(i));
      row.Status = status;
      row.Depth = i;
      row.RunTime = 100 + i;
      if (stops) row.StopDepth = i;
    }
    report.InitLongReport();
    report.LongReport({profile, t, model, false, false, 1, 0});
  }
  [[nodiscard]] std::vector<Stroke> Page(int number) const {
    RecordingSurface surface(16839.9, 11907);
    PagePlayer(writer.Pages()).tempshow(number, surface, 1);
    return surface.strokes;
  }
  [[nodiscard]] std::vector<std::string> Texts(int number) const {
    std::vector<std::string> texts_;
    for (const Stroke& stroke : Page(number)) texts_.push_back(stroke.text);
    return texts_;
  }
  [[nodiscard]] bool Has(int number, const std::string& text) const {
    const auto on = Texts(number);
    return std::find(on.begin(), on.end(), text) != on.end();
  }
  /// How many rows of the profile table stand on a page: its first column has white figures left of 3 cm.
  [[nodiscard]] int RowsOn(int number) const {
    int rows = 0;
    for (const Stroke& stroke : Page(number)) {
      rows += stroke.kind == Kind::PageText && stroke.colour == RGB(255, 255, 255) && stroke.x0 < 2.75 * kCm &&
              stroke.font.points == 10 && stroke.y0 > (number == 1 ? 7 : 6) * kCm;
    }
    return rows;
  }

  test::ScratchFolder folder;
  HeadlessPlatform platform;
  TextSource texts;
  PrintPreview writer{platform, texts};
  GeneralReport report{writer};
  DiveTemplate t = ShippedDefaultTemplate();
  ModelChoice model;
};

TEST_F(LongReports, TurnThePageOnlyWhenAFurtherRowFollows) {
  // The first page has room for 12 rows of the profile, each later one for 19, each for two more where that
  // saves a page.
  struct Case {
    int rows;
    std::vector<int> onPages;
  };
  for (const Case& c :
       {Case{0, {1}}, Case{11, {12}}, Case{12, {13}}, Case{13, {14}}, Case{14, {12, 3}}, Case{30, {12, 19}},
        Case{31, {14, 18}}, Case{33, {14, 20}}, Case{34, {14, 21}}, Case{35, {12, 19, 5}}}) {
    Write(c.rows, RowStatus::kAscentEnd, false);
    std::vector<int> onPages;
    for (std::size_t page = 1; page <= c.onPages.size(); ++page) onPages.push_back(RowsOn(static_cast<int>(page)));
    EXPECT_EQ(onPages, c.onPages) << c.rows;
    EXPECT_EQ(writer.Pages().Pages(), static_cast<int>(c.onPages.size()) + 2) << c.rows;
  }
}

TEST_F(LongReports, BottomSegmentsAndStopsGoOnOnFurtherPages) {
  // How many pages have a head of stops, and on which of them the last stop stands above the footer.
  struct Case {
    std::int16_t status;
    bool stops;
    int rows;
    int bottomHeads;
    int stopHeads;
  };
  for (const Case& c : {Case{RowStatus::kStop, true, 13, 1, 1}, Case{RowStatus::kStop, true, 15, 1, 1},
                        Case{RowStatus::kStop, true, 17, 1, 2}, Case{RowStatus::kLeg, false, 14, 1, 1},
                        Case{RowStatus::kLeg, false, 16, 1, 1}, Case{RowStatus::kLeg, false, 20, 1, 1},
                        Case{RowStatus::kLeg, false, 21, 2, 1}}) {
    Write(c.rows, c.status, c.stops);
    int bottomHeads = 0;
    int stopHeads = 0;
    for (int page = 1; page <= writer.Pages().Pages(); ++page) {
      bottomHeads += Has(page, Numbered("<ReportBottom>"));
      stopHeads += Has(page, Numbered("<ReportStops>"));
      for (const Stroke& stroke : Page(page)) {
        const bool row = stroke.kind == Kind::PageText && stroke.font.points == 10 && !stroke.font.bold;
        EXPECT_TRUE(!row || stroke.y0 <= 16.8 * kCm) << c.rows << " rows, page " << page << ": " << stroke.text;
      }
    }
    EXPECT_EQ(bottomHeads, c.bottomHeads) << c.rows;
    EXPECT_EQ(stopHeads, c.stopHeads) << c.rows;
  }
}

TEST_F(LongReports, APlanThatDoesNotDecompressSaysSoOnEachPageInTheOpen) {
  ClassProfile profile;
  for (int i = 1; i <= 17; ++i) {
    profile.NewWayPoint();
    profile.Row(static_cast<std::int16_t>(i)).Status = RowStatus::kLeg;
  }
  report.InitLongReport();
  report.LongReport({profile, t, model, false, false, 1, 0, false});
  for (int page = 1; page <= writer.Pages().Pages(); ++page) {
    const auto strokes = Page(page);
    const auto notice = std::find_if(strokes.begin(), strokes.end(), [](const Stroke& stroke) {
      return stroke.text == Numbered("<DoesNotDecompress>");
    });
    ASSERT_NE(notice, strokes.end()) << page;
    EXPECT_EQ(notice->colour, kRed);
    for (const Stroke& stroke : strokes) {
      EXPECT_FALSE(stroke.kind == Kind::FilledBox && stroke.y0 < notice->y0 + 250 && stroke.y1 > notice->y0)
          << page << ": a box lies over the notice";
    }
  }
}

TEST_F(LongReports, APlanWithoutAscentSaysSoWhereTheStopsWouldBe) {
  ClassProfile profile;
  profile.NewWayPoint();
  profile.Row(1).Depth = 40;
  profile.Row(1).EndUserProfile = true;
  report.InitLongReport();
  report.LongReport({profile, t, model, false, false, 1, 0, true, {}, "wreck.tav, dive 1"});
  for (int page = 1; page <= writer.Pages().Pages(); ++page) {
    EXPECT_THAT(Texts(page), Contains(Numbered("<LacksAscent>"))) << page;
    EXPECT_THAT(Texts(page), Not(Contains(Numbered("<ReportNoStops>")))) << page;
    EXPECT_THAT(Texts(page), Contains(Numbered("<ReportProgram>, wreck.tav, dive 1"))) << page;
  }
  // A plan that comes up by its own legs has an ascent and no stops.
  profile.Row(1).Depth = 0;
  report.InitLongReport();
  report.LongReport({profile, t, model, false, false, 1, 0});
  EXPECT_THAT(Texts(1), Not(Contains(Numbered("<LacksAscent>"))));
  EXPECT_THAT(Texts(2), Contains(Numbered("<ReportNoStops>")));
}

TEST_F(LongReports, NameTheModelInForceAndNoFactorsThatDoNothing) {
  model.VPMMode = true;
  ClassProfile profile;
  profile.NewWayPoint();
  profile.Row(1).GF = 0.85;
  report.InitLongReport();
  report.LongReport({profile, t, model, false, false, 1, 0});
  EXPECT_THAT(Texts(1), Contains("VPM"));
  EXPECT_THAT(Texts(1), Not(Contains("0.30-0.85")));
  EXPECT_THAT(Texts(1), Not(Contains("85")));
}

TEST_F(LongReports, APPO2AtItsLimitIsBold) {
  ClassProfile profile;
  for (const double ppo2 : {1.39, 1.4}) {
    profile.NewWayPoint();
    profile.Row(profile.GetLength()).PPO2 = ppo2;
  }
  report.InitLongReport();
  report.LongReport({profile, t, model, false, false, 1, 0});
  for (const Stroke& stroke : Page(1)) {
    if (stroke.colour != RGB(255, 255, 255)) continue;
    EXPECT_FALSE(stroke.text == "1.39" && stroke.font.bold);
    EXPECT_FALSE(stroke.text == "1.40" && stroke.x0 > 17 * kCm && !stroke.font.bold);
  }
}

TEST_F(LongReports, TellHowFarTheyAreAndEndWhenTheyAreTold) {
  ClassProfile profile;
  for (int i = 0; i < 30; ++i) profile.NewWayPoint();
  std::vector<std::string> told;
  GeneralReport watched(writer, nullptr, [&](int done, int of) {
    told.push_back(std::to_string(done) + " of " + std::to_string(of));
    return done < 62;
  });
  watched.InitLongReport(62);
  EXPECT_TRUE(watched.LongReport({profile, t, model, false, false, 1, 0}));
  EXPECT_FALSE(watched.LongReport({profile, t, model, false, false, 1, 0}));
  EXPECT_EQ(told.size(), 62U);
  EXPECT_EQ(told.front(), "1 of 62");
  EXPECT_EQ(told.back(), "62 of 62");
}

TEST_F(LongReports, FiguresStandInTheirColumns) {
  ClassProfile profile;
  profile.NewWayPoint();
  Waypoint& row = profile.Row(1);
  row.Status = RowStatus::kStop;
  row.StopDepth = 12;
  row.StopTime = 3;
  row.RunTime = 61;
  row.GasUsed = 77;
  row.GF = 0.85;
  report.InitLongReport();
  report.LongReport({profile, t, model, false, false, 1, 0});
  // Right edges in cm, and left ones behind "<".
  const std::pair<const char*, double> columns[] = {{"12", 2.7}, {"3", 3.7}, {"61", 5.8}, {"77", 11.8}, {"85", -17.5}};
  const auto page = Page(2);
  for (const auto& [text, edge] : columns) {
    EXPECT_TRUE(std::any_of(page.begin(), page.end(), [text = std::string(text), edge = edge](const Stroke& stroke) {
      const double width = edge > 0 ? 100.0 * static_cast<double>(text.size()) : 0;
      return stroke.text == text && std::fabs(stroke.x0 + width - std::fabs(edge) * kCm) < 0.5;
    })) << text;
  }
}

TEST_F(LongReports, SayWhatIsMissing) {
  Write(0, 0, false);
  EXPECT_THAT(Texts(1), Contains(Numbered("<ReportNoData>")));
  EXPECT_THAT(Texts(2), Contains(Numbered("<ReportNoStops>")));
  EXPECT_THAT(Texts(3), Contains(Numbered("<ReportNoData>")));
}

TEST_F(LongReports, WarnOfAHighGradientFactorInTitleAndInk) {
  t.GFHigh = 1.05;
  Write(1, RowStatus::kLeg, false);
  EXPECT_THAT(Texts(1), Contains(Numbered("<ReportHighFactor>")));
  const auto page = Page(1);
  const auto factors =
      std::find_if(page.begin(), page.end(), [](const Stroke& stroke) { return stroke.text == "0.30-1.05"; });
  ASSERT_NE(factors, page.end());
  EXPECT_EQ(factors->colour, kRed);

  t.UseGF = false;
  Write(1, RowStatus::kLeg, false);
  EXPECT_THAT(Texts(1), Contains(Numbered("<ReportTitle>")));
  EXPECT_THAT(Texts(1), Contains(Numbered("<ReportOff>")).Times(2));  // no factors, and depths are not adjusted
}

TEST_F(LongReports, ImperialUnitsStandInEveryHead) {
  t.Metric = false;
  t.StartPressure = t.EndPressure = 1;
  Write(40, RowStatus::kAscentEnd, false);
  for (const int page : {1, 2, 3}) {
    EXPECT_THAT(Texts(page), Contains(Numbered("<ReportDepthFeet>"))) << page;
    EXPECT_THAT(Texts(page), Contains(Numbered("<ReportCubicFeet>"))) << page;
    EXPECT_THAT(Texts(page), Not(Contains(Numbered("<ReportDepthMetres>")))) << page;
  }
}

TEST_F(LongReports, TheLowestPPO2LeavesTheSurfaceOut) {
  ClassProfile profile;
  profile.Row(0).PPO2 = 0.1;
  profile.NewWayPoint();
  profile.Row(1).PPO2 = 0.77;
  report.InitLongReport();
  report.LongReport({profile, t, model, false, false, 1, 0});
  EXPECT_THAT(Texts(3), Contains("0.77"));
  EXPECT_THAT(Texts(3), Not(Contains("0.10")));
}

TEST_F(LongReports, LongGasNamesKeepApartAndOutOfTheNextColumn) {
  const std::vector<std::string> names = {"Bottom Tx18/45", "Bottom Tx15/55",
                                          "A n\u00e4me that is far too long Tx15/55"};
  ClassProfile profile;
  for (std::int16_t i = 1; i <= 3; ++i) {
    profile.NewWayPoint();
    profile.Row(i).GasMixName = names[static_cast<std::size_t>(i - 1)];
  }
  report.InitLongReport();
  report.LongReport({profile, t, model, false, false, 1, 0});
  int found = 0;
  for (int number = 1; number <= 3; ++number) {
    for (const Stroke& stroke : Page(number)) {
      const bool cut = stroke.text.starts_with("A n") && stroke.text.ends_with("/55");
      if (!cut && stroke.text != names[0] && stroke.text != names[1]) continue;
      ++found;
      EXPECT_EQ(cut, stroke.text.find("\u2026") != std::string::npos);
      EXPECT_LE(ArialMeasure().TextWidth(stroke.text, stroke.font), 2.0 * page::kUnitsPerCm) << stroke.text;
    }
  }
  EXPECT_EQ(found, 3);
}

TEST_F(LongReports, ASeriesTellsNumberAndIntervalOfEachDiveButTheFirst) {
  test::Plans plans;
  frmWaypointEditor& first = plans.New();
  first.AddUserWaypoint(30, 20, 0);
  first.StartDeco();
  const std::int16_t second = plans.forms.AddRepetitiveDive(first.Tag(), 65);
  plans.forms(second).AddUserWaypoint(20, 20, 0);

  WriteLongReport(report, plans.forms.Series(second));
  std::vector<int> bands;
  for (int page = 1; page <= writer.Pages().Pages(); ++page) {
    const auto on = Texts(page);
    if (std::find(on.begin(), on.end(), Numbered("<ReportRepetitiveDive>")) == on.end()) continue;
    bands.push_back(page);
    EXPECT_THAT(on, Contains(Numbered("<HoursAndMinutes>")));
    EXPECT_THAT(on, Contains("2"));
  }
  EXPECT_EQ(bands.size(), 1U);

  WriteLongReport(report, plans.forms.Series(first.Tag(), false));
  EXPECT_THAT(Texts(1), Not(Contains(Numbered("<ReportRepetitiveDive>"))));
}

}  // namespace
}  // namespace tav
