// Small tables on pages of their own, in as many parts as they take.

#include <algorithm>
#include <cmath>

#include "model/text_id.h"
#include "tables/table_print.h"

namespace tav {
namespace {

constexpr int kSmallestSize = 6;  // points
const std::string kArial = "Arial";

/// Columns and rows of a table, the heads included.
SmallTable Piece(const SmallTable& table, std::size_t firstDive, std::size_t endDive, std::size_t firstRow,
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

constexpr TablePlace kWholePlace{0, 6.3, 1.9};
constexpr double kAboveNotes = 0.2;
constexpr int kNoteSize = 8;

/// Of a line of remarks in letters of that size, cm.
double NoteHeight(int size) { return 0.05 * size; }

/// How many rows a page of its own holds above so many lines.
std::size_t RowsBeside(std::size_t lines, int size) {
  const double left =
      TablePages::kSheetBottom - kWholePlace.y - kAboveNotes - static_cast<double>(lines) * NoteHeight(size);
  return static_cast<std::size_t>(std::max(1.0, std::floor((left - 0.3) / 0.5) - 2));
}

}  // namespace

std::vector<TablePrintModule::Part> TablePrintModule::PartsOf(const Printed& printed) const {
  constexpr std::size_t kColumns = 36;
  constexpr std::size_t kRows = 30;
  constexpr std::size_t kMostLines = 30;  // so that rows have room, too
  const std::size_t dives = printed.table.totals.size();
  const std::size_t rows = printed.table.cells.size();
  std::vector<Part> parts;
  std::size_t dive = 0;
  do {
    std::size_t end = std::min(dive + kColumns, dives);
    const auto lines = [&](int size) { return Wrapped(Remarks(printed, false, dive, end), 21.5, size); };
    while (end > dive + 1 && lines(kNoteSize).size() > kMostLines) end = dive + (end - dive) / 2;
    // In smaller letters before a row goes on the next page.
    int size = kNoteSize;
    while (size > kSmallestSize && RowsBeside(lines(size).size(), size) < std::min(rows - 1, kRows)) --size;
    if (RowsBeside(lines(size).size(), size) < std::min(rows - 1, kRows)) size = kNoteSize;
    std::vector<std::string> remarks = lines(size);
    // One column alone can have more than stands beside its rows: the rest goes on below heads of its own.
    std::vector<std::string> rest;
    if (remarks.size() > kMostLines) {
      rest.assign(remarks.begin() + kMostLines, remarks.end());
      remarks.resize(kMostLines);
    }
    const std::size_t onPage = std::min(kRows, RowsBeside(remarks.size(), size));
    for (std::size_t row = 1; row < rows; row += onPage) {
      parts.push_back({dive, end, row, std::min(row + onPage, rows), remarks, size});
    }
    for (std::size_t line = 0; line < rest.size(); line += kMostLines) {
      const auto from = rest.begin() + static_cast<std::ptrdiff_t>(line);
      const auto to = rest.begin() + static_cast<std::ptrdiff_t>(std::min(line + kMostLines, rest.size()));
      parts.push_back({dive, end, rows, rows, {from, to}, size});
    }
    dive = end;
  } while (dive < dives);
  return parts;
}

void TablePrintModule::PrintWhole(const Printed& printed, int number) {
  const std::vector<Part> parts = PartsOf(printed);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const Part& part = parts[i];
    pages_.StartWholePage(printed.info);
    std::string head = T(Text::TableNumber) + " " + std::to_string(number) + ": " + printed.name;
    if (parts.size() > 1) {
      head += ", " + writer_.Texts().Filled(Text::PartOf, {std::to_string(i + 1), std::to_string(parts.size())});
    }
    writer_.PrintTextLeft(kWholePlace.x, 1.0, head, kArial, 12, 1);
    writer_.PrintTextLeft(kWholePlace.x, 1.5, printed.caption, kArial, kNoteSize, 0);
    const SmallTable piece = Piece(printed.table, part.firstDive, part.endDive, part.firstRow, part.endRow);
    DrawTable(writer_, piece, kWholePlace, printed.title, 1);
    double y = TableFrame(piece, kWholePlace).End() + kAboveNotes;
    writer_.SetForeColor(kRed);
    for (const std::string& line : part.remarks) {
      writer_.PrintTextLeft(kWholePlace.x, y, line, kArial, part.size, 1);
      y += NoteHeight(part.size);
    }
    writer_.SetForeColor(kBlack);
  }
}

}  // namespace tav
