// The map of margins on a landscape page.

#include <algorithm>

#include "model/text_id.h"
#include "pages/wrapped_text.h"
#include "reports/margin_map.h"

namespace tav {
namespace {

// cm
constexpr double kLeft = 3.4;
constexpr double kRight = 18.6;
constexpr double kTop = 5.2;
constexpr double kBottom = 15.8;
constexpr double kLegend = 19.4;
constexpr double kPageRight = 27.1;
constexpr double kRow = 0.5;
constexpr double kLine = 0.42;

const std::string kArial = "Arial";

class Page {
 public:
  Page(PrintPreview& out, const Margins& margins, const MarginGrid& grid, const std::vector<MarginCell>& cells,
       const AdviceWords& words)
      : out_(out), margins_(margins), grid_(grid), cells_(cells), words_(words), marks_(MarginMarks(cells, words)) {}

  void Write(const std::string& plan, const std::optional<LongestStay>& stay, const std::string& page) {
    out_.PrintHeader(words_.T(Text::ReportProgram), words_.T(Text::MarginsTitle),
                     words_.T(Text::ReportDate) + out_.Services().environment.Today());
    out_.PrintTextFitted(1.9, 3.3, MarginHead(plan, margins_, words_), kPageRight - 1.9, kArial, 12, 1);
    Axes();
    for (std::size_t i = 0; i < cells_.size(); ++i) Cell(i);
    RunTimes();
    Planned();
    Legend();
    y_ += kRow;
    if (stay) {
      Text(words_.T(Text::LongestTitle), 1);
      for (const std::string& line : LongestStayWords(*stay, margins_, words_)) Text(line, 0);
      y_ += kRow;
    }
    for (const std::string& line : MarginNotes(margins_, words_)) Text(line, 0);
    out_.PrintFooter(words_.T(Text::ReportPrintedBy) + out_.Services().environment.UserName(),
                     words_.T(Text::ReportAid), words_.T(Text::ReportRisk), page);
  }

 private:
  [[nodiscard]] double Width() const { return (kRight - kLeft) / grid_.Columns(); }
  [[nodiscard]] double Height() const { return (kBottom - kTop) / grid_.Rows(); }
  [[nodiscard]] int Column(std::size_t index) const { return static_cast<int>(index) % grid_.Columns(); }
  [[nodiscard]] int Row(std::size_t index) const { return static_cast<int>(index) / grid_.Columns(); }
  [[nodiscard]] double X(double column) const { return kLeft + column * Width(); }
  [[nodiscard]] double Y(double row) const { return kTop + row * Height(); }

  void Axes() {
    out_.PrintTextLeft(kLeft, kTop - 1.1, words_.T(Text::MarginsLonger), kArial, 9, 0);
    out_.PrintTextLeft(1.9, kTop - 0.55, words_.T(Text::MarginsDeeper), kArial, 9, 0);
    // As many figures as have room.
    const int eachColumn = std::max(1, static_cast<int>(1.1 / Width() + 0.999));
    const int eachRow = std::max(1, static_cast<int>(0.45 / Height() + 0.999));
    for (int i = 0; i < grid_.Columns(); i += eachColumn) {
      out_.PrintTextLeft(X(i), kTop - 0.55, SignedFigure(grid_.longer.At(i), words_), kArial, 8, 0);
    }
    for (int i = 0; i < grid_.Rows(); i += eachRow) {
      const std::string figure = SignedFigure(grid_.deeper.At(i), words_) + " " + words_.LengthUnit();
      out_.PrintTextRight(kLeft - 0.15, Y(i + 0.5) - 0.17, figure, kArial, 8, 0);
    }
  }

  void Cell(std::size_t index) {
    const int column = Column(index);
    const int row = Row(index);
    const MarginCell& cell = cells_[index];
    const MarginMark& mark = MarkOf(cell, marks_);
    constexpr double kBetween = 0.02;
    out_.PrintFilledBox(X(column), Y(row), X(column + 1) - kBetween, Y(row + 1) - kBetween,
                        MarginColour(mark.limit.kind));
    constexpr double kRoom = 0.32;
    if (cell.limit.IsBroken() && Width() > kRoom && Height() > kRoom) {
      out_.SetForeColor(MarginInk(mark.limit.kind));
      out_.PrintInCen(X(column + 0.5), Y(row + 0.5) - 0.17, std::string(1, mark.letter), kArial, 8, 0);
      out_.SetForeColor(0);
    }
  }

