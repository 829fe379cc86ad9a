#pragma once

#include <functional>
#include <optional>
#include <string>

#include "cli/json_writer.h"
#include "cli/long_work.h"
#include "cli/page_output.h"
#include "cli/shown.h"
#include "tables/small_tables.h"
#include "tables/table_print.h"
#include "tables/table_slots.h"

namespace tav {

/// "ZH-L16B, GF 30/85, open circuit, depths in m": the line below the heading of tables.
std::string SettingsOfTables(const DiveTemplate& settings, const ModelChoice& model, bool bailout,
                             const TextSource& texts);

/// Prints small tables one after the other, as JSON, in words for a terminal or on paper, so that a large set is never
/// held in memory as a whole.
class TableOutput {
 public:
  /// `pdf` is the file for paper, in place of words; empty for none. `caption` names the plan of a bail-out there.
  TableOutput(CommandFrame& frame, const std::string& pdf, const std::string& caption);

  /// What the output begins with.
  struct Head {
    std::function<void(JsonWriter&)> members;  ///< of the JSON, ahead of the list of tables
    const char* listName;
    std::vector<std::string> heading;  ///< in words, a line each
    std::string title;                 ///< of the PDF
  };
  /// The whole output: `tables` calls Print for each of them.
  void Write(const Head& head, const std::function<void()>& tables);
  /// On paper alone, ahead of the tables of a bail-out (TablePrintModule::PrintWaysOut).
  void PrintWaysOut(const PlannedDive& dive) {
    if (paper_) static_cast<void>(paper_->print.PrintWaysOut(dive, Progress()));
  }
  /// One table. `members` writes those ahead of its dives.
  void Print(const TableDives& dives, const std::function<void(JsonWriter&)>& members, const std::string& title);

  /// Shows on the terminal how far the run is, and ends it by Ctrl+C.
  [[nodiscard]] RunProgress Progress();

 private:
  void PrintJson(const TableDives& dives, const SmallTable& table, const std::function<void(JsonWriter&)>& members);
  void ShowTable(const TableDives& dives, const SmallTable& table, const std::string& title);

  /// Tables on paper: their pages, and the PDF that is drawn of them at the end.
  struct Paper {
    Paper(CommandFrame& frame, const std::string& file, const std::string& caption)
        : output(frame, file), print(output.Pages(), caption) {
      print.StartTableOutput();
    }
    void Write(const std::string& title, LongWork& work) {
      print.EndTableOutput();
      output.WritePdf(title, work);
    }

    PageOutput output;
    TablePrintModule print;
  };

  CommandFrame& frame_;
  const TextSource& texts_;
  bool data_;
  JsonWriter json_;
  ShownOutput shown_;
  std::optional<Paper> paper_;
  LongWork work_;
  TableSlots slots_;
};

}  // namespace tav
