#include <algorithm>
#include <optional>

#include "exchange/control_characters.h"
#include "exchange/import.h"
#include "model/text_id.h"
#include "persist/line_reader.h"
#include "persist/text_file.h"
#include "plans/leg_table.h"

namespace tav {
namespace {

constexpr const char* kAscentWord = "ascent";
constexpr std::size_t kColumns = 3;  // depth, minutes, gas

/// Tab or semicolon where the text has one outside of quotes, else the comma.
char SeparatorOf(const std::string& text) {
  bool quoted = false;
  bool semicolon = false;
  for (const char c : text) {
    if (c == '\n') quoted = false;  // a cell ends with its line
    if (c == '"') quoted = !quoted;
    if (!quoted && c == '\t') return c;
    semicolon = semicolon || (!quoted && c == ';');
  }
  return semicolon ? ';' : ',';
}

/// What a decimal separator may be beside the point.
LocaleSeparators NumbersBeside(char separator) { return {separator == ',' ? "." : ",", ""}; }

/// The cells of a line without blanks at their ends. A cell in quotes may hold the separator, and "" for a quote.
/// Nothing for a line whose quotes do not pair.
std::optional<std::vector<std::string>> CellsOf(std::string_view line, char separator) {
  std::vector<std::string> cells{""};
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    std::string& cell = cells.back();
    const char c = line[i];
    if (quoted && c == '"' && i + 1 < line.size() && line[i + 1] == '"') {
      cell += line[++i];
    } else if (c == '"' && (quoted || TrimBlanks(cell).empty())) {
      quoted = !quoted;
    } else if (c == separator && !quoted) {
      cells.emplace_back();
    } else {
      cell += c;
    }
  }
  if (quoted) return std::nullopt;
  for (std::string& cell : cells) cell = std::string(TrimBlanks(cell));
  return cells;
}

/// Lines in which something is assumed: how many, and the first.
struct Lines {
  int count = 0;
  int first = 0;

  void Add(int line) {
    if (count++ == 0) first = line;
  }
};

class CsvImport {
 public:
  CsvImport(const std::filesystem::path& file, const std::string& text, const DiveTemplate& settings,
            const TextSource& texts)
      : file_(file), text_(text), texts_(texts), separator_(SeparatorOf(text)), table_(NumbersBeside(separator_)) {
    imported_.profile.dives.emplace_back().Template = settings;
    imported_.profile.lines.emplace_back();
  }

  ImportedDives Run() {
    table_.Load({}, Settings());
    LineReader lines(text_);
    while (const auto line = lines.Next()) {
      if (!TrimBlanks(*line).empty()) ReadLine(*line, lines.LineNumber());
    }
    if (table_.Rows() == 0) Fail(0, Text::ImportNoWaypoint);
    const auto faults = table_.Faults(texts_);
    if (!faults.empty()) {
      const auto row = static_cast<std::size_t>(faults.front().row);
      throw FileError(file_, imported_.profile.lines.front().actions.at(row), faults.front().reason);
    }
    table_.SetFinalAscent(true);
    imported_.profile.dives.front().UserActions = table_.Actions();
    Settings().Blends = table_.Gases();
    Tell(Text::ImportLinesWithoutGas, withoutGas_, Settings().Blends.front().Name);
    Tell(Text::ImportMoreColumns, moreColumns_, "");
    Tell(Text::ImportHeadingWithDigits, headings_, "");
    imported_.remarks.push_back(texts_.GetResString(Text::ImportFromSettings));
    return std::move(imported_);
  }

 private:
  [[noreturn]] void Fail(int line, int text) const { throw FileError(file_, line, texts_.GetResString(text)); }
  DiveTemplate& Settings() { return imported_.profile.dives.front().Template; }

  void Tell(int text, const Lines& lines, const std::string& more) {
    if (lines.count == 0) return;
    imported_.remarks.push_back(texts_.Filled(text, {std::to_string(lines.count), std::to_string(lines.first), more}));
  }

  void ReadLine(std::string_view line, int number) {
    const int row = table_.Rows();
    auto cells = CellsOf(line, separator_);
    if (!cells) Fail(number, Text::ImportQuoteOpen);
    const bool ascent = cells->size() == 1 && cells->front() == kAscentWord;
    if (row > 0 && !ascent && cells->size() == 1) Fail(number, Text::ImportNoSeparator);
    if (row == INT16_MAX - 1) Fail(number, Text::ImportTooManyLegs);
    // Behind the first row nothing is a heading any more: the row is there, with what is wrong in it.
    const auto begin = cells->begin();
    const auto filled = [](const std::string& cell) { return !cell.empty(); };
    const bool more = cells->size() > kColumns && std::any_of(begin + kColumns, cells->end(), filled);
    cells->resize(ascent ? 1 : kColumns);
    std::string tabbed;
    for (const std::string& cell : *cells) {
      if (&cell != &cells->front()) tabbed += '\t';
      tabbed += HasControl(cell) ? "?" : cell;
    }
    if (table_.Paste(row, tabbed, kAscentWord) == 0) {
      if (row > 0 && !ascent) Fail(number, Text::ImportNoSeparator);
      // A heading has no digits; a waypoint with a slip in its numbers does.
      if (line.find_first_of("0123456789") != std::string_view::npos) headings_.Add(number);
      return;
    }
    imported_.profile.lines.front().actions.push_back(number);
    if (table_.At(row).ascent) return;
    if (more) moreColumns_.Add(number);
    const std::string& gas = cells->back();
    if (gas.empty()) return withoutGas_.Add(number);
    if (HasControl(gas)) Fail(number, Text::ImportControlCharacter);
  }

  const std::filesystem::path& file_;
  const std::string& text_;
  const TextSource& texts_;
  char separator_;
  LegTable table_;
  Lines withoutGas_;
  Lines moreColumns_;
  Lines headings_;  // with digits in them
  ImportedDives imported_;
};

}  // namespace

ImportedDives ImportCsv(const std::filesystem::path& file, const std::string& text, const DiveTemplate& settings,
                        const TextSource& texts) {
  return CsvImport(file, text, settings, texts).Run();
}

}  // namespace tav
