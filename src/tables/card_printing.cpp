#include "tables/card_printing.h"

#include <algorithm>
#include <cmath>

#include "model/text_id.h"
#include "pages/wrapped_text.h"
#include "supply/supply_text.h"
#include "tables/table_remarks.h"

namespace tav {
namespace {

// cm within a card
constexpr double kMargin = 0.4;
constexpr double kHeads = 1.65;
constexpr double kRows = 2.1;
constexpr double kRowHeight = 0.53;
constexpr double kNoteHeight = 0.42;
constexpr double kTitleHeight = 0.5;
constexpr double kGap = 0.3;  // between the rows and the notes of a tall card
constexpr double kEnd = TableSlots::kCellHeight - 0.3;
constexpr double kEndOfTall = 17.5;  // with room for two more lines of its title
constexpr double kDepthRight = 1.6;
constexpr double kStopRight = 2.8;
constexpr double kRunRight = 4.2;
constexpr double kGasLeft = 4.5;
constexpr double kRight = TableSlots::kCellWidth - kMargin;

constexpr int kRowSize = 13;  // points: read at arm's length, by a lamp
constexpr int kSmallestSize = 9;
constexpr int kTitleSize = 12;
constexpr int kHeadSize = 9;
constexpr int kNoteSize = 9;
const std::string kArial = "Arial";
const std::string kWarning = "! ";

class CardPrinter {
 public:
  CardPrinter(PrintPreview& writer, TablePages& pages, const CardSet& set, const AscentCard& card)
      : writer_(writer), pages_(pages), set_(set), card_(card), end_(IsTall() ? kEndOfTall : kEnd) {}

  void Print() {
    const std::vector<Note> notes = Notes();
    const std::size_t rows = card_.rows.size();
    const double onCard = end_ - kRows;
    const auto most = static_cast<std::size_t>(std::floor(onCard / kRowHeight));
    const double beside = std::max(0.0, onCard - static_cast<double>(notes.size()) * kNoteHeight);
    const auto mostOfLast = static_cast<std::size_t>(std::floor(beside / kRowHeight));
    // Full cards, and a last one with room for the notes.
    parts_ = rows <= mostOfLast ? 1 : 1 + (rows - mostOfLast + most - 1) / most;
    for (std::size_t part = 1, row = 0; part <= parts_; ++part) {
      const std::size_t end = part == parts_ ? rows : std::min(row + most, rows);
      Head(part);
      double y = kRows;
      for (; row < end; ++row, y += kRowHeight) Row(card_.rows[row], y);
      if (part < parts_) continue;
      const double atFoot = end_ - static_cast<double>(notes.size()) * kNoteHeight;
      y = IsTall() ? std::min(y + kGap, atFoot) : atFoot;
      for (const Note& note : notes) {
        writer_.SetForeColor(note.warning ? kRed : kBlack);
        Fitted(kMargin, y, note.line, kNoteSize, true);
        y += kNoteHeight;
      }
      writer_.SetForeColor(kBlack);
    }
  }

 private:
  struct Note {
    std::string line;
    bool warning;
  };

  [[nodiscard]] bool IsTall() const { return !set_.pageHead.empty(); }
  [[nodiscard]] std::string T(int id) const { return writer_.Texts().GetResString(id); }
  [[nodiscard]] bool Metric() const { return set_.info.diveTemplate.Metric; }
  /// A text from `x` on to the right edge of the card, or `before` it: nothing may run over the cut marks.
  void Fitted(double x, double y, const std::string& text, int size, bool bold, double before = 0) {
    writer_.PrintTextFitted(x_ + x, y_ + y, text, kRight - x - before, kArial, size, bold ? 1 : 0, kSmallestSize);
  }
  [[nodiscard]] std::string Unit() const { return T(Metric() ? Text::ReportMetres : Text::ReportFeet); }

