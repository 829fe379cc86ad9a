#include "reports/sheet_pages.h"

#include <algorithm>
#include <sstream>

#include "model/text_id.h"
#include "model/utf8.h"
#include "pages/page_units.h"
#include "pages/wrapped_text.h"
#include "persist/line_reader.h"

namespace tav {
namespace {

const std::string kArial = "Arial";
constexpr double kFoot = 1.45;    // from the lower edge of the paper
constexpr double kGoesOn = 0.4;   // room for the words below what goes on
constexpr double kCellGap = 0.1;  // at both sides of each cell
constexpr double kRowGap = 0.08;  // round each row
constexpr Colour kHead = RGB(225, 225, 225);
constexpr Colour kRowRule = RGB(190, 190, 190);

TextFont FontOf(const SheetStyle& style) { return {kArial, static_cast<double>(style.points), style.bold}; }

}  // namespace

double SheetPages::Right() const { return paper_.width / page::kUnitsPerCm - kMargin; }
double SheetPages::Bottom() const { return paper_.height / page::kUnitsPerCm - kFoot - kGoesOn - 0.15; }

void SheetPages::Add(std::size_t page, Stroke stroke) {
  if (pages_.size() <= page) pages_.resize(page + 1);
  pages_[page].push_back(std::move(stroke));
}

void SheetPages::Put(std::size_t page, double x, double y, const std::string& text, const SheetStyle& style) {
  Add(page, [=](PrintPreview& out) {
    if (style.ink != kBlack) out.SetForeColor(style.ink);
    out.PrintTextLeft(x, y, text, kArial, style.points, style.bold ? 1 : 0);
    if (style.ink != kBlack) out.SetForeColor(kBlack);
  });
}

void SheetPages::PutRight(std::size_t page, double x, double y, const std::string& text, const SheetStyle& style) {
  Put(page, x - Width(text, style), y, text, style);
}

void SheetPages::Box(std::size_t page, double left, double top, double right, double bottom, Colour colour) {
  Add(page, [=](PrintPreview& out) { out.PrintFilledBox(left, top, right, bottom, colour); });
}

void SheetPages::Rule(std::size_t page, double left, double right, double y, Colour ink) {
  Add(page, [=](PrintPreview& out) {
    if (ink != kBlack) out.SetForeColor(ink);
    out.PrintBoxOutline(left, y, right, y);
    if (ink != kBlack) out.SetForeColor(kBlack);
  });
}

void SheetPages::Picture(std::size_t page, const std::string& picture, double x, double y, double width,
                         double height) {
  Add(page, [=](PrintPreview& out) { out.PrintPicture(picture, x, y, width, height); });
}

double SheetPages::Width(const std::string& text, const SheetStyle& style) const {
  return out_.Services().measure.TextWidth(text, FontOf(style)) / page::kUnitsPerCm;
}

std::vector<std::string> SheetPages::Lines(const std::string& text, double width, const SheetStyle& style) const {
  std::vector<std::string> lines;
  LineReader told(text);
  while (const auto line = told.Next()) {
    for (std::string part : WrappedText(std::string(*line), width, FontOf(style), out_.Services().measure)) {
      while (Width(part, style) > width) {
        std::size_t letters = Letters(part);
        while (letters > 1 && Width(part.substr(0, StartOfLetter(part, letters)), style) > width) --letters;
        const std::size_t end = StartOfLetter(part, letters);
        if (end == part.size()) break;
        lines.push_back(part.substr(0, end));
        part.erase(0, end);
      }
      lines.push_back(std::move(part));
    }
  }
  return lines;
}

std::string SheetPages::Fitted(const std::string& text, double width, const SheetStyle& style) const {
  return FittedText(text, width, FontOf(style), out_.Services().measure);
}

void SheetPages::Foot(std::size_t page, std::size_t of) {
  const auto t = [&](int id) { return out_.Texts().GetResString(id); };
  const double y = paper_.height / page::kUnitsPerCm - kFoot;
  SheetStyle style{8};
  const std::string number = out_.Texts().Filled(Text::PlanSheetPageOf, {std::to_string(page + 1), std::to_string(of)});
  Rule(page, Left(), Right(), y);
  PutRight(page, Right(), y + 0.1, number, style);
  const std::string words = t(Text::ReportProgram) + ". " + t(Text::ReportAid) + t(Text::ReportRisk);
  constexpr int kLeast = 6;
  const double room = Width() - Width(number, style) - 0.4;
  while (style.points > kLeast && Width(words, style) > room) --style.points;
  Put(page, Left(), y + 0.1, Fitted(words, room, style), style);
}

void SheetPages::Write(const std::string& title, const std::string& date, std::size_t of) {
  for (std::size_t page = 0; page < pages_.size(); ++page) {
    if (page > 0) {
      const SheetStyle style{10, true};
      PutRight(page, Right(), kMargin - 0.3, date, {10});
      Put(page, Left(), kMargin - 0.3, Fitted(title, Width() - Width(date, style) - 0.4, style), style);
      Rule(page, Left(), Right(), kMargin + 0.25);
    }
    Foot(page, of);
    out_.StartPlainPage(paper_);
    for (const Stroke& stroke : pages_[page]) stroke(out_);
    out_.CloseBarePage();
  }
}

bool SheetColumn::Need(double height) {
  if (y_ + height <= pages_.Bottom() || y_ <= pages_.Top(page_)) return false;
  const SheetStyle style{8};
  const std::string words = pages_.Out().Texts().Filled(Text::PlanSheetGoesOn, {std::to_string(page_ + 2)});
  pages_.Put(page_, left_, pages_.Bottom() + 0.05, pages_.Fitted(words, Width(), style), style);
  ++page_;
  y_ = pages_.Top(page_);
  return true;
}

double SheetColumn::Take(double height) {
  Need(height);
  const double y = y_;
  y_ += height;
  return y;
}

void SheetColumn::Below(const SheetColumn& other) {
  if (other.page_ > page_ || (other.page_ == page_ && other.y_ > y_)) {
    page_ = other.page_;
    y_ = other.y_;
  }
}

void SheetColumn::Heading(const std::string& text, double follows) {
  constexpr double kHeight = 0.6;
  constexpr double kAbove = 0.3;
  Need(std::min(kAbove + kHeight + follows, pages_.Bottom() - pages_.Top(page_ + 1)));
  if (y_ > pages_.Top(page_)) y_ += kAbove;
  const SheetStyle style{11, true};
  pages_.Put(page_, left_, y_, pages_.Fitted(text, Width(), style), style);
  pages_.Rule(page_, left_, right_, y_ + kHeight - 0.08);
  y_ += kHeight;
}

void SheetColumn::Marked(const std::string& mark, const std::string& text, const SheetStyle& style) {
  SheetStyle bold = style;
  bold.bold = true;
  // The mark is wrapped with the rest, in bold letters, which are the wider ones.
  const std::vector<std::string> lines =
      pages_.Lines(mark.empty() ? text : mark + " " + text, Width(), mark.empty() ? style : bold);
  const double height = LineHeight(style.points);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const double y = Take(height);
    if (i == 0 && !mark.empty() && lines[0].starts_with(mark)) {
      pages_.Put(page_, left_, y, mark, bold);
      pages_.Put(page_, left_ + pages_.Width(mark + " ", bold), y,
                 lines[0].substr(std::min(mark.size() + 1, lines[0].size())), style);
    } else {
      pages_.Put(page_, left_, y, lines[i], style);
    }
  }
}

