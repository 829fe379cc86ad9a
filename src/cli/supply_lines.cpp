#include "cli/computed_dive.h"
#include "cli/terminal_text.h"
#include "model/text_columns.h"
#include "supply/supply_text.h"

namespace tav {
namespace {

std::vector<std::string> TextsOf(const std::vector<GridCell>& row) {
  std::vector<std::string> texts;
  texts.reserve(row.size());
  for (const GridCell& cell : row) texts.push_back(cell.text);
  return texts;
}

/// A table whose first columns, and the last one, are of text; the others are numbers. The last `notes` columns have a
/// line of their own below that of their row.
std::string Lines(const SupplyTables::Table& table, std::size_t textColumns, std::size_t notes) {
  using Column = TextColumns::Column;
  std::vector<Column> columns(table.front().size() - notes, {Column::Side::Right});
  for (std::size_t i = 0; i < textColumns; ++i) columns[i].side = Column::Side::Left;
  columns.back() = {Column::Side::Left, 0, 3};
  TextColumns aligned(std::move(columns));
  for (const auto& row : table) aligned.Fit(TextsOf(row));
  std::string text;
  for (std::size_t i = 0; i < table.size(); ++i) {
    text += aligned.Line(TextsOf(table[i]));
    if (i > 0 && notes > 0) text += "      " + table[i].back().text + "\n";
  }
  return text;
}

}  // namespace

std::string SupplyLines(const ComputedDive& dive, const TextSource& texts) {
  const DiveTemplate& settings = dive.dive.record.Template;
  const SupplyTables tables = TablesOf(dive.supply, settings.RMV, AdviceWords(texts, {}, settings.Metric));
  if (tables.gases.empty()) return {};
  // How the minimum gas is worked out has a line of its own.
  const std::string note = tables.note.empty() ? "" : Wrapped(tables.note, 0);
  return "\n" + tables.gasTitle + "\n" + Lines(tables.gases, 2, 0) +
         (tables.legs.size() > 1 ? tables.legTitle + "\n" + Lines(tables.legs, 0, 1) : "") + note + "\n";
}

}  // namespace tav