  void Planned() {
    for (std::size_t i = 0; i < cells_.size(); ++i) {
      if (cells_[i].longer != 0 || cells_[i].deeper != 0) continue;
      const int column = Column(i);
      const int row = Row(i);
      for (const double more : {0.0, 0.03, 0.06}) {
        out_.PrintBoxOutline(X(column) - more, Y(row) - more, X(column + 1) + more, Y(row + 1) + more);
      }
    }
  }

  /// Lines between cells that lie on two sides of a round run time.
  void RunTimes() {
    const double step = RunTimeStep(cells_);
    const int columns = grid_.Columns();
    const auto band = [&](int column, int row) {
      const auto index = static_cast<std::size_t>(row) * static_cast<std::size_t>(columns);
      return RunTimeBand(cells_[index + static_cast<std::size_t>(column)], step);
    };
    for (int row = 0; row < grid_.Rows(); ++row) {
      for (int column = 0; column < columns; ++column) {
        const auto here = band(column, row);
        if (here && column > 0 && band(column - 1, row) && *band(column - 1, row) != *here) {
          out_.PrintBoxOutline(X(column), Y(row), X(column), Y(row + 1));
          if (row == grid_.Rows() - 1) {
            const std::string figure = words_.Short(*here * step) + " " + words_.T(tav::Text::WhatIfMinutes);
            out_.PrintTextLeft(X(column) + 0.05, kBottom + 0.1, figure, kArial, 7, 0);
          }
        }
        if (here && row > 0 && band(column, row - 1) && *band(column, row - 1) != *here) {
          out_.PrintBoxOutline(X(column), Y(row), X(column + 1), Y(row));
        }
      }
    }
  }

  void Legend() {
    y_ = kTop;
    for (const MarginMark& mark : marks_) {
      out_.PrintFilledBox(kLegend, y_, kLegend + 0.45, y_ + 0.4, MarginColour(mark.limit.kind));
      out_.SetForeColor(MarginInk(mark.limit.kind));
      if (mark.limit.IsBroken()) out_.PrintInCen(kLegend + 0.22, y_ + 0.03, std::string(1, mark.letter), kArial, 8, 0);
      out_.SetForeColor(0);
      out_.PrintTextFitted(kLegend + 0.65, y_ + 0.02, mark.words, kPageRight - kLegend - 0.65, kArial, 9, 0);
      y_ += kRow;
    }
  }

  /// A text in lines of the column beside the map.
  void Text(const std::string& text, int bold) {
    for (const std::string& line :
         WrappedText(text, kPageRight - kLegend, {kArial, 9, bold != 0}, out_.Services().measure)) {
      out_.PrintTextLeft(kLegend, y_, line, kArial, 9, bold);
      y_ += kLine;
    }
  }

  PrintPreview& out_;
  const Margins& margins_;
  const MarginGrid& grid_;
  const std::vector<MarginCell>& cells_;
  const AdviceWords& words_;
  std::vector<MarginMark> marks_;
  double y_ = kTop;
};

}  // namespace

void PrintMargins(PrintPreview& out, const std::string& plan, const Margins& margins, const MarginGrid& grid,
                  const std::vector<MarginCell>& cells, const std::optional<LongestStay>& stay,
                  const AdviceWords& words) {
  out.InitPreview();
  AddMarginsPage(out, plan, margins, grid, cells, stay, words, words.T(Text::ReportPage) + "1");
  out.EndReport(words.T(Text::MarginsTitle));
}

void AddMarginsPage(PrintPreview& out, const std::string& plan, const Margins& margins, const MarginGrid& grid,
                    const std::vector<MarginCell>& cells, const std::optional<LongestStay>& stay,
                    const AdviceWords& words, const std::string& page) {
  Page(out, margins, grid, cells, words).Write(plan, stay, page);
}

}  // namespace tav
