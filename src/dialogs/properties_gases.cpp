#include "dialogs/properties_gases.h"

#include <algorithm>

#include "dialogs/gas_blend.h"
#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {

GasesPage::GasesPage(TemplateSheet& sheet) : TemplatePage(sheet, "Frame4", Text::TemplateGases) {
  Texts({{&cbCustomBlend, Text::TemplateCustomBlend}, {&Command1, Text::MixerTitle}});
  // Air, the first row, is what it is, names are keys of legs and gas changes, and nitrogen is the rest.
  FgGas.EditorOf = [](int row, int column) {
    using Kind = Grid::Editor::Kind;
    return Grid::Editor{row > 1 && (column == kOxygen || column == kHelium) ? Kind::Text : Kind::None, {}};
  };
  FgGas.Commit = [this](int row, int column, const std::string& text) { CommitShare(row, column, text); };
  FgGas.Click = [this] { FgGas_MouseDown(); };
  table_.WireRows(nullptr, cbDelGas);
  table_.Delete = [this](int row) { DeleteBlend(row); };
  table_.FaultOf = [this](int row) { return ShareFault(row); };
  cbCustomBlend.Click = FgGas.InsertKey = [this] { AddBlend(); };
  Command1.Visible = false;
  Command1.Click = [this] {
    if (sheet_.services.openMixer) sheet_.services.openMixer(MixerO2_, MixerHe_);
  };
}

std::vector<std::string> GasesPage::RowOf(const GasMix& mix) const {
  return {mix.Name, Plain(mix.O2), Plain(mix.He), Plain(mix.N2)};
}

void GasesPage::Fill() {
  std::vector<std::vector<std::string>> rows{{T(Text::TemplateGasName), "% O2", "% He", "% N2"}};
  for (const GasMix& mix : sheet_.Template().Blends) rows.push_back(RowOf(mix));
  FgGas.SetRows(rows);
  for (int row = 1; row < FgGas.Rows(); ++row) Mark(row);
}

void GasesPage::AddBlend() {
  const bool changed = sheet_.IsChanged();
  const std::vector<GasMix>& blends = sheet_.Template().Blends;
  const std::size_t gases = blends.size();
  frmGasBlend dialog(sheet_.services);
  dialog.SetTemplate(sheet_.document);
  platform_.windows.ShowModal(dialog);
  // The other rows keep what has been typed into them.
  for (std::size_t i = gases; i < blends.size(); ++i) FgGas.AddRow(RowOf(blends[i]));
  if (!changed) sheet_.EndFilling();  // the new gas is stored, and nothing else has been entered
}

void GasesPage::CommitShare(int row, int column, const std::string& text) {
  table_.CommitNumber(row, column, text);
  FgGas.SetText(row, kNitrogen, Plain(100 - Number(FgGas.Text(row, kOxygen)) - Number(FgGas.Text(row, kHelium))));
  Mark(row);
  Changed();
  FgGas_MouseDown();
}

Single GasesPage::SharesOf(int row) const {
  const double withHelium = Number(FgGas.Text(row, kOxygen)) + Number(FgGas.Text(row, kHelium));
  return std::max(withHelium, withHelium + Number(FgGas.Text(row, kNitrogen)));
}

std::string GasesPage::ShareFault(int row) const {
  const Single shares = SharesOf(row);
  return RoundSingle(shares, 0) == 100 ? "" : T(Text::SharesNot100) + Fixed(shares, 0) + " %";
}

void GasesPage::Mark(int row) {
  const bool whole = RoundSingle(SharesOf(row), 0) == 100;
  for (const int column : {kOxygen, kHelium, kNitrogen}) {
    FgGas.SetColour(row, column, whole && NumberIn(FgGas.Text(row, column)) ? -1 : kRed);
  }
}

double GasesPage::GetPercentO2(const std::string& name) const {
  for (int row = 1; row < FgGas.Rows(); ++row) {
    if (FgGas.Text(row, 0) == name) return Number(FgGas.Text(row, kOxygen));
  }
  return -1;
}

void GasesPage::FgGas_MouseDown() {
  if (FgGas.SelectedRow < 1 || FgGas.SelectedRow >= FgGas.Rows()) return;
  Command1.Visible = true;
  MixerO2_ = Number(FgGas.Text(FgGas.SelectedRow, kOxygen));
  MixerHe_ = Number(FgGas.Text(FgGas.SelectedRow, kHelium));
}

bool GasesPage::PlanUsesGases() const {
  const auto active = sheet_.services.ActiveDocument();
  if (!active) return false;
  // Legs hold the numbers of their gases, also those of a plan that can't be computed and shows no rows.
  const frmWaypointEditor& plan = sheet_.services.forms(*active);
  return plan.InputProfile.GetLength() != 0 || plan.UserActions.GetLength() != 0;
}

void GasesPage::DeleteBlend(int row) {
  if (PlanUsesGases()) return table_.Refuse(Text::TemplateGasInPlan);
  if (row < 2) return table_.Refuse(Text::TemplateRowStays);
  if (!Release(FgGas.Text(row, 0))) return table_.Refuse(Text::TemplateOnlyGasChange);
  table_.Remove(row);
}

void GasesPage::Store(DiveTemplate& t) {
  t.Blends.assign(1, AirMix());
  for (int row = 2; row < FgGas.Rows(); ++row) {
    const Single o2 = table_.Stored(row, kOxygen);
    const Single he = table_.Stored(row, kHelium);
    t.Blends.push_back({FgGas.Text(row, 0), o2, 100 - o2 - he, he});
  }
}

}  // namespace tav
