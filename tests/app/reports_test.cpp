#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

#include "app/wait_form.h"
#include "dialogs/general_info.h"
#include "dialogs/report_selection.h"
#include "pages/page_player.h"
#include "pages/preview_form.h"
#include "reports/dive_report.h"
#include "reports/plan_slate.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

using testing::HasSubstr;
using testing::Not;

/// The program with the series of two dives in a mountain lake, dive 1 in front.
struct Series : test::HeadlessProgram {
  Series() {
    EXPECT_TRUE(Start({Dive("lake-series.tav").string()}));
    Main().Activate(Editor().getFirstProfile());
  }
  /// Presses the report command and answers its question.
  void Report(const std::function<void(frmReportSelection&)>& answer) {
    platform.onModal = {[&](Form& form) { answer(dynamic_cast<frmReportSelection&>(form)); }};
    Main().mnuGeneralReport.Choose();
  }
  [[nodiscard]] std::shared_ptr<PrintPrev> Preview() const {
    return platform.modeless.empty() ? nullptr : std::dynamic_pointer_cast<PrintPrev>(platform.modeless.back());
  }
};

TEST(ReportCommand, CoversTheCurrentDiveOrTheWholeSeries) {
  Series p;
  p.Report([](frmReportSelection& form) { form.Command1.Press(); });
  ASSERT_NE(p.Preview(), nullptr);
  EXPECT_EQ(p.Preview()->getPageMax(), "4");
  EXPECT_EQ(p.platform.modeless.size(), 1U) << "the wait window has gone";
  EXPECT_FALSE(p.platform.hourglass);

  p.Report([](frmReportSelection& form) {
    form.Option2.Choose();
    EXPECT_FALSE(form.Option1.Value);
    form.Command1.Press();
  });
  EXPECT_EQ(p.Preview()->getPageMax(), "8");
  EXPECT_EQ(p.platform.modeless.size(), 1U) << "the preview of the report before has gone";

  p.platform.modeless.clear();
  p.Report([](frmReportSelection& form) { form.Command2.Press(); });
  EXPECT_EQ(p.Preview(), nullptr);
}

TEST(ReportCommand, TellsHowFarItIsAndCanBeEnded) {
  Series p;
  for (std::int16_t leg = 0; leg < 400; ++leg) p.Editor().UserActions.DeleteLast();
  ClassUseractions& actions = p.Editor().UserActions;
  for (std::int16_t leg = 1; leg <= 400; ++leg) {
    actions.NewAction();
    actions.setuser(leg, leg % 2 == 0 ? 12 : 15, 2, 0);
  }
  p.Editor().ReEvaluateUserEnteredWaypoints();
  for (const std::size_t looks : {std::size_t{0}, std::size_t{5}}) {
    std::set<std::string> steps;
    p.platform.onEvents = [&] {
      auto& wait = dynamic_cast<frmWait&>(*p.platform.modeless.back());
      EXPECT_TRUE(wait.Blocks);
      steps.insert(wait.Label1.Caption.Get());
      if (steps.size() == looks) wait.cbCancel.Press();
    };
    p.platform.modeless.clear();
    p.Report([](frmReportSelection& form) { form.Command1.Press(); });
    p.platform.onEvents = nullptr;
    EXPECT_EQ(p.Preview() == nullptr, looks > 0);
    EXPECT_EQ(steps.size() == looks, looks > 0);
    EXPECT_TRUE(looks > 0 || steps.size() > 20) << "each page";
    EXPECT_FALSE(p.platform.hourglass);
  }
}

