#include "plans/leg_table.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "model/numbers.h"
#include "model/template_faults.h"
#include "model/text_id.h"
#include "model/units.h"

namespace tav {
namespace {

std::string Filled(const TextSource& texts, int id, const std::string& value) {
  return ReplaceAll(texts.GetResString(id), "%1", value);
}

}  // namespace

void LegTable::SetMix(Row& row, std::optional<std::int16_t> mix) const {
  row.mix = mix;
  if (Knows(mix)) row.gas = gases_[static_cast<std::size_t>(*mix)].Name;
}

bool LegTable::Knows(std::optional<std::int16_t> mix) const {
  return mix && *mix >= 0 && static_cast<std::size_t>(*mix) < gases_.size();
}

void LegTable::Load(const ClassUseractions& actions, const DiveTemplate& diveTemplate) {
  template_ = &diveTemplate;
  gases_ = diveTemplate.Blends;
  metric_ = diveTemplate.Metric;
  rows_.clear();
  for (int i = 1; i <= actions.GetLength(); ++i) rows_.push_back(Made(actions, static_cast<std::int16_t>(i)));
}

LegTable::Row LegTable::Made(const ClassUseractions& actions, std::int16_t action) const {
  Row row;
  row.origin = action;
  row.ascent = actions.getaction(action) != ClassUseractions::kLeg;
  SetMix(row, actions.getmixnumber(action));
  if (!row.ascent) {
    row.depth = {Written(actions.getDepth(action)), actions.getDepth(action)};
    row.time = {Written(actions.gettime(action)), actions.gettime(action)};
  }
  return row;
}

void LegTable::Follow(const ClassUseractions& before, const ClassUseractions& now) {
  const double factor = template_->Metric ? kMetresPerFoot : kFeetPerMetre;
  const auto converted = [factor](Single depth) { return RoundSingle(depth * factor, 1); };
  bool depthsConverted = false;
  // Actions are added and taken away at the end.
  std::int16_t shared = 0;
  for (auto i = std::int16_t{1}; i <= std::min(before.GetLength(), now.GetLength()); ++i, ++shared) {
    const bool isLeg = now.getaction(i) == ClassUseractions::kLeg;
    const bool isSame = now.getDepth(i) == before.getDepth(i);
    const bool isConverted = isLeg && template_->Metric != metric_ && now.getDepth(i) == converted(before.getDepth(i));
    if (before.getaction(i) != now.getaction(i) || before.gettime(i) != now.gettime(i)) break;
    if (before.getmixnumber(i) != now.getmixnumber(i) || (!isSame && !isConverted)) break;
    depthsConverted |= isConverted && !isSame;
  }
  metric_ = template_->Metric;
  gases_ = template_->Blends;
  std::erase_if(rows_, [shared](const Row& row) { return row.origin > shared; });
  for (Row& row : rows_) {
    if (row.ascent) continue;
    if (row.origin > 0 && row.mix == now.getmixnumber(row.origin)) {
      SetMix(row, row.mix);
    } else {
      row.mix = TakeGas(row.gas, gases_, gasOfName_);
    }
    if (row.origin > 0 && !row.depth.typed) {
      row.depth = Made(now, row.origin).depth;
    } else if (depthsConverted && row.depth.value) {
      row.depth.value = converted(*row.depth.value);
      row.depth.text = Written(*row.depth.value);
    }
  }
  for (int i = shared + 1; i <= now.GetLength(); ++i) rows_.push_back(Made(now, static_cast<std::int16_t>(i)));
  DropIdleAscents();
}

void LegTable::RenewGases() {
  if (template_ == nullptr || std::ranges::equal(gases_, template_->Blends, {}, &GasMix::Name, &GasMix::Name)) return;
  gases_ = template_->Blends;
  for (Row& row : rows_) {
    const bool stays = Knows(row.mix) && gases_[static_cast<std::size_t>(*row.mix)].Name == row.gas;
    if (!row.ascent && !stays) row.mix = TakeGas(row.gas, gases_, gasOfName_);
  }
}

void LegTable::Set(int row, Field field, const std::string& text) {
  Row& leg = rows_.at(static_cast<std::size_t>(row));
  const std::string trimmed(TrimBlanks(text));
  if (field == Field::Gas) {
    // Two blends may have one name: a leg on the second stays there.
    if (leg.gas == trimmed && leg.mix) return;
    leg.gas = trimmed;
    SetMix(leg, TakeGas(trimmed, gases_, gasOfName_));
    return;
  }
  Number& number = field == Field::Depth ? leg.depth : leg.time;
  if (number.text == trimmed) return;
  const auto value = numbers_.Read(trimmed);
  number = {trimmed, value ? std::optional<Single>(*value) : std::nullopt, true};
}

std::optional<std::int16_t> LegTable::GasAbove(int row) const {
  const auto at = static_cast<std::size_t>(row);
  for (std::size_t i = at; i > 0; --i) {
    if (!rows_[i - 1].ascent) return rows_[i - 1].mix;
  }
  for (std::size_t i = at; i < rows_.size(); ++i) {
    if (!rows_[i].ascent) return rows_[i].mix;
  }
  return std::int16_t{0};
}

void LegTable::Put(int row, Row made) {
  const bool isFirst = rows_.empty() && !made.ascent;
  rows_.insert(rows_.begin() + row, std::move(made));
  if (isFirst && wantsAscent_) SetFinalAscent(true);
}

void LegTable::Insert(int row) {
  Row made;
  made.depth.typed = made.time.typed = true;
  SetMix(made, GasAbove(row));
  Put(row, std::move(made));
}

void LegTable::Delete(int first, int last) {
  rows_.erase(rows_.begin() + first, rows_.begin() + last + 1);
  DropIdleAscents();
}

void LegTable::DropIdleAscents() {
  const auto idle = [this](std::size_t i) { return rows_[i].ascent && (i == 0 || rows_[i - 1].ascent); };
  for (std::size_t i = rows_.size(); i > 0; --i) {
    if (idle(i - 1)) rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(i - 1));
  }
}

