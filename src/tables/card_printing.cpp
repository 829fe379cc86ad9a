#include "tables/card_printing.h"

#include <algorithm>
#include <cmath>

#include "figures/gas_words.h"
#include "model/text_id.h"
#include "pages/page_units.h"
#include "pages/wrapped_text.h"
#include "supply/supply_text.h"
#include "tables/table_remarks.h"

namespace tav {
namespace {

// cm within a card
constexpr double kHeads = 1.27;
constexpr double kRows = 1.7;
constexpr double kWarningHeight = 0.45;
constexpr double kRowHeight = 0.55;
constexpr double kNoteHeight = 0.045;  // for each point
constexpr double kTitleHeight = 0.5;
constexpr double kGap = 0.3;  // between the rows and the notes of a tall card
constexpr double kEnd = TableSlots::kCellHeight - 0.2;
constexpr double kEndOfTall = 17.5;  // with room for two more lines of its title

/// Where things stand across a card, cm: right edges of figures, the left one of gases.
struct Places {
  double width;
  double margin;
  double depth, stop, run, gas;
  int headSize;  ///< points

  [[nodiscard]] double Right() const { return width - margin; }
  [[nodiscard]] double Inner() const { return width - 2 * margin; }
};

constexpr Places kThreeAbreast{TableSlots::kCellWidth, 0.4, 1.6, 2.8, 4.2, 4.5, 9};
constexpr Places kFourAbreast{5.55, 0.2, 1.15, 2.05, 3.15, 3.4, 7};

constexpr int kRowSize = 14;  // points: read at arm's length, by a lamp
constexpr int kSmallestSize = 9;
constexpr int kTitleSize = 12;
constexpr int kNoteSize = 10;
const std::string kArial = "Arial";
const std::string kWarning = "! ";
const std::string kTied = "\u00a0";  // a figure stays with its gas and its unit
constexpr double kNoise = 1e-9;      // cm

/// A figure and its unit stay in one line.
std::string Tied(std::string text, const std::string& unit) {
  const std::string apart = " " + unit;
  for (std::size_t at = 1; (at = text.find(apart, at)) != std::string::npos; ++at) {
    const char before = text[at - 1];
    if (before >= '0' && before <= '9') text.replace(at, apart.size(), ReplaceAll(apart, " ", kTied));
  }
  return text;
}

class CardPrinter {
 public:
  CardPrinter(PrintPreview& writer, TablePages& pages, const CardSet& set, const AscentCard& card)
      : writer_(writer),
        pages_(pages),
        set_(set),
        card_(card),
        at_(IsTall() && set.abreast > 3 ? kFourAbreast : kThreeAbreast),
        end_(IsTall() ? kEndOfTall : kEnd) {}

  void Print() {
    const std::vector<Line> lines = Lines();
    const std::vector<std::size_t> ends = Ends(lines);
    parts_ = ends.size();
    std::size_t next = 0;
    for (std::size_t part = 1; part <= parts_; ++part) {
      const std::size_t end = ends[part - 1];
      Head(part);
      // Notes stand at the foot of a card, on a tall one below the rows.
      double notes = 0;
      for (std::size_t i = next; i < end; ++i) notes += lines[i].row == nullptr ? lines[i].Height() : 0;
      double y = FirstRow();
      for (const std::size_t first = next; next < end; ++next) {
        const Line& line = lines[next];
        if (line.row != nullptr) {
          Row(*line.row, y, next == first);
        } else {
          if (notes > 0) y = IsTall() ? std::min(y + kGap, end_ - notes) : end_ - notes;
          notes = 0;
          writer_.SetForeColor(line.warning ? kRed : kBlack);
          writer_.PrintTextLeft(x_ + at_.margin, y_ + y, line.note, kArial, line.size, 1);
          writer_.SetForeColor(kBlack);
        }
        y += line.Height();
      }
    }
  }

 private:
  /// A row of the ascent, or a note below the last one.
  struct Line {
    const CardRow* row = nullptr;
    std::string note = {};
    bool warning = false;
    int size = kNoteSize;

    [[nodiscard]] double Height() const { return row != nullptr ? kRowHeight : kNoteHeight * size; }
  };