  void Head(std::size_t part) {
    const TablePlace place = IsTall() ? pages_.PlaceTall(set_.info, set_.pageHead) : pages_.PlaceCard(set_.info);
    x_ = place.x;
    y_ = place.y;
    const double forPart = parts_ > 1 ? 1.2 : 0;
    if (parts_ > 1) {
      writer_.PrintTextRight(x_ + kRight, y_ + 0.25, std::to_string(part) + "/" + std::to_string(parts_), kArial, 12,
                             1);
    }
    std::vector<std::string> title{set_.title};
    if (IsTall()) {
      const TextFont font{kArial, kTitleSize, true};
      title = WrappedText(set_.title, kRight - kMargin - forPart, font, writer_.Services().measure);
    }
    for (const std::string& line : title) {
      Fitted(kMargin, 0.25, line, kTitleSize, true, forPart);
      y_ += kTitleHeight;
    }
    y_ -= kTitleHeight;
    const std::string leave =
        T(Text::CardLeaveAt) + " " + card_.moment + " " + T(Text::Minutes) + ", " + card_.depth + " " + Unit();
    Fitted(kMargin, 0.75, leave, 12, true);
    if (!card_.decompresses) {
      writer_.SetForeColor(kRed);
      Fitted(kMargin, 1.23, T(Text::TableDoesNotDecompress), 10, true);
      writer_.SetForeColor(kBlack);
    }
    writer_.PrintTextRight(x_ + kDepthRight, y_ + kHeads, T(Text::CardDepth), kArial, kHeadSize, 0);
    writer_.PrintTextRight(x_ + kStopRight, y_ + kHeads, T(Text::CardStop), kArial, kHeadSize, 0);
    writer_.PrintTextRight(x_ + kRunRight, y_ + kHeads, T(Text::CardRun), kArial, kHeadSize, 0);
    writer_.PrintTextLeft(x_ + kGasLeft, y_ + kHeads, T(Text::CardGas), kArial, kHeadSize, 0);
    writer_.PrintBoxOutline(x_ + kMargin, y_ + kRows, x_ + kRight, y_ + kRows);
  }

  void Row(const CardRow& row, double y) {
    if (row.gasChanges) {
      writer_.PrintFilledBox(x_ + kGasLeft - 0.1, y_ + y + 0.02, x_ + kRight, y_ + y + kRowHeight - 0.02,
                             RGB(200, 200, 200));
    }
    writer_.PrintTextRight(x_ + kDepthRight, y_ + y, row.depth, kArial, kRowSize, 1);
    writer_.PrintTextRight(x_ + kStopRight, y_ + y, row.stop, kArial, kRowSize, 0);
    writer_.PrintTextRight(x_ + kRunRight, y_ + y, row.runTime, kArial, kRowSize, 0);
    Fitted(kGasLeft, y, row.gas + (row.warned ? " !" : ""), kRowSize, row.gasChanges);
  }

  /// The gas that is needed, and what is wrong with it, below the last row.
  [[nodiscard]] std::vector<Note> Notes() const {
    std::vector<Note> notes;
    const auto add = [&](const std::string& text, bool warning) {
      const std::string marked = (warning ? kWarning : "") + text;
      const TextFont font{kArial, kNoteSize, true};
      for (std::string& line : WrappedText(marked, kRight - kMargin, font, writer_.Services().measure)) {
        notes.push_back({std::move(line), warning});
      }
    };
    if (!IsTall() || card_.supply.empty()) add(Needed(), false);
    const AdviceWords advice(writer_.Texts(), writer_.Services().numbers, Metric());
    for (const GasStore& store : card_.supply) {
      if (IsTall() || IsShort(store)) add(GasNote(store, advice), IsShort(store));
    }
    const RemarkWords words = RemarkWordsOf(writer_.Texts(), Metric(), writer_.Services().numbers);
    for (const GasWarning& warning : card_.warnings) add(WarningText(warning, words), true);
    return notes;
  }

  [[nodiscard]] std::string Needed() const {
    std::string needed = T(Text::CardGasNeeded);
    for (const CardGas& gas : card_.needed) {
      needed += (gas.mix == card_.needed.front().mix ? " " : ", ") + gas.mix + " " + gas.volume + " " +
                T(Metric() ? Text::CardLitres : Text::CardCubicFeet);
    }
    return needed;
  }

  PrintPreview& writer_;
  TablePages& pages_;
  const CardSet& set_;
  const AscentCard& card_;
  double end_;  ///< of what a card holds
  std::size_t parts_ = 1;
  double x_ = 0;
  double y_ = 0;
};

}  // namespace

void PrintCard(PrintPreview& writer, TablePages& pages, const CardSet& set, const AscentCard& card) {
  CardPrinter(writer, pages, set, card).Print();
}

}  // namespace tav
