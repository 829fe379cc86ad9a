#include "figures/information.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/text_id.h"
#include "reports/information_text.h"
#include "support/plan_fixture.h"
#include "support/text_names.h"

namespace tav {
namespace {

using testing::HasSubstr;

/// A template and a dive of a start row and what a test adds, computed by nobody.
struct Dive {
  Dive() {
    t.MinPPO2 = 0.18;
    t.MaxPPO2 = 1.4;
    t.DecoPPO2 = 1.6;
    t.MaximalEND = 30;
    t.UseGF = true;
    profile.Row(0).PPO2 = 0.21;
  }
  Waypoint& Add() {
    profile.NewWayPoint();
    Waypoint& row = profile.Row(profile.GetLength());
    row.PPO2 = 1.0;
    return row;
  }
  [[nodiscard]] DiveInformation Information() const { return {profile, t, marks, false, texts, {}}; }
  [[nodiscard]] GridCell Cell(int row, int column) const {
    return Information().Profile().at(static_cast<std::size_t>(row + 1)).at(static_cast<std::size_t>(column));
  }

  DiveTemplate t = ShippedDefaultTemplate();
  ClassProfile profile;
  ModelChoice marks;
  TextSource texts;
};

TEST(Information, MarksWhatIsBeyondALimit) {
  struct Case {
    const char* what;
    int column;
    std::function<void(Waypoint&)> set;
    std::string text;
    bool marked;
  };
  const Case cases[] = {
      {"PPO2 at the limit", 5, [](Waypoint& r) { r.PPO2 = 1.4; }, "1.40", false},
      {"PPO2 above", 5, [](Waypoint& r) { r.PPO2 = 1.41; }, "1.41", true},
      {"PPO2 below", 5, [](Waypoint& r) { r.PPO2 = 0.17; }, "0.17", true},
      {"CNS of the whole limit", 6, [](Waypoint& r) { r.CNS = 1.0; }, "100.0", false},
      {"CNS above", 6, [](Waypoint& r) { r.CNS = 1.01; }, "101.0", true},
      {"END 0.1 above", 8, [](Waypoint& r) { r.END = 30.1; }, "30", false},
      {"END 0.2 above", 8, [](Waypoint& r) { r.END = 30.2; }, "30", true},
      {"no GF", 11, [](Waypoint& r) { r.GF = 1.0; }, "", false},
      {"GF", 11, [](Waypoint& r) { r.GF = 0.85; }, "85.0", false},
      {"GF above 1", 11, [](Waypoint& r) { r.GF = 1.05; }, "105", true},
      {"no M-value", 10, [](Waypoint& r) { r.MaxMValue = 0; }, "", false},
  };
  for (const Case& c : cases) {
    Dive dive;
    c.set(dive.Add());
    const GridCell cell = dive.Cell(1, c.column);
    EXPECT_EQ(cell.text, c.text) << c.what;
    EXPECT_EQ(cell.bold && cell.colour == kRed, c.marked) << c.what;
  }
}

TEST(Information, FromTheFirstStopOnPPO2IsHeldAgainstTheLimitOfStops) {
  Dive dive;
  dive.Add().PPO2 = 1.5;
  Waypoint& stop = dive.Add();
  stop.StopDepth = 6;
  stop.StopTime = 2;
  stop.PPO2 = 1.5;
  dive.Add().PPO2 = 1.61;  // a move behind the stop
  EXPECT_TRUE(dive.Cell(1, 5).bold && !dive.Cell(1, 5).italic);
  EXPECT_FALSE(dive.Cell(2, 5).bold);
  EXPECT_TRUE(dive.Cell(3, 5).bold && dive.Cell(3, 5).italic);
  // The summary knows the limit of the dive alone.
  EXPECT_TRUE(dive.Information().Summary()[2][1].bold);
  const auto stops = dive.Information().DecoStops();
  ASSERT_EQ(stops.size(), 2U);
  EXPECT_EQ(stops[1][0].text + " " + stops[1][1].text, "6.0 2.0");
}

TEST(Information, RowsAreNamedByTheirKind) {
  struct Case {
    std::int16_t status;
    bool shown;
    double rate;
    std::string text;
  };
  for (const Case& c : {Case{0, true, 0, Numbered("<InfoKinds>")}, Case{4, true, 0, Numbered("<InfoKinds+4>")},
                        Case{5, true, 0, Numbered("<InfoKinds+5>")}, Case{-1, false, -9, ""},
                        Case{-1, true, -9, Numbered("<InfoAscent>")}, Case{-1, true, 18, Numbered("<InfoDescent>")},
                        Case{-1, true, 0, ""}}) {
    Dive dive;
    Waypoint& row = dive.Add();
    row.Status = c.status;
    row.DoShow = c.shown;
    row.Rate = c.rate;
    EXPECT_EQ(dive.Cell(1, 12).text, c.text) << c.status << " " << c.rate;
  }
}

TEST(Information, TheModelStaysUntilARowNamesAnother) {
  Dive dive;
  dive.Add().ModelControl = ModelMarker::kVPM;
  dive.Add().ModelControl = ModelMarker::kNone;
  dive.Add().ModelControl = ModelMarker::kZHL16;
  EXPECT_EQ(dive.Cell(0, 13).text, "");
  EXPECT_EQ(dive.Cell(1, 13).text, "VPM");
  EXPECT_EQ(dive.Cell(2, 13).text, "VPM");
  EXPECT_EQ(dive.Cell(3, 13).text, "ZH-L16B");
}

TEST(Information, ARebreatherUsesNoGasByItsLoop) {
  Dive dive;
  dive.t.OpenCircuit = false;
  dive.Add().GasUsed = 12;
  EXPECT_EQ(dive.Cell(1, 9).text, "--   ");
}

TEST(Information, GasIsSummedByNameInTheOrderOfTheTemplate) {
  Dive dive;
  dive.t.Blends = {AirMix(), {"EAN32", 32, 68, 0}, {"Oxygen", 100, 0, 0}};
  const std::pair<const char*, double> used[] = {{"Oxygen", 100.25}, {"Air", 40}, {"Oxygen", 50.5}, {"Tx10/70", 9}};
  for (const auto& [name, litres] : used) {
    Waypoint& row = dive.Add();
    row.GasMixName = name;
    row.GasUsed = litres;
  }
  const auto gas = dive.Information().Gas();
  ASSERT_EQ(gas.size(), 3U);  // EAN32 was not breathed, Tx10/70 is not in the template
  EXPECT_EQ(gas[1][0].text + " " + gas[1][1].text, "Air 40.0");
  EXPECT_EQ(gas[2][0].text + " " + gas[2][1].text, "Oxygen 150.8");
}

TEST(Information, ADiveWithoutRowsHasAnEmptySummary) {
  const Dive dive;
  for (const auto& row : dive.Information().Summary()) EXPECT_EQ(row[1].text + row[3].text, "");
}

TEST(Information, FiguresHaveTheUsersDecimalSeparator) {
  Dive dive;
  dive.Add().PPO2 = 1.25;
  const DiveInformation german(dive.profile, dive.t, dive.marks, false, dive.texts, {",", "."});
  EXPECT_EQ(german.Profile()[2][5].text, "1,25");
  EXPECT_EQ(german.Info().highGF, "0,85");
}

TEST(InformationText, TellsGradientFactorsWhereTheyAreOn) {
  Dive dive;
  dive.t.GFLow = 0.3;
  dive.t.GFHigh = 0.85;
  const DiveInformation information = dive.Information();
  const std::string text = InformationText(
      {"wreck", "", information.Info(), information.Profile(), information.DecoStops(), information.Gas()}, dive.texts);
  EXPECT_THAT(text, HasSubstr("\r\n" + std::string(19, ' ') + Numbered("   <InfoLowGF>: 0.30")));
  EXPECT_THAT(text, HasSubstr("\r\n" + std::string(19, ' ') + Numbered("   <InfoHighGF>: 0.85")));
}

TEST(Information, NamesTheModelInForceAndNoFactorsThatDoNothing) {
  Dive dive;
  dive.Add().GF = 0.85;
  dive.marks = {true, false, false};
  EXPECT_EQ(dive.Information().Info().model, "VPM");
  EXPECT_FALSE(dive.Information().Info().showsGF);
  EXPECT_EQ(dive.Cell(1, 11).text, "");
  dive.marks = {false, true, false};
  EXPECT_EQ(dive.Information().Info().model, "ZH-L16B + VPM");
  EXPECT_EQ(dive.Cell(1, 11).text, "85.0");
}

TEST(InformationText, SaysAtItsHeadWhatMustBeReadFirst) {
  const Dive dive;
  const DiveInformation information = dive.Information();
  const std::string text = InformationText({"wreck",
                                            "",
                                            information.Info(),
                                            information.Profile(),
                                            information.DecoStops(),
                                            information.Gas(),
                                            {},
                                            "It ends under water."},
                                           dive.texts);
  EXPECT_LT(text.find("! It ends under water."), text.find(Numbered("<InfoTitle>")));
}

TEST(InformationText, StandsInColumns) {
  Dive dive;
  dive.t.UseGF = false;
  dive.t.StepSize = 3;
  Waypoint& row = dive.Add();
  row.Depth = 30;
  row.RunTime = 1234567;  // wider than its column
  struct Words : TextSource {
    [[nodiscard]] std::string GetResString(int id) const override {
      return id == Text::InfoLastStop  ? "Last Stop:"
             : id == Text::ReportTitle ? "Tauchplan \u00e4"
                                       : "t" + std::to_string(id);
    }
  } words;
  const DiveInformation information(dive.profile, dive.t, dive.marks, true, words, {});
  const std::string text = InformationText(
      {"wreck", "2 hrs :5 min", information.Info(), information.Profile(), information.DecoStops(), information.Gas()},
      words);
  // 19 letters in the middle of 80: 31 blanks ahead; an umlaut is one letter.
  EXPECT_THAT(text, HasSubstr(std::string(81, '_') + "\r\n" + std::string(31, ' ') + "Tauchplan \u00e4:   wreck" +
                              std::string(51, ' ') + "\r\n" + std::string(81, '_') + "\r\n"));
  EXPECT_THAT(text, HasSubstr("t60222 hrs :5 min\r\n\r\n"));
  EXPECT_THAT(text, HasSubstr("t1643: 3 m          t2123 t2142: t6169             t21340 m\r\n"));
  EXPECT_THAT(text, HasSubstr("Last Stop: 3 m"));  // no second colon
  EXPECT_THAT(text, HasSubstr(std::string("\r\n30.0   0.0   1234567.00    0   1.00  0.0   0.0   0   0.0") +
                              std::string(24, ' ') + "\r\n"));
  EXPECT_TRUE(text.ends_with(std::string(80, '_') + "\r\n"));
}

}  // namespace
}  // namespace tav
