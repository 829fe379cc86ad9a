#include "dialogs/template_sheet.h"

#include <algorithm>

#include "controls/form.h"
#include "controls/grid.h"
#include "model/numbers.h"
#include "model/text_id.h"
#include "model/units.h"

namespace tav {

std::string Between(Single& value, Single low, Single high, Single lowValue, Single highValue, int decimals) {
  if (value <= low) value = lowValue;
  if (value >= high) value = highValue;
  return FormatFixed(value, decimals);
}

void TemplateSheet::Add(TextBox& box, const Number& number, const Remedy& remedy, Event follow) {
  const std::size_t at = fields_.size();
  fields_.push_back({box, number, remedy, std::move(follow)});
  box.Change = [this, at] {
    fields_[at].changed = true;
    if (fields_[at].follow) fields_[at].follow();
  };
  box.LostFocus = [this, at] {
    // Who only passes a field is told nothing: an altitude of 0 stays sea level.
    if (std::exchange(fields_[at].changed, false)) Judge(fields_[at]);
  };
}

void TemplateSheet::AddRate(TextBox& box, Single DiveTemplate::*value) {
  const Limits limits{200, 1, 200, 1};
  Add(box, {value, Quantity::Volume, 0, 2, limits, limits}, {Text::TemplateBadRMV, "20", " L/Min", "0.6", " CuFt"});
}

void TemplateSheet::AddUnits(std::initializer_list<Label*> labels, int metricText, int imperialText) {
  for (Label* label : labels) units_.emplace_back(label, std::pair(metricText, imperialText));
}

void TemplateSheet::BeginFilling(std::int16_t index) {
  document = index;
  metric = Template().Metric;
  filled_.clear();
  for (Field& field : fields_) {
    field.changed = false;
    const Number& number = field.number;
    if (number.value != nullptr) field.box.Text = Whole(Template().*number.value, number.decimals);
  }
  for (const auto& [box, value] : boxes_) box->Value = Template().*value;
}

void TemplateSheet::EndFilling() {
  filled_ = Entries();
  for (Field& field : fields_) field.filledIn = field.box.Text;
}

void TemplateSheet::ShowUnits() {
  for (const auto& [label, texts] : units_) label->Caption = T(metric ? texts.first : texts.second);
}

void TemplateSheet::Convert(bool toImperial) {
  constexpr double kAtmospheresPerBar = 0.9887;
  constexpr double kBarPerAtmosphere = 1.01325;
  constexpr double kCubicFeetPerLitre = 0.0353157;
  constexpr double kLitresPerCubicFoot = 28.316017;
  const struct {
    double factor;
    int decimals;
  } to[] = {{toImperial ? kFeetPerMetre : kMetresPerFoot, 0},
            {toImperial ? kAtmospheresPerBar : kBarPerAtmosphere, 2},
            {toImperial ? kCubicFeetPerLitre : kLitresPerCubicFoot, toImperial ? 1 : 0}};
  for (const Field& field : fields_) {
    if (field.number.value == nullptr) continue;
    const auto& [factor, decimals] = to[static_cast<int>(field.number.quantity)];
    if (const auto& limits = field.number.atSwitch) {
      Single value = Rounded(field.box, 2) * factor;
      field.box.Text = Written(Between(value, 0, limits->high, limits->lowValue, limits->highValue, decimals));
    } else {
      field.box.Text = Fixed(FormTexts::Number(field.box.Text) * factor, decimals);
    }
  }
}

void TemplateSheet::Store(DiveTemplate& t) {
  for (const Field& field : fields_) {
    if (field.number.value == nullptr) continue;
    Single& value = t.*field.number.value;
    if (!IsFilledIn(field.box)) value = Rounded(field.box, field.number.places);
    if (const auto& limits = field.number.atOK) {
      field.box.Text = Written(Between(value, 0, limits->high, limits->lowValue, limits->highValue, limits->decimals));
    }
  }
  for (const auto& [box, value] : boxes_) t.*value = box->Value;
}

/// All that stands in the dialog and is stored by OK.
std::vector<std::string> TemplateSheet::Entries() const {
  std::vector<std::string> entries;
  for (const Field& field : fields_) entries.push_back(field.box.Text);
  for (const auto& [box, value] : boxes_) entries.emplace_back(box->Value ? "1" : "0");
  for (const TextBox* field : watched_) entries.push_back(field->Text);
  for (const CheckBox* box : watchedBoxes_) entries.emplace_back(box->Value ? "1" : "0");
  for (const Control* control : form.Controls()) {
    const auto* grid = dynamic_cast<const Grid*>(control);
    if (grid == nullptr) continue;
    entries.push_back(std::to_string(grid->Rows()));
    for (int row = 1; row < grid->Rows(); ++row) {
      for (int column = 0; column < grid->Columns(); ++column) entries.push_back(grid->Text(row, column));
    }
  }
  entries.emplace_back(metric ? "1" : "0");
  return entries;
}

bool TemplateSheet::WasFilledIn(const std::string& text) const {
  return std::find(filled_.begin(), filled_.end(), text) != filled_.end();
}

void TemplateSheet::Judge(const Field& field) {
  // A field loses the focus, too, when the dialog goes away.
  if (!form.IsLoaded() || NumberIn(field.box.Text).value_or(0) > 0) return;
  const Remedy& remedy = field.remedy;
  const std::string value = Written(metric ? remedy.metric : remedy.imperial);
  field.box.Text = value;
  if (field.follow) field.follow();
  Box(T(remedy.message) + value + (metric ? remedy.metricUnit : remedy.imperialUnit), form.Caption,
      BoxIcon::Exclamation);
}

void TemplateSheet::JudgeEmptyFields() {
  for (const Field& field : fields_) {
    if (!NumberIn(field.box.Text)) Judge(field);
  }
}

Single TemplateSheet::Rounded(const TextBox& box, int places) const {
  return RoundSingle(FormTexts::Number(box.Text), places);
}

std::string TemplateSheet::Whole(Single value, int decimals) const {
  const std::string rounded = FormatFixed(value, decimals);
  return Single(ParseLenient(rounded)) == value ? Written(rounded) : Plain(value);
}

bool TemplateSheet::IsFilledIn(const TextBox& box) const {
  if (filled_.empty()) return true;  // the dialog is being filled
  const auto field = std::ranges::find(fields_, &box, [](const Field& each) { return &each.box; });
  return metric == Template().Metric && field->filledIn == box.Text.Get();
}

}  // namespace tav
