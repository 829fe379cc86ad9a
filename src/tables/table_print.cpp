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
constexpr double kGridRight = TableSlots::kLeft + TableSlots::kColumns * TableSlots::kCellWidth;
constexpr double kLineHeight = 0.27;
constexpr int kRemarkSize = 6;
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
  // A table that reaches into the lower row has what is left of it; tables that would stand there stand behind.
  const bool reachesDown = TableFrame(table, place).End() > lowerRow - 0.1;
  const double bottom = upper && !reachesDown ? lowerRow - 0.1 : lowerRow + Slots::kCellHeight - 0.1;
  if (table.Width() > 2 * Slots::kCellWidth) return {Slots::kLeft + 0.3, 21.6, bottom};
  // A tall table has the cell below, too.
  const bool both = upper && table.Height() + 2.0 > Slots::kCellHeight;
  const int column = static_cast<int>((place.x - Slots::kLeft) / Slots::kCellWidth);
  const double left = Slots::kLeft + column * Slots::kCellWidth + 0.25;
  const double width =
      table.Width() > Slots::kCellWidth && !both ? 2 * Slots::kCellWidth - 0.5 : Slots::kCellWidth - 0.5;
  return {left, width, both ? lowerRow + Slots::kCellHeight - 0.1 : bottom};
}

}  // namespace

TablePrintModule::TablePrintModule(PrintPreview& writer, std::string caption, BailoutParts parts)
    : writer_(writer), caption_(std::move(caption)), parts_(parts), pages_(writer) {}

TableInfo TablePrintModule::InfoOf(const TableDives& profiles) const {
  return {profiles.diveTemplate, profiles.bailout, profiles.descentCounts, ModelLine(profiles, writer_), caption_};
}

std::string TablePrintModule::NameOf(const TableDives& profiles) const {
  if (!profiles.bailout) {
    return writer_.Services().numbers.Plain(profiles.dives.back().depth) + " " +
           T(profiles.diveTemplate.Metric ? Text::ReportMetres : Text::ReportFeet);
  }
  return profiles.lost ? *profiles.lost + " " + T(Text::TableLost) : T(Text::TableAllGases);
}

bool TablePrintModule::PrintWaysOut(const PlannedDive& dive, const RunProgress& progress) {
  supply_.emplace(dive);
  if (!parts_.tables) return true;
  const PrintPreview::Batch batch(writer_);
  if (dive.record.Template.OpenCircuit) return PrintOpenWaysOut(dive, progress);
  PrintLoopWaysOut(dive);
  return true;
}

void TablePrintModule::PrintTall(const std::vector<WayOut>& ways, const std::string& head) {
  for (const auto& [dives, title] : ways) {
    const CardSet set{
        title, MakeAscentCards(dives, writer_.Services().numbers, &*supply_), InfoOf(dives),
        head + ": " + caption_.substr(0, caption_.find(" [")) + ", " + TableCaption(dives, writer_.Texts()),
        ways.size() > 3 ? 4 : 3};
    for (const AscentCard& card : set.cards) PrintCard(writer_, pages_, set, card);
  }
}

void TablePrintModule::PrintLoopWaysOut(const PlannedDive& dive) {
  const DiveTemplate& settings = dive.record.Template;
  EngineObserver silent;
  const BailoutCuts cuts(dive, dive.plan.model, 1, silent);
  if (!cuts.Fault().IsEmpty()) return;
  std::vector<WayOut> ways;
  for (const DearMinute& minute : BailOutNeedsOf(dive, SupplyChoiceOf(settings).minutes).Minutes()) {
    ways.push_back({{settings, {TableDive{}, cuts.At(minute.moment)}, true, std::nullopt, dive.plan.model},
                    WayOutText(minute, writer_.Texts())});
  }
  PrintTall(ways, T(Text::WaysOutHead));
}

