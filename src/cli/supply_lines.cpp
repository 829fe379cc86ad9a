#include "cli/computed_dive.h"
#include "supply/supply_text.h"

namespace tav {
namespace {

std::vector<std::string> TextsOf(const std::vector<GridCell>& row) {
  std::vector<std::string> texts;
  texts.reserve(row.size());
  for (const GridCell& cell : row) texts.push_back(cell.text);
  return texts;
}

ShownOutput::Table ShownOf(const char* id, const SupplyTables::Table& table) {
  ShownOutput::Table made{id, {TextsOf(table.front())}, {}};
  for (std::size_t i = 1; i < table.size(); ++i) {
    ShownOutput::Row& row = made.rows.emplace_back();
    row.cells = TextsOf(table[i]);
    for (const GridCell& cell : table[i]) row.marks.emplace_back(cell.bold ? "bad" : "");
  }
  return made;
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

void ShowSupply(const ComputedDive& dive, const TextSource& texts, ShownOutput& shown) {
  const DiveTemplate& settings = dive.dive.record.Template;
  const SupplyTables tables = TablesOf(dive.supply, settings.RMV, AdviceWords(texts, {}, settings.Metric));
  if (tables.gases.empty()) return;
  shown.BlankLine();
  shown.Heading(tables.gasTitle);
  shown.Put(ShownOf("supply", tables.gases), Lines(tables.gases, 2, 0));
  if (tables.legs.size() > 1) {
    shown.Heading(tables.legTitle);
    // How the minimum gas is worked out has a line of its own.
    shown.Put(ShownOf("legs", tables.legs), Lines(tables.legs, 0, 1));
  }
  if (!tables.note.empty()) shown.Text(tables.note);
  shown.BlankLine();
}

}  // namespace tav
