#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless/headless_platform.h"
#include "headless/recording_surface.h"
#include "model/text_id.h"
#include "pages/arial_measure.h"
#include "pages/page_player.h"
#include "pages/page_units.h"
#include "plans/profile_commands.h"
#include "reports/plan_slate.h"
#include "support/plan_fixture.h"
#include "support/scratch_folder.h"
#include "support/source_folder.h"
#include "support/text_names.h"

namespace tav {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> Lines(const SlateRows& slate) {
  std::vector<std::string> lines;
  for (const SlateRow& row : slate.rows) {
    const char* kinds[] = {"leg", "gas", "stop", "end"};
    std::string line = std::string(kinds[static_cast<int>(row.kind)]) + " " + row.depth;
    if (row.kind == SlateRow::Kind::Gas) {
      line += " " + row.gas + (row.loop ? " loop " : " ") + row.PPO2;
    } else {
      line += " " + row.minutes + " " + row.runTime + " " + row.gas;
    }
    lines.push_back(line);
  }
  return lines;
}

/// Words as long as those of a language.
struct Words : TextSource {
  [[nodiscard]] std::string GetResString(int id) const override {
    switch (id) {
      case Text::CardDepth:
        return "Depth";
      case Text::CardStop:
        return "Stop";
      case Text::CardRun:
        return "Run";
      case Text::SlateUntil:
        return "until %1 min";
      case Text::SlateTurn:
        return "Turn at %1";
      case Text::SlatePPO2:
        return "PPO2 %1";
      case Text::WhatIfCarried:
        return "%1 of %2";
      case Text::SupplyIntoReserve:
        return "reserve";
      case Text::SupplyTooLittle:
        return "too little";
      case Text::WhatIfMoment:
        return "at %1 min, %2";
      case Text::Metres:
        return "m";
      case Text::Litres:
        return "l";
      case Text::SlateSteps:
        return "steps %1, last %2";
      default:
        return "text " + std::to_string(id);
    }
  }
};

class SlateTest : public testing::Test {
 protected:
  SlateTest() { platform_.temporaryFolder = folder_.Path(); }

  SlateRows Open(const std::string& dive) {
    const auto documents = OpenProfile(plans_.forms, SourceFolder() / "dives" / dive);
    document_ = documents.back();
    return SlateRowsOf(Rows(), Settings(), {".", ""});
  }
  const ClassProfile& Rows() { return plans_.forms(document_).InputProfile; }
  const DiveTemplate& Settings() { return plans_.documents(document_).Template; }