bool TablePrintModule::PrintOpenWaysOut(const PlannedDive& dive, const RunProgress& progress) {
  EngineObserver silent;
  const BailoutCuts cuts(dive, dive.plan.model, 1, silent, CutMoments::LegEnds);
  if (cuts.Fault().text == Text::NoLegs) return true;
  if (!cuts.Fault().IsEmpty()) throw MessageError("", cuts.Fault());
  // With all gases first, which is the last scenario.
  std::vector<WayOut> ways;
  for (int i = 0; i < cuts.Scenarios(); ++i) {
    std::optional<TableDives> way = cuts.Longest((i + cuts.Scenarios() - 1) % cuts.Scenarios(), [&](int done, int of) {
      return progress(i * of + done, cuts.Scenarios() * of);
    });
    if (!way) return false;
    const std::string name = NameOf(*way);
    ways.push_back({std::move(*way), name});
  }
  PrintTall(ways, T(Text::WayOutOfLegEnd));
  return true;
}

void TablePrintModule::PrintTableSet(const TableDives& profiles) {
  const PrintPreview::Batch batch(writer_);
  bailout_ = profiles.bailout;
  if (!profiles.bailout || parts_.tables) PrintSmallTable(profiles);
  if (profiles.bailout && parts_.cards) {
    cards_.push_back({NameOf(profiles),
                      MakeAscentCards(profiles, writer_.Services().numbers, supply_ ? &*supply_ : nullptr),
                      InfoOf(profiles)});
  }
}

void TablePrintModule::PrintSmallTable(const TableDives& profiles) {
  Printed printed;
  const DiveTemplate& settings = profiles.diveTemplate;
  printed.name = FittedText(NameOf(profiles), TableSlots::kCellWidth - 2.5, {kArial, kRemarkSize, true},
                            writer_.Services().measure);
  printed.title = TableTitle(profiles, writer_);
  printed.table = MakeSmallTable(profiles, T(Text::TableDepthHead));
  printed.caption = TableCaption(profiles, writer_.Texts());
  if (!profiles.bailout && !settings.OpenCircuit) printed.circuit = printed.caption;
  printed.info = InfoOf(profiles);
  printed.place = pages_.PlaceTable(printed.table.Width(), printed.table.Height());
  if (!onPage_.empty() && onPage_.front().place.page != printed.place.page) onPage_.clear();
  if (ComesOutWhole(printed)) {
    if (pages_.OpenGrid(printed.place, printed.info)) referencesEnd_ = std::max(13.0, pages_.ColumnEnd() + 0.3);
    PrintName(printed);
    DrawTable(writer_, printed.table, printed.place, printed.title);
    PrintRemarks(printed);
    pages_.KeepWhole(printed.place.x, printed.place.y, printed.right, printed.bottom);
    onPage_.push_back(std::move(printed));
  } else {
    behind_.push_back(std::move(printed));
  }
  if (pages_.GridIsOpen()) PrintReferences();
}

bool TablePrintModule::ComesOutWhole(Printed& printed) const {
  if (!TableSlots::Holds(printed.table.Width())) return false;
  const TableFrame frame(printed.table, printed.place);
  const Room room = RoomOf(printed.table, printed.place);
  printed.right = frame.Right();
  printed.bottom = frame.End();
  printed.remarks = Wrapped(Remarks(printed, true), room.width, kRemarkSize);
  if (!printed.remarks.empty()) {
    printed.bottom += 0.06 + static_cast<double>(printed.remarks.size()) * kLineHeight;
    printed.right = std::max(printed.right, room.left + room.width);
  }
  const bool free = std::none_of(onPage_.begin(), onPage_.end(), [&](const Printed& other) {
    return printed.place.x < other.right && other.place.x < printed.right && printed.place.y < other.bottom &&
           other.place.y < printed.bottom;
  });
  // Two tables one over the other could be misread, and what lies beyond the marks is cut off.
  return free && frame.Right() <= kGridRight && printed.bottom <= room.bottom;
}

