// The schedule in the plan pane.

#include <algorithm>

#include "dialogs/plan_pane.h"

namespace tav {
namespace {

constexpr int kDepth = 7028;
constexpr int kTime = 7502;
constexpr int kGas = 7030;
constexpr int kPPO2 = 7031;
constexpr int kFirstKind = 7515;
constexpr int kRun = 7521;
constexpr int kTotals = 7522;
constexpr int kGases = 7523;
constexpr int kNoAscent = 7524;
constexpr int kAsBefore = 8002;
constexpr Colour kGrey = RGB(112, 112, 112);

}  // namespace

ScheduleWords frmPlanPane::Words() const {
  ScheduleWords words;
  for (std::size_t i = 0; i < words.kinds.size(); ++i) words.kinds.at(i) = T(kFirstKind + static_cast<int>(i));
  words.heads = {T(kDepth), T(kTime), T(kRun), T(kGas), T(kPPO2)};
  words.totals = T(kTotals);
  words.gases = T(kGases);
  words.noAscent = T(kNoAscent);
  words.atmospheres = "ata";
  return words;
}

ScheduleText frmPlanPane::Schedule() const {
  return {Editor().InputProfile, Template(), Words(), platform_.separators};
}

void frmPlanPane::ShowSchedule() {
  fgSchedule.Enabled = cbCopySchedule.Enabled = document_.has_value();
  scheduleRows_.clear();
  if (!document_) {
    fgSchedule.Cells = {};
    lbTotals.Caption = "";
    return;
  }
  const bool asBefore = !RefusalNow().empty();
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
  scheduleRows_.reserve(schedule.Lines().size());
  for (std::size_t i = 0; i < schedule.Lines().size(); ++i) {
    scheduleRows_.push_back(schedule.Rows()[i].row);
    auto& row = cells.emplace_back();
    row.reserve(heads[0].size());
    for (const std::string& text : schedule.Lines()[i]) row.push_back({text, colour, schedule.Rows()[i].changesGas});
  }
  fgSchedule.Cells = std::move(cells);
  std::string totals = asBefore ? T(kAsBefore) : "";
  if (!schedule.Rows().empty()) {
    for (const std::string& line : schedule.Totals()) totals += (totals.empty() ? "" : "\n") + line;
  }
  lbTotals.Caption = totals;
  lbTotals.ForeColor = colour;
}

void frmPlanPane::SelectRow(std::int16_t row) {
  // A row that the schedule leaves out, a move between stops, leads to the next one that it has.
  const auto line = std::lower_bound(scheduleRows_.begin(), scheduleRows_.end(), row);
  if (line != scheduleRows_.end()) {
    fgSchedule.SelectRow(static_cast<int>(line - scheduleRows_.begin()) + 1);
  }
  if (!document_) return;
  if (const auto action = Editor().LegAt(row); action && isInForce_ && !former_) {
    fgLegs.SelectCell(GridRow(*action - 1), std::max<int>(fgLegs.SelectedColumn, kDepthColumn));
  }
}

}  // namespace tav
