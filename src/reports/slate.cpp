#include "reports/slate.h"

#include <algorithm>
#include <cmath>

#include "figures/dive_figures.h"
#include "figures/gas_words.h"
#include "figures/settings_words.h"
#include "model/text_id.h"
#include "pages/page_units.h"
#include "pages/wrapped_text.h"

namespace tav {
namespace {

constexpr int kColumns = 2;
constexpr int kRows = 2;
constexpr double kPageWidth = page::kWidth / page::kUnitsPerCm;
constexpr double kPageHeight = page::kHeight / page::kUnitsPerCm;
constexpr double kCardWidth = kPageWidth / kColumns;
constexpr double kCardHeight = kPageHeight / kRows;

// cm within a card; printers leave the edge of a page white
constexpr double kMargin = 0.7;
constexpr double kRight = kCardWidth - kMargin;
constexpr double kHeads = 2.35;
constexpr double kTop = 2.75;
constexpr double kEndOfSettings = kCardHeight - 0.55;
constexpr double kSettingsHeight = 0.3;

constexpr double kNoteHeight = 0.6;
constexpr std::size_t kMostNotes = 6;  // on a card, so that rows have room, too

constexpr int kSmall = 7;
constexpr int kNoteSize = 14;
constexpr int kHeadSize = 9;
constexpr Colour kWhite = RGB(255, 255, 255);
constexpr Colour kGrey = RGB(225, 225, 225);
const std::string kArial = "Arial";

}  // namespace

/// A column of rows: places in cm from its left edge, of the right edges of figures and the left edge of the gas.
struct Slate::Layout {
  int size;
  double rowHeight;
  int columns;
  double width;
  double depth, stop, run, gas;
  double bottom;  ///< of the rows, cm within the card

