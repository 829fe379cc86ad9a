#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "advice/finding.h"
#include "cli/command.h"
#include "cli/json_writer.h"
#include "model/text_columns.h"
#include "reports/column_table.h"

namespace tav {

/// What a command tells its reader, piece by piece in the order of reading. Each piece is told once and becomes both:
/// lines for the terminal, and a block of "shown" in JSON, so that the two can't differ.
class ShownOutput {
 public:
  struct Row {
    std::string kind = {};  ///< "stop", "total", ...; empty where rows are all alike
    std::vector<std::string> cells = {};
    std::vector<std::string> marks = {};  ///< of each cell: "bad", "differs", "planned" or empty; none without marks
  };
  struct Table {
    std::string id;
    std::vector<std::vector<std::string>> heads;
    std::vector<Row> rows;
  };

  /// Keeps lines or blocks, as the options ask for.
  explicit ShownOutput(const CommonOptions& options) : lines_(!options.json), blocks_(options.json && options.shown) {}

  /// The title of what follows.
  void Heading(const std::string& words);
  /// A line as long as it is, behind its lead and the sign of its severity: "! " or, for a note, "- ".
  void Line(const std::string& words, const std::string& lead = {}, std::optional<Severity> severity = {});
  /// The same, wrapped at the width of the terminal, below its first word.
  void Text(const std::string& words, const std::string& lead = {}, std::optional<Severity> severity = {});
  /// A line whose words tell how severe it is.
  void Fault(const std::string& words, Severity severity);
  /// `lines` are the table in lines of a terminal.
  void Put(const Table& table, const std::string& lines);
  /// A table whose columns are as wide as their texts.
  void Put(const Table& table, const std::vector<TextColumns::Column>& columns);
  /// The columns of a comparison with what is noted below them.
  void Put(const ColumnTable& table);
  /// Lines that only the terminal needs.
  void InTerminal(const std::string& lines) { text_ += lines_ ? lines : std::string(); }
  void BlankLine() { InTerminal("\n"); }

  /// Whether the blocks are asked for.
  [[nodiscard]] bool HasBlocks() const { return blocks_; }
  /// The lines since the last call.
  [[nodiscard]] std::string TakeText() { return std::exchange(text_, {}); }
  /// The blocks as the member "shown" of an object that is open, where they are asked for.
  void Write(JsonWriter& json) const;

 private:
  struct Block {
    std::string name;  ///< "heading", "text"; empty for a table
    std::string words;
    std::optional<Severity> severity;
    Table table;
  };
  void Add(Block block) {
    if (blocks_) list_.push_back(std::move(block));
  }

  bool lines_;
  bool blocks_;
  std::string text_;
  std::vector<Block> list_;
};

}  // namespace tav