  /// The index behind the last line of each card. The notes stay together, with rows above them.
  [[nodiscard]] std::vector<std::size_t> Ends(const std::vector<Line>& lines) const {
    constexpr std::size_t kAlong = 2;  // rows, at least
    const std::size_t rows = card_.rows.size();
    const double room = end_ - FirstRow();
    double notes = 0;
    for (std::size_t i = rows; i < lines.size(); ++i) notes += lines[i].Height();
    std::vector<std::size_t> ends;
    if (notes + kAlong * kRowHeight <= room) {
      const auto most = static_cast<std::size_t>(std::floor(room / kRowHeight));
      const auto beside = static_cast<std::size_t>(std::floor((room - notes) / kRowHeight));
      const std::size_t before = rows <= beside ? 0 : (rows - beside + most - 1) / most;
      for (std::size_t card = 1; card <= before; ++card) ends.push_back(std::min(card * most, rows - kAlong));
      ends.push_back(lines.size());
      return ends;
    }
    double left = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      if (ends.empty() || lines[i].Height() > left + kNoise) {
        ends.push_back(i);
        left = room;
      }
      left -= lines[i].Height();
      ends.back() = i + 1;
    }
    return ends;
  }

  /// Where the first row stands within a card: below its heads, and below that it does not decompress.
  [[nodiscard]] double FirstRow() const { return kRows + (card_.decompresses ? 0 : kWarningHeight); }

  [[nodiscard]] bool IsTall() const { return !set_.pageHead.empty(); }
  [[nodiscard]] std::string T(int id) const { return writer_.Texts().GetResString(id); }
  [[nodiscard]] bool Metric() const { return set_.info.diveTemplate.Metric; }
  /// A text from `x` on to the right edge of the card, or `before` it: nothing may run over the cut marks.
  void Fitted(double x, double y, const std::string& text, int size, bool bold, double before = 0) {
    writer_.PrintTextFitted(x_ + x, y_ + y, text, at_.Right() - x - before, kArial, size, bold ? 1 : 0, kSmallestSize);
  }
  [[nodiscard]] std::string Unit() const { return T(Metric() ? Text::ReportMetres : Text::ReportFeet); }

  void Head(std::size_t part) {
    const TablePlace place =
        IsTall() ? pages_.PlaceTall(set_.info, set_.pageHead, set_.abreast) : pages_.PlaceCard(set_.info);
    x_ = place.x;
    y_ = place.y;
    const double forPart = parts_ > 1 ? 1.2 : 0;
    if (parts_ > 1) {
      writer_.PrintTextRight(x_ + at_.Right(), y_ + 0.25, std::to_string(part) + "/" + std::to_string(parts_), kArial,
                             12, 1);
    }
    std::vector<std::string> title{set_.title};
    if (IsTall()) {
      const TextFont font{kArial, kTitleSize, true};
      title = WrappedText(set_.title, at_.Inner() - forPart, font, writer_.Services().measure);
    }
    for (const std::string& line : title) {
      Fitted(at_.margin, 0.25, line, kTitleSize, true, forPart);
      y_ += kTitleHeight;
    }
    y_ -= kTitleHeight;
    const std::string leave =
        T(Text::CardLeaveAt) + " " + card_.moment + " " + T(Text::Minutes) + ", " + card_.depth + " " + Unit();
    Fitted(at_.margin, 0.75, leave, 12, true);
    if (!card_.decompresses) {
      writer_.SetForeColor(kRed);
      Fitted(at_.margin, 1.23, T(Text::TableDoesNotDecompress), 10, true);
      writer_.SetForeColor(kBlack);
    }
    const double heads = y_ + FirstRow() - kRows + kHeads;
    writer_.PrintTextRight(x_ + at_.depth, heads, T(Text::CardDepth), kArial, at_.headSize, 0);
    writer_.PrintTextRight(x_ + at_.stop, heads, T(Text::CardStop), kArial, at_.headSize, 0);
    writer_.PrintTextRight(x_ + at_.run, heads, T(Text::CardRun), kArial, at_.headSize, 0);
    writer_.PrintTextLeft(x_ + at_.gas, heads, T(Text::CardGas), kArial, at_.headSize, 0);
    writer_.PrintBoxOutline(x_ + at_.margin, y_ + FirstRow(), x_ + at_.Right(), y_ + FirstRow());
  }

