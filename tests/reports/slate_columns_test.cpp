#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless/headless_platform.h"
#include "headless/recording_surface.h"
#include "pages/page_player.h"
#include "pages/page_units.h"
#include "persist/template_file.h"
#include "reports/plan_slate.h"
#include "support/scratch_folder.h"

namespace tav {
namespace {

using Stroke = RecordingSurface::Stroke;

/// One leg and that many stops, with another gas at every third.
ClassProfile Stops(int stops) {
  ClassProfile profile;
  for (int i = 0; i <= stops; ++i) {
    profile.NewWayPoint();
    Waypoint& row = profile.Row(profile.GetLength());
    row.Depth = 0.5 + 2 * (stops - i) + 3;
    row.RunTime = 20 + i;
    row.GasUsed = 1;
    row.GasMixName = (i + stops) / 3 % 2 == 0 ? "Air" : "EAN32";
    row.Status = i == 0 ? RowStatus::kLeg : RowStatus::kStop;
    row.EndUserProfile = i == 0;
    if (i > 0) row.StopTime = row.SegmentTime = 1;
  }
  return profile;
}

/// A column may end anywhere among stops, but not below its card.
TEST(SlateColumns, EndWithAStopAheadOfTheSettings) {
  test::ScratchFolder folder;
  HeadlessPlatform platform;
  platform.temporaryFolder = folder.Path();
  TextSource texts;
  const DiveTemplate settings = ShippedDefaultTemplate();
  const ModelChoice model;
  PrintPreview pages(platform.Services(), texts);
  Slate slate(pages);
  int stopsSeen = 0;
  for (int stops = 4; stops <= 60; ++stops) {
    SCOPED_TRACE(stops);
    const ClassProfile profile = Stops(stops);
    slate.Begin();
    slate.Add({"plan.tav", "", profile, settings, model});
    slate.End();
    for (int page = 1; page <= pages.Pages().Pages(); ++page) {
      RecordingSurface surface(page::kWidth, page::kHeight);
      PagePlayer(pages.Pages()).tempshow(page, surface, 1);
      const std::vector<Stroke> drawn = surface.Of(RecordingSurface::Kind::PageText);
      const auto sameCard = [](const Stroke& a, const Stroke& b) {
        return (a.x0 < page::kWidth / 2) == (b.x0 < page::kWidth / 2) &&
               (a.y0 < page::kHeight / 2) == (b.y0 < page::kHeight / 2);
      };
      const auto isDepth = [](const Stroke& text) { return text.font.points >= 14 && text.text.ends_with(".5"); };
      for (const Stroke& depth : drawn) {
        if (!isDepth(depth)) continue;
        const double rowHeight = (depth.font.points == 18 ? 0.76 : 0.6) * page::kUnitsPerCm;
        EXPECT_TRUE(std::ranges::none_of(drawn,
                                         [&](const Stroke& small) {
                                           return small.font.points == 7 && sameCard(small, depth) &&
                                                  small.y0 >= depth.y0 && small.y0 < depth.y0 + rowHeight - 1;
                                         }))
            << depth.text << " lies over the settings";
        ++stopsSeen;
      }
    }
  }
  EXPECT_GT(stopsSeen, 500);
}

TEST(SlateTurn, IsThatOfTheDeepestLegOfEqualsTheLast) {
  GasStore air;
  air.gas = "Air";
  air.cylinders = {{"Air", 1, 10, 0, 200, 0}};
  air.lines = {{10, 2000, 0}};
  air.carried = 2000;
  GasSupply supply;
  supply.gases = {air};
  TextSource texts;
  const AdviceWords words(texts, {".", ""}, true);
  EXPECT_EQ(TurnText(supply, words), "");
  for (const auto& [depth, left] : {std::pair{20.0, 1900.0}, {30.0, 1500.0}, {30.0, 1200.0}, {10.0, 1000.0}}) {
    LegSupply& leg = supply.legs.emplace_back();
    leg.gas = "Air";
    leg.depth = depth;
    leg.turnLeft = left;
  }
  EXPECT_TRUE(TurnText(supply, words).starts_with("120 ")) << TurnText(supply, words);
  supply.legs[2].turnLeft.reset();
  EXPECT_EQ(TurnText(supply, words), "") << "no cylinder of its gas";
}

}  // namespace
}  // namespace tav
