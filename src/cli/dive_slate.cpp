#include "cli/computed_dive.h"
#include "cli/surfacing_output.h"
#include "cli/terminal_text.h"
#include "figures/dive_figures.h"
#include "figures/schedule.h"
#include "figures/settings_words.h"
#include "model/number_texts.h"
#include "model/text_columns.h"
#include "model/text_id.h"
#include "model/utf8.h"

namespace tav {
namespace {

/// The kinds of rows in JSON, in the order of ScheduleRow::Kind.
constexpr const char* kKinds[] = {"descent", "level", "ascent", "switch", "stop", "surface"};

class Slate {
 public:
  Slate(const ComputedDive& dive, const TextSource& texts, ShownOutput& shown)
      : dive_(dive),
        texts_(texts),
        words_(texts, {}, dive.dive.record.Template.Metric),
        rows_(dive.dive.plan.rows),
        shown_(shown) {}

  void Write(const std::vector<Finding>& findings, bool why) {
    const DiveTemplate& settings = dive_.dive.record.Template;
    shown_.InTerminal(Title() + "\n");
    shown_.Line(SettingsLine(settings, dive_.dive.plan.model, dive_.dive.before != nullptr, texts_));
    if (const auto notice = NoticeOf(rows_, dive_.dive.plan.end.Decompresses)) {
      shown_.Line(words_.T(*notice), "", Severity::Danger);
    }
    const ScheduleText schedule(rows_, settings, ScheduleWordsOf(texts_));
    shown_.BlankLine();
    Rows(schedule);
    shown_.BlankLine();
    for (const std::string& total : schedule.Totals()) shown_.Line(total, "  ");
    if (why) Reasons();
    ShowSupply(dive_, texts_, shown_);
    for (const Finding& finding : findings) shown_.Text(finding.text, "", finding.severity);
  }

 private:
  [[nodiscard]] std::string Title() const {
    if (dive_.ofDives == 1) return dive_.file;
    return words_.T(dive_.number > 1 ? Text::HeadDiveAfter : Text::HeadDiveOf,
                    {dive_.file, std::to_string(dive_.number), std::to_string(dive_.ofDives),
                     NumberTexts().Short(dive_.dive.record.SurfaceInterval)});
  }

  void Rows(const ScheduleText& schedule) {
    ShownOutput::Table table{"schedule", {}, {}};
    for (const ScheduleText::Line& head : schedule.Heads()) table.heads.emplace_back(head.begin(), head.end());
    for (std::size_t i = 0; i < schedule.Lines().size(); ++i) {
      const ScheduleText::Line& line = schedule.Lines()[i];
      table.rows.push_back({kKinds[static_cast<std::size_t>(schedule.Rows()[i].kind)], {line.begin(), line.end()}, {}});
    }
    std::vector<TextColumns::Column> columns = ScheduleText::Columns();
    if (!dive_.surfacing.empty()) AddSurfacing(schedule, dive_.surfacing, words_, table, columns);
    shown_.Put(table, columns);
  }

  void Reasons() {
    shown_.BlankLine();
    ShownOutput::Table table{"why", {}, {}};
    std::string lines;
    for (const StopReason& reason : dive_.reasons) {
      ShownOutput::Row& row = table.rows.emplace_back();
      row.cells = {words_.T(Text::ScheduleStop), words_.Depth(rows_.getDepth(reason.row)), TextOf(reason, words_)};
      const std::string stop = "  " + row.cells[0] + " " + AtRight(row.cells[1], 6) + "  ";
      lines += Wrapped(stop + row.cells[2], Letters(stop));
    }
    shown_.Put(table, lines);
  }

  const ComputedDive& dive_;
  const TextSource& texts_;
  AdviceWords words_;
  const ClassProfile& rows_;
  ShownOutput& shown_;
};

}  // namespace

void ShowDive(const ComputedDive& dive, const std::vector<Finding>& findings, bool why, const TextSource& texts,
              ShownOutput& shown) {
  Slate(dive, texts, shown).Write(findings, why);
}

}  // namespace tav
