#pragma once

#include <array>
#include <string>
#include <vector>

#include "advice/margins.h"
#include "pages/print_preview.h"

namespace tav {

/// A limit that cells of a map break, and the letter that stands for it there.
struct MarginMark {
  BrokenLimit limit;
  char letter = '.';
  std::string words;
  bool lost = false;  ///< of a loss, a milder thing than a limit of the dive itself
};

/// The marks of a map, each with a letter of its own: '.' where all limits hold, '-' for no dive; of a gas its first
/// letter, small when it is lost; else the first letter of the limit's name. In the order in which limits are asked.
std::vector<MarginMark> MarginMarks(const std::vector<MarginCell>& cells, const AdviceWords& words);
/// The mark of a cell among those of its map.
const MarginMark& MarkOf(const MarginCell& cell, const std::vector<MarginMark>& marks);

/// What a cell is filled with, and the ink of its letter. What holds, a loss that is not held, and a dive that is not
/// are told apart by lightness alone, light to dark; the letter tells which limit it is.
Colour MarginColour(BrokenLimit::Kind kind);
Colour MarginInk(BrokenLimit::Kind kind);

/// Minutes between the lines of equal run time: a round number that some six lines come of.
double RunTimeStep(const std::vector<MarginCell>& cells);
/// The band between two lines that a dive lies in; nothing for no dive.
std::optional<int> RunTimeBand(const MarginCell& cell, double step);

/// A number with its sign: "+5", "-10", "0".
std::string SignedFigure(Single number, const AdviceWords& words);

/// "wreck.tav: 60 m, 25 min planned"
std::string MarginHead(const std::string& plan, const Margins& margins, const AdviceWords& words);
/// What must be said of limits that are held: gas that is not judged, gases that are never lost.
std::vector<std::string> JudgeNotes(const Margins& margins, const AdviceWords& words);
/// And what must be said of a map: what a cell is, ahead of the same.
std::vector<std::string> MarginNotes(const Margins& margins, const AdviceWords& words);
/// A map in letters, with what stands over its columns and beside its rows.
struct LetteredMap {
  std::string title;  ///< what the heads of the columns are
  std::vector<std::string> columns;
  std::vector<std::string> rows;
  std::vector<std::string> letters;  ///< of each row, one for each column
  std::size_t plannedRow = 0;
  std::size_t plannedColumn = 0;    ///< beyond the map where the planned dive is not in it
  std::vector<std::string> legend;  ///< "A  Air runs short"

  [[nodiscard]] bool IsPlanned(std::size_t row, std::size_t column) const {
    return row == plannedRow && column == plannedColumn;
  }
};
LetteredMap Lettered(const MarginGrid& grid, const std::vector<MarginCell>& cells, const AdviceWords& words);
/// The map in lines, two letters for each cell, the planned dive between brackets.
std::string MapLines(const LetteredMap& map);
/// The same with its legend.
std::string MarginMapText(const MarginGrid& grid, const std::vector<MarginCell>& cells, const AdviceWords& words);
/// The longest stay in one or two sentences.
std::vector<std::string> LongestStayWords(const LongestStay& stay, const Margins& margins, const AdviceWords& words);
/// The depths and minutes without a stop: "9 m", "25 min".
std::vector<std::array<std::string, 2>> NoStopRows(const std::vector<NoStopTime>& times, const AdviceWords& words);
/// A table of them, and whose times these are.
std::vector<std::string> NoStopLines(const std::vector<NoStopTime>& times, const Margins& margins,
                                     const AdviceWords& words);

/// A landscape page with the longest stay, if there is one, and the times without a stop, if there are any.
void PrintLongest(PrintPreview& out, const std::string& plan, const Margins& margins,
                  const std::optional<LongestStay>& stay, const std::vector<NoStopTime>& times,
                  const AdviceWords& words);

/// A landscape page with the map, its legend and the longest stay, if it is known.
void PrintMargins(PrintPreview& out, const std::string& plan, const Margins& margins, const MarginGrid& grid,
                  const std::vector<MarginCell>& cells, const std::optional<LongestStay>& stay,
                  const AdviceWords& words);

/// Adds that page to a report, with "Page 2 of 2" at its foot.
void AddMarginsPage(PrintPreview& out, const std::string& plan, const Margins& margins, const MarginGrid& grid,
                    const std::vector<MarginCell>& cells, const std::optional<LongestStay>& stay,
                    const AdviceWords& words, const std::string& page);

}  // namespace tav
