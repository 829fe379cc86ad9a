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

}  // namespace

std::string SettingsOfTables(const DiveTemplate& settings, const ModelChoice& model, bool bailout,
                             const TextSource& texts) {
  DiveTemplate dived = settings;
  dived.OpenCircuit = bailout || settings.OpenCircuit;
  return ComputedWith(dived, model, false, texts) + ", " +
         texts.Filled(Text::SlateDepthsIn, {texts.GetResString(settings.Metric ? Text::Metres : Text::Feet)}) + "\n";
}

TableOutput::TableOutput(CommandFrame& frame, const std::string& pdf, const std::string& caption)
    : frame_(frame), texts_(frame.Texts()), data_(frame.Common().json), json_(frame.Out()), work_(frame.Terminal()) {
  if (pdf.empty()) return;
  paper_.emplace(frame, pdf, caption);
}

void TableOutput::Write(const Head& head, const std::function<void()>& tables) {
  if (data_) {
    json_.Object([&] {
      head.members(json_);
      json_.List(head.listName, tables);
    });
    frame_.Out() << "\n";
  } else {
    if (!paper_) frame_.Out() << head.heading;
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
  if (data_) {
    PrintJson(dives, table, members);
  } else {
    PrintText(dives, table, title);
  }
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

void TableOutput::PrintText(const TableDives& dives, const SmallTable& table, const std::string& title) {
  std::ostream& out = frame_.Out();
  out << "\n" << title << "\n";
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
      out << text.substr(0, text.find_last_not_of(' ') + 1) << "\n";
    };
    if (from > 0) out << "\n";
    for (std::size_t i = 0; i < table.cells.size(); ++i) {
      const auto& row = table.cells[i];
      line("  " + AtLeft(row[TableColumn::kMix], kMixWidth) + AtRight(table.depths[i], depthWidth),
           [&](std::size_t column) { return row[TableColumn::kFirstDive + column]; });
    }
    line(AtLeft("  " + texts_.GetResString(Text::RunTime), headWidth),
         [&](std::size_t column) { return table.totals[column]; });
    from = to;
  } while (from < columns);
  const RemarkWords words = RemarkWordsOf(texts_, dives.diveTemplate.Metric);
  for (const std::string& remark : TableRemarks(table, words, false)) out << Wrapped("  ! " + remark, 4);
}

}  // namespace tav