void LegTable::Duplicate(int first, int last) {
  std::vector<Row> copies;
  for (int row = first; row <= last; ++row) {
    if (At(row).ascent) continue;
    copies.push_back(At(row));
    copies.back().origin = 0;
  }
  // Behind the ascent that ends the plan would be another dive.
  const int place = std::min(last + 1, EndOfLegs());
  rows_.insert(rows_.begin() + place, std::make_move_iterator(copies.begin()), std::make_move_iterator(copies.end()));
}

bool LegTable::Move(int first, int last, int by) {
  const int passed = by > 0 ? last + 1 : first - 1;
  if (passed < 0 || passed >= EndOfLegs()) return false;
  for (int row = first; row <= last; ++row) {
    if (At(row).ascent) return false;
  }
  const auto begin = rows_.begin() + std::min(first, passed);
  const auto end = rows_.begin() + std::max(last, passed) + 1;
  std::rotate(begin, by > 0 ? end - 1 : begin + 1, end);
  DropIdleAscents();
  return true;
}

void LegTable::SetFinalAscent(bool on) {
  if (rows_.empty() || on == EndsWithAscent()) return;
  if (on) {
    Row ascent;
    ascent.ascent = true;
    ascent.mix = std::int16_t{0};
    rows_.push_back(std::move(ascent));
  } else {
    rows_.pop_back();
  }
}

std::string LegTable::Text(int first, int last, const std::string& ascentWord) const {
  std::string text;
  for (int row = first; row <= last; ++row) {
    const Row& leg = At(row);
    text += leg.ascent ? ascentWord : leg.depth.text + "\t" + leg.time.text + "\t" + leg.gas;
    text += "\n";
  }
  return text;
}

std::string LegTable::DepthReason(const Number& depth, const TextSource& texts) const {
  if (depth.text.empty()) return Filled(texts, Text::IsMissing, texts.GetResString(Text::Depth));
  if (!depth.value) return Filled(texts, Text::IsNoNumber, texts.GetResString(Text::Depth));
  if (*depth.value < 0) return texts.GetResString(Text::DepthNegative);
  const double deepest = depth.typed ? (template_->Metric ? 500.0 : 1600.0) : kMaximumDepth;
  if (*depth.value <= deepest) return {};
  return Filled(texts, Text::DepthTooDeep, Written(deepest) + (template_->Metric ? " m" : " ft"));
}

std::string LegTable::TimeReason(const Number& time, const TextSource& texts) const {
  if (time.text.empty()) return Filled(texts, Text::IsMissing, texts.GetResString(Text::Time));
  if (!time.value) return Filled(texts, Text::IsNoNumber, texts.GetResString(Text::Time));
  if (*time.value < 0) return texts.GetResString(Text::TimeNegative);
  if (*time.value <= kMaximumLegTime) return {};
  return Filled(texts, Text::TimeTooLong, Written(kMaximumLegTime));
}

std::vector<LegTable::Fault> LegTable::Faults(const TextSource& texts) const {
  std::vector<Fault> faults;
  const auto add = [&](int row, Field field, std::string reason) {
    if (!reason.empty()) faults.push_back({row, field, std::move(reason)});
  };
  if (Rows() > INT16_MAX) add(INT16_MAX, Field::Depth, texts.GetResString(Text::TooManyRows));
  for (int i = 0; i < Rows(); ++i) {
    const Row& row = At(i);
    if (row.ascent) continue;
    add(i, Field::Depth, DepthReason(row.depth, texts));
    add(i, Field::Time, TimeReason(row.time, texts));
    if (Knows(row.mix)) continue;
    add(i, Field::Gas, row.gas.empty() ? texts.GetResString(Text::GasGone) : texts.Words(TypedGasFault(row.gas)));
  }
  return faults;
}

ClassUseractions LegTable::Actions() const {
  ClassUseractions actions;
  for (const Row& row : rows_) {
    actions.NewAction();
    const std::int16_t last = actions.GetLength();
    actions.setuser(last, row.depth.value.value_or(0), row.time.value.value_or(0), row.mix.value_or(std::int16_t{0}));
    if (row.ascent) actions.setdeco(last);
  }
  return actions;
}

std::vector<std::int16_t> LegTable::Origins() const {
  std::vector<std::int16_t> origins{0};
  for (const Row& row : rows_) origins.push_back(row.origin);
  return origins;
}

}  // namespace tav
