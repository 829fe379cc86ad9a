// The fields of the template dialog: what is refused on leaving one, and what OK stores.

#include <algorithm>
#include <cctype>
#include <cstdint>

#include "dialogs/properties.h"
#include "dialogs/unit_change.h"
#include "model/altitude.h"
#include "model/number_text.h"
#include "model/numbers.h"
#include "model/template_faults.h"

namespace tav {

std::string frmProperties::Between(Single& value, Single low, Single high, Single lowValue, Single highValue,
                                   int decimals) {
  if (value <= low) value = lowValue;
  if (value >= high) value = highValue;
  return FormatFixed(value, decimals);
}

std::string frmProperties::PurgeNumericInput(const std::string& text, const LocaleSeparators& separators) {
  if (TrimBlanks(text).empty()) return {};
  std::string kept;
  std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
               [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0 || c == '.' || c == ','; });
  const bool digits = std::any_of(kept.begin(), kept.end(), [](char c) { return c != '.' && c != ','; });
  if (!digits) return "10";
  const auto number = ParseLocaleNumber(kept, separators);
  return number ? ReplaceAll(FormatPlain(*number), ".", separators.decimal) : kept;
}

std::array<TextBox*, 13> frmProperties::NumberFields() {
  return {&tbStepSize,   &tbLastStop, &Text7, &Text8, &tbRMV,    &tbMinPPO, &tbMaxPPO,
          &tbMaximalEND, &Text2,      &Text5, &Text1, &SetPoint, &Text6};
}

void frmProperties::FieldChanged(TextBox& field) {
  changed_.insert(&field);
  if (&field == &Text5) endFollowsStart_ = NumberIn(Text5.Text) == NumberIn(Text2.Text);
  ShowWhatFollows(field);
}

void frmProperties::ShowWhatFollows(const TextBox& field) {
  // Who dives at an altitude comes up there, unless told otherwise.
  if (&field == &Text2 && endFollowsStart_) Text5.Text = Text2.Text;
  if (&field == &Text2 || &field == &Text5) ShowPressures();
  if (&field == &Text2 || &field == &Text5 || &field == &Text7) ShowAutoDepths();
}

void frmProperties::FieldLeft(TextBox& field) {
  // Who only passes a field is told nothing: an altitude of 0 stays sea level.
  if (changed_.erase(&field) != 0) Validate(field);
}

void frmProperties::Validate(TextBox& field) {
  // A field loses the focus, too, when the dialog goes away.
  if (!IsLoaded() || NumberIn(field.Text).value_or(0) > 0) return;
  struct Rule {
    const TextBox* field;
    int message;
    const char* metric;
    const char* metricUnit;
    const char* imperial;
    const char* imperialUnit;
  };
  const std::string bar = " " + T(1220);
  const std::string ata = " " + T(1221);
  const Rule rules[] = {{&tbStepSize, 3046, "3", "", "10", ""},
                        {&tbLastStop, 3047, "3", "", "10", ""},
                        {&Text7, 3048, "1.0", bar.c_str(), "1.0", ata.c_str()},
                        {&tbRMV, 3049, "20", " L/Min", "0.6", " CuFt"},
                        {&Text8, 3049, "20", " L/Min", "0.6", " CuFt"},
                        {&tbMinPPO, 3050, "0.16", " Bar", "0.16", " Ata"},
                        {&tbMaxPPO, 3051, "1.4", " Bar", "1.4", " Ata"},
                        {&tbMaximalEND, 3052, "30", " Meters", "100", " Feet"},
                        {&Text2, 3053, "1", " Meters", "1", " Feet"},
                        {&Text5, 3053, "1", " Meters", "1", " Feet"},
                        {&Text1, 3054, "1", " Minutes", "1", " Minutes"},
                        {&SetPoint, 3055, "1.4", " Bar", "1.4", " Ata"},
                        {&Text6, 3056, "1.4", " Bar", "1.4", " Ata"}};
  for (const Rule& rule : rules) {
    if (rule.field != &field) continue;
    const std::string value = Written(Metric() ? rule.metric : rule.imperial);
    field.Text = value;
    ShowWhatFollows(field);
    Box(T(rule.message) + value + (Metric() ? rule.metricUnit : rule.imperialUnit), Caption, BoxIcon::Exclamation);
  }
}

Single frmProperties::Rounded(const TextBox& field, int places) const {
  return RoundSingle(Number(field.Text), places);
}

std::string frmProperties::Whole(Single value, int decimals) const {
  const std::string rounded = FormatFixed(value, decimals);
  return Single(ParseLenient(rounded)) == value ? Written(rounded) : Plain(value);
}

bool frmProperties::IsFilledIn(const TextBox& field) {
  if (filled_.empty()) return true;  // the dialog is being filled
  const auto fields = NumberFields();
  const auto index = static_cast<std::size_t>(std::find(fields.begin(), fields.end(), &field) - fields.begin());
  return Metric() == Template().Metric && filled_.at(index) == field.Text.Get();
}

void frmProperties::Store(Single& value, const TextBox& field, int places) {
  if (!IsFilledIn(field)) value = Rounded(field, places);
}

