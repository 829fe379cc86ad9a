#pragma once

#include <iosfwd>
#include <string>

#include "cli/row_json.h"
#include "compute/table_dives.h"
#include "platform/text_source.h"
#include "tables/small_tables.h"
#include "tables/table_slots.h"

namespace tav {

/// "ZH-L16B, GF 30/85, open circuit, depths in m": the line below the heading of tables.
std::string SettingsOfTables(const DiveTemplate& settings, const ModelChoice& model, bool bailout,
                             const TextSource& texts);

/// Prints small tables one after the other, as JSON or in words for a terminal, so that a large set is never held in
/// memory as a whole.
class TableOutput {
 public:
  enum class Form { Text, Data, Nothing };

  TableOutput(std::ostream& out, const TextSource& texts, Form form) : out_(out), texts_(texts), form_(form) {}

  /// Opens the output: the members of the JSON ahead of the list of that name, or a heading.
  void Begin(const Json& head, const std::string& listName, const std::string& heading);
  /// One table. `members` are those ahead of its dives.
  void Print(const TableDives& dives, const Json& members, const std::string& title);
  void End();

  /// A dive of the tables so far does not decompress.
  [[nodiscard]] bool Decompresses() const { return decompresses_; }

 private:
  void PrintJson(const TableDives& dives, const SmallTable& table, const Json& members);
  void PrintText(const TableDives& dives, const SmallTable& table, const std::string& title);

  std::ostream& out_;
  const TextSource& texts_;
  Form form_;
  bool first_ = true;
  bool decompresses_ = true;
  TableSlots slots_;
};

}  // namespace tav
