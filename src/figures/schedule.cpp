#include "figures/schedule.h"

#include <algorithm>
#include <utility>

#include "engine/breathing_gas.h"
#include "figures/dive_figures.h"
#include "model/text_id.h"

namespace tav {
namespace {

/// What a row is to the diver; nothing for the moves between stops.
std::optional<ScheduleRow::Kind> KindOf(const ClassProfile& profile, std::int16_t row, std::int16_t lastUserRow) {
  using Kind = ScheduleRow::Kind;
  const Waypoint& point = profile.Row(row);
  if (IsStop(point)) return Kind::Stop;
  if (row <= lastUserRow) return point.Rate > 0 ? Kind::Descent : point.Rate < 0 ? Kind::Ascent : Kind::Level;
  if (row == profile.GetLength()) return Kind::Surface;
  return std::nullopt;
}

/// A move of the ascent on another gas: the change was made where it began.
ScheduleRow GasChangeAt(const Waypoint& before, const Waypoint& move, const DiveTemplate& t) {
  ScheduleRow change;
  change.kind = ScheduleRow::Kind::GasChange;
  change.depth = before.Depth;
  change.runTime = before.RunTime;
  change.gas = move.GasMixName;
  change.PPO2 =
      t.OpenCircuit ? PPO2AtDepth(before.Depth, t.EndPressure, move.GasMixO2 / 100, t.Metric) : Single(move.PPO2);
  return change;
}

}  // namespace

std::vector<ScheduleRow> ScheduleOf(const ClassProfile& profile, const DiveTemplate& diveTemplate) {
  std::vector<ScheduleRow> schedule;
  const std::int16_t lastUserRow = LastUserRow(profile);
  const auto add = [&](std::int16_t row, ScheduleRow made) {
    made.row = row;
    made.changesGas = !schedule.empty() && schedule.back().gas != made.gas;
    schedule.push_back(std::move(made));
  };
  for (int i = 1; i <= profile.GetLength(); ++i) {
    const auto row = static_cast<std::int16_t>(i);
    const Waypoint& point = profile.Row(row);
    const auto kind = KindOf(profile, row, lastUserRow);
    const Waypoint& before = profile.Row(static_cast<std::int16_t>(i - 1));
    if (row > lastUserRow && kind != ScheduleRow::Kind::Stop && point.GasMixName != before.GasMixName) {
      add(static_cast<std::int16_t>(i - 1), GasChangeAt(before, point, diveTemplate));
    }
    if (!kind) continue;
    ScheduleRow made{*kind, row, point.Depth, std::nullopt, point.RunTime, point.GasMixName, point.PPO2, false};
    if (kind != ScheduleRow::Kind::Surface) made.minutes = IsStop(point) ? point.StopTime : point.SegmentTime;
    add(row, std::move(made));
  }
  return schedule;
}

ScheduleWords ScheduleWordsOf(const TextSource& texts) {
  const auto t = [&](int id) { return texts.GetResString(id); };
  return {{t(Text::Descent), t(Text::ScheduleLevel), t(Text::Ascent), t(Text::ScheduleSwitch), t(Text::ScheduleStop),
           t(Text::ScheduleSurface)},
          {t(Text::Depth), t(Text::Time), t(Text::ScheduleRun), t(Text::Gas), t(Text::PPO2)},
          t(Text::ScheduleTotals),
          t(Text::DosesCarried),
          t(Text::ScheduleGas),
          t(Text::ScheduleNoAscent),
          t(Text::Minutes),
          t(Text::Metres),
          t(Text::Feet),
          "bar",
          t(Text::Atmospheres),
          t(Text::Litres),
          t(Text::CubicFeet)};
}

ScheduleText::ScheduleText(const ClassProfile& profile, const DiveTemplate& diveTemplate, ScheduleWords words,
                           NumberTexts numbers)
    : profile_(profile),
      template_(diveTemplate),
      words_(std::move(words)),
      numbers_(std::move(numbers)),
      rows_(ScheduleOf(profile, diveTemplate)) {
  for (const ScheduleRow& row : rows_) {
    lines_.push_back({words_.kinds.at(static_cast<std::size_t>(row.kind)), numbers_.Short(row.depth),
                      row.minutes ? numbers_.Short(*row.minutes) : "", numbers_.Short(row.runTime), row.gas,
                      numbers_.Fixed(row.PPO2, 2)});
  }
}

std::array<ScheduleText::Line, 2> ScheduleText::Heads() const {
  const auto& heads = words_.heads;
  return {Line{"", heads[0], heads[1], heads[2], heads[3], heads[4]},
          Line{"", template_.Metric ? words_.metres : words_.feet, words_.minutes, words_.minutes, "",
               template_.Metric ? words_.bar : words_.atmospheres}};
}

std::vector<TextColumns::Column> ScheduleText::Columns() {
  using Side = TextColumns::Column::Side;
  return {{Side::Left, 8, 2},  {Side::Right, 6, 1}, {Side::Right, 6, 1},
          {Side::Right, 6, 1}, {Side::Left, 3, 2},  {Side::Right, 6, 1}};
}

std::string ScheduleText::Aligned(std::size_t first, std::size_t last) const {
  TextColumns columns(Columns());
  const auto heads = Heads();
  for (const Line& head : heads) columns.Fit(head);
  // As wide as the whole schedule needs, so that parts of it align, too.
  for (const Line& line : lines_) columns.Fit(line);
  std::string text;
  for (const Line& head : heads) text += columns.Line(head);
  for (std::size_t i = first; i <= last && i < lines_.size(); ++i) text += columns.Line(lines_[i]);
  return text;
}

std::string ScheduleText::GasesUsed() const {
  std::string used;
  for (const GasTotal& gas : GasTotals(profile_)) {
    if (gas.total <= 0) continue;
    used += (used.empty() ? "" : ", ") + gas.Name + " " + numbers_.Fixed(gas.total, template_.Metric ? 0 : 1) + " " +
            (template_.Metric ? words_.litres : words_.cubicFeet);
  }
  return used;
}

std::vector<std::string> ScheduleText::Totals() const {
  const DiveFigures told = FiguresOf(profile_);
  const auto filled = [](std::string line, const std::vector<std::string>& figures) {
    for (std::size_t i = 0; i < figures.size(); ++i) {
      line = ReplaceAll(line, "%" + std::to_string(i + 1), figures[i]);
    }
    return line;
  };
  const auto cns = [this](Single fraction) { return numbers_.Fixed(fraction * 100, 0); };
  std::vector<std::string> lines{filled(words_.totals, {numbers_.Short(told.runTime), numbers_.Short(told.stopTime),
                                                        cns(told.CNS), numbers_.Fixed(told.OTU, 0)})};
  if (CarriesDoses(told)) {
    lines.push_back(filled(words_.carried, {cns(told.carriedCNS), numbers_.Fixed(told.carriedOTU, 0)}));
  }
  if (const std::string gases = GasesUsed(); !gases.empty()) lines.push_back(ReplaceAll(words_.gases, "%1", gases));
  if (LacksAscent(profile_)) lines.push_back(words_.noAscent);
  return lines;
}

}  // namespace tav
