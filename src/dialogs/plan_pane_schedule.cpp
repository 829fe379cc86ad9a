#include "dialogs/plan_pane_schedule.h"

#include <algorithm>

#include "advice/stop_reason.h"
#include "model/text_id.h"

namespace tav {
namespace {

constexpr Colour kGrey = RGB(112, 112, 112);

}  // namespace

PlanPaneSchedule::PlanPaneSchedule(Form& form, PlanEntry& entry) : PlanPanePart(form, entry) {
  fgSchedule.Click = [this] {
    const auto at = static_cast<std::size_t>(fgSchedule.SelectedRow);
    if (at > 0 && at <= rows_.size()) entry_.Services().markRow(rows_[at - 1]);
  };
  cbCopySchedule.Click = [this] {
    if (!entry_.HasPlan()) return;
    const std::string before = entry_.Refusal().empty() ? "" : T(Text::AsBefore) + "\n";
    platform_.clipboard.SetText(before + Schedule().Aligned());
  };
}

void PlanPaneSchedule::SetTexts() {
  cbCopySchedule.Caption = T(Text::PaneCopySchedule);
  fgSchedule.SpokenName = T(Text::PaneSchedule);
  fgSchedule.TextColumns = {0, 4};
}

ScheduleWords PlanPaneSchedule::Words() const {
  ScheduleWords words;
  for (std::size_t i = 0; i < words.kinds.size(); ++i) words.kinds.at(i) = T(Text::PaneKinds + static_cast<int>(i));
  words.heads = {T(Text::Depth), T(Text::Time), T(Text::PaneRun), T(Text::Gas), T(Text::PPO2)};
  words.totals = T(Text::PaneTotals);
  words.carried = T(Text::DosesCarried);
  words.gases = T(Text::PaneGases);
  words.noAscent = T(Text::PaneNoAscent);
  return words;
}

ScheduleText PlanPaneSchedule::Schedule() const {
  return {entry_.Editor().InputProfile, entry_.Template(), Words(), platform_.separators};
}

void PlanPaneSchedule::Show() {
  fgSchedule.Enabled = cbCopySchedule.Enabled = entry_.HasPlan();
  rows_.clear();
  if (!entry_.HasPlan()) {
    fgSchedule.Cells = {};
    lbTotals.Caption = "";
    return;
  }
  const bool asBefore = !entry_.Refusal().empty();
  const Colour colour = asBefore ? kGrey : -1;
  const ScheduleText schedule = Schedule();
  std::vector<std::vector<GridCell>> cells;
  cells.reserve(schedule.Lines().size() + 1);
  const auto heads = schedule.Heads();
  auto& head = cells.emplace_back();
  head.reserve(heads[0].size());
  for (std::size_t i = 0; i < heads[0].size(); ++i) {
    head.push_back({heads[0].at(i) + (heads[1].at(i).empty() ? "" : "\n" + heads[1].at(i))});
  }
  rows_.reserve(schedule.Lines().size());
  const CheckedDive dive(entry_.Editor().Planned());
  const auto reasons = StopReasonTexts(dive, AdviceWords(texts_, platform_.separators, entry_.Template().Metric));
  for (std::size_t i = 0; i < schedule.Lines().size(); ++i) {
    const ScheduleRow& told = schedule.Rows()[i];
    rows_.push_back(told.row);
    const auto reason = told.kind == ScheduleRow::Kind::Stop ? reasons.find(told.row) : reasons.end();
    auto& row = cells.emplace_back();
    row.reserve(heads[0].size());
    for (const std::string& text : schedule.Lines()[i]) {
      row.push_back({text, colour, told.changesGas});
      if (reason != reasons.end()) row.back().tip = reason->second;
    }
  }
  fgSchedule.Cells = std::move(cells);
  std::string totals = asBefore ? T(Text::AsBefore) : "";
  if (!schedule.Rows().empty()) {
    for (const std::string& line : schedule.Totals()) totals += (totals.empty() ? "" : "\n") + line;
  }
  lbTotals.Caption = totals;
  lbTotals.ForeColor = colour;
}

void PlanPaneSchedule::SelectRow(std::int16_t row) {
  // A row that the schedule leaves out, a move between stops, leads to the next
  // one that it has.
  const auto line = std::lower_bound(rows_.begin(), rows_.end(), row);
  if (line != rows_.end()) fgSchedule.SelectRow(static_cast<int>(line - rows_.begin()) + 1);
}

}  // namespace tav
