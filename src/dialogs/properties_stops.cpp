#include "dialogs/properties_stops.h"

#include <algorithm>

#include "model/text_id.h"
#include "model/units.h"

namespace tav {

StopsPage::StopsPage(TemplateSheet& sheet, const GasesPage& gases, const AltitudePage& altitude)
    : TemplatePage(sheet, "Frame15", Text::TemplateDecoSettings), gases_(gases), altitude_(altitude) {
  Texts({{&Frame5, Text::TemplateDecoStep},
         {&Label7, Text::TemplateStepSize},
         {&Label15, Text::TemplateLastStop},
         {&Frame16, Text::TemplateDecoGas},
         {&Label20, Text::TemplateDecoPPO2},
         {&Label21, Text::TemplateDecoRMV},
         {&Frame3, Text::TemplateGasChanges},
         {&cbAutoDecoGas, Text::TemplateAutoDecoGas}});
  sheet.Add(tbStepSize, {&DiveTemplate::StepSize, Quantity::Length, 0, 0},
            {Text::TemplateBadStepSize, "3", "", "10", ""});
  sheet.Add(tbLastStop, {&DiveTemplate::LastStop, Quantity::Length, 0, 0},
            {Text::TemplateBadLastStop, "3", "", "10", ""});
  sheet.Add(Text7, {&DiveTemplate::DecoPPO2, Quantity::Pressure, 2, 2, {}, Limits{500, 1.6, 500}},
            {Text::TemplateBadDecoPPO2, "1.0", " " + T(Text::BarWord), "1.0", " " + T(Text::AtaWord)},
            [this] { ShowAutoDepths(); });
  sheet.AddRate(Text8, &DiveTemplate::DecoRMV);
  sheet.AddUnits({&lbStepUnit, &lbLastStopUnit}, Text::TemplateMetres, Text::TemplateFeet);
  sheet.AddUnits({&Label17}, Text::TemplateBar, Text::TemplateAta);
  sheet.AddUnits({&Label22}, Text::TemplateLitresPerMin, Text::TemplateCubicFeetPerMin);
  sheet.Add(cbAutoDecoGas, &DiveTemplate::AutoDecoGas);
  cbAutoDecoGas.Click = [this] { cbAutoDecoGas_Click(); };
  WireChanges();
}

void StopsPage::WireChanges() {
  fgGasChange.EditorOf = [this](int row, int column) {
    using Kind = Grid::Editor::Kind;
    if (row < 1 || cbAutoDecoGas.Value) return Grid::Editor{};
    if (column == 0) return Grid::Editor{Kind::Text, {}};
    Grid::Editor names{Kind::List, {}};
    for (int i = 1; i < gases_.FgGas.Rows(); ++i) names.entries.push_back(gases_.FgGas.Text(i, 0));
    return names;
  };
  fgGasChange.Commit = [this](int row, int column, const std::string& text) {
    if (column == 0) {
      changes_.CommitNumber(row, column, text);
    } else {
      fgGasChange.SetText(row, column, text);
    }
  };
  changes_.WireRows(&cbAddChange, cbDelChange);
  changes_.IsLocked = [this] { return cbAutoDecoGas.Value.Get(); };
  changes_.NewText = [this] { return gases_.FgGas.Text(1, 0); };
  changes_.Removed = [this](int row) {
    // A depth that is kept belongs to the gas of its row.
    const auto kept = static_cast<std::size_t>(row - 1);
    if (kept < decoGasSettings_.size()) decoGasSettings_.erase(decoGasSettings_.begin() + row - 1);
  };
}

void StopsPage::Fill() {
  const DiveTemplate& t = sheet_.Template();
  // Feet: an atmosphere is 10.13 m.
  const double units = sheet_.metric ? 1.0 : 1.013 * kFeetPerMetre;
  std::vector<std::vector<std::string>> rows{{"", ""}};
  for (const GasChange& change : t.ChangeGasMixes) {
    const Single depth = change.Depth != 0 ? change.Depth : Single(DepthOfPPO2(t.MaxPPO2, change.Name) * units);
    rows.push_back({changes_.Cell(depth), change.Name});
  }
  fgGasChange.SetRows(rows);
  decoGasSettings_.clear();
  if (t.AutoDecoGas) saveDecoGasSettings();
  ShowAutoDepths();
  ShowChangesEditable();
}

void StopsPage::ShowUnits() {
  fgGasChange.SetText(0, 0, T(Text::TemplateDepth) + " " + T(sheet_.metric ? Text::InMetres : Text::InFeet));
  fgGasChange.SetText(0, 1, T(Text::TemplateGasMix));
}

void StopsPage::Convert(double length) {
  if (cbAutoDecoGas.Value) {
    ShowAutoDepths();
  } else {
    changes_.Scale(length, 1, false);
  }
}

void StopsPage::Store(DiveTemplate& t) {
  t.ChangeGasMixes.clear();
  for (int row = 1; row < fgGasChange.Rows(); ++row) {
    t.ChangeGasMixes.push_back({fgGasChange.Text(row, 1), 0, 0, 0, changes_.Stored(row, 0)});
  }
  // The ascent takes the first gas of the list whose depth is that of the diver or deeper.
  std::stable_sort(t.ChangeGasMixes.begin(), t.ChangeGasMixes.end(),
                   [](const auto& a, const auto& b) { return a.Depth < b.Depth; });
  ResolveGasChanges(t);
}

Single StopsPage::DepthOfPPO2(Single ppo2, const std::string& gas) const {
  const double o2 = gases_.GetPercentO2(gas);
  if (o2 <= 0) return 0;  // a gas that is not there, or has no oxygen, is changed to at no depth
  return (ppo2 / o2 * 100 - altitude_.EndPressure()) * 10;
}

void StopsPage::ShowAutoDepths() {
  if (!cbAutoDecoGas.Value || !NumberIn(Text7.Text)) return;
  const double factor = sheet_.metric ? 1.0 : kFeetPerMetre;
  for (int row = 1; row < fgGasChange.Rows(); ++row) {
    const Single depth = DepthOfPPO2(Number(Text7.Text), fgGasChange.Text(row, 1));
    fgGasChange.SetText(row, 0, FormatFixed(Single(factor * depth), 0));
  }
}

void StopsPage::cbAutoDecoGas_Click() {
  if (cbAutoDecoGas.Value) {
    saveDecoGasSettings();
    ShowAutoDepths();
  } else {
    loadDecoGasSettings();
  }
  ShowChangesEditable();
}

void StopsPage::ShowChangesEditable() {
  cbAddChange.Enabled = !cbAutoDecoGas.Value;
  cbDelChange.Enabled = !cbAutoDecoGas.Value;
  fgGasChange.Refresh();
}

void StopsPage::saveDecoGasSettings() {
  decoGasSettings_.clear();
  for (int row = 1; row < fgGasChange.Rows(); ++row) {
    const std::string text = fgGasChange.Text(row, 0);
    const Single depth = Number(text);
    const auto scaled = [&](double factor) { return text.empty() ? "" : FormatFixed(Single(depth * factor), 0); };
    decoGasSettings_.push_back({scaled(sheet_.metric ? 1 : kMetresPerFoot), scaled(sheet_.metric ? kFeetPerMetre : 1)});
  }
}

void StopsPage::loadDecoGasSettings() {
  for (int row = 1; row < fgGasChange.Rows(); ++row) {
    const auto index = static_cast<std::size_t>(row - 1);
    if (index >= decoGasSettings_.size()) break;
    fgGasChange.SetText(row, 0, sheet_.metric ? decoGasSettings_[index].metric : decoGasSettings_[index].imperial);
  }
}

bool StopsPage::DeleteChangeTo(const std::string& gas) {
  for (int row = 1; row < fgGasChange.Rows(); ++row) {
    if (fgGasChange.Text(row, 1) != gas) continue;
    if (fgGasChange.Rows() == 2) return false;
    changes_.Remove(row);
    break;
  }
  return true;
}

}  // namespace tav
