#include "cli/table_output.h"

#include <algorithm>
#include <ostream>

#include "cli/command_frame.h"
#include "cli/row_columns.h"
#include "cli/terminal_text.h"
#include "figures/settings_words.h"
#include "model/number_text.h"
#include "model/text_columns.h"
#include "model/text_id.h"
#include "model/utf8.h"
#include "tables/table_remarks.h"

namespace tav {
namespace {

constexpr std::size_t kMixWidth = 7;
constexpr std::size_t kDepthWidth = 7;
constexpr std::size_t kCellWidth = 6;

void WriteRemarks(JsonWriter& json, const char* name, const std::vector<StopRemark>& remarks) {
  json.List(name, [&] {
    for (const StopRemark& remark : remarks) {
      json.List([&] {
        for (const std::string& text : {remark.head, remark.depth, remark.what}) json.Value(text);
      });
    }
  });
}

void WriteTexts(JsonWriter& json, const std::vector<std::string>& texts) {
  for (const std::string& text : texts) json.Value(text);
}

/// Without the column that is never drawn.
void WriteCells(JsonWriter& json, const TableCells& cells) {
  json.List("cells", [&] {
    for (const auto& row : cells) {
      json.List([&] {
        WriteTexts(json, {row[TableColumn::kMix], row[TableColumn::kDepth]});
        WriteTexts(json, {row.begin() + TableColumn::kFirstDive, row.end()});
      });
    }
  });
}

/// Gas, depth, and a cell for each dive; the last row has the run times.
ShownOutput::Table ShownOf(const SmallTable& table, const TextSource& texts) {
  ShownOutput::Table made{"stops", {}, {}};
  for (std::size_t i = 0; i < table.cells.size(); ++i) {
    const auto& row = table.cells[i];
    std::vector<std::string> cells{row[TableColumn::kMix], i == 0 ? texts.GetResString(Text::Depth) : table.depths[i]};
    cells.insert(cells.end(), row.begin() + TableColumn::kFirstDive, row.end());
    if (i == 0) {
      made.heads.push_back(std::move(cells));
    } else {
      made.rows.push_back({"stop", std::move(cells), {}});
    }
  }
  ShownOutput::Row& totals = made.rows.emplace_back();
  totals = {"total", {texts.GetResString(Text::RunTime), ""}, {}};
  totals.cells.insert(totals.cells.end(), table.totals.begin(), table.totals.end());
  return made;
}

/// In lines of a terminal, as many dives beside each other as it is wide.
std::string Lines(const ShownOutput::Table& table) {
  constexpr std::size_t kHeads = 2;
  const std::size_t cells = table.heads[0].size();
  const std::size_t depthWidth = std::max(kDepthWidth, Letters(table.heads[0][1]));
  const std::size_t headWidth = 2 + kMixWidth + depthWidth;
  const std::size_t atOnce = (kLineWidth - headWidth) / kCellWidth;
  std::string lines;
  std::size_t from = kHeads;
  do {  // a table without a dive has its rows all the same
    const std::size_t to = std::min(from + atOnce, cells);
    const auto add = [&](const std::string& head, const std::vector<std::string>& row) {
      std::string line = head;
      for (std::size_t i = from; i < to; ++i) line += AtRight(row[i], kCellWidth);
      lines += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    };
    const auto addStop = [&](const std::vector<std::string>& row) {
      add("  " + AtLeft(row[0], kMixWidth) + AtRight(row[1], depthWidth), row);
    };
    if (from > kHeads) lines += "\n";
    addStop(table.heads[0]);
    for (std::size_t i = 0; i + 1 < table.rows.size(); ++i) addStop(table.rows[i].cells);
    add(AtLeft("  " + table.rows.back().cells[0], headWidth), table.rows.back().cells);
    from = to;
  } while (from < cells);
  return lines;
}

}  // namespace

std::string SettingsOfTables(const DiveTemplate& settings, const ModelChoice& model, bool bailout,
                             const TextSource& texts) {
  DiveTemplate dived = settings;
  dived.OpenCircuit = bailout || settings.OpenCircuit;
  return ComputedWith(dived, model, false, texts) + ", " +
         texts.Filled(Text::SlateDepthsIn, {texts.GetResString(settings.Metric ? Text::Metres : Text::Feet)});
}

TableOutput::TableOutput(CommandFrame& frame, const std::string& pdf, const std::string& caption)
    : frame_(frame),
      texts_(frame.Texts()),
      data_(frame.Common().json),
      json_(frame.Out()),
      shown_(frame.Common()),
      work_(frame.Terminal()) {
  if (pdf.empty()) return;
  paper_.emplace(frame, pdf, caption);
}

void TableOutput::Write(const Head& head, const std::function<void()>& tables) {
  shown_.Heading(head.heading.front());
  for (std::size_t i = 1; i < head.heading.size(); ++i) shown_.Line(head.heading[i]);
  if (data_) {
    json_.Object([&] {
      head.members(json_);
      json_.List(head.listName, tables);
      shown_.Write(json_);
    });
    frame_.Out() << "\n";
  } else {
    if (!paper_) frame_.Out() << shown_.TakeText();
    tables();
  }
  if (paper_) paper_->Write(head.title, work_);
}

RunProgress TableOutput::Progress() {
  return [this](int done, int of) {
    work_.Step(done, of);
    return true;
  };
}

void TableOutput::Print(const TableDives& dives, const std::function<void(JsonWriter&)>& members,
                        const std::string& title) {
  for (const TableDive& dive : dives.dives) frame_.MarkDecompression(dive.decompresses);
  if (paper_) paper_->print.PrintTableSet(dives);
  if (paper_ && !data_) return;
  const SmallTable table = MakeSmallTable(dives, data_ ? "Depth" : texts_.GetResString(Text::Depth));
  if (data_) PrintJson(dives, table, members);
  if (!data_ || shown_.HasBlocks()) ShowTable(dives, table, title);
  frame_.Out() << shown_.TakeText();
}

void TableOutput::PrintJson(const TableDives& dives, const SmallTable& table,
                            const std::function<void(JsonWriter&)>& members) {
  const TablePlace place = slots_.PlaceTable(table.Width(), table.Height());
  json_.Object([&] {
    members(json_);
    json_.List(dives.bailout ? "cuts" : "dives", [&] {
      for (std::size_t i = 1; i < dives.dives.size(); ++i) {
        const TableDive& dive = dives.dives[i];
        json_.Object([&] {
          json_.Member(dives.bailout ? "run_time" : "time", dive.head);
          if (dives.bailout) json_.Member("depth", dive.depth);
          json_.Member("decompresses", dive.decompresses);
          WriteRows(json_, dive.profile, dives.diveTemplate, dives.model);
        });
      }
    });
    WriteCells(json_, table.cells);
    json_.List("totals", [&] { WriteTexts(json_, table.totals); });
    WriteRemarks(json_, "left_out", table.left_out);
    WriteRemarks(json_, "other_gas", table.other_gas);
    json_.List("warnings", [&] {
      for (const TableWarning& warning : table.warnings) {
        json_.Object([&] {
          json_.Member("head", warning.head);
          WriteWarning(json_, warning.warning);
        });
      }
    });
    json_.List("bottoms", [&] {
      for (const BottomRemark& bottom : table.bottoms) {
        json_.Object([&] {
          json_.Member("head", bottom.head);
          if (bottom.end > 0) json_.Member("end", bottom.end);
          if (bottom.density > 0) json_.Member("density", bottom.density);
        });
      }
    });
    json_.Object("place", [&] {
      json_.Member("page", place.page);
      json_.Member("x", place.x);
      json_.Member("y", place.y);
    });
  });
}

void TableOutput::ShowTable(const TableDives& dives, const SmallTable& table, const std::string& title) {
  shown_.BlankLine();
  shown_.Heading(title);
  const ShownOutput::Table made = ShownOf(table, texts_);
  shown_.Put(made, Lines(made));
  const RemarkWords words = RemarkWordsOf(texts_, dives.diveTemplate.Metric);
  for (const std::string& remark : TableRemarks(table, words, false)) shown_.Text(remark, "  ", Severity::Caution);
}

}  // namespace tav