  /// The gas stands out where it changes, and where a card begins: that is the one to be on.
  void Row(const CardRow& row, double y, bool first) {
    const bool marked = row.gasChanges || (first && !row.gas.empty());
    if (marked) {
      writer_.PrintFilledBox(x_ + at_.gas - 0.1, y_ + y + 0.02, x_ + at_.Right(), y_ + y + kRowHeight - 0.02,
                             RGB(200, 200, 200));
    }
    writer_.PrintTextRight(x_ + at_.depth, y_ + y, row.depth, kArial, kRowSize, 1);
    writer_.PrintTextRight(x_ + at_.stop, y_ + y, row.stop, kArial, kRowSize, 0);
    writer_.PrintTextRight(x_ + at_.run, y_ + y, row.runTime, kArial, kRowSize, 0);
    const std::string warning = row.warned ? " !" : "";
    const std::string words = GasWords(row.gas, writer_.Texts()) + warning;
    const TextFont font{kArial, static_cast<double>(kRowSize), true};
    const bool fits = writer_.Services().measure.TextWidth(words, font) <= (at_.Right() - at_.gas) * page::kUnitsPerCm;
    Gas(y, marked && fits ? words : GasSign(row.gas, writer_.Texts()) + warning, marked);
  }

  /// In small letters, in two lines if need be, rather than with letters left out: gases must not be taken for each
  /// other.
  void Gas(double y, const std::string& gas, bool bold) {
    constexpr int kSmall = 7;
    constexpr double kLine = 0.26;
    const auto lines = [&](int size) {
      const TextFont font{kArial, static_cast<double>(size), bold};
      return WrappedText(gas, at_.Right() - at_.gas, font, writer_.Services().measure);
    };
    const std::vector<std::string> small = lines(kSmall);
    if (lines(kSmallestSize).size() == 1 || small.size() > 2) return Fitted(at_.gas, y, gas, kRowSize, bold);
    double top = y_ + y + (small.size() == 1 ? kLine / 2 : 0);
    for (const std::string& line : small) {
      writer_.PrintTextLeft(x_ + at_.gas, top, line, kArial, kSmall, bold ? 1 : 0);
      top += kLine;
    }
  }

  /// The rows, then the gas that is needed and what is wrong with it.
  [[nodiscard]] std::vector<Line> Lines() const {
    std::vector<Line> lines;
    for (const CardRow& row : card_.rows) lines.push_back({&row});
    const auto add = [&](const std::string& text, bool warning) {
      const std::string marked = (warning ? kWarning : "") + text;
      const int size = warning && !IsTall() ? kRowSize : kNoteSize;
      const TextFont font{kArial, static_cast<double>(size), true};
      for (std::string& line : WrappedText(marked, at_.Inner(), font, writer_.Services().measure)) {
        lines.push_back({nullptr, std::move(line), warning, size});
      }
    };
    if (!IsTall() || card_.supply.empty()) add(Needed(), false);
    const AdviceWords advice(writer_.Texts(), writer_.Services().numbers, Metric());
    for (const GasStore& store : card_.supply) {
      if (IsTall() || IsShort(store))
        add(Tied(GasNote(store, advice), T(Metric() ? Text::CardLitres : Text::CardCubicFeet)), IsShort(store));
    }
    const RemarkWords words = RemarkWordsOf(writer_.Texts(), Metric(), writer_.Services().numbers);
    for (const GasWarning& warning : card_.warnings) add(WarningText(warning, words), true);
    return lines;
  }

  [[nodiscard]] std::string Needed() const {
    std::string needed = T(Text::CardGasNeeded);
    for (const CardGas& gas : card_.needed) {
      needed += gas.mix == card_.needed.front().mix ? " " : ", ";
      needed.append(GasWords(gas.mix, writer_.Texts())).append(kTied).append(gas.volume).append(kTied);
      needed += T(Metric() ? Text::CardLitres : Text::CardCubicFeet);
    }
    return needed;
  }

  PrintPreview& writer_;
  TablePages& pages_;
  const CardSet& set_;
  const AscentCard& card_;
  const Places& at_;
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