double SheetColumn::Lines::Height() const {
  std::size_t most = 1;
  for (const auto& lines : cells) most = std::max(most, lines.size());
  return static_cast<double>(most) * LineHeight(style.points) + kRowGap;
}

/// Letters of 9 points at most, and so small that no word is broken: of 6 at least.
int SheetColumn::HeadPoints(const std::vector<TableColumn>& columns, const std::vector<Cell>& head, int points) const {
  constexpr int kMost = 9;
  constexpr int kLeast = 6;
  int size = std::min(points, kMost);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    std::istringstream words(head[i].text);
    for (std::string word; words >> word;) {
      while (size > kLeast && pages_.Width(word, {size, true}) > columns[i].share * Width() - 2 * kCellGap) --size;
    }
  }
  return size;
}

SheetColumn::Lines SheetColumn::LinesOf(const std::vector<TableColumn>& columns, const std::vector<Cell>& row,
                                        int points, bool head) const {
  Lines lines{{head ? HeadPoints(columns, row, points) : points}, head, {}, {}};
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const double room = columns[i].share * Width() - 2 * kCellGap;
    SheetStyle style{lines.style.points, head || row[i].bold};
    // A figure is set smaller, never broken.
    constexpr int kLeast = 6;
    while (!head && (columns[i].right || columns[i].whole) && style.points > kLeast &&
           pages_.Width(row[i].text, style) > room)
      --style.points;
    lines.styles.push_back(style);
    lines.cells.push_back(pages_.Lines(row[i].text, room, style));
  }
  return lines;
}

void SheetColumn::Table(const std::vector<TableColumn>& columns, const std::vector<std::vector<Cell>>& rows,
                        int points) {
  const Lines head = LinesOf(columns, rows.front(), points, true);
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const Lines row = LinesOf(columns, rows[i], points, false);
    // No head over nothing.
    if (Need(row.Height() + (i == 1 ? head.Height() : 0)) || i == 1) Row(columns, head);
    Row(columns, row);
  }
}

double SheetColumn::HeightOf(const std::vector<TableColumn>& columns, const std::vector<std::vector<Cell>>& rows,
                             int points) const {
  double height = 0;
  for (const auto& row : rows) height += LinesOf(columns, row, points, height == 0).Height();
  return height;
}

void SheetColumn::Row(const std::vector<TableColumn>& columns, const Lines& row) {
  if (row.head) pages_.Box(page_, left_, y_, right_, y_ + row.Height(), kHead);
  double x = left_;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const SheetStyle& style = row.styles[i];
    const double next = x + columns[i].share * Width();
    double y = y_ + kRowGap / 2;
    for (const std::string& line : row.cells[i]) {
      if (columns[i].right) {
        pages_.PutRight(page_, next - kCellGap, y, line, style);
      } else {
        pages_.Put(page_, x + (i == 0 ? 0.5 : 1) * kCellGap, y, line, style);
      }
      y += LineHeight(style.points);
    }
    x = next;
  }
  y_ += row.Height();
  if (!row.head) pages_.Rule(page_, left_, right_, y_, kRowRule);
}

}  // namespace tav
