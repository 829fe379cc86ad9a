#include "reports/plan_sheet.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <thread>

#include "model/text_id.h"
#include "pages/page_units.h"
#include "picture/plan_picture.h"
#include "picture/svg_surface.h"
#include "reports/margin_map.h"
#include "reports/sheet_contents.h"

namespace tav {
namespace {

// cm
constexpr double kSchedule = 10.2;
constexpr double kBetween = 0.6;
constexpr double kWithRows = 1.6;  // of a table, on the page of its heading

constexpr int kText = 9;
constexpr int kScheduleText = 11;

SheetRows RowsOf(const SupplyTables::Table& table, std::size_t columns) {
  SheetRows rows;
  for (const auto& line : table) {
    auto& row = rows.emplace_back();
    for (std::size_t i = 0; i < columns; ++i) row.push_back({line[i].text, line[i].bold});
  }
  return rows;
}

int SeverityText(Severity severity) {
  if (severity == Severity::Danger) return Text::Danger;
  return severity == Severity::Caution ? Text::Caution : Text::Note;
}

/// The pages of one sheet with a picture of that height.
class Layout {
 public:
  Layout(PrintPreview& out, const SheetContents& contents, Paper paper, double picture)
      : contents_(contents),
        date_(out.Services().environment.Today()),
        pages_(out, UprightPage(paper)),
        whole_(pages_, pages_.Left(), pages_.Right()) {
    Head();
    if (!contents_.schedule.empty()) {
      Picture(picture);
      SheetColumn schedule(whole_, pages_.Left(), pages_.Left() + kSchedule);
      SheetColumn findings(whole_, pages_.Left() + kSchedule + kBetween, pages_.Right());
      Schedule(schedule);
      Findings(findings);
      whole_.Below(schedule);
      whole_.Below(findings);
      Supply();
      Variants();
      Signature();
    }
  }

  [[nodiscard]] std::size_t Pages() const { return pages_.Count(); }
  /// With so many pages behind them.
  void Write(std::size_t behind) { pages_.Write(contents_.title, date_, pages_.Count() + behind); }

 private:
  [[nodiscard]] std::string T(int id) const { return contents_.words.T(id); }

  void Head() {
    constexpr int kTitle = 18;
    const SheetStyle title{kTitle, true};
    const SheetStyle date{11};
    const PlanTexts& texts = contents_.dive.texts;
    pages_.PutRight(0, pages_.Right(), whole_.Y() + 0.15, date_, date);
    for (const std::string& line :
         pages_.Lines(contents_.title, pages_.Width() - pages_.Width(date_, date) - kBetween, title)) {
      pages_.Put(0, pages_.Left(), whole_.Take(LineHeight(kTitle)), line, title);
    }
    whole_.Paragraph(texts.place, {11});
    whole_.Paragraph(contents_.file, {kText});
    if (!texts.notes.empty()) whole_.Space(0.1);
    whole_.Paragraph(texts.notes, {10});
    whole_.Space(0.1);
    pages_.Rule(whole_.Page(), pages_.Left(), pages_.Right(), whole_.Y());
    whole_.Space(0.15);
    Notice();
    whole_.Paragraph(contents_.settings, {kText});
  }

  /// White on black, so that it is not passed over.
  void Notice() {
    constexpr double kAround = 0.1;
    const SheetStyle style{12, true, RGB(255, 255, 255)};
    for (const std::string& line : pages_.Lines(contents_.notice, pages_.Width() - 4 * kAround, style)) {
      const double height = LineHeight(style.points) + 2 * kAround;
      const double y = whole_.Take(height);
      pages_.Box(whole_.Page(), pages_.Left(), y, pages_.Right(), y + height, kBlack);
      pages_.Put(whole_.Page(), pages_.Left() + 2 * kAround, y + kAround, line, style);
    }
    if (!contents_.notice.empty()) whole_.Space(0.15);
  }

  void Picture(double height) {
    const PlannedDive& dive = contents_.dive.dive;
    const AdviceWords& words = contents_.words;
    SvgSurface surface(pages_.Width() * page::kUnitsPerCm, height * page::kUnitsPerCm);
    PlanPicture({dive.plan.rows, dive.record.Template, contents_.moments, words.Texts(), words.Numbers().Separators()},
                {.paper = true})
        .DrawProfile(surface, surface.Height());
    whole_.Space(0.1);
    const double y = whole_.Take(height);
    pages_.Picture(whole_.Page(), surface.File(contents_.title, "", SvgSurface::Unit::Millimetre), pages_.Left(), y,
                   pages_.Width(), height);
  }

  void Schedule(SheetColumn& column) {
    column.Heading(T(Text::PlanSheetSchedule), kWithRows);
    column.Table({{0.19}, {0.14, true}, {0.13, true}, {0.16, true}, {0.25, false, true}, {0.13, true}},
                 contents_.schedule, kScheduleText);
    column.Space(0.15);
    for (const std::string& line : contents_.totals) column.Paragraph(line, {kText, true});
  }

  void Findings(SheetColumn& column) {
    column.Heading(T(Text::CheckTitle), kWithRows);
    if (contents_.findings.empty()) column.Paragraph(T(Text::CheckNothing), {kText});
    for (const Finding& finding : contents_.findings) {
      column.Marked(T(SeverityText(finding.severity)) + ":", finding.text, {kText});
      column.Space(0.1);
    }
  }