void frmProperties::Store(Single& value, TextBox& field, double low, double high, double lowValue, double highValue,
                          int shown) {
  if (!IsFilledIn(field)) value = Rounded(field, 2);
  field.Text = Written(Between(value, low, high, lowValue, highValue, shown));
}

void frmProperties::StoreGrids(DiveTemplate& t) const {
  // What the cells were filled with is kept as it is: a rate of 2.5 does not become 3 unless someone types it.
  const auto whole = [this](const Grid& grid, int row, int column) -> Single {
    const std::string text = grid.Text(row, column);
    const bool filledIn = std::find(filled_.begin(), filled_.end(), text) != filled_.end();
    return filledIn ? Number(text) : Single(RoundSingle(Number(text), 0));
  };
  const auto rates = [&](const Grid& grid) {
    std::vector<RateEntry> table;
    for (int row = 1; row < grid.Rows(); ++row) {
      table.push_back({whole(grid, row, 1), whole(grid, row, 0)});
    }
    // Of two rows of one depth none is ahead: they are refused.
    std::stable_sort(table.begin(), table.end(), [](const auto& a, const auto& b) { return a.Depth < b.Depth; });
    return table;
  };
  t.DescendRates = rates(fgDescend);
  t.AscendRates = rates(fgAscend);
  t.Blends.assign(1, AirMix());
  for (int row = 2; row < FgGas.Rows(); ++row) {
    const Single o2 = whole(FgGas, row, kOxygen);
    const Single he = whole(FgGas, row, kHelium);
    t.Blends.push_back({FgGas.Text(row, 0), o2, 100 - o2 - he, he});
  }
  t.ChangeGasMixes.clear();
  for (int row = 1; row < fgGasChange.Rows(); ++row) {
    t.ChangeGasMixes.push_back({fgGasChange.Text(row, 1), 0, 0, 0, whole(fgGasChange, row, 0)});
  }
  // The ascent takes the first gas of the list whose depth is that of the diver or deeper.
  std::stable_sort(t.ChangeGasMixes.begin(), t.ChangeGasMixes.end(),
                   [](const auto& a, const auto& b) { return a.Depth < b.Depth; });
  ResolveGasChanges(t);
}

void frmProperties::StoreFields(DiveTemplate& t) {
  Store(t.StepSize, tbStepSize, 0);
  Store(t.LastStop, tbLastStop, 0);
  t.Metric = Option1_1.Value;
  StoreGrids(t);
  Store(t.Setpoint, SetPoint, 3);
  Store(t.DecoSetpoint, Text6, 3);
  Store(t.RMV, tbRMV, 0, 200, 1, 200, 1);
  Store(t.DecoRMV, Text8, 0, 200, 1, 200, 1);
  Store(t.MinPPO2, tbMinPPO, 0, 3, 0.16, 2, 2);
  Store(t.MaxPPO2, tbMaxPPO, 0, 3, 1.6, 3, 2);
  Store(t.MaximalEND, tbMaximalEND, 0, 500, 1.6, 500, 2);
  Store(t.DecoPPO2, Text7, 0, 500, 1.6, 500, 2);
  t.CeilingOverride = false;
  t.AdeptedToHeight = Check1.Value;
  t.OCDeco = Check2.Value;
  t.KeepsDiluent = cbKeepsDiluent.Value;
  t.IntervalOnAir = cbIntervalOnAir.Value;
  t.O2Narcotic = cbONarcotic.Value;
  t.AutoDecoGas = cbAutoDecoGas.Value;
  t.PPO2Low = cbWarnPPOLow.Value;
  t.PPO2High = cbWarnPPOHigh.Value;
  t.MaxEnd = cbWarnMaxEND.Value;
  Store(t.StartAltitude, Text2, 0);
  Store(t.EndAltitude, Text5, 0);
  t.TimeToHeight = static_cast<std::int16_t>(std::clamp<double>(Rounded(Text1, 0), 1, INT16_MAX));
  t.StartPressure = AltitudeToPressure(t.StartAltitude, t.Metric);
  t.EndPressure = AltitudeToPressure(t.EndAltitude, t.Metric);
}

void frmProperties::cbOK_Click() {
  // Return presses OK without leaving the field.
  for (TextBox* field : NumberFields()) {
    if (!NumberIn(field->Text)) Validate(*field);
  }
  std::string fault = GridFault();
  const bool unkept = IsChanged() || Template().TemplateChanged;
  DiveTemplate t = Template();
  if (fault.empty()) {
    StoreFields(t);
    fault = T(JoinFaults(TemplateFaults(t)));
  }
  if (!fault.empty()) {
    Box(fault, T(1600), BoxIcon::Stop);
    return;
  }
  const bool wasMetric = Template().Metric;
  Template() = std::move(t);
  MarkChanged(documentIndex_);
  // The default template is no part of the plan in the active window.
  if (documentIndex_ == services_.ActiveOrDefault()) {
    if (documentIndex_ != DocumentStore::DefaultDocument) OfferToConvertDepths(services_, documentIndex_, wasMetric);
    if (services_.applyToProfile) services_.applyToProfile();
  }
  if (documentIndex_ == DocumentStore::DefaultDocument && unkept) OfferToKeep();
  cancelled_ = false;
  Unload();
}

}  // namespace tav