  [[nodiscard]] std::size_t RowsOfColumn() const {
    return static_cast<std::size_t>(std::floor((bottom - kTop) / rowHeight));
  }
  /// The index behind the last row of each column. A gas change stands above its stop, not alone at the end of one.
  [[nodiscard]] std::vector<std::size_t> Ends(const std::vector<SlateRow>& rows) const {
    std::vector<std::size_t> ends;
    for (std::size_t next = 0; next < rows.size();) {
      std::size_t end = std::min(next + RowsOfColumn(), rows.size());
      if (end < rows.size() && rows[end - 1].kind == SlateRow::Kind::Gas) --end;
      ends.push_back(end);
      next = end;
    }
    return ends;
  }
};

void Slate::Left(double x, double y, const std::string& text, int size, int bold) {
  out_.PrintTextLeft(x, y, text, kArial, size, bold);
}

void Slate::Right(double x, double y, const std::string& text, int size, int bold) {
  out_.PrintTextRight(x, y, text, kArial, size, bold);
}

void Slate::Figure(double x, double y, const std::string& text, double cm, int size, int bold) {
  constexpr double kApart = 0.12;
  constexpr int kLeast = 9;
  while (size > kLeast && Width(text, size, bold != 0) > cm - kApart) --size;
  Right(x, y, text, size, bold);
}

void Slate::Fitted(double x, double y, const std::string& text, int size, int bold, double cm) {
  out_.PrintTextFitted(x, y, text, cm, kArial, size, bold);
}

double Slate::Width(const std::string& text, int size, bool bold) const {
  return out_.Services().measure.TextWidth(text, {kArial, static_cast<double>(size), bold}) / page::kUnitsPerCm;
}

void Slate::Begin() {
  out_.InitPreview();
  cards_ = 0;
}

void Slate::End() {
  if (cards_ > 0) out_.PrintPlainFooter("", "");
  out_.EndReport(T(Text::SlateTitle));
}

void Slate::OpenCard() {
  if (cards_ == kColumns * kRows) {
    out_.PrintPlainFooter("", "");
    cards_ = 0;
  }
  if (cards_ == 0) {
    out_.StartPlainPage();
    CutMarks();
  }
  const int row = cards_ / kColumns;
  const int column = cards_ % kColumns;
  x_ = column * kCardWidth;
  y_ = row * kCardHeight;
  ++cards_;
}

void Slate::CutMarks() {
  constexpr double kArm = 0.5;
  const double x = kCardWidth;
  const double y = kCardHeight;
  out_.SetForeColor(kBlack);
  out_.PrintBoxOutline(x, 0, x, kArm);
  out_.PrintBoxOutline(x, kPageHeight - kArm, x, kPageHeight);
  out_.PrintBoxOutline(0, y, kArm, y);
  out_.PrintBoxOutline(kPageWidth - kArm, y, kPageWidth, y);
  out_.PrintBoxOutline(x, y - kArm, x, y + kArm);
  out_.PrintBoxOutline(x - kArm, y, x + kArm, y);
}

std::string Slate::GasOf(const SlateRow& row) const {
  const std::string gas = GasWords(row.gas, out_.Texts());
  return row.loop ? gas + " " + T(Text::SlateLoop) : gas;
}

void Slate::Add(const SlateDive& dive) {
  const PrintPreview::Batch batch(out_);
  metric_ = dive.settings.Metric;
  SlateRows rows = SlateRowsOf(dive.rows, dive.settings, out_.Services().numbers);
  constexpr double kInner = kRight - kMargin;
  constexpr double kGap = 0.35;
  std::vector<std::string> notes;
  for (const std::string& gas : dive.shortGases) {
    const TextFont font{kArial, kNoteSize, true};
    for (std::string& line : WrappedText("! " + gas, kInner, font, out_.Services().measure)) {
      notes.push_back(std::move(line));
    }
  }
  const std::vector<std::string> settings =
      WrappedText(SettingsLine(dive), kInner, {kArial, kSmall, false}, out_.Services().measure);
  const double settingsTop = kEndOfSettings - static_cast<double>(settings.size()) * kSettingsHeight;
  const double bottom = settingsTop - 0.1 - static_cast<double>(std::min(notes.size(), kMostNotes)) * kNoteHeight;
  const Layout wide{18, 0.76, 1, kInner, 2.2, 4.9, 7.7, 8.6, bottom};
  const Layout narrow{14, 0.6, 2, (kInner - kGap) / 2, 1.25, 2.45, 3.85, 4.1, bottom};
  const Layout& layout = rows.rows.size() <= wide.RowsOfColumn() ? wide : narrow;
  const auto columns = static_cast<std::size_t>(layout.columns);
  const std::vector<std::size_t> ends = EndsOfCards(layout, rows.rows);
  const std::size_t cardsOfNotes = std::max<std::size_t>(1, (notes.size() + kMostNotes - 1) / kMostNotes);
  const std::size_t parts = std::max((ends.size() + columns - 1) / columns, cardsOfNotes);
  std::size_t next = 0;
  for (std::size_t part = 1; part <= parts; ++part) {
    OpenCard();
    Head(dive, rows, part, parts);
    for (std::size_t i = 0; i < settings.size(); ++i) {
      Left(x_ + kMargin, y_ + settingsTop + static_cast<double>(i) * kSettingsHeight, settings[i], kSmall);
    }
    // All notes on each card, or as many as it holds.
    out_.SetForeColor(kRed);
    const std::size_t first = (part - 1) % cardsOfNotes * kMostNotes;
    for (std::size_t i = first; i < std::min(first + kMostNotes, notes.size()); ++i) {
      Left(x_ + kMargin, y_ + bottom + static_cast<double>(i - first) * kNoteHeight, notes[i], kNoteSize, 1);
    }
    out_.SetForeColor(kBlack);
    double left = x_ + kMargin;
    for (std::size_t c = (part - 1) * columns; c < std::min(part * columns, ends.size()); ++c) {
      ColumnHeads(layout, left);
      for (double y = y_ + kTop; next < ends[c]; ++next, y += layout.rowHeight) {
        Row(layout, rows.rows[next], left, y);
      }
      left += layout.width + kGap;
    }
  }
}

std::vector<std::size_t> Slate::EndsOfCards(const Layout& layout, std::vector<SlateRow>& rows) {
  std::vector<std::size_t> ends = layout.Ends(rows);
  const auto columns = static_cast<std::size_t>(layout.columns);
  for (std::size_t card = columns; card < ends.size(); card += columns) {
    const auto first = static_cast<std::ptrdiff_t>(ends[card - 1]);
    if (rows[ends[card - 1]].kind == SlateRow::Kind::Gas) continue;
    SlateRow gas = *(rows.begin() + first);
    if (gas.kind == SlateRow::Kind::Surface) gas = *(rows.begin() + first - 1);
    gas.kind = SlateRow::Kind::Gas;
    rows.insert(rows.begin() + first, gas);
    ends = layout.Ends(rows);
  }
  return ends;
}

void Slate::Head(const SlateDive& dive, const SlateRows& rows, std::size_t part, std::size_t parts) {
  const double left = x_ + kMargin;
  const double right = x_ + kRight;
  std::string title = dive.title;
  if (parts > 1) title += "  " + std::to_string(part) + "/" + std::to_string(parts);
  if (!dive.variant.empty()) {
    out_.PrintFilledBox(left, y_ + kMargin - 0.05, right, y_ + kMargin + 0.55, kGrey);
    Right(right - 0.1, y_ + kMargin - 0.02, dive.variant, 14, 1);
  }
  Fitted(left + 0.1, y_ + kMargin + 0.05, title, 10, 1,
         right - left - 0.6 - (dive.variant.empty() ? 0.0 : Width(dive.variant, 14, true)));
  const SlateRow& bottom = rows.bottom;
  const std::string unit = T(metric_ ? Text::Metres : Text::Feet);
  constexpr double kLine = 1.45;
  std::string told;
  if (!bottom.depth.empty()) {
    told = bottom.depth + " " + unit + "  " + out_.Texts().Filled(Text::SlateUntil, {bottom.runTime}) + "  " +
           GasOf(bottom) + "  " + out_.Texts().Filled(Text::SlatePPO2, {bottom.PPO2});
  }
  std::string note = dive.turn.empty() ? "" : out_.Texts().Filled(Text::SlateTurn, {dive.turn});
  const bool lacksAscent = LacksAscent(dive.rows);
  if (!dive.decompresses) note = T(Text::SlateDoesNotDecompress);
  if (lacksAscent) note = T(Text::SlateWithoutAscent);
  constexpr int kSize = 16;
  const double noteWidth = note.empty() ? 0.0 : Width(note, kNoteSize, true) + 0.4;
  if (!dive.decompresses || lacksAscent) out_.SetForeColor(kRed);
  Right(right, y_ + kLine + 0.05, note, kNoteSize, 1);
  out_.SetForeColor(kBlack);
  Fitted(left, y_ + kLine, told, kSize, 1, right - left - noteWidth);
}

void Slate::ColumnHeads(const Layout& layout, double left) {
  const double y = y_ + kHeads;
  Right(left + layout.depth, y, T(Text::CardDepth), kHeadSize);
  Right(left + layout.stop, y, T(Text::CardStop), kHeadSize);
  Right(left + layout.run, y, T(Text::CardRun), kHeadSize);
  Left(left + layout.gas, y, T(Text::CardGas), kHeadSize);
  out_.PrintBoxOutline(left, y_ + kTop - 0.02, left + layout.width, y_ + kTop - 0.02);
}

void Slate::Row(const Layout& layout, const SlateRow& row, double left, double y) {
  if (row.kind == SlateRow::Kind::Gas) {
    GasRow(layout, row, left, y);
    return;
  }
  if (row.kind == SlateRow::Kind::Leg) out_.PrintFilledBox(left, y, left + layout.width, y + layout.rowHeight, kGrey);
  Right(left + layout.depth, y, row.depth, layout.size, 1);
  Figure(left + layout.stop, y, row.minutes, layout.stop - layout.depth, layout.size, 1);
  Figure(left + layout.run, y, row.runTime, layout.run - layout.stop, layout.size, 0);
  const std::string gas = row.kind == SlateRow::Kind::Surface ? T(Text::SlateSurface) : GasSign(row.gas, out_.Texts());
  Fitted(left + layout.gas, y, gas, layout.size, 0, layout.width - layout.gas);
}

void Slate::GasRow(const Layout& layout, const SlateRow& row, double left, double y) {
  constexpr double kHair = 0.02;  // two black rows one below the other are two
  const double right = left + layout.width;
  out_.PrintFilledBox(left, y + kHair, right, y + layout.rowHeight - kHair, kBlack);
  out_.SetForeColor(kWhite);
  Right(left + layout.depth, y, row.depth, layout.size, 1);
  const double gasLeft = left + layout.depth + 0.35;
  const std::string gas = GasOf(row);
  std::string ppo2 = out_.Texts().Filled(Text::SlatePPO2, {row.PPO2});
  const double room = right - 0.15 - gasLeft - 0.25;
  if (Width(gas, layout.size, true) + Width(ppo2, layout.size, true) > room) ppo2 = row.PPO2;
  Right(right - 0.15, y, ppo2, layout.size, 1);
  Fitted(gasLeft, y, gas, layout.size, 1, room - Width(ppo2, layout.size, true));
  out_.SetForeColor(kBlack);
}

std::string Slate::SettingsLine(const SlateDive& dive) const {
  const DiveTemplate& settings = dive.settings;
  const NumberTexts& numbers = out_.Services().numbers;
  const auto length = [&](Single value) {
    return numbers.Short(value) + " " + T(settings.Metric ? Text::Metres : Text::Feet);
  };
  const std::string circuit =
      settings.OpenCircuit ? T(Text::OpenCircuit) : T(Text::SlateLoop) + " " + Setpoints(settings, numbers);
  std::string line = ComputedWith(settings, dive.model, circuit, dive.repetitive, out_.Texts());
  const auto add = [&line](const std::string& part) { line += ", " + part; };
  add(out_.Texts().Filled(Text::SlateSteps, {length(settings.StepSize), length(settings.LastStop)}));
  if (settings.StartPressure != settings.EndPressure) {
    add(out_.Texts().Filled(Text::SlateAltitudes, {length(settings.StartAltitude), length(settings.EndAltitude)}));
  } else if (settings.StartAltitude != 0) {
    add(out_.Texts().Filled(Text::SlateAltitude, {length(settings.StartAltitude)}));
  }
  add(out_.Services().environment.Today());
  return line;
}

}  // namespace tav