  void Supply() {
    const std::vector<SheetColumn::TableColumn> ofGases{{0.15},       {0.18},      {0.12}, {0.1, true},
                                                        {0.11, true}, {0.1, true}, {0.12}, {0.12}};
    const std::vector<SheetColumn::TableColumn> ofLegs{{0.08},       {0.08, true}, {0.09, true}, {0.15}, {0.1, true},
                                                       {0.13, true}, {0.13},       {0.12},       {0.12}};
    const SupplyTables& tables = contents_.supply;
    const SheetRows gases = RowsOf(tables.gases, ofGases.size());
    whole_.Heading(T(Text::SupplyTitle), gases.empty() ? kWithRows : whole_.HeightOf(ofGases, gases, kText));
    if (gases.empty()) return whole_.Paragraph(T(Text::PlanSheetNoCylinders), {kText});
    whole_.Table(ofGases, gases, kText);
    if (tables.legs.size() > 1) {
      // All but how the minimum is worked out.
      const SheetRows legs = RowsOf(tables.legs, ofLegs.size());
      whole_.Heading(tables.legTitle, whole_.HeightOf(ofLegs, legs, kText));
      whole_.Table(ofLegs, legs, kText);
    }
    whole_.Space(0.1);
    whole_.Paragraph(contents_.team, {kText});
    whole_.Paragraph(tables.note, {kText});
  }

  void Variants() {
    if (!contents_.variants.empty()) VariantTable();
    if (!contents_.remarks.empty()) whole_.Space(0.1);
    for (const std::string& remark : contents_.remarks) whole_.Paragraph(remark, {kText});
  }

  void VariantTable() {
    const std::vector<SheetColumn::TableColumn> columns{{0.24},      {0.09, true}, {0.09, true},
                                                        {0.1, true}, {0.07, true}, {0.41}};
    whole_.Heading(T(Text::PlanSheetOtherwise), whole_.HeightOf(columns, contents_.variants, kText));
    whole_.Table(columns, contents_.variants, kText);
  }

  void Signature() {
    constexpr double kHeight = 1.2;
    constexpr double kDate = 4.5;
    const SheetStyle style{kText};
    const double rule = whole_.Take(kHeight) + kHeight;
    const double y = rule - LineHeight(kText);
    const std::string signature = T(Text::PlanSheetSignature);
    const std::string date = T(Text::ReportDate);
    const double dateAt = pages_.Right() - kDate;
    pages_.Put(whole_.Page(), pages_.Left(), y, signature, style);
    pages_.Rule(whole_.Page(), pages_.Left() + pages_.Width(signature, style) + 0.2, dateAt - 0.4, rule);
    pages_.Put(whole_.Page(), dateAt, y, date, style);
    pages_.Rule(whole_.Page(), dateAt + pages_.Width(date, style) + 0.1, pages_.Right(), rule);
  }

  const SheetContents& contents_;
  std::string date_;
  SheetPages pages_;
  SheetColumn whole_;
};

/// With a picture as high as fits on as few pages as there can be. Returns how many there are, with those behind.
std::size_t WriteSheet(PrintPreview& out, const SheetContents& contents, Paper paper, std::size_t behind) {
  std::unique_ptr<Layout> best;
  for (const double picture : {6.4, 5.5, 4.6}) {
    auto layout = std::make_unique<Layout>(out, contents, paper, picture);
    if (best == nullptr || layout->Pages() < best->Pages()) best = std::move(layout);
    if (best->Pages() == 1) break;
  }
  best->Write(behind);
  return best->Pages() + behind;
}

/// On the last of so many pages.
void AddMargins(PrintPreview& out, const SheetContents& contents, const Margins& margins, std::size_t pages) {
  const MarginGrid grid = MarginGrid::Usual(contents.words.Metric());
  const auto cells = margins.Cells(grid, static_cast<int>(std::max(1U, std::thread::hardware_concurrency())));
  const std::string page = contents.words.T(Text::PlanSheetPageOf, {std::to_string(pages), std::to_string(pages)});
  AddMarginsPage(out, contents.title, margins, grid, cells, margins.Longest(), contents.words, page);
}

}  // namespace

void PrintPlanSheets(PrintPreview& out, const std::vector<SeriesDive>& dives, const PlanSheetWish& wish) {
  out.InitPreview();
  for (const SeriesDive& dive : dives) {
    const PrintPreview::Batch batch(out);
    const AdviceWords words(out.Texts(), out.Services().numbers, dive.dive.record.Template.Metric);
    SheetContents contents(dive, words);
    std::optional<Margins> margins;
    if (wish.margins) margins.emplace(dive.dive, LimitsOf(dive.dive.record.Template), words);
    if (margins && !margins->Fault().IsEmpty()) {
      contents.remarks.push_back(words.T(Text::MarginsTitle) + ": " + words.Texts().Words(margins->Fault()));
      margins.reset();
    }
    const std::size_t pages = WriteSheet(out, contents, wish.paper, margins ? 1 : 0);
    if (margins) AddMargins(out, contents, *margins, pages);
  }
  out.EndReport(out.Texts().GetResString(Text::PlanSheetTitle));
}

}  // namespace tav
