#include "cli/table_output.h"

#include <algorithm>
#include <ostream>

#include "cli/terminal_text.h"
#include "figures/settings_words.h"
#include "model/number_text.h"
#include "model/text_columns.h"
#include "model/utf8.h"
#include "tables/table_remarks.h"

namespace tav {
namespace {

// Texts by number.
constexpr int kDepth = 7028;
constexpr int kRunTime = 7029;

constexpr std::size_t kMixWidth = 7;
constexpr std::size_t kDepthWidth = 7;
constexpr std::size_t kCellWidth = 6;

Json RemarksJson(const std::vector<StopRemark>& remarks) {
  Json list = Json::array();
  for (const StopRemark& remark : remarks) list.push_back({remark.head, remark.depth, remark.what});
  return list;
}

Json WarningsJson(const std::vector<TableWarning>& warnings) {
  Json list = Json::array();
  for (const auto& [dive, head, warning] : warnings) {
    Json entry{{"head", head}};
    entry.update(WarningJson(warning));
    list.push_back(std::move(entry));
  }
  return list;
}

Json CellsJson(const TableCells& cells) {
  Json rows = Json::array();
  for (const auto& row : cells) {
    Json texts{row[TableColumn::kMix], row[TableColumn::kDepth]};
    for (std::size_t column = TableColumn::kFirstDive; column < row.size(); ++column) texts.push_back(row[column]);
    rows.push_back(std::move(texts));
  }
  return rows;
}

}  // namespace

void TableOutput::Begin(const Json& head, const std::string& listName, const std::string& heading) {
  if (form_ == Form::Text) out_ << heading;
  if (form_ != Form::Data) return;
  std::string text = Written(head);
  text.pop_back();  // its closing brace
  out_ << text << ",\"" << listName << "\":[";
}

std::string SettingsOfTables(const DiveTemplate& settings, const ModelChoice& model, bool bailout,
                             const TextSource& texts) {
  constexpr int kDepthsIn = 8258;
  constexpr int kMetres = 7425;
  constexpr int kFeet = 7426;
  DiveTemplate dived = settings;
  dived.OpenCircuit = bailout || settings.OpenCircuit;
  return ComputedWith(dived, model, false, texts) + ", " +
         texts.Filled(kDepthsIn, {texts.GetResString(settings.Metric ? kMetres : kFeet)}) + "\n";
}

void TableOutput::End() {
  if (form_ == Form::Data) out_ << "]}\n";
}

void TableOutput::Print(const TableDives& dives, const Json& members, const std::string& title) {
  for (const TableDive& dive : dives.dives) decompresses_ = decompresses_ && dive.decompresses;
  if (form_ == Form::Nothing) return;
  const SmallTable table = MakeSmallTable(dives, form_ == Form::Data ? "Depth" : texts_.GetResString(kDepth));
  if (form_ == Form::Data) {
    PrintJson(dives, table, members);
  } else {
    PrintText(dives, table, title);
  }
  first_ = false;
}

void TableOutput::PrintJson(const TableDives& dives, const SmallTable& table, const Json& members) {
  const TablePlace place = slots_.PlaceTable(table.Width(), table.Height());
  Json json = members;
  Json& list = json[dives.bailout ? "cuts" : "dives"] = Json::array();
  for (std::size_t i = 1; i < dives.dives.size(); ++i) {
    const TableDive& dive = dives.dives[i];
    Json entry;
    if (dives.bailout) {
      entry = {{"run_time", Digits(dive.head)}, {"depth", Digits(dive.depth)}};
    } else {
      entry = {{"time", Digits(dive.head)}};
    }
    entry["decompresses"] = dive.decompresses;
    entry["rows"] = RowsJson(dive.profile);
    list.push_back(std::move(entry));
  }
  json["cells"] = CellsJson(table.cells);
  json["totals"] = table.totals;
  json["left_out"] = RemarksJson(table.left_out);
  json["other_gas"] = RemarksJson(table.other_gas);
  json["warnings"] = WarningsJson(table.warnings);
  json["place"] = {{"page", place.page}, {"x", Digits(place.x)}, {"y", Digits(place.y)}};
  out_ << (first_ ? "" : ",") << Written(json);
}

void TableOutput::PrintText(const TableDives& dives, const SmallTable& table, const std::string& title) {
  out_ << "\n" << title << "\n";
  const std::size_t columns = table.totals.size();
  const std::size_t depthWidth = std::max(kDepthWidth, Letters(table.cells.front()[TableColumn::kDepth]));
  const std::size_t headWidth = 2 + kMixWidth + depthWidth;
  const std::size_t atOnce = (kLineWidth - headWidth) / kCellWidth;
  std::size_t from = 0;
  do {  // a table without a dive has its rows all the same
    const std::size_t to = std::min(from + atOnce, columns);
    const auto line = [&](const std::string& head, const auto& textOf) {
      std::string text = head;
      for (std::size_t column = from; column < to; ++column) text += AtRight(textOf(column), kCellWidth);
      out_ << text.substr(0, text.find_last_not_of(' ') + 1) << "\n";
    };
    if (from > 0) out_ << "\n";
    for (std::size_t i = 0; i < table.cells.size(); ++i) {
      const auto& row = table.cells[i];
      line("  " + AtLeft(row[TableColumn::kMix], kMixWidth) + AtRight(table.depths[i], depthWidth),
           [&](std::size_t column) { return row[TableColumn::kFirstDive + column]; });
    }
    line(AtLeft("  " + texts_.GetResString(kRunTime), headWidth),
         [&](std::size_t column) { return table.totals[column]; });
    from = to;
  } while (from < columns);
  const RemarkWords words = RemarkWordsOf(texts_, dives.diveTemplate.Metric);
  for (const std::string& remark : TableRemarks(table, words, false)) out_ << Wrapped("  ! " + remark, 4);
}

}  // namespace tav
