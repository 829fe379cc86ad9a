#include "cli/shown.h"

#include "cli/terminal_text.h"
#include "model/utf8.h"

namespace tav {
namespace {

std::string Led(const std::string& lead, std::optional<Severity> severity) {
  return lead + (!severity ? "" : *severity == Severity::Note ? "- " : "! ");
}

void WriteTexts(JsonWriter& json, const std::vector<std::string>& texts) {
  for (const std::string& text : texts) json.Value(text);
}

void WriteTable(JsonWriter& json, const ShownOutput::Table& table) {
  json.Member("id", table.id);
  json.List("heads", [&] {
    for (const auto& head : table.heads) json.List([&] { WriteTexts(json, head); });
  });
  json.List("rows", [&] {
    for (const ShownOutput::Row& row : table.rows) {
      json.Object([&] {
        if (!row.kind.empty()) json.Member("kind", row.kind);
        json.List("cells", [&] { WriteTexts(json, row.cells); });
        if (!row.marks.empty()) json.List("marks", [&] { WriteTexts(json, row.marks); });
      });
    }
  });
}

ShownOutput::Table TableOf(const ColumnTable& table) {
  ShownOutput::Table made{"columns", {{""}, {""}}, {}};
  for (const ColumnTable::Head& head : table.heads) {
    made.heads[0].push_back(head.name);
    made.heads[1].push_back(head.detail);
  }
  for (const ColumnTable::Row& row : table.rows) {
    ShownOutput::Row& to = made.rows.emplace_back();
    to.kind = row.words ? "words" : row.total ? "total" : "stop";
    to.cells = {row.Heading()};
    to.marks = {""};
    for (const ColumnTable::Cell& cell : row.cells) {
      to.cells.push_back(cell.All());
      to.marks.emplace_back(cell.bad ? "bad" : cell.differs ? "differs" : "");
    }
  }
  return made;
}

}  // namespace

void ShownOutput::Heading(const std::string& words) {
  InTerminal(words + "\n");
  Add({"heading", words, {}, {}});
}

void ShownOutput::Line(const std::string& words, const std::string& lead, std::optional<Severity> severity) {
  InTerminal(Led(lead, severity) + words + "\n");
  Add({"text", words, severity, {}});
}

void ShownOutput::Text(const std::string& words, const std::string& lead, std::optional<Severity> severity) {
  const std::string led = Led(lead, severity);
  InTerminal(Wrapped(led + words, Letters(led)));
  Add({"text", words, severity, {}});
}

void ShownOutput::Fault(const std::string& words, Severity severity) {
  InTerminal(words + "\n");
  Add({"text", words, severity, {}});
}

void ShownOutput::Put(const Table& table, const std::string& lines) {
  InTerminal(lines);
  Add({"", "", {}, table});
}

void ShownOutput::Put(const Table& table, const std::vector<TextColumns::Column>& columns) {
  TextColumns aligned(columns);
  for (const auto& head : table.heads) aligned.Fit(head);
  for (const Row& row : table.rows) aligned.Fit(row.cells);
  std::string lines;
  for (const auto& head : table.heads) lines += aligned.Line(head);
  for (const Row& row : table.rows) lines += aligned.Line(row.cells);
  Put(table, lines);
}

void ShownOutput::Put(const ColumnTable& table) {
  ColumnTable bare = table;
  bare.notes.clear();
  bare.warnings.clear();
  Put(TableOf(table), AlignedText(bare, kLineWidth));
  if (!table.notes.empty() || !table.warnings.empty()) BlankLine();
  for (const std::string& note : table.notes) Text(note, "", Severity::Note);
  for (const std::string& warning : table.warnings) Text(warning, "", Severity::Danger);
}

void ShownOutput::Write(JsonWriter& json) const {
  if (!blocks_) return;
  json.List("shown", [&] {
    for (const Block& block : list_) {
      json.Object([&] {
        if (block.name.empty()) return json.Object("table", [&] { WriteTable(json, block.table); });
        json.Member(block.name, block.words);
        if (block.severity) json.Member("severity", IdOf(*block.severity));
      });
    }
  });
}

}  // namespace tav
