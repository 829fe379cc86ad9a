// The tables of the template dialog: editing, rows, and the depths at which gases are changed.

#include <algorithm>

#include "dialogs/properties.h"
#include "model/altitude.h"
#include "model/number_text.h"
#include "model/numbers.h"
#include "model/units.h"

namespace tav {
namespace {

constexpr int kTitle = 1600;
constexpr int kRowStays = 1654;
constexpr int kDepthStays = 1655;
constexpr int kPlanUsesGases = 3044;
constexpr int kOnlyGasChange = 3045;
constexpr int kNotGivenText = 7050;
constexpr int kNot100Percent = 7150;
constexpr int kNoNumber = 7151;
constexpr int kCellSet = 8106;

}  // namespace

void frmProperties::WireGrids() {
  using Kind = Grid::Editor::Kind;
  for (Grid* grid : {&fgDescend, &fgAscend}) {
    grid->EditorOf = [](int row, int) { return Grid::Editor{row > 0 ? Kind::Text : Kind::None, {}}; };
    grid->Commit = [this, grid](int row, int column, const std::string& text) {
      CommitNumber(*grid, row, column, text);
    };
  }
  fgGasChange.EditorOf = [this](int row, int column) {
    if (row < 1 || cbAutoDecoGas.Value) return Grid::Editor{};
    if (column == 0) return Grid::Editor{Kind::Text, {}};
    Grid::Editor names{Kind::List, {}};
    for (int i = 1; i < FgGas.Rows(); ++i) names.entries.push_back(FgGas.Text(i, 0));
    return names;
  };
  fgGasChange.Commit = [this](int row, int column, const std::string& text) {
    if (column == 0) {
      CommitNumber(fgGasChange, row, column, text);
      return;
    }
    fgGasChange.SetText(row, column, text);
  };
  // Air, the first row, is what it is, names are keys of legs and gas changes, and nitrogen is the rest.
  FgGas.EditorOf = [](int row, int column) {
    return Grid::Editor{row > 1 && (column == kOxygen || column == kHelium) ? Kind::Text : Kind::None, {}};
  };
  FgGas.Commit = [this](int row, int column, const std::string& text) {
    CommitNumber(FgGas, row, column, text);
    FgGas.SetText(row, kNitrogen, Plain(100 - Number(FgGas.Text(row, kOxygen)) - Number(FgGas.Text(row, kHelium))));
    MarkGas(row);
    ShowAutoDepths();
    FgGas_MouseDown();
  };
  FgGas.Click = [this] { FgGas_MouseDown(); };
  WireRows(fgDescend, &cbAddDescend, cbDelDescend);
  WireRows(fgAscend, &cbAddAscend, cbDelAscend);
  WireRows(fgGasChange, &cbAddChange, cbDelChange);
  WireRows(FgGas, nullptr, cbDelGas);
  AddRow.Click = [this] {
    if (menuGrid_ != nullptr) AppendRow(*menuGrid_);
  };
  DelRow.Click = [this] {
    if (menuGrid_ != nullptr) DeleteRow(*menuGrid_);
  };
}

void frmProperties::WireRows(Grid& grid, Button* add, Button& remove) {
  grid.RowMenu = [this, &grid] { OpenRowMenu(grid); };
  grid.DeleteKey = remove.Click = [this, &grid] { DeleteRow(grid); };
  if (add != nullptr) grid.InsertKey = add->Click = [this, &grid] { AppendRow(grid); };
}

void frmProperties::FillRates(Grid& grid, const std::vector<RateEntry>& rates) {
  std::vector<std::vector<std::string>> rows{{"", ""}};
  for (const RateEntry& entry : rates) rows.push_back({Cell(entry.Depth), Cell(entry.Rate)});
  grid.SetRows(rows);
}

void frmProperties::ShowHeads() {
  const std::string depth = " " + T(Metric() ? 1222 : 1223);
  const std::string rate = " " + T(Metric() ? 7164 : 7165);
  for (const auto& [grid, head] :
       {std::pair(&fgDescend, 1621), std::pair(&fgAscend, 1623), std::pair(&fgGasChange, 1621)}) {
    if (grid->Rows() == 0) continue;
    grid->SetText(0, 0, T(head) + depth);
    grid->SetText(0, 1, grid == &fgGasChange ? T(1622) : T(1624) + rate);
  }
}

void frmProperties::CommitNumber(Grid& grid, int row, int column, const std::string& text) {
  const std::string number = PurgeNumericInput(text, services_.platform.separators);
  // The tables of rates begin at the surface.
  if (&grid != &fgGasChange && row == 1 && column == 0 && number != "0") {
    Refuse(kDepthStays);
    return;
  }
  grid.SetText(row, column, number);
  grid.SetColour(row, column, NumberIn(number) ? -1 : kRed);
  // Units behind a number mean nothing else; but nobody types a word, or a number below 0, to get another one.
  const bool isWord = !number.empty() && text.find_first_of("0123456789") == std::string::npos;
  if (isWord || NumberIn(text).value_or(0) < 0) Box(T(kCellSet, {text, number}), T(kTitle), BoxIcon::Exclamation);
}

Single frmProperties::SharesOf(int row) const {
  const double withHelium = Number(FgGas.Text(row, kOxygen)) + Number(FgGas.Text(row, kHelium));
  return std::max(withHelium, withHelium + Number(FgGas.Text(row, kNitrogen)));
}

void frmProperties::MarkGas(int row) {
  const bool whole = RoundSingle(SharesOf(row), 0) == 100;
  for (const int column : {kOxygen, kHelium, kNitrogen}) {
    FgGas.SetColour(row, column, whole && NumberIn(FgGas.Text(row, column)) ? -1 : kRed);
  }
}

std::string frmProperties::CellFault(const Grid& grid, int row) const {
  for (int column = 0; column < grid.Columns(); ++column) {
    const bool number = &grid == &FgGas ? column >= kOxygen : &grid != &fgGasChange || column == 0;
    if (!number) continue;
    if (grid.Text(row, column).empty()) return T(kNotGivenText);
    if (!NumberIn(grid.Text(row, column))) return T(kNoNumber) + grid.Text(row, column);
  }
  if (&grid == &FgGas && RoundSingle(SharesOf(row), 0) != 100)
    return T(kNot100Percent) + Fixed(SharesOf(row), 0) + " %";
  return {};
}

std::string frmProperties::GridFault() const {
  const std::pair<const Grid*, const Frame*> grids[] = {
      {&fgDescend, &Frame7}, {&fgAscend, &Frame6}, {&fgGasChange, &Frame3}, {&FgGas, &Frame4}};
  for (const auto& [grid, frame] : grids) {
    for (int row = 1; row < grid->Rows(); ++row) {
      const std::string fault = CellFault(*grid, row);
      if (!fault.empty()) return frame->Caption.Get() + ", " + std::to_string(row) + ": " + fault;
    }
  }
  return {};
}

void frmProperties::Refuse(int text) { Box(T(text), T(kTitle), BoxIcon::Exclamation); }

double frmProperties::GetPercentO2(const std::string& name) const {
  for (int row = 1; row < FgGas.Rows(); ++row) {
    if (FgGas.Text(row, 0) == name) return Number(FgGas.Text(row, kOxygen));
  }
  return -1;
}

Single frmProperties::DepthOfPPO2(Single ppo2, const std::string& gas) {
  const double o2 = GetPercentO2(gas);
  if (o2 <= 0) return 0;  // a gas that is not there, or has no oxygen, is changed to at no depth
  const Single surface = IsFilledIn(Text5) ? Template().EndPressure : AltitudeToPressure(Rounded(Text5, 0), Metric());
  return (ppo2 / o2 * 100 - surface) * 10;
}

void frmProperties::InitDecoGasFrame() {
  const DiveTemplate& t = Template();
  // Feet: an atmosphere is 10.13 m.
  const double units = Metric() ? 1.0 : 1.013 * kFeetPerMetre;
  std::vector<std::vector<std::string>> rows{{"", ""}};
  for (const GasChange& change : t.ChangeGasMixes) {
    const Single depth =
        change.Depth != 0 ? change.Depth : Single(DepthOfPPO2(Number(tbMaxPPO.Text), change.Name) * units);
    rows.push_back({Cell(depth), change.Name});
  }
  fgGasChange.SetRows(rows);
  decoGasSettings_.clear();
  cbAutoDecoGas.Value = t.AutoDecoGas;
  if (t.AutoDecoGas) {
    cbAutoDecoGas_Click();
  } else {
    ShowChangesEditable();
  }
}

void frmProperties::cbAutoDecoGas_Click() {
  if (cbAutoDecoGas.Value) {
    saveDecoGasSettings();
    ShowAutoDepths();
  } else {
    loadDecoGasSettings();
  }
  ShowChangesEditable();
}

void frmProperties::ShowChangesEditable() {
  cbAddChange.Enabled = !cbAutoDecoGas.Value;
  cbDelChange.Enabled = !cbAutoDecoGas.Value;
  fgGasChange.Refresh();
}

void frmProperties::ShowAutoDepths() {
  if (!cbAutoDecoGas.Value || !NumberIn(Text7.Text)) return;
  const double factor = Metric() ? 1.0 : kFeetPerMetre;
  for (int row = 1; row < fgGasChange.Rows(); ++row) {
    const Single depth = DepthOfPPO2(Number(Text7.Text), fgGasChange.Text(row, 1));
    fgGasChange.SetText(row, 0, FormatFixed(Single(factor * depth), 0));
  }
}

void frmProperties::saveDecoGasSettings() {
  decoGasSettings_.clear();
  for (int row = 1; row < fgGasChange.Rows(); ++row) {
    const std::string text = fgGasChange.Text(row, 0);
    const Single depth = Number(text);
    const auto scaled = [&](double factor) { return text.empty() ? "" : FormatFixed(Single(depth * factor), 0); };
    decoGasSettings_.push_back({scaled(Metric() ? 1 : kMetresPerFoot), scaled(Metric() ? kFeetPerMetre : 1)});
  }
}

void frmProperties::loadDecoGasSettings() {
  for (int row = 1; row < fgGasChange.Rows(); ++row) {
    const auto index = static_cast<std::size_t>(row - 1);
    if (index >= decoGasSettings_.size()) break;
    fgGasChange.SetText(row, 0, Metric() ? decoGasSettings_[index].metric : decoGasSettings_[index].imperial);
  }
}

void frmProperties::FgGas_MouseDown() {
  if (FgGas.SelectedRow < 1 || FgGas.SelectedRow >= FgGas.Rows()) return;
  Command1.Visible = true;
  MixerO2_ = Number(FgGas.Text(FgGas.SelectedRow, kOxygen));
  MixerHe_ = Number(FgGas.Text(FgGas.SelectedRow, kHelium));
}

void frmProperties::OpenRowMenu(Grid& grid) {
  menuGrid_ = &grid;
  AddRow.Visible = &grid != &FgGas;
  // Depths that follow from the gases are not to be edited.
  const bool editable = &grid != &fgGasChange || !cbAutoDecoGas.Value;
  AddRow.Enabled = editable;
  DelRow.Enabled = editable;
  if (grid.MenuByKey) {
    services_.platform.windows.PopupMenuAtFocus({&AddRow, &DelRow});
  } else {
    services_.platform.windows.PopupMenu({&AddRow, &DelRow});
  }
}

void frmProperties::AppendRow(Grid& grid) {
  if (&grid == &fgGasChange && cbAutoDecoGas.Value) return;
  grid.AddRow({"", &grid == &fgGasChange ? FgGas.Text(1, 0) : ""});
  grid.SelectCell(grid.Rows() - 1, 0);
  grid.SetFocus();
}

void frmProperties::RemoveRow(Grid& grid, int row) {
  grid.RemoveRow(row);
  grid.SelectCell(std::min(grid.SelectedRow, grid.Rows() - 1), grid.SelectedColumn);
  // A depth that is kept belongs to the gas of its row.
  const auto kept = static_cast<std::size_t>(row - 1);
  if (&grid == &fgGasChange && kept < decoGasSettings_.size()) {
    decoGasSettings_.erase(decoGasSettings_.begin() + row - 1);
  }
}

void frmProperties::DeleteRow(Grid& grid) {
  const int row = grid.SelectedRow;
  if (&grid == &fgGasChange && cbAutoDecoGas.Value) return;
  if (&grid == &FgGas) {
    DeleteBlend(row);
  } else if (row >= 2) {
    RemoveRow(grid, row);
  } else {
    Refuse(kRowStays);
  }
  grid.SetFocus();
}

void frmProperties::DeleteBlend(int row) {
  const auto active = services_.ActiveDocument();
  if (active) {
    // Legs hold the numbers of their gases, also those of a plan that can't be computed and shows no rows.
    const frmWaypointEditor& plan = services_.forms(*active);
    if (plan.InputProfile.GetLength() != 0 || plan.UserActions.GetLength() != 0) {
      Refuse(kPlanUsesGases);
      return;
    }
  }
  if (row < 2) {
    Refuse(kRowStays);
    return;
  }
  const std::string name = FgGas.Text(row, 0);
  for (int change = 1; change < fgGasChange.Rows(); ++change) {
    if (fgGasChange.Text(change, 1) != name) continue;
    if (change == 1 && fgGasChange.Rows() == 2) {
      Refuse(kOnlyGasChange);
      return;
    }
    RemoveRow(fgGasChange, change);
    break;
  }
  RemoveRow(FgGas, row);
}

}  // namespace tav