TEST(InformationWindow, ShowsTheDiveOfItsTab) {
  Series p;
  p.platform.onModal = {[&](Form& form) {
    auto& window = dynamic_cast<frmGeneralInfo&>(form);
    EXPECT_EQ(window.Caption.Get(), "Dive Information: lake-series.tav");
    EXPECT_EQ(window.TabStrip1.Tabs.Get().size(), 2U);
    EXPECT_EQ(window.lbModel.Caption.Get(), "ZH-L16B") << "the model of the rows, whichever is marked now";
    EXPECT_FALSE(window.Label17.Visible);
    const std::string first = window.fgSummary.Cells.Get()[4][3].text;
    window.TabStrip1.Select(1);
    EXPECT_NE(window.fgSummary.Cells.Get()[4][3].text, first);
    EXPECT_TRUE(window.Label17.Visible);
    EXPECT_EQ(window.Label17.Caption.Get(), "2 hrs :0 min");

    window.ContextMenu();
    ASSERT_EQ(p.platform.popup.size(), 1U);
    p.platform.popup[0]->Choose();
    EXPECT_THAT(p.platform.clipboardText, HasSubstr("2 hrs :0 min"));
    EXPECT_THAT(p.platform.clipboardText, HasSubstr(p.program.Forms().Caption(p.Editor().NextProfile)));
    EXPECT_EQ(p.platform.LastBox().text, "Copy to clipboard done");
    window.Command1.Press();
  }};
  p.Main().mnuBulhmannC.Choose();
  p.Main().mnuDiveInformation.Choose();
  EXPECT_EQ(p.platform.modalForms.back(), "frmGeneralInfo");
}

/// A model that is marked computes what is changed from then on; the other dives keep theirs.
TEST(Reports, AndWindowsNameTheModelOfEachDive) {
  Series p;
  const std::int16_t second = p.Editor().NextProfile;
  p.Main().mnuBulhmannC.Choose();
  p.Main().Activate(second);
  p.Main().ApplyToProfile();
  p.platform.onModal = {[&](Form& form) {
    auto& window = dynamic_cast<frmGeneralInfo&>(form);
    for (const int dive : {1, 0}) {
      window.TabStrip1.Select(dive);
      EXPECT_EQ(window.lbModel.Caption.Get(), dive == 1 ? "ZH-L16C" : "ZH-L16B");
    }
    window.Command1.Press();
  }};
  p.Main().mnuDiveInformation.Choose();
  for (const auto& series : p.program.Forms().Series(second, true)) {
    PrintPreview writer(p.platform.Services(), p.program.Texts());
    GeneralReport report(writer);
    WriteLongReport(report, {series});
    Slate slate(writer);
    const bool isSecond = &series.settings == &p.Document(second).Template;
    EXPECT_EQ(series.dive.plan.model.ZHL16C, isSecond);
    WriteSlates({slate, p.program.Texts(), {".", ""}}, {series});
    std::string pages;
    for (int page = 1; page <= writer.Pages().Pages(); ++page) {
      RecordingSurface surface(16839.9, 11907);
      PagePlayer(writer.Pages()).tempshow(page, surface, 1);
      for (const auto& stroke : surface.strokes) pages += stroke.text + "\n";
    }
    EXPECT_EQ(pages.find("ZH-L16C") != std::string::npos, isSecond);
    EXPECT_EQ(pages.find("ZH-L16B") != std::string::npos, !isSecond);
  }
}

TEST(InformationWindow, KeepsTheColumnsThatTheUserWidened) {
  Series p;
  for (const bool first : {true, false}) {
    p.platform.onModal = {[&](Form& form) {
      auto& window = dynamic_cast<frmGeneralInfo&>(form);
      if (first) {
        EXPECT_TRUE(window.fginfo.ColumnWidths.empty());
        window.fginfo.ColumnWidths = {60, 72};
      } else {
        EXPECT_EQ(window.fginfo.ColumnWidths, (std::vector<int>{60, 72}));
        EXPECT_TRUE(window.fgDecoStop.ColumnWidths.empty());
      }
    }};
    p.Main().mnuDiveInformation.Choose();
  }
}

TEST(InformationWindow, AndItsCopySayWhenAPlanDoesNotDecompressOrHasNoAscent) {
  Series p;
  const auto notice = [&] {
    std::string shown;
    p.platform.onModal = {[&](Form& form) {
      auto& window = dynamic_cast<frmGeneralInfo&>(form);
      if (window.lbNotice.Visible) shown = window.lbNotice.Caption.Get();
      window.GeneralInfo.Choose();
      EXPECT_EQ(p.platform.clipboardText.find("! " + shown) != std::string::npos, window.lbNotice.Visible.Get());
    }};
    p.Main().mnuDiveInformation.Choose();
    return shown;
  };
  EXPECT_EQ(notice(), "");
  p.Document().Decompresses = false;
  EXPECT_THAT(notice(), HasSubstr("never ends its deco"));
  p.Main().mnucleardecopoints.Choose();
  EXPECT_THAT(notice(), HasSubstr("has no ascent"));
}

}  // namespace
}  // namespace tav
