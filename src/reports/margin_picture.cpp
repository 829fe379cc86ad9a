#include "reports/margin_picture.h"

#include <algorithm>

#include "model/text_id.h"
#include "reports/margin_map.h"

namespace tav {
namespace {

constexpr double kPixel = 15;  // drawing units

class Map {
 public:
  Map(DrawingSurface& surface, const MarginGrid& grid, const std::vector<MarginCell>& cells,
      const std::vector<std::string>& notes, const AdviceWords& words)
      : surface_(surface), grid_(grid), cells_(cells), words_(words), marks_(MarginMarks(cells, words)) {
    line_ = 1.3 * surface_.TextHeight();
    for (int i = 0; i < grid_.Rows(); ++i) left_ = std::max(left_, surface_.TextWidth(RowHead(i)) + 12 * kPixel);
    top_ = 4 * line_;
    right_ = surface_.Width() - 8 * kPixel;
    for (const std::string& note : notes) Wrap(note);
    bottom_ = surface_.Height() - line_ * (1.7 + static_cast<double>(marks_.size() + notes_.size()));
  }

  void Draw(const std::string& head) {
    surface_.Clear(RGB(255, 255, 255));
    surface_.Text(8 * kPixel, 0.5 * line_, head, kBlack, true);
    Heads();
    for (std::size_t i = 0; i < cells_.size(); ++i) Cell(i);
    Lines();
    for (std::size_t i = 0; i < cells_.size(); ++i) {
      if (cells_[i].longer != 0 || cells_[i].deeper != 0) continue;
      for (const double more : {0.0, kPixel}) {
        surface_.Box(X(Column(i)) - more, Y(Row(i)) - more, X(Column(i) + 1) + more, Y(Row(i) + 1) + more, kBlack);
      }
    }
    Legend();
  }

 private:
  [[nodiscard]] int Column(std::size_t index) const { return static_cast<int>(index) % grid_.Columns(); }
  [[nodiscard]] int Row(std::size_t index) const { return static_cast<int>(index) / grid_.Columns(); }
  [[nodiscard]] double X(double column) const { return left_ + column * (right_ - left_) / grid_.Columns(); }
  [[nodiscard]] double Y(double row) const { return top_ + row * (bottom_ - top_) / grid_.Rows(); }
  [[nodiscard]] std::string RowHead(int row) const {
    return SignedFigure(grid_.deeper.At(row), words_) + " " + words_.LengthUnit();
  }

  void Heads() {
    surface_.Text(left_, top_ - 2.2 * line_, words_.T(Text::MarginsLonger), kBlack);
    double free = left_;
    for (int i = 0; i < grid_.Columns(); ++i) {
      const std::string text = SignedFigure(grid_.longer.At(i), words_);
      if (X(i) < free) continue;
      surface_.Text(X(i), top_ - 1.1 * line_, text, kBlack);
      free = X(i) + surface_.TextWidth(text) + 6 * kPixel;
    }
    double below = 0;
    for (int i = 0; i < grid_.Rows(); ++i) {
      const double y = Y(i + 0.5) - surface_.TextHeight() / 2;
      if (y < below) continue;
      surface_.Text(left_ - 4 * kPixel - surface_.TextWidth(RowHead(i)), y, RowHead(i), kBlack);
      below = y + surface_.TextHeight();
    }
  }

  void Cell(std::size_t index) {
    const MarginMark& mark = MarkOf(cells_[index], marks_);
    const double x = X(Column(index));
    const double y = Y(Row(index));
    const double width = X(1) - X(0);
    const double height = Y(1) - Y(0);
    surface_.FilledBox(x, y, x + width - kPixel, y + height - kPixel, MarginColour(mark.limit.kind));
    const std::string letter(1, mark.letter);
    if (!mark.limit.IsBroken() || surface_.TextWidth(letter) > width || surface_.TextHeight() > height) return;
    surface_.Text(x + (width - surface_.TextWidth(letter)) / 2, y + (height - surface_.TextHeight()) / 2, letter,
                  MarginInk(mark.limit.kind));
  }

  void Lines() {
    const double step = RunTimeStep(cells_);
    const auto columns = static_cast<std::size_t>(grid_.Columns());
    for (std::size_t i = 0; i < cells_.size(); ++i) {
      const auto here = RunTimeBand(cells_[i], step);
      const auto parts = [&](std::size_t other) {
        const auto there = RunTimeBand(cells_[other], step);
        return here && there && *here != *there;
      };
      const double x = X(Column(i));
      const double y = Y(Row(i));
      if (Column(i) > 0 && parts(i - 1)) {
        surface_.Line(x, y, x, Y(Row(i) + 1), kBlack, DrawingSurface::LineStyle::Thick);
        if (Row(i) == grid_.Rows() - 1) {
          surface_.Text(x, bottom_, words_.Short(*here * step) + " " + words_.T(Text::WhatIfMinutes), kBlack);
        }
      }
      if (i >= columns && parts(i - columns)) {
        surface_.Line(x, y, X(Column(i) + 1), y, kBlack, DrawingSurface::LineStyle::Thick);
      }
    }
  }

  /// A text in lines of the width of the map.
  void Wrap(const std::string& text) {
    std::string line;
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t blank = std::min(text.find(' ', at), text.size());
      const std::string longer = line + (line.empty() ? "" : " ") + text.substr(at, blank - at);
      if (!line.empty() && surface_.TextWidth(longer) > right_ - left_) {
        notes_.push_back(line);
        line = text.substr(at, blank - at);
      } else {
        line = longer;
      }
      at = blank + 1;
    }
    notes_.push_back(line);
  }

  void Legend() {
    double y = bottom_ + 1.5 * line_;
    const double side = surface_.TextHeight();
    for (const MarginMark& mark : marks_) {
      surface_.FilledBox(left_, y, left_ + 1.5 * side, y + side, MarginColour(mark.limit.kind));
      surface_.Text(left_ + 0.4 * side, y, std::string(1, mark.letter), MarginInk(mark.limit.kind));
      surface_.Text(left_ + 2 * side, y, mark.words, kBlack);
      y += line_;
    }
    for (const std::string& line : notes_) {
      surface_.Text(left_, y, line, kBlack);
      y += line_;
    }
  }

  DrawingSurface& surface_;
  const MarginGrid& grid_;
  const std::vector<MarginCell>& cells_;
  const AdviceWords& words_;
  std::vector<MarginMark> marks_;
  std::vector<std::string> notes_;
  double line_ = 0;
  double left_ = 0;
  double top_ = 0;
  double right_ = 0;
  double bottom_ = 0;
};

}  // namespace

FilePicture MarginPicture(const std::string& plan, const Margins& margins, const MarginGrid& grid,
                          const std::vector<MarginCell>& cells, const AdviceWords& words) {
  const std::string head = MarginHead(plan, margins, words);
  return {1000, 700, head, MarginMapText(grid, cells, words),
          [grid, cells, words, head, notes = MarginNotes(margins, words)](DrawingSurface& surface) {
            Map(surface, grid, cells, notes, words).Draw(head);
          }};
}

}  // namespace tav
