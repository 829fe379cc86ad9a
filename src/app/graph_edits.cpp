#include "app/graph_edits.h"

#include <cmath>

#include "model/number_texts.h"
#include "model/text_id.h"

namespace tav {

bool GraphEdits::HasAscent() const { return Editor().State() == EditState::Ascent; }

std::int16_t GraphEdits::LegEndingAt(std::int16_t row) const {
  const std::int16_t leg = Editor().LegAt(row).value_or(0);
  return leg > 0 && Editor().LastRowOf(leg) == row ? leg : std::int16_t{0};
}

void GraphEdits::Select(std::int16_t row) {
  if (services_.Active() == document_) panes_.SelectRow(row);
}

PlanEntry& GraphEdits::Entry() const {
  PlanEntry& entry = panes_.PlanPane().Entry();
  // A pane that is hidden does not follow.
  entry.ShowDocument(document_);
  return entry;
}

std::string GraphEdits::Written(double value) const {
  return NumberTexts(services_.platform.separators).Plain(Single(value));
}

bool GraphEdits::BeginMove(std::int16_t row) {
  const std::int16_t leg = LegEndingAt(row);
  if (leg == 0 || services_.Active() != document_) return false;
  Select(row);
  const ClassProfile& rows = Editor().InputProfile;
  const Single began = leg > 1 ? rows.GetRunTime(Editor().LastRowOf(static_cast<std::int16_t>(leg - 1))) : Single(0);
  row_ = leg - 1;
  depth_ = Editor().UserActions.getDepth(leg);
  minutes_ = Editor().UserActions.gettime(leg);
  // A leg that is too short for its move takes as long as that.
  constexpr double kRounding = 0.05;
  const double takes = rows.GetRunTime(row) - began;
  if (takes > minutes_ + kRounding) minutes_ = std::round(takes * 10) / 10;
  return Entry().BeginMove();
}

std::string GraphEdits::Move(Single depth, Single minutes) {
  return panes_.PlanPane().Entry().Move([&](LegTable& table) {
    if (depth != 0) table.Set(row_, LegTable::Field::Depth, Written(depth_ + depth));
    if (minutes != 0) table.Set(row_, LegTable::Field::Time, Written(minutes_ + minutes));
  });
}

std::string GraphEdits::Refusal() const {
  const PlanEntry& entry = Entry();
  if (entry.IsFree()) return entry.Refusal();
  return services_.runs.Holds(document_) ? services_.T(Text::HeldPlan) : "";
}

bool GraphEdits::IsMoving() const { return panes_.PlanPane().Entry().IsMoving(); }

void GraphEdits::EndMove(bool keep) { panes_.PlanPane().Entry().EndMove(keep); }

std::string GraphEdits::Change(const std::function<void(LegTable&)>& change) const {
  PlanEntry& entry = Entry();
  if (!entry.IsFree() || !entry.Legs().IsInForce()) return Refusal();
  return entry.Change(change, true) ? "" : entry.Told();
}

std::string GraphEdits::Remove(std::int16_t row) {
  const int leg = LegEndingAt(row);
  if (leg == 0 || services_.Active() != document_) return {};
  return Change([leg](LegTable& table) { table.Delete(leg - 1, leg - 1); });
}

std::string GraphEdits::SetMinutes(std::int16_t action, Single minutes) {
  return Change([&](LegTable& table) { table.Set(action - 1, LegTable::Field::Time, Written(minutes)); });
}

std::string GraphEdits::Add(Single depth, Single runTime) {
  if (services_.Active() != document_) return {};
  const ClassProfile& rows = Editor().InputProfile;
  const Single end = rows.GetRunTime(LastUserRow(rows));
  if (runTime <= end) {
    return services_.texts.Filled(Text::GraphLegAfter, {NumberTexts(services_.platform.separators).Short(end)});
  }
  return Change([&](LegTable& table) {
    const int row = table.EndOfLegs();
    table.Insert(row);
    table.Set(row, LegTable::Field::Depth, Written(depth));
    table.Set(row, LegTable::Field::Time, Written(std::round((runTime - end) * 10) / 10));
  });
}

}  // namespace tav
