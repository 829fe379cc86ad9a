#include "reports/margin_map.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "figures/settings_words.h"
#include "model/text_columns.h"
#include "model/text_id.h"
#include "model/utf8.h"

namespace tav {
namespace {

using Kind = BrokenLimit::Kind;

char LetterOf(const BrokenLimit& limit, const std::vector<MarginMark>& taken) {
  if (limit.kind == Kind::None) return '.';
  if (limit.kind == Kind::Impossible) return '-';
  const bool ofGas = limit.kind == Kind::Gas || limit.kind == Kind::Lost;
  const bool small = limit.kind == Kind::Lost;
  constexpr std::string_view kAll = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  std::string wanted = (ofGas ? limit.gas : limit.Id()) + std::string(kAll);
  for (const char letter : wanted) {
    const auto c = static_cast<unsigned char>(letter);
    if (c >= 0x80 || std::isalpha(c) == 0) continue;
    const char cased = static_cast<char>(small ? std::tolower(c) : std::toupper(c));
    if (std::ranges::find(taken, cased, &MarginMark::letter) == taken.end()) return cased;
  }
  return '?';
}

}  // namespace

Colour MarginColour(BrokenLimit::Kind kind) {
  switch (kind) {
    case Kind::None:
      return RGB(0xCF, 0xE8, 0xCB);
    case Kind::Impossible:
      return RGB(0xFF, 0xFF, 0xFF);
    case Kind::DoesNotDecompress:
      return RGB(0x11, 0x11, 0x11);
    case Kind::Ceiling:
      return RGB(0x60, 0x60, 0x60);
    case Kind::PPO2:
      return RGB(0x8C, 0x51, 0x0A);
    case Kind::Gas:
      return RGB(0xB2, 0x18, 0x2B);
    case Kind::Lost:
      return RGB(0xF4, 0xA5, 0x82);
    case Kind::BailOut:
      return RGB(0xE8, 0xA3, 0x4C);
    case Kind::CNS:
      return RGB(0x7B, 0x5A, 0xA6);
    case Kind::Run:
      return RGB(0x43, 0x93, 0xC3);
    case Kind::Stops:
      return RGB(0x92, 0xC5, 0xDE);
  }
  return 0;
}

Colour MarginInk(BrokenLimit::Kind kind) {
  const bool dark = kind == Kind::DoesNotDecompress || kind == Kind::Ceiling || kind == Kind::PPO2 ||
                    kind == Kind::Gas || kind == Kind::CNS;
  return dark ? RGB(0xFF, 0xFF, 0xFF) : 0;
}

double RunTimeStep(const std::vector<MarginCell>& cells) {
  constexpr double kLines = 6;
  double least = 0;
  double most = 0;
  for (const MarginCell& cell : cells) {
    if (!(cell.runTime > 0)) continue;
    least = least == 0 ? double{cell.runTime} : std::min(least, double{cell.runTime});
    most = std::max(most, double{cell.runTime});
  }
  for (const double step : {1, 2, 5, 10, 15, 20, 30, 60, 120, 240, 600}) {
    if (most - least <= kLines * step) return step;
  }
  return 1440;
}

std::optional<int> RunTimeBand(const MarginCell& cell, double step) {
  if (!(cell.runTime > 0)) return std::nullopt;
  return static_cast<int>(std::floor(cell.runTime / step));
}

std::string SignedFigure(Single number, const AdviceWords& words) {
  return (number > 0 ? "+" : "") + words.Short(number);
}

std::vector<MarginMark> MarginMarks(const std::vector<MarginCell>& cells, const AdviceWords& words) {
  std::vector<BrokenLimit> limits;
  for (const MarginCell& cell : cells) {
    const auto same = [&](const BrokenLimit& limit) { return limit.SameAs(cell.limit); };
    if (std::ranges::none_of(limits, same)) limits.push_back(cell.limit);
  }
  std::ranges::stable_sort(limits, {}, &BrokenLimit::kind);
  std::vector<MarginMark> marks;
  for (BrokenLimit& limit : limits) {
    // Which gas runs short then is not the same in all cells.
    limit.runs.clear();
    const bool lost = limit.kind == Kind::Lost || limit.kind == Kind::BailOut;
    marks.push_back({limit, LetterOf(limit, marks), WordsOf(limit, words), lost});
  }
  return marks;
}

const MarginMark& MarkOf(const MarginCell& cell, const std::vector<MarginMark>& marks) {
  return *std::ranges::find_if(marks, [&](const MarginMark& mark) { return mark.limit.SameAs(cell.limit); });
}

std::string MarginHead(const std::string& plan, const Margins& margins, const AdviceWords& words) {
  return words.T(Text::MarginsHead, {plan, words.Depth(margins.LegDepth()), words.Short(margins.LegTime())});
}

std::vector<std::string> JudgeNotes(const Margins& margins, const AdviceWords& words) {
  std::vector<std::string> notes;
  if (!margins.JudgesGas()) notes.push_back(words.T(Text::MarginsNoGas));
  if (margins.JudgesGas() && margins.Settings().OpenCircuit) notes.push_back(words.T(Text::MarginsMinimumGas));
  for (const std::string& gas : margins.NeverLost()) notes.push_back(words.T(Text::MarginsNeverLost, {gas}));
  return notes;
}

std::vector<std::string> MarginNotes(const Margins& margins, const AdviceWords& words) {
  std::vector<std::string> notes = JudgeNotes(margins, words);
  notes.insert(notes.begin(), words.T(margins.Settings().OpenCircuit ? Text::MarginsCell : Text::MarginsCellLoop));
  return notes;
}

LetteredMap Lettered(const MarginGrid& grid, const std::vector<MarginCell>& cells, const AdviceWords& words) {
  const auto columns = static_cast<std::size_t>(grid.Columns());
  const std::vector<MarginMark> marks = MarginMarks(cells, words);
  LetteredMap map;
  map.title = words.T(Text::MarginsLonger);
  map.plannedColumn = columns;
  for (int i = 0; i < grid.Columns(); ++i) map.columns.push_back(SignedFigure(grid.longer.At(i), words));
  for (int i = 0; i < grid.Rows(); ++i) {
    map.rows.push_back(SignedFigure(grid.deeper.At(i), words) + " " + words.LengthUnit());
    map.letters.emplace_back();
  }
  for (std::size_t i = 0; i < cells.size(); ++i) {
    map.letters[i / columns] += MarkOf(cells[i], marks).letter;
    if (cells[i].longer != 0 || cells[i].deeper != 0) continue;
    map.plannedRow = i / columns;
    map.plannedColumn = i % columns;
  }
  for (const MarginMark& mark : marks) map.legend.push_back(std::string(1, mark.letter) + "  " + mark.words);
  return map;
}

std::string MapLines(const LetteredMap& map) {
  std::size_t label = 0;
  for (const std::string& row : map.rows) label = std::max(label, row.size());
  // A figure of minutes over each fifth column.
  constexpr std::size_t kEach = 5;
  std::string head(label + 1, ' ');
  for (std::size_t column = 0; column < map.columns.size(); column += kEach) {
    const std::size_t at = label + 1 + 2 * column;
    head.resize(std::max(head.size(), at), ' ');
    head += map.columns[column];
  }
  std::string text = std::string(label + 2, ' ') + map.title + "\n" + head + "\n";
  for (std::size_t row = 0; row < map.rows.size(); ++row) {
    std::string line = std::string(label - map.rows[row].size(), ' ') + map.rows[row];
    bool open = false;
    for (std::size_t column = 0; column < map.columns.size(); ++column) {
      const bool planned = map.IsPlanned(row, column);
      line += planned ? '[' : open ? ']' : ' ';
      line += map.letters[row][column];
      open = planned;
    }
    text += line + (open ? "]" : "") + "\n";
  }
  return text;
}

std::string MarginMapText(const MarginGrid& grid, const std::vector<MarginCell>& cells, const AdviceWords& words) {
  const LetteredMap map = Lettered(grid, cells, words);
  std::string text = MapLines(map) + "\n";
  for (const std::string& line : map.legend) text += "  " + line + "\n";
  return text;
}

std::vector<std::string> LongestStayWords(const LongestStay& stay, const Margins& margins, const AdviceWords& words) {
  const std::string depth = words.Depth(margins.LegDepth());
  if (stay.minutes == 0) {
    return {words.T(Text::LongestNone, {std::to_string(stay.next), depth, WordsWithAmount(stay.binds, words)})};
  }
  const std::string minutes = std::to_string(stay.minutes);
  if (!stay.binds.IsBroken()) return {words.T(Text::LongestAll, {minutes, depth})};
  return {words.T(Text::LongestIs, {minutes, depth, words.Short(stay.at.runTime), words.Short(stay.at.stops),
                                    words.Fixed(stay.at.cns * 100, 0)}),
          words.T(Text::LongestBinds, {WordsWithAmount(stay.binds, words)})};
}

std::vector<std::array<std::string, 2>> NoStopRows(const std::vector<NoStopTime>& times, const AdviceWords& words) {
  std::vector<std::array<std::string, 2>> rows;
  rows.reserve(times.size());
  for (const NoStopTime& time : times) {
    rows.push_back({words.Depth(time.depth), std::to_string(time.minutes) +
                                                 (time.minutes == LongestStay::kMost ? "+ " : " ") +
                                                 words.T(Text::WhatIfMinutes)});
  }
  return rows;
}

std::vector<std::string> NoStopLines(const std::vector<NoStopTime>& times, const Margins& margins,
                                     const AdviceWords& words) {
  const double from = margins.Settings().Metric ? 9 : 30;
  if (times.empty()) return {words.T(Text::NoStopNone, {words.Depth(from)})};
  std::vector<std::string> lines{words.T(Text::NoStopTitle, {margins.LegGas()})};
  const auto rows = NoStopRows(times, words);
  std::size_t width = 0;
  for (const auto& row : rows) width = std::max(width, row[0].size());
  const std::size_t minutes = 6 + Letters(words.T(Text::WhatIfMinutes));
  for (const auto& row : rows) lines.push_back(AtRight(row[0], width + 2) + AtRight(row[1], minutes));
  lines.push_back(words.T(Text::NoStopOf,
                          {ComputedWith(margins.Settings(), margins.Model(), margins.IsRepetitive(), words.Texts())}));
  return lines;
}

}  // namespace tav
