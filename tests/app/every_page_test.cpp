// Every page in every language: all texts lie on the paper, none over another, and none is lost in grey.

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "headless/recording_surface.h"
#include "pages/arial_measure.h"
#include "pages/page_player.h"
#include "pages/page_units.h"
#include "reports/comparison_table.h"
#include "reports/dive_report.h"
#include "reports/plan_sheet.h"
#include "reports/plan_slate.h"
#include "supply/supply_text.h"
#include "support/all_forms.h"

namespace tav {
namespace {

struct PlacedText {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  std::string text;
};

/// How light a printer without colours makes a colour, 0 to 255.
double Grey(Colour colour) {
  return 0.299 * (colour & 255) + 0.587 * (colour >> 8 & 255) + 0.114 * (colour >> 16 & 255);
}

/// Keeps the level texts of a page with the room that they take.
class TextsOfPage : public RecordingSurface {
 public:
  explicit TextsOfPage(const PageSize& size) : RecordingSurface(size.width, size.height) {}
  void PageText(double x, double y, const std::string& text, const TextFont& font, Colour colour,
                double angle) override {
    if (angle != 0 || text.empty()) return;
    texts.push_back({x, y, PageTextWidth(text, font), font.points * 20, text});
    constexpr double kApart = 70;
    if (std::fabs(Grey(colour) - GroundAt(x + texts.back().width / 2, y + texts.back().height / 2)) < kApart) {
      faint.push_back(text);
    }
  }
  void FilledBox(double x0, double y0, double x1, double y1, Colour colour) override {
    const auto [left, right] = std::minmax({x0, x1});
    const auto [top, bottom] = std::minmax({y0, y1});
    boxes_.push_back({left, top, right, bottom, Grey(colour)});
  }
  [[nodiscard]] double PageTextWidth(const std::string& text, const TextFont& font) const override {
    return measure_.TextWidth(text, font);  // 1/1440 inch and 1/567 cm are one length
  }
  std::vector<PlacedText> texts;
  std::vector<std::string> faint;  ///< texts that a printer without colours makes as light as their ground

 private:
  struct Ground {
    double left, top, right, bottom, grey;
  };
  /// The grey of the last box there; the paper is white.
  [[nodiscard]] double GroundAt(double x, double y) const {
    const auto box = std::find_if(boxes_.rbegin(), boxes_.rend(), [&](const Ground& each) {
      return each.left <= x && x <= each.right && each.top <= y && y <= each.bottom;
    });
    return box == boxes_.rend() ? 255 : box->grey;
  }