  test::ScratchFolder folder_;
  HeadlessPlatform platform_;
  test::Plans plans_;
  std::int16_t document_ = 0;
};

/// PPO2 of EAN50 at 21 m: 3.11325 x 0.5 = 1.56; of oxygen at 6 m 1.61; of Tx18/45 at 57 m 6.71325 x 0.18 = 1.21.
TEST_F(SlateTest, TellsLegsStopsAndGasChangesInTheOrderOfTheDive) {
  const SlateRows wreck = Open("wreck.tav");
  EXPECT_EQ(wreck.bottom.depth, "57");
  EXPECT_EQ(wreck.bottom.runTime, "8");
  EXPECT_EQ(wreck.bottom.PPO2, "1.21");
  EXPECT_THAT(Lines(wreck),
              ElementsAre("gas 0 Tx18/45 1.21", "leg 57 4.8 8 Tx18/45", "leg 52 19.4 28 Tx18/45",
                          "stop 27 1 32 Tx18/45", "stop 24 2 34 Tx18/45", "gas 21 EAN50 1.56", "stop 21 2 36 EAN50",
                          "stop 18 1 37 EAN50", "stop 15 3 40 EAN50", "stop 12 3 43 EAN50", "stop 9 6 49 EAN50",
                          "gas 6 Oxygen 1.61", "stop 6 7 56 Oxygen", "stop 3 12 69 Oxygen", "end 0  70 "));
}

TEST_F(SlateTest, HasASingleLegAtItsHeadAlone) {
  const SlateRows air = Open("air-no-stop.tav");
  EXPECT_NE(air.bottom.depth, "");
  for (const SlateRow& row : air.rows) {
    EXPECT_TRUE(row.kind == SlateRow::Kind::Stop || row.kind == SlateRow::Kind::Surface) << row.gas;
  }
}

TEST_F(SlateTest, ShowsWhereTheLoopIsLeft) {
  const SlateRows loop = Open("rebreather.tav");
  EXPECT_TRUE(loop.bottom.loop);
  EXPECT_EQ(loop.bottom.PPO2, "1.30") << "the setpoint";
  int changes = 0;
  bool open = false;
  for (const SlateRow& row : loop.rows) {
    if (row.kind != SlateRow::Kind::Gas) continue;
    ++changes;
    EXPECT_FALSE(open && row.loop) << "back to the loop";
    open = open || !row.loop;
  }
  EXPECT_TRUE(open);
  EXPECT_GE(changes, 3);
}

/// EAN50 takes 531 l, 53 bar of 10 l. The dive takes 3,766 l of Tx18/45, and for two divers under
/// stress 6,655 l must be there for the way up from its last leg.
TEST_F(SlateTest, TellsEachGasThatIsNotEnough) {
  Open("wreck.tav");
  struct Case {
    std::int16_t backGas;  // cylinders of 10 l with 200 bar
    double EAN50;          // bar
    std::vector<std::string> lines;
  };
  for (const Case& c : {Case{6, 100, {}}, Case{6, 60, {"EAN50: reserve, 531 l of 600 l"}},
                        Case{6, 50, {"EAN50: too little, 531 l of 500 l"}},
                        Case{3, 100, {"Tx18/45: too little at 28 min, 52 m, 6655 l of 6000 l"}},
                        Case{1, 100, {"Tx18/45: too little, 6655 l of 2000 l"}}}) {
    plans_.documents(document_).Template.Cylinders = {
        {"Tx18/45", c.backGas, 10, 0, 200, 30}, {"EAN50", 1, 10, 0, c.EAN50, 20}, {"Oxygen", 1, 10, 0, 200, 20}};
    const Words english;
    const AdviceWords words(english, {".", ""}, true);
    EXPECT_EQ(ShortGases(SupplyOf(plans_.Planned(document_)), words), c.lines);
  }
}

/// What a long plan prints stands on its cards: nothing beyond the inner edges, no row lost, figures in 14 points.
TEST_F(SlateTest, ContinuesOnFurtherCardsAndClipsNothing) {
  ClassProfile profile;
  DiveTemplate settings = ShippedDefaultTemplate();
  settings.Metric = false;
  settings.DepthAdjust = true;
  profile.NewWayPoint();
  Waypoint& leg = profile.Row(1);
  leg.Depth = 328.5;
  leg.RunTime = 25;
  leg.Rate = 60;
  leg.Status = RowStatus::kLeg;
  leg.EndUserProfile = true;
  leg.GasMixName = "A gas with quite a long name";
  leg.GasUsed = 1;
  constexpr int kStops = 60;
  for (int i = 0; i < kStops; ++i) {
    profile.NewWayPoint();
    Waypoint& stop = profile.Row(profile.GetLength());
    stop.Status = RowStatus::kStop;
    stop.Depth = stop.StopDepth = 10.0 * (kStops - i) + 0.5;
    stop.StopTime = stop.SegmentTime = 100 + i;
    stop.RunTime = 1000 + i;
    stop.GasMixName = i % 10 == 0 ? "A gas with quite a long name" : "Tx" + std::to_string(10 + i / 10) + "/70";
    stop.GasUsed = 1;
  }
  const Words english;
  PrintPreview pages(platform_.Services(), english);
  Slate slate(pages);
  const ModelChoice model;
  slate.Begin();
  slate.Add({"plan.tav", "longer +5 min", profile, settings, model, false, false});
  std::vector<std::string> gases;  // more of them than a card has room for
  for (int i = 0; i < 20; ++i) gases.push_back("Tx" + std::to_string(10 + i) + "/70: too little, 2854 l of 2200 l");
  slate.Add({"plan.tav", "", profile, settings, model, false, true, "120 bar", gases});
  slate.End();
  const SlateRows rows = SlateRowsOf(profile, settings, {".", ""});
  ASSERT_GT(rows.rows.size(), 66U);
  EXPECT_EQ(pages.Pages().Pages(), 3);

  int stops = 0;
  int goingOn = 0;  // cards that go on, with rows
  std::string all;
  for (int page = 1; page <= pages.Pages().Pages(); ++page) {
    RecordingSurface surface(page::kWidth, page::kHeight);
    PagePlayer(pages.Pages()).tempshow(page, surface, 1);
    std::map<std::pair<bool, bool>, bool> goesOn;
    for (const auto& stroke : surface.strokes) {
      if (stroke.kind != RecordingSurface::Kind::PageText || stroke.text.empty()) continue;
      EXPECT_TRUE(!stroke.text.starts_with("! ") || stroke.font.points == 14) << stroke.text;
      all += stroke.text + "\n";
      const double card = page::kWidth / 2;
      const double left = stroke.x0 < card ? 0 : card;
      const double right = stroke.x0 + ArialMeasure().TextWidth(stroke.text, stroke.font);
      EXPECT_GE(stroke.x0, left + 0.6 * page::kUnitsPerCm) << stroke.text;
      EXPECT_LE(right, left + card - 0.6 * page::kUnitsPerCm) << stroke.text;
      const std::pair<bool, bool> place(left > 0, stroke.y0 > page::kHeight / 2);
      if (const auto part = stroke.text.find("  "); part != std::string::npos && stroke.text.starts_with("plan.tav")) {
        goesOn[place] = stroke.text.substr(part, 4) != "  1/";
      }
      if (!stroke.text.ends_with(".5") || stroke.font.points < 14) continue;
      ++stops;
      if (!goesOn[place]) continue;
      EXPECT_EQ(stroke.colour, RGB(255, 255, 255)) << "a card that goes on begins with the gas to be on";
      goesOn[place] = false;
      ++goingOn;
    }
  }
  // Each row tells its depth in 14 points; a gas change stands first on a card as it is.
  EXPECT_GT(stops, 2 * static_cast<int>(rows.rows.size()));
  EXPECT_LE(stops, 2 * static_cast<int>(rows.rows.size()) + goingOn);
  EXPECT_GT(goingOn, 5);
  for (const std::string& gas : gases) EXPECT_THAT(all, HasSubstr("! " + gas + "\n"));
  EXPECT_THAT(all, HasSubstr(Numbered("text {SlateDoesNotDecompress}")));
  EXPECT_THAT(all, HasSubstr("Turn at 120 bar"));
  EXPECT_THAT(all, HasSubstr(Numbered("text {HeadDepthsAdjusted}")));

  // Legs alone: it is told at the head that there is no ascent.
  profile.CutAfter(1);
  slate.Begin();
  slate.Add({"plan.tav", "", profile, settings, model, false, true, "120 bar"});
  slate.End();
  RecordingSurface surface(page::kWidth, page::kHeight);
  PagePlayer(pages.Pages()).tempshow(1, surface, 1);
  EXPECT_TRUE(std::ranges::any_of(
      surface.strokes, [](const auto& stroke) { return stroke.text == Numbered("text {SlateWithoutAscent}"); }));
}

}  // namespace
}  // namespace tav
