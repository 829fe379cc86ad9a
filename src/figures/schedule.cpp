#include "figures/schedule.h"

#include <algorithm>
#include <utility>

#include "engine/breathing_gas.h"
#include "figures/dive_figures.h"

namespace tav {
namespace {

/// The pieces of the text columns stand at the left, figures at the right.
constexpr std::size_t kKindColumn = 0;
constexpr std::size_t kGasColumn = 4;

/// What a row is to the diver; nothing for the moves between stops.
std::optional<ScheduleRow::Kind> KindOf(const ClassProfile& profile, std::int16_t row, std::int16_t lastUserRow) {
  using Kind = ScheduleRow::Kind;
  const Waypoint& point = profile.Row(row);
  if (point.Status == RowStatus::kStop) return Kind::Stop;
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

std::string Padded(const std::string& text, std::size_t width, bool left) {
  const std::size_t letters = Letters(text);
  const std::string blanks(letters < width ? width - letters : 0, ' ');
  return left ? text + blanks : blanks + text;
}

}  // namespace

std::size_t Letters(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

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
    const bool stop = kind == ScheduleRow::Kind::Stop && point.StopTime > 0;
    if (kind != ScheduleRow::Kind::Surface) made.minutes = stop ? point.StopTime : point.SegmentTime;
    add(row, std::move(made));
  }
  return schedule;
}

std::string ScheduleText::ShortNumber(Single value, const LocaleSeparators& separators) {
  std::string text = FormatFixed(value, 1);
  if (text.ends_with(".0")) text.resize(text.size() - 2);
  return WriteLocaleNumber(text, separators);
}

std::string ScheduleText::Fixed(double value, int decimals) const {
  return WriteLocaleNumber(FormatFixed(Single(value), decimals), separators_);
}

ScheduleWords ScheduleWordsOf(const TextSource& texts) {
  const auto t = [&](int id) { return texts.GetResString(id); };
  return {{t(7870), t(7973), t(7869), t(7974), t(7975), t(7976)},
          {t(7028), t(7502), t(7977), t(7030), t(7031)},
          t(7978),
          t(7979),
          t(7980),
          t(7306),
          t(7425),
          t(7426),
          "bar",
          t(7600),
          t(7423),
          t(7424)};
}

ScheduleText::ScheduleText(const ClassProfile& profile, const DiveTemplate& diveTemplate, ScheduleWords words,
                           LocaleSeparators separators)
    : profile_(profile),
      template_(diveTemplate),
      words_(std::move(words)),
      separators_(std::move(separators)),
      rows_(ScheduleOf(profile, diveTemplate)) {
  for (const ScheduleRow& row : rows_) {
    lines_.push_back({words_.kinds.at(static_cast<std::size_t>(row.kind)), Short(row.depth),
                      row.minutes ? Short(*row.minutes) : "", Short(row.runTime), row.gas, Fixed(row.PPO2, 2)});
  }
}

std::array<ScheduleText::Line, 2> ScheduleText::Heads() const {
  const auto& heads = words_.heads;
  return {Line{"", heads[0], heads[1], heads[2], heads[3], heads[4]},
          Line{"", template_.Metric ? words_.metres : words_.feet, words_.minutes, words_.minutes, "",
               template_.Metric ? words_.bar : words_.atmospheres}};
}

std::string ScheduleText::Aligned(std::size_t first, std::size_t last) const {
  const auto heads = Heads();
  std::array<std::size_t, 6> widths{8, 7, 7, 7, 3, 7};
  for (const auto& line : {heads[0], heads[1]}) {
    for (std::size_t i = 0; i < line.size(); ++i) {
      // Numbers stand at the right of their column: a long head keeps a blank to the one before.
      const std::size_t gap = i == kKindColumn || i == kGasColumn ? 0 : 1;
      widths.at(i) = std::max(widths.at(i), Letters(line.at(i)) + gap);
    }
  }
  // As wide as the whole schedule needs, so that parts of it align, too.
  for (const Line& line : lines_) {
    for (const std::size_t i : {kKindColumn, kGasColumn}) widths.at(i) = std::max(widths.at(i), Letters(line.at(i)));
  }
  std::string text;
  const auto add = [&](const Line& line) {
    text += "  ";
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (i == kGasColumn) text += "  ";
      text += Padded(line.at(i), widths.at(i), i == kKindColumn || i == kGasColumn);
    }
    text += "\n";
  };
  for (const Line& head : heads) add(head);
  for (std::size_t i = first; i <= last && i < lines_.size(); ++i) add(lines_[i]);
  return text;
}

std::string ScheduleText::GasesUsed() const {
  std::vector<std::pair<std::string, double>> gases;
  for (int i = 1; i <= profile_.GetLength(); ++i) {
    const Waypoint& row = profile_.Row(static_cast<std::int16_t>(i));
    auto gas = std::find_if(gases.begin(), gases.end(), [&](const auto& g) { return g.first == row.GasMixName; });
    if (gas == gases.end()) gas = gases.insert(gases.end(), {row.GasMixName, 0.0});
    gas->second += row.GasUsed;
  }
  std::string used;
  for (const auto& [name, volume] : gases) {
    if (volume <= 0) continue;
    used += (used.empty() ? "" : ", ") + name + " " + Fixed(volume, template_.Metric ? 0 : 1) + " " +
            (template_.Metric ? words_.litres : words_.cubicFeet);
  }
  return used;
}

std::vector<std::string> ScheduleText::Totals() const {
  // With the doses that the dive starts with, which the running totals of a plan without an ascent leave out.
  const DiveFigures doses = FiguresOf(profile_);
  const Waypoint& last = profile_.Row(profile_.GetLength());
  double stops = 0;
  for (int i = 1; i <= profile_.GetLength(); ++i) stops += profile_.Row(static_cast<std::int16_t>(i)).StopTime;
  std::string totals = words_.totals;
  const std::array<std::string, 4> figures{Short(last.RunTime), Short(stops), Fixed(doses.CNS * 100, 0),
                                           Fixed(doses.OTU, 0)};
  for (std::size_t i = 0; i < figures.size(); ++i) {
    totals = ReplaceAll(totals, "%" + std::to_string(i + 1), figures.at(i));
  }
  std::vector<std::string> lines{totals};
  if (const std::string gases = GasesUsed(); !gases.empty()) lines.push_back(ReplaceAll(words_.gases, "%1", gases));
  if (LastUserRow(profile_) == profile_.GetLength()) lines.push_back(words_.noAscent);
  return lines;
}

}  // namespace tav
