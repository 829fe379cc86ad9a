// Windows and pages as the program gave them when they were last renewed. TAV_WRITE_FIGURES=1 renews them.
#include <gtest/gtest.h>
#include <string>

#include "advice/comparison.h"
#include "advice/margins.h"
#include "controls/cell_map.h"
#include "controls/grid.h"
#include "pages/page_player.h"
#include "reports/comparison_table.h"
#include "reports/margin_map.h"
#include "reports/plan_slate.h"
#include "support/all_forms.h"
#include "support/kept.h"

namespace tav {
namespace {

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : " | ") + text;
  return joined;
}

std::string Rows(const std::vector<std::vector<GridCell>>& cells) {
  std::string lines;
  for (const auto& row : cells) {
    lines += "   ";
    for (const GridCell& cell : row) {
      lines += " [" + cell.text;
      if (cell.colour != -1) lines += " #" + std::to_string(cell.colour);
      if (cell.fill != -1) lines += " fill " + std::to_string(cell.fill);
      if (cell.bold) lines += " bold";
      if (cell.italic) lines += " italic";
      if (cell.tick) lines += *cell.tick ? " on" : " off";
      for (const std::string& more : {cell.spoken, cell.fault, cell.tip})
        lines += more.empty() ? "" : " (" + more + ")";
      lines += "]";
    }
    lines += "\n";
  }
  return lines;
}

template <class C, class Describe>
void IfIs(const Control& control, Describe describe) {
  if (const auto* one = dynamic_cast<const C*>(&control)) describe(*one);
}

std::string Described(const CellMap& control) {
  const CellMap::Content& map = control.Map;
  std::string lines = ": " + Joined(map.columnHeads) + " by " + Joined(map.rowHeads) + ", " + map.overColumns +
                      ", marked " + std::to_string(map.marked) + ", selected " + std::to_string(control.Selected) +
                      "\n   ";
  for (const CellMap::Cell& cell : map.cells) {
    lines += std::string(1, cell.letter) + (cell.edgeAtLeft ? "|" : "") + (cell.edgeAbove ? "-" : "");
  }
  return lines;
}

/// What a user can see of a control, or reach by a key.
std::string Described(const Control& control) {
  std::string line = "  " + control.Name() + " \"" + control.Caption.Get() + "\"";
  const auto add = [&](bool is, const std::string& what) { line += is ? ", " + what : ""; };
  add(!control.ToolTipText.Get().empty(), "tip \"" + control.ToolTipText.Get() + "\"");
  add(!control.SpokenName.Get().empty(), "spoken \"" + control.SpokenName.Get() + "\"");
  add(!control.Enabled, "disabled");
  add(!control.Visible, "hidden");
  add(control.Bold, "bold");
  add(control.ForeColor != -1, "#" + std::to_string(control.ForeColor));
  IfIs<Button>(control, [&](const Button& c) { add(c.Default, "Return"), add(c.Cancel, "Escape"); });
  IfIs<CheckBox>(control, [&](const CheckBox& c) { add(c.Value, "on"); });
  IfIs<OptionButton>(control, [&](const OptionButton& c) { add(c.Value, "on"); });
  IfIs<TextBox>(control, [&](const TextBox& c) { line += ": " + c.Text.Get(), add(c.Locked, "locked"); });
  IfIs<TextView>(control, [&](const TextView& c) { line += ": " + c.Text.Get(); });
  IfIs<ComboBox>(control, [&](const ComboBox& c) {
    line += ": " + c.Text() + " of " + Joined(c.Items);
    add(c.TakesText, "or typed");
  });
  IfIs<SpinButton>(control, [&](const SpinButton& c) { line += " steps " + c.Buddy; });
  IfIs<ProgressBar>(control, [&](const ProgressBar& c) {
    line += ": " + std::to_string(c.Value) + " of " + std::to_string(c.Maximum);
  });
  IfIs<ListView>(control,
                 [&](const ListView& c) { line += ": " + std::to_string(c.SelectedItem) + " of " + Joined(c.Items); });
  IfIs<TabStrip>(control,
                 [&](const TabStrip& c) { line += ": " + std::to_string(c.SelectedItem) + " of " + Joined(c.Tabs); });
  IfIs<Picture>(control, [&](const Picture& c) { line += ": " + c.Image.Get(); });
  IfIs<MenuItem>(control, [&](const MenuItem& c) { add(!c.Shortcut.empty(), c.Shortcut), add(c.Checked, "on"); });
  IfIs<ToolButton>(control, [&](const ToolButton& c) { line += " " + c.Image.Get(), add(c.Checked, "on"); });
  IfIs<CheckList>(control, [&](const CheckList& c) {
    for (const CheckList::Item& item : c.Items.Get()) line += " | " + item.text + (item.on ? " on" : " off");
  });
  IfIs<CellMap>(control, [&](const CellMap& c) { line += Described(c); });
  IfIs<Grid>(control, [&](const Grid& c) { line += "\n" + Rows(c.Cells); });
  IfIs<ResultGrid>(control, [&](const ResultGrid& c) { line += "\n" + Rows(c.Cells); });
  return line + "\n";
}

std::string Described(const Form& form) {
  std::string lines = form.Name() + " \"" + form.Caption.Get() + "\"\n";
  for (const Control* control : form.Controls()) lines += Described(*control);
  return lines;
}

TEST(KeptWindows, ShowWhatIsKept) {
  for (const char* dive : {"trimix-100.tav", "rebreather.tav"}) {
    test::Forms all("", dive);
    all.program.Document().Template.Cylinders = {{"Tx10/70", 2, 12, 0, 230, 50}, {"EAN50", 1, 7, 0, 200, 20, true}};
    for (const auto& form : all.forms) {
      std::string lines;
      all.Load(*form);
      test::OnEachPage(*form, [&] { lines += Described(*form); });
      test::ExpectKept(std::string("windows/") + dive + "." + form->Name() + ".txt", lines);
    }
    std::string lines = Described(static_cast<const Form&>(all.program.Main()));
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
    const std::vector<ComparedPlan> plans(3, ComparedPlan("Plan.tav", planned.dive));
    PrintComparison(report, ComparisonTable(plans, words));
    expect("comparison");

    Slate slate(report);
    const WhatIfWish wish = WhatIfWish::Usual(true);
    WriteSlates({slate, texts, {}}, planned, WhatIf(planned.dive).Columns(wish), wish);
    expect("what-if");

    const Margins margins(planned.dive, DiveLimits::Usual(), words);
    const MarginGrid grid{{0, 10, 5}, {0, 6, 3}};
    PrintMargins(report, "Plan.tav", margins, grid, margins.Cells(grid), margins.Longest(), words);
    expect("margins");

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