std::vector<std::string> TablePrintModule::Remarks(const Printed& printed, bool onPaper, std::size_t firstDive,
                                                   std::size_t endDive) const {
  const RemarkWords words =
      RemarkWordsOf(writer_.Texts(), printed.info.diveTemplate.Metric, writer_.Services().numbers);
  std::vector<std::string> remarks = TableRemarks(printed.table, words, onPaper, firstDive, endDive);
  if (onPaper && !printed.circuit.empty()) remarks.insert(remarks.begin(), printed.circuit);
  return remarks;
}

std::vector<std::string> TablePrintModule::Wrapped(const std::vector<std::string>& remarks, double width,
                                                   int size) const {
  std::vector<std::string> lines;
  const TextFont font{kArial, static_cast<double>(size), true};
  for (const std::string& remark : remarks) {
    const std::vector<std::string> wrapped = WrappedText(remark, width, font, writer_.Services().measure);
    lines.insert(lines.end(), wrapped.begin(), wrapped.end());
  }
  return lines;
}

void TablePrintModule::PrintRemarks(const Printed& printed) {
  const Room room = RoomOf(printed.table, printed.place);
  double y = TableFrame(printed.table, printed.place).End() + 0.06;
  writer_.SetForeColor(kRed);
  for (const std::string& line : printed.remarks) {
    writer_.PrintTextLeft(room.left, y, line, kArial, kRemarkSize, 1);
    y += kLineHeight;
  }
  writer_.SetForeColor(kBlack);
}

void TablePrintModule::PrintName(const Printed& printed) {
  const Room room = RoomOf(printed.table, printed.place);
  const auto title = [&](const std::string& name) {
    return writer_.Texts().Filled(printed.info.bailout ? Text::TableBailoutTitle : Text::TableDecoTitle,
                                  {name, T(printed.info.diveTemplate.Metric ? Text::ReportMetres : Text::ReportFeet)});
  };
  const TextFont font{kArial, kRemarkSize, true};
  const ArialMeasure& measure = writer_.Services().measure;
  const double rest = room.width - measure.TextWidth(title(""), font) / page::kUnitsPerCm;
  writer_.PrintTextLeft(room.left, printed.place.y - 0.28, title(FittedText(printed.name, rest, font, measure)), kArial,
                        kRemarkSize, 1);
}

void TablePrintModule::PrintReferences() {
  constexpr double kWidth = 4.85;
  constexpr double kLine = 0.35;
  constexpr int kSize = 8;
  const TextFont font{kArial, kSize, true};
  for (; referred_ < behind_.size(); ++referred_) {
    const std::string where = T(Text::TableWholeBehind) + " " + std::to_string(referred_ + 1);
    const std::vector<std::string> lines = WrappedText(where, kWidth, font, writer_.Services().measure);
    const double end = referencesEnd_ + (static_cast<double>(lines.size()) + 1) * kLine;
    if (end > TablePages::kSheetBottom) return;
    double y = referencesEnd_;
    writer_.PrintTextLeft(0.9, y, FittedText(behind_[referred_].name, kWidth, font, writer_.Services().measure), kArial,
                          kSize, 1);
    for (const std::string& line : lines) writer_.PrintTextLeft(0.9, y += kLine, line, kArial, kSize, 0);
    referencesEnd_ = end + 0.2;
  }
}

void TablePrintModule::EndTableOutput(const std::function<bool()>& proceed) {
  const PrintPreview::Batch batch(writer_);
  const auto ended = [&] { return proceed && !proceed(); };
  for (std::size_t i = 0; i < behind_.size(); ++i) {
    PrintWhole(behind_[i], static_cast<int>(i) + 1);
    if (ended()) return;
  }
  for (const CardSet& set : cards_) {
    for (const AscentCard& card : set.cards) {
      PrintCard(writer_, pages_, set, card);
      if (ended()) return;
    }
  }
  pages_.EndTableOutput(bailout_ ? Text::BailoutTables : Text::DecoTables);
}

}  // namespace tav
