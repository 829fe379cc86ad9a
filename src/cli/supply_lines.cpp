#include <algorithm>

#include "cli/computed_dive.h"
#include "cli/terminal_text.h"
#include "supply/supply_text.h"

namespace tav {
namespace {

using Cells = std::vector<std::vector<GridCell>>;

std::vector<std::size_t> WidthsOf(const Cells& cells, std::size_t columns) {
  std::vector<std::size_t> widths(columns);
  for (const auto& row : cells) {
    for (std::size_t i = 0; i < columns; ++i) widths[i] = std::max(widths[i], CharacterCount(row[i].text));
  }
  return widths;
}

/// One line of a table, its columns of text at the left and its numbers at the right.
std::string Line(const std::vector<GridCell>& row, const std::vector<std::size_t>& widths, std::size_t textColumns) {
  std::string line = " ";
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const bool last = i + 1 == widths.size();
    const std::string fill(widths[i] - CharacterCount(row[i].text), ' ');
    line += " " + (last ? " " + row[i].text : i < textColumns ? row[i].text + fill : fill + row[i].text) + " ";
  }
  while (line.ends_with(' ')) line.pop_back();
  return line + "\n";
}

}  // namespace

std::string SupplyLines(const ComputedDive& dive, const TextSource& texts) {
  const DiveTemplate& settings = dive.dive.record.Template;
  const SupplyTables tables = TablesOf(dive.supply, settings.RMV, AdviceWords(texts, {".", ""}, settings.Metric));
  if (tables.gases.empty()) return {};
  constexpr std::size_t kTextColumns = 2;
  std::string text = "\n" + tables.gasTitle + "\n";
  const auto gasWidths = WidthsOf(tables.gases, tables.gases.front().size());
  for (const auto& row : tables.gases) text += Line(row, gasWidths, kTextColumns);
  text += tables.legTitle + "\n";
  // How the minimum gas is worked out has a line of its own.
  const auto legWidths = WidthsOf(tables.legs, tables.legs.front().size() - 1);
  for (std::size_t i = 0; i < tables.legs.size(); ++i) {
    text += Line(tables.legs[i], legWidths, 0);
    if (i > 0) text += "      " + tables.legs[i].back().text + "\n";
  }
  return text + "\n";
}

}  // namespace tav
