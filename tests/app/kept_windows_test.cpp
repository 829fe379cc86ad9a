// Windows and pages as the program gave them when they were last renewed. TAV_WRITE_FIGURES=1 renews them.
#include <gtest/gtest.h>
#include <string>

#include "advice/comparison.h"
#include "advice/margins.h"
#include "model/altitude.h"
#include "pages/page_player.h"
#include "reports/comparison_table.h"
#include "reports/margin_map.h"
#include "reports/plan_slate.h"
#include "support/all_forms.h"
#include "support/described.h"
#include "support/kept.h"

namespace tav {
namespace {

TEST(KeptWindows, ShowWhatIsKept) {
  for (const char* dive : {"trimix-100.tav", "rebreather.tav", "lake-series.tav"}) {
    test::Forms all("", dive);
    all.program.Document().Template.Cylinders = {{"Tx10/70", 2, 12, 0, 230, 50}, {"EAN50", 1, 7, 0, 200, 20, true}};
    for (const auto& form : all.forms) {
      std::string lines;
      all.Load(*form);
      test::OnEachPage(*form, [&] { lines += test::Described(*form); });
      test::ExpectKept(std::string("windows/") + dive + "." + form->Name() + ".txt", lines);
    }
    std::string lines = test::Described(static_cast<const Form&>(all.program.Main()));
    for (const MenuEntry& entry : all.program.Main().Menu()) {
      lines += std::string(static_cast<std::size_t>(entry.level), '>') + entry.item->Name() + "\n";
    }
    test::ExpectKept(std::string("windows/") + dive + ".main.txt", lines);
  }
}

/// The first pages of a report, stroke by stroke.
std::string PagesOf(const PrintPreview& report) {
  std::string lines = std::to_string(report.Pages().Pages()) + " pages\n";
  const PagePlayer player(report.Pages());
  for (int page = 1; page <= std::min(6, report.Pages().Pages()); ++page) {
    const PageSize size = player.SizeOf(page);
    RecordingSurface paper(size.width, size.height);
    player.tempshow(page, paper, 1);
    lines += "page " + std::to_string(page) + "\n" + test::StrokeLines(paper);
  }
  return lines;
}

TEST(KeptPages, ShowWhatIsKept) {
  for (const char* dive : {"wreck.tav", "rebreather.tav"}) {
    test::Forms all("", dive);
    PrintPreview& report = all.reports;
    const TextSource& texts = all.program.program.Texts();
    DocumentForms& forms = all.program.program.Forms();
    const auto expect = [&](const std::string& what) {
      test::ExpectKept(std::string("pages/") + dive + "." + what + ".txt", PagesOf(report));
    };

    auto& bailOut = all.Of<frmBailoutStart>();
    all.Load(bailOut);
    bailOut.tbTime.Type("10");
    bailOut.Check2.Set(true);
    bailOut.cbOK.Press();
    expect("bail-out");

    auto& tables = all.Of<frmTableExpert>();
    all.Load(tables);
    tables.cbStart.Press();
    expect("deco-tables");

    const AdviceWords words(texts, {}, true);
    const SeriesDive planned = forms.Series(all.program.Active(), false).front();
    DiveRecord other = planned.dive.record;
    other.Template.Blends.front().O2 = 33;
    other.Template.EndAltitude = 300;
    const ComparedPlan plan("Plan.tav", planned.dive);
    PrintComparison(
        report, ComparisonTable(
                    {plan, ComparedPlan("Other.tav", {other, planned.dive.plan, planned.dive.before}), plan}, words));
    expect("comparison");

    Slate slate(report);
    const WhatIfWish wish = WhatIfWish::Usual(true);
    WriteSlates({slate, texts, {}}, planned, WhatIf(planned.dive).Columns(wish), wish);
    expect("what-if");

    const Margins margins(planned.dive, DiveLimits::Usual(), words);
    const MarginGrid grid{{0, 10, 5}, {0, 6, 3}};
    PrintMargins(report, "Plan.tav", margins, grid, margins.Cells(grid), margins.Longest(), words);
    expect("margins");
    PrintLongest(report, "Plan.tav", margins, margins.Longest(), {}, words);
    expect("longest");
    PrintLongest(report, "Plan.tav", margins, std::nullopt, margins.NoStopTimes(), words);
    expect("no-stop");

    if (std::string(dive) == "wreck.tav") {
      DiveTemplate& settings = all.program.Document().Template;
      settings.EndAltitude = 6000;
      settings.EndPressure = AltitudeToPressure(6000, true);
      settings.GFHigh = settings.GFLow = 0.2;
      settings.ChangeGasMixes.clear();
      all.Load(tables);
      tables.cbStart.Press();
      expect("deco-tables-never");
    }

    auto& mixer = all.Of<frmPartialMix>();
    all.Load(mixer);
    mixer.DesFill.Type("200");
    mixer.DesO2.Type("18");
    mixer.DesHe.Type("45");
    mixer.Command1.Press();
    expect("fill");
  }
}

}  // namespace
}  // namespace tav
