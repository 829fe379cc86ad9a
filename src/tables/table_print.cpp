#include "tables/table_print.h"

#include <algorithm>
#include <utility>

#include "compute/bailout_cuts.h"
#include "figures/dive_figures.h"
#include "model/text_id.h"
#include "pages/page_units.h"
#include "pages/wrapped_text.h"
#include "supply/supply_text.h"
#include "tables/table_remarks.h"

namespace tav {
namespace {

// cm
constexpr double kSheetRight = 29.4;  // what printers reach of a page of 29.7 by 21.0
constexpr double kSheetBottom = 20.7;
constexpr double kLineHeight = 0.27;
constexpr int kRemarkSize = 6;
constexpr int kSmallestSize = 5;
const std::string kArial = "Arial";

/// Where the remarks of a table may stand.
struct Room {
  double left;
  double width;
  double bottom;
};

Room RoomOf(const SmallTable& table, const TablePlace& place) {
  using Slots = TableSlots;
  const double lowerRow = Slots::kTop + Slots::kCellHeight;
  const bool upper = place.y < lowerRow;
  // A table that reaches into the lower row has what is left of it; tables that would stand there are referred to.
  const bool reachesDown = TableFrame(table, place).End() > lowerRow - 0.1;
  const double bottom = upper && !reachesDown ? lowerRow - 0.1 : lowerRow + Slots::kCellHeight + 0.4;
  if (table.Width() > 2 * Slots::kCellWidth) return {Slots::kLeft + 0.3, 21.6, bottom};
  // A tall table has the cell below, too.
  const bool both = upper && table.Height() + 2.0 > Slots::kCellHeight;
  const int column = static_cast<int>((place.x - Slots::kLeft) / Slots::kCellWidth);
  const double left = Slots::kLeft + column * Slots::kCellWidth + 0.25;
  const double width =
      table.Width() > Slots::kCellWidth && !both ? 2 * Slots::kCellWidth - 0.5 : Slots::kCellWidth - 0.5;
  return {left, width, both ? lowerRow + Slots::kCellHeight + 0.4 : bottom};
}

/// Columns and rows of a table, the heads included.
SmallTable Part(const SmallTable& table, std::size_t firstDive, std::size_t endDive, std::size_t firstRow,
                std::size_t endRow) {
  SmallTable part;
  const auto slice = [&](const std::vector<std::string>& row) {
    std::vector<std::string> cells(row.begin(), row.begin() + TableColumn::kFirstDive);
    const auto dives = row.begin() + TableColumn::kFirstDive;
    cells.insert(cells.end(), dives + static_cast<std::ptrdiff_t>(firstDive),
                 dives + static_cast<std::ptrdiff_t>(endDive));
    return cells;
  };
  const auto add = [&](std::size_t row) {
    part.cells.push_back(slice(table.cells[row]));
    part.depths.push_back(table.depths[row]);
  };
  add(0);
  for (std::size_t row = firstRow; row < endRow; ++row) add(row);
  part.totals.assign(table.totals.begin() + static_cast<std::ptrdiff_t>(firstDive),
                     table.totals.begin() + static_cast<std::ptrdiff_t>(endDive));
  return part;
}

}  // namespace

TablePrintModule::TablePrintModule(PrintPreview& writer, std::string caption, BailoutParts parts)
    : writer_(writer), caption_(std::move(caption)), parts_(parts), pages_(writer) {}

TableInfo TablePrintModule::InfoOf(const TableDives& profiles) const {
  return {profiles.diveTemplate, profiles.bailout, ModelLine(profiles, writer_), caption_};
}

void TablePrintModule::PrintWaysOut(const PlannedDive& dive) {
  supply_.emplace(dive);
  const DiveTemplate& settings = dive.record.Template;
  EngineObserver silent;
  const BailoutCuts cuts(dive, dive.plan.model, 1, silent);
  if (!parts_.tables || !cuts.Fault().IsEmpty()) return;
  for (const DearMinute& minute : BailOutNeedsOf(dive, SupplyChoiceOf(settings).minutes).Minutes()) {
    const TableDives way{settings, {TableDive{}, cuts.At(minute.moment)}, true, std::nullopt, dive.plan.model};
    const CardSet set{WayOutText(minute, writer_.Texts()), MakeAscentCards(way, writer_.Services().numbers, &*supply_),
                      InfoOf(way),
                      T(Text::WaysOutHead) + ": " + caption_.substr(0, caption_.find(" [")) + ", " +
                          TableCaption(way, writer_.Texts())};
    for (const AscentCard& card : set.cards) PrintCard(writer_, pages_, set, card);
  }
}

void TablePrintModule::PrintTableSet(const TableDives& profiles) {
  if (!profiles.bailout || parts_.tables) PrintSmallTable(profiles);
  if (profiles.bailout && parts_.cards) {
    const std::string title = profiles.lost ? *profiles.lost + " " + T(Text::TableLost) : T(Text::TableAllGases);
    cards_.push_back({title, MakeAscentCards(profiles, writer_.Services().numbers, supply_ ? &*supply_ : nullptr),
                      InfoOf(profiles)});
  }
}

void TablePrintModule::PrintSmallTable(const TableDives& profiles) {
  Printed printed;
  const DiveTemplate& settings = profiles.diveTemplate;
  if (profiles.bailout) {
    printed.name = profiles.lost ? *profiles.lost + " " + T(Text::TableLost) : T(Text::TableAllGases);
  } else {
    printed.name = writer_.Services().numbers.Plain(profiles.dives.back().depth) + " " +
                   T(settings.Metric ? Text::ReportMetres : Text::ReportFeet);
  }
  printed.name =
      FittedText(printed.name, TableSlots::kCellWidth - 2.5, {kArial, kRemarkSize, true}, writer_.Services().measure);
  printed.title = TableTitle(profiles, writer_);
  printed.table = MakeSmallTable(profiles, T(Text::TableDepthHead));
  printed.caption = TableCaption(profiles, writer_.Texts());
  printed.info = InfoOf(profiles);
  const int pageBefore = pages_.Page();
  printed.place = pages_.PlaceTable(printed.table.Width(), printed.table.Height(), printed.info);
  if (pages_.Page() != pageBefore) {
    onPage_.clear();
    references_ = 0;
  }
  if (!TableSlots::Holds(printed.table.Width())) {
    printed.number = ++numbers_;
    again_.push_back(std::move(printed));
    return;
  }
  const TableFrame frame(printed.table, printed.place);
  printed.right = frame.Right();
  printed.bottom = frame.End();
  const bool free = std::none_of(onPage_.begin(), onPage_.end(), [&](const Printed& other) {
    return printed.place.x < other.right && other.place.x < printed.right && printed.place.y < other.bottom &&
           other.place.y < printed.bottom;
  });
  if (!free) {
    // Two tables one over the other could be misread.
    PrintReference(printed);
    return;
  }
  DrawTable(writer_, printed.table, printed.place, printed.title);
  const bool onSheet = printed.right <= kSheetRight && printed.bottom <= kSheetBottom;
  const bool whole = PrintRemarks(printed) && onSheet;
  PrintName(printed, whole);
  if (!whole) again_.push_back(printed);
  onPage_.push_back(std::move(printed));
}

std::vector<std::string> TablePrintModule::Remarks(const Printed& printed, bool onPaper) const {
  const RemarkWords words =
      RemarkWordsOf(writer_.Texts(), printed.info.diveTemplate.Metric, writer_.Services().numbers);
  return TableRemarks(printed.table, words, onPaper);
}

bool TablePrintModule::PrintRemarks(Printed& printed) {
  const Room room = RoomOf(printed.table, printed.place);
  const TextFont font{kArial, kRemarkSize, true};
  double y = printed.bottom + 0.06;
  bool whole = true;
  writer_.SetForeColor(kRed);
  for (const std::string& remark : Remarks(printed, true)) {
    for (const std::string& line : WrappedText(remark, room.width, font, writer_.Services().measure)) {
      whole = whole && y + kLineHeight <= room.bottom;
      if (!whole) continue;
      writer_.PrintTextLeft(room.left, y, line, kArial, kRemarkSize, 1);
      y += kLineHeight;
      printed.bottom = y;
      printed.right = std::max(printed.right, room.left + room.width);
    }
  }
  writer_.SetForeColor(kBlack);
  return whole;
}

void TablePrintModule::PrintName(Printed& printed, bool whole) {
  const Room room = RoomOf(printed.table, printed.place);
  const double y = printed.place.y - 0.28;
  if (whole) {
    writer_.PrintTextFitted(room.left, y, printed.name + ": " + printed.caption, room.width, kArial, kRemarkSize, 1,
                            kSmallestSize);
    return;
  }
  if (printed.number == 0) printed.number = ++numbers_;
  writer_.PrintTextLeft(room.left, y, printed.name, kArial, kRemarkSize, 1);
  const double name =
      writer_.Services().measure.TextWidth(printed.name + "  ", {kArial, kRemarkSize, true}) / page::kUnitsPerCm;
  writer_.SetForeColor(kRed);
  writer_.PrintTextFitted(room.left + name, y, T(Text::TableWholeBehind) + " " + std::to_string(printed.number),
                          room.width - name, kArial, kRemarkSize, 1, kSmallestSize);
  writer_.SetForeColor(kBlack);
}

void TablePrintModule::PrintReference(Printed& printed) {
  constexpr double kTop = 13.0;
  constexpr double kWidth = 4.85;
  constexpr double kStep = 1.3;
  constexpr int kSize = 8;
  double y = kTop + kStep * references_++;
  printed.number = ++numbers_;
  writer_.PrintTextLeft(0.9, y, FittedText(printed.name, kWidth, {kArial, kSize, true}, writer_.Services().measure),
                        kArial, kSize, 1);
  writer_.SetForeColor(kRed);
  const std::string where = T(Text::TableWholeBehind) + " " + std::to_string(printed.number);
  for (const std::string& line : WrappedText(where, kWidth, {kArial, kSize, true}, writer_.Services().measure)) {
    y += 0.35;
    writer_.PrintTextLeft(0.9, y, line, kArial, kSize, 1);
  }
  writer_.SetForeColor(kBlack);
  again_.push_back(printed);
}

void TablePrintModule::PrintWhole(const Printed& printed) {
  constexpr std::size_t kColumns = 36;
  constexpr std::size_t kRows = 30;
  constexpr TablePlace kPlace{0, 6.3, 1.9};
  constexpr double kNoteHeight = 0.4;
  constexpr int kNoteSize = 8;
  const auto startPage = [&] {
    pages_.StartWholePage(printed.info);
    writer_.PrintTextLeft(kPlace.x, 1.0,
                          T(Text::TableNumber) + " " + std::to_string(printed.number) + ": " + printed.name, kArial, 12,
                          1);
    writer_.PrintTextLeft(kPlace.x, 1.5, printed.caption, kArial, kNoteSize, 0);
  };
  const std::size_t dives = printed.table.totals.size();
  const std::size_t rows = printed.table.cells.size();
  double y = kPlace.y;
  std::size_t dive = 0;
  do {
    const std::size_t endDive = std::min(dive + kColumns, dives);
    for (std::size_t row = 1; row < rows; row += kRows) {
      startPage();
      const SmallTable part = Part(printed.table, dive, endDive, row, std::min(row + kRows, rows));
      DrawTable(writer_, part, kPlace, printed.title, 1);
      y = TableFrame(part, kPlace).End() + 0.2;
    }
    dive = endDive;
  } while (dive < dives);
  const TextFont font{kArial, kNoteSize, true};
  for (const std::string& remark : Remarks(printed, false)) {
    for (const std::string& line : WrappedText(remark, 21.5, font, writer_.Services().measure)) {
      if (y + kNoteHeight > kSheetBottom) {
        startPage();
        y = kPlace.y;
      }
      writer_.SetForeColor(kRed);
      writer_.PrintTextLeft(kPlace.x, y, line, kArial, kNoteSize, 1);
      writer_.SetForeColor(kBlack);
      y += kNoteHeight;
    }
  }
}

void TablePrintModule::EndTableOutput(const std::function<bool()>& proceed) {
  const auto ended = [&] { return proceed && !proceed(); };
  for (const Printed& printed : again_) {
    PrintWhole(printed);
    if (ended()) return;
  }
  for (const CardSet& set : cards_) {
    for (const AscentCard& card : set.cards) {
      PrintCard(writer_, pages_, set, card);
      if (ended()) return;
    }
  }
  pages_.EndTableOutput();
}

}  // namespace tav