  ArialMeasure measure_;
  std::vector<Ground> boxes_;
};

/// A text that a cut would go through.
std::vector<std::string> CutFaults(const TextsOfPage& paper) {
  std::vector<std::string> faults;
  constexpr double kLongestMark = 0.51 * page::kUnitsPerCm;
  for (const RecordingSurface::Stroke& mark : paper.Of(RecordingSurface::Kind::Box)) {
    const bool rule = (mark.x0 == mark.x1) != (mark.y0 == mark.y1);
    if (!rule || mark.x1 - mark.x0 + mark.y1 - mark.y0 > kLongestMark) continue;
    for (const PlacedText& text : paper.texts) {
      if (mark.x1 > text.left && mark.x0 < text.left + text.width && mark.y1 > text.top &&
          mark.y0 < text.top + text.height) {
        faults.push_back("a cut mark goes through \"" + text.text + "\"");
      }
    }
  }
  return faults;
}

/// What can't be read on a page.
std::vector<std::string> ReadingFaults(const std::vector<PlacedText>& texts, const PageSize& size) {
  constexpr double kTouch = 2;
  std::vector<std::string> faults;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const PlacedText& one = texts[i];
    if (one.left < 0 || one.left + one.width > size.width || one.top < 0 || one.top + one.height > size.height) {
      faults.push_back("\"" + one.text + "\" leaves the paper");
    }
    for (std::size_t j = 0; j < i; ++j) {
      const PlacedText& other = texts[j];
      const double across = std::min(one.left + one.width, other.left + other.width) - std::max(one.left, other.left);
      const double down = std::min(one.top + one.height, other.top + other.height) - std::max(one.top, other.top);
      if (across > kTouch && down > 0.2 * std::min(one.height, other.height)) {
        faults.push_back("\"" + one.text + "\" lies over \"" + other.text + "\"");
      }
    }
  }
  return faults;
}

void LookAtPages(const PrintPreview& report, const std::string& what, double smallest = 6) {
  EXPECT_GT(report.Pages().Pages(), 0) << what;
  const PagePlayer player(report.Pages());
  for (int page = 1; page <= report.Pages().Pages(); ++page) {
    const PageSize size = player.SizeOf(page);
    TextsOfPage paper(size);
    player.tempshow(page, paper, 1);
    std::vector<std::string> faults = ReadingFaults(paper.texts, size);
    for (std::string& fault : CutFaults(paper)) faults.push_back(std::move(fault));
    for (const PlacedText& text : paper.texts) {
      if (text.height < smallest * 20) faults.push_back("\"" + text.text + "\" is too small to be read");
    }
    for (const std::string& text : paper.faint) faults.push_back("\"" + text + "\" is lost in grey");
    for (const std::string& fault : faults) ADD_FAILURE() << what << ", page " << page << ": " << fault;
  }
}

/// Without texts on A4; on the lower paper with texts as long as a plan may have, in words and without a blank.
void LookAtPlanSheets(PrintPreview& report, std::vector<SeriesDive> dives) {
  PrintPlanSheets(report, dives, {Paper::A4, false});
  LookAtPages(report, "plan sheet");
  EXPECT_LE(report.Pages().Pages(), 2 * static_cast<int>(dives.size()));
  std::string words(300, 'm');
  while (words.size() + 5 <= kPlanTextFields[2].mostLetters) words += words.size() % 7 == 0 ? "\nword" : " word";
  for (SeriesDive& dive : dives) dive.texts = {std::string(100, 'W'), std::string(100, 'M'), words};
  PrintPlanSheets(report, dives, {Paper::Letter, false});
  LookAtPages(report, "plan sheet with long texts");
}

void LookAtReports(const std::string& language, const std::string& dive) {
  SCOPED_TRACE(language + ", " + dive);
  test::Forms all(language, dive);
  PrintPreview& report = all.reports;
  const std::int16_t document = all.program.Active();
  const TextSource& texts = all.program.program.Texts();
  DocumentForms& forms = all.program.program.Forms();

  // Cylinders of which one runs short, so that the supply is told with its warnings.
  forms.Services().documents(document).Template.Cylinders = {{"EAN32", 2, 12, 0, 200, 50}};
  const LocaleSeparators comma{",", "."};
  GeneralReport general(report, [](const std::string& /*step*/) {});
  WriteLongReport(general, forms.Series(document));
  LookAtPages(report, "long report");

  // Figures of many digits, as of a habitat, of a plan that no stop clears.
  ClassProfile large = forms(document).InputProfile;
  for (std::int16_t i = 1; i <= large.GetLength(); ++i) {
    Waypoint& row = large.Row(i);
    row.Depth += 200.55;
    if (row.StopDepth > 0) row.StopDepth += 200.5;
    row.Rate = row.Rate * 100;
    row.RunTime += 12000.5;
    row.SegmentTime += 1000;
    if (row.StopTime > 0) row.StopTime += 1000;
    row.CNS += 123;
    row.OTU += 12345;
    row.END += 1234;
    row.GasUsed += 123456;
  }
  const ModelChoice hybrid{false, true, true};
  DiveTemplate& settings = forms.Services().documents(document).Template;
  general.InitLongReport();
  general.LongReport({large,
                      settings,
                      hybrid,
                      true,
                      true,
                      12,
                      12345,
                      false,
                      {},
                      "A plan with a long name for a dive along the wreck at the end of the bay, dive 12"});
  general.ShowLongReport();
  LookAtPages(report, "long report of large figures");

  Slate slate(report);
  WriteSlates({slate, texts, comma}, forms.Series(document));
  LookAtPages(report, "slate");

  LookAtPlanSheets(report, forms.Series(document));

  auto& bailOut = all.Of<frmBailoutStart>();
  all.Load(bailOut);
  bailOut.tbTime.Type("3");  // tables of more columns than a page is wide
  bailOut.Check2.Set(true);
  bailOut.cbOK.Press();
  LookAtPages(report, "bail-out");

  all.Load(bailOut);
  bailOut.Check3.Set(true);
  bailOut.cbOK.Press();
  LookAtPages(report, "bail-out from the ends of legs");

  auto& tables = all.Of<frmTableExpert>();
  all.Load(tables);
  tables.cbStart.Press();
  LookAtPages(report, "deco tables");

  all.Load(tables);
  tables.tbET.Type("150");  // rows and columns enough for more than a page
  tables.tbTI.Type("3");
  tables.tbSD.Type("60");
  tables.tbED.Type("70");
  tables.tbDI.Type("10");
  tables.cbStart.Press();
  LookAtPages(report, "large deco tables");

  const SeriesDive planned = forms.Series(document, false).front();
  const std::vector<ComparedPlan> plans(3, ComparedPlan("A plan with a long name of its own.tav", planned.dive));
  PrintComparison(report, ComparisonTable(plans, AdviceWords(texts, comma, plans.front().Settings().Metric)));
  LookAtPages(report, "comparison");

  const WhatIfWish wish = WhatIfWish::Usual(true);
  WriteSlates({slate, texts, comma}, planned, WhatIf(planned.dive).Columns(wish), wish);
  LookAtPages(report, "slates of what if");

  auto& mixer = all.Of<frmPartialMix>();
  all.Load(mixer);
  mixer.DesFill.Type("200");
  mixer.DesO2.Type("18");
  mixer.DesHe.Type("45");
  mixer.Command1.Press();
  LookAtPages(report, "fill sheet");
}

TEST(EveryLanguage, HasRoomForItsTextsOnEveryPage) {
  for (const auto& entry : std::filesystem::directory_iterator(SourceFolder() / "lang")) {
    if (entry.path().extension() != ".dll") continue;
    for (const char* dive : {"trimix-100.tav", "rebreather.tav", "lake-series.tav"}) {
      LookAtReports(entry.path().filename().string(), dive);
    }
  }
}

}  // namespace
}  // namespace tav
