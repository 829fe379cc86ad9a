#pragma once

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "compute/bailout_cuts.h"
#include "headless/headless_platform.h"
#include "model/text_id.h"
#include "pages/page_player.h"
#include "pages/page_units.h"
#include "support/plan_fixture.h"
#include "support/scratch_folder.h"
#include "tables/table_print.h"

namespace tav {

inline const RunProgress kGoOn = [](int, int) { return true; };

/// The English words that the tests look for.
struct Words : TextSource {
  [[nodiscard]] std::string GetResString(int id) const override {
    static const std::map<int, std::string> kTexts{{Text::TableColumn, "Column"},
                                                   {Text::GasOxygen, "Oxygen (O2)"},
                                                   {Text::GasAir, "Air"},
                                                   {Text::TableColumns, "Columns"},
                                                   {Text::TableTo, "to"},
                                                   {Text::TableStopAlso, "also"},
                                                   {Text::Minutes, "min"},
                                                   {Text::TableBreathe, "on"},
                                                   {Text::TableAt, "at"},
                                                   {Text::TablePPO2Low, "low PPO2"},
                                                   {Text::TableLost, "lost"},
                                                   {Text::TableAllGases, "All gases"},
                                                   {Text::TableWholeBehind, "Whole:"},
                                                   {7313, "More:"},
                                                   {Text::CardLeaveAt, "Leave at"},
                                                   {Text::CardGasNeeded, "Needed:"},
                                                   {Text::CardLitres, "l"},
                                                   {Text::TableNumber, "No."},
                                                   {Text::ReportMetres, "m"},
                                                   {Text::WhatIfCarried, "%1 of %2"},
                                                   {Text::SupplyEnough, "enough"},
                                                   {Text::SupplyIntoReserve, "reserve"},
                                                   {Text::SupplyTooLittle, "too little"},
                                                   {Text::Litres, "l"},
                                                   {Text::TableProfile, "Profile"},
                                                   {Text::BailoutTables, "Bail-out Tables"},
                                                   {Text::TableBailoutTitle, "Bail-out, %1"},
                                                   {Text::PartOf, "%1 of %2"},
                                                   {Text::InfoRunTime, "Run time"}};
    const auto found = kTexts.find(id);
    return found == kTexts.end() ? "#" + std::to_string(id) : found->second;
  }
};

class TablePrint : public testing::Test {
 protected:
  TablePrint() {
    platform.temporaryFolder = folder.Path();
    writer.window = &window;
  }

  struct Window : PreviewWindow {
    void ShowPreview(const std::string& caption) override { shown = caption; }
    std::string shown;
  };

  [[nodiscard]] int Pages() const { return writer.Pages().Pages(); }
  [[nodiscard]] std::vector<RecordingSurface::Stroke> Drawn(int page, RecordingSurface::Kind kind) const {
    RecordingSurface surface(page::kWidth, page::kHeight);
    PagePlayer(writer.Pages()).tempshow(page, surface, 1);
    return surface.Of(kind);
  }
  [[nodiscard]] std::vector<std::string> Texts(int page) const {
    std::vector<std::string> drawn;
    for (const RecordingSurface::Stroke& stroke : Drawn(page, RecordingSurface::Kind::PageText))
      drawn.push_back(stroke.text);
    return drawn;
  }
  /// Where a text stands, in cm.
  [[nodiscard]] std::vector<std::pair<double, double>> PlacesOf(int page, const std::string& text) const {
    std::vector<std::pair<double, double>> places;
    for (const RecordingSurface::Stroke& stroke : Drawn(page, RecordingSurface::Kind::PageText)) {
      if (stroke.text == text) places.emplace_back(stroke.x0 / page::kUnitsPerCm, stroke.y0 / page::kUnitsPerCm);
    }
    return places;
  }

  frmWaypointEditor& Plan(const std::vector<std::pair<double, double>>& legs, std::int16_t mix = 0) {
    frmWaypointEditor& plan = plans.New();
    for (const auto& [depth, minutes] : legs) plan.SaveUserEnteredWaypoints(minutes, depth, mix, false);
    plan.SaveUserEnteredWaypoints(-1, -1, mix, true);
    plan.ReEvaluateUserEnteredWaypoints();
    return plan;
  }
  void Print(const frmWaypointEditor& plan, double interval, BailoutParts parts, bool waysOut = true) {
    const BailoutCuts cuts = plans.Cuts(plan.Tag(), interval);
    TablePrintModule print(writer, "wreck.tav [Default.tpl]", parts);
    print.StartTableOutput();
    const bool whole = !waysOut || print.PrintWaysOut(plans.Planned(plan.Tag()), kGoOn);
    EXPECT_TRUE(whole);
    for (int i = 0; i < cuts.Scenarios(); ++i) print.PrintTableSet(*cuts.Compute(i, kGoOn));
    print.EndTableOutput();
  }

  test::ScratchFolder folder;
  HeadlessPlatform platform;
  Words texts;
  PrintPreview writer{platform, texts};
  Window window;
  test::Plans plans;
};

constexpr BailoutParts kTables{true, false};
constexpr BailoutParts kCards{false, true};

}  // namespace tav
