#include "dialogs/cylinders.h"

#include <algorithm>
#include <cmath>

#include "model/numbers.h"
#include "model/text_id.h"
#include "supply/supply_settings.h"
#include "supply/supply_text.h"

namespace tav {
namespace {

/// A caption without the mark of its key.
std::string Unmarked(std::string caption) {
  std::erase(caption, '&');
  return caption;
}

}  // namespace

frmCylinders::frmCylinders(const DialogServices& services) : DialogForm("frmCylinders", services) {
  RemembersPlace = true;
  Wire();
}

void frmCylinders::Wire() {
  using CellKind = Grid::Editor::Kind;
  fgCylinders.EditorOf = [this](int row, int column) {
    if (row < 1 || (column == Rated && InLitres(row))) return Grid::Editor{};
    if (column == BailOut) {
      if (fgCylinders.Text(row, BailOut).empty()) return Grid::Editor{};
      return Grid::Editor{CellKind::List, {T(Text::No), T(Text::Yes)}};
    }
    Grid::Editor editor{column == Gas || column == Unit ? CellKind::List : CellKind::Text, {}};
    if (column == Unit) editor.entries = {T(Text::CylindersMetric), T(Text::CylindersImperial)};
    if (column == Gas) {
      const std::vector<GasMix>& blends = TemplateOf(document_).Blends;
      editor.entries.reserve(blends.size());
      for (const GasMix& blend : blends) editor.entries.push_back(blend.Name);
    }
    return editor;
  };
  fgCylinders.Commit = [this](int row, int column, const std::string& text) { CommitCell(row, column, text); };
  fgCylinders.InsertKey = cbAdd.Click = [this] { cbAdd_Click(); };
  fgCylinders.DeleteKey = cbRemove.Click = [this] { cbRemove_Click(); };
  cbUp.Click = [this] { MoveRow(-1); };
  cbDown.Click = [this] { MoveRow(1); };
  fgCylinders.Wished = [this](Grid::Wish wish) {
    if (wish == Grid::Wish::MoveUp) MoveRow(-1);
    if (wish == Grid::Wish::MoveDown) MoveRow(1);
    if (wish == Grid::Wish::Copy) {
      platform_.clipboard.SetText(fgCylinders.Text(fgCylinders.SelectedRow, fgCylinders.SelectedColumn));
    }
  };
  fgCylinders.RightColumns = {Count, Size, Rated, Fill, Reserve};
  fgCylinders.Click = [this] { EnableRowButtons(); };
  WireSets();
  for (TextBox* field : {&tbTeam, &tbStress, &tbMinutes}) field->Change = [this] { Show(); };
  cmbRule.Click = [this] { Show(); };
  cbOK.Default = true;
  cbOK.Click = [this] { cbOK_Click(); };
  cbCancel.Cancel = true;
  cbCancel.Click = [this] { Unload(); };
  fgSupply.TextColumns = kSupplyTextColumns;
  fgLegs.TextColumns = kLegTextColumns;
}

void frmCylinders::Form_Load() {
  Localize();
  document_ = services_.ActiveOrDefault();
  Caption = T(Text::CylindersTitle);
  const std::pair<Control*, int> captions[] = {{&lbKind, Text::CylindersKind},
                                               {&cbAdd, Text::CylindersAdd},
                                               {&cbRemove, Text::CylindersRemove},
                                               {&cbUp, Text::CylindersUp},
                                               {&cbDown, Text::CylindersDown},
                                               {&lbSet, Text::CylindersSet},
                                               {&cbTakeSet, Text::CylindersTakeSet},
                                               {&cbDeleteSet, Text::CylindersDeleteSet},
                                               {&lbSetName, Text::CylindersSetName},
                                               {&cbSaveSet, Text::CylindersSaveSet},
                                               {&frTeam, Text::CylindersTrouble},
                                               {&lbTeam, Text::CylindersDivers},
                                               {&lbStress, Text::CylindersFactor},
                                               {&lbMinutes, Text::CylindersMinutes},
                                               {&lbRule, Text::CylindersTurn},
                                               {&lbGases, Text::SupplyTitle},
                                               {&lbLegs, Text::SupplyLegs},
                                               {&cbOK, Text::OK},
                                               {&cbCancel, Text::Cancel}};
  for (const auto& [control, text] : captions) control->Caption = T(text);
  lbGases.Bold = lbLegs.Bold = true;
  lbFault.ForeColor = kRed;
  FillFields();
  FillSets();
  PutRows(TemplateOf(document_).Cylinders);
}

void frmCylinders::PutRows(const std::vector<Cylinder>& cylinders) {
  std::vector<std::vector<std::string>> rows{{T(Text::InfoGas), T(Text::CylindersCount), "", T(Text::CylindersUnit),
                                              T(Text::CylindersRated), "", "", T(Text::CylindersBailOut)}};
  rows.reserve(cylinders.size() + 1);
  for (const Cylinder& cylinder : cylinders) rows.push_back(RowOf(cylinder));
  fgCylinders.SetRows(rows);
  fgCylinders.SelectCell(std::min(1, fgCylinders.Rows() - 1), Gas);
  Show();
}

void frmCylinders::NameUnits() {
  bool litres = false;
  bool cubicFeet = false;
  for (int row = 1; row < fgCylinders.Rows(); ++row) (InLitres(row) ? litres : cubicFeet) = true;
  if (litres == cubicFeet && !litres) (TemplateOf(document_).Metric ? litres : cubicFeet) = true;
  const auto head = [&](Column column, int text, int metric, int imperial) {
    const std::string between = litres && cubicFeet ? ", " : "";
    fgCylinders.SetText(0, column,
                        T(text) + " (" + (litres ? T(metric) : "") + between + (cubicFeet ? T(imperial) : "") + ")");
  };
  head(Size, Text::CylindersSize, Text::Litres, Text::CubicFeet);
  head(Fill, Text::SupplyFill, Text::Bar, Text::Psi);
  head(Reserve, Text::CylindersReserve, Text::Bar, Text::Psi);
}

void frmCylinders::FillFields() {
  std::vector<std::string> kinds;
  kinds.reserve(UsualCylinders().size());
  for (const UsualCylinder& kind : UsualCylinders()) kinds.push_back(Written(kind.name));
  cmbKind.Items = kinds;
  cmbKind.ListIndex = static_cast<int>(UsualCylinderOf(TemplateOf(document_).Metric));
  const SupplyChoice choice = SupplyChoiceOf(TemplateOf(document_));
  tbTeam.Text = std::to_string(choice.team);
  tbStress.Text = Plain(choice.stress);
  tbMinutes.Text = Plain(choice.minutes);
  cmbRule.Items = {T(Text::TurnAllUsable), T(Text::TurnHalf), T(Text::TurnThird)};
  cmbRule.ListIndex = static_cast<int>(choice.rule);
}

std::vector<std::string> frmCylinders::RowOf(const Cylinder& cylinder) const {
  return {cylinder.Gas,
          std::to_string(cylinder.Count),
          Plain(cylinder.Size),
          T(cylinder.InLitres() ? Text::CylindersMetric : Text::CylindersImperial),
          cylinder.InLitres() ? "" : Plain(cylinder.RatedPressure),
          Plain(cylinder.Fill),
          Plain(cylinder.Reserve),
          BailOutText(cylinder.Gas, cylinder.BailOut)};
}

std::string frmCylinders::BailOutText(const std::string& gas, bool told) const {
  if (told) return T(Text::Yes);
  const ClassProfile& rows = services_.forms(document_).InputProfile;
  // Cylinders of other gases count without being told.
  return IsDiluent(gas, rows, TemplateOf(document_)) ? T(Text::No) : "";
}

bool frmCylinders::InLitres(int row) const { return fgCylinders.Text(row, Unit) != T(Text::CylindersImperial); }

void frmCylinders::CommitCell(int row, int column, const std::string& text) {
  if (column == Unit && text != fgCylinders.Text(row, Unit)) {
    Fault fault;
    const Cylinder cylinder = ReadRow(row, fault);
    if (fault.column < 0) {
      const std::vector<std::string> texts = RowOf(InOtherUnit(cylinder));
      for (int i = 0; i < fgCylinders.Columns(); ++i) fgCylinders.SetText(row, i, texts[static_cast<std::size_t>(i)]);
      Show();
      return;
    }
    fgCylinders.SetText(row, Rated, "");
  }
  fgCylinders.SetText(row, column, text);
  if (column == Gas)
    fgCylinders.SetText(row, BailOut, BailOutText(text, fgCylinders.Text(row, BailOut) == T(Text::Yes)));
  Show();
}

Cylinder frmCylinders::ReadRow(int row, Fault& fault) const {
  constexpr double kSmallest = 0.1;
  constexpr double kLeastRating = 100;
  const bool litres = InLitres(row);
  const auto number = [&](Column column, double least, double most) -> Single {
    const auto value = NumberIn(fgCylinders.Text(row, column));
    if (value && *value >= least && *value <= most) return *value;
    if (fault.column < 0) fault = {column, T(Text::CylindersRange, {Plain(least), Plain(most)})};
    return 0;
  };
  Cylinder cylinder;
  cylinder.Gas = fgCylinders.Text(row, Gas);
  const Single count = number(Count, 1, kMostCylinders);
  cylinder.Count = RoundToInt16(count).value_or(0);
  if (count != static_cast<double>(cylinder.Count))
    fault = {Count, T(Text::CylindersRange, {"1", std::to_string(kMostCylinders)})};
  cylinder.Size = number(Size, kSmallest, kLargestCylinder);
  if (!litres) cylinder.RatedPressure = number(Rated, kLeastRating, HighestPressure(false));
  cylinder.Fill = number(Fill, 0, HighestPressure(litres));
  cylinder.Reserve = number(Reserve, 0, HighestPressure(litres));
  cylinder.BailOut = fgCylinders.Text(row, BailOut) == T(Text::Yes);
  if (fault.column < 0 && cylinder.Reserve > cylinder.Fill) fault = {Reserve, T(Text::CylindersAboveFill)};
  return cylinder;
}

bool frmCylinders::IsGasOfPlan(const std::string& gas) const {
  const DiveTemplate& settings = TemplateOf(document_);
  return FindBlend(gas, settings) ||
         std::ranges::find(settings.Cylinders, gas, &Cylinder::Gas) != settings.Cylinders.end();
}

std::string frmCylinders::ReadRows(std::vector<Cylinder>& cylinders) {
  std::string first;
  auto cells = fgCylinders.Cells.Get();
  for (int row = 1; row < fgCylinders.Rows(); ++row) {
    Fault fault;
    const Cylinder cylinder = ReadRow(row, fault);
    if (fault.column < 0 && !IsGasOfPlan(cylinder.Gas)) fault = {Gas, T(Text::CylindersChooseGas)};
    for (int column = 0; column < fgCylinders.Columns(); ++column) {
      GridCell& cell = cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
      const bool faulty = column == fault.column;
      cell.colour = faulty ? kRed : -1;
      cell.fault = faulty ? fault.reason : "";
    }
    if (fault.column < 0) {
      cylinders.push_back(cylinder);
    } else if (first.empty()) {
      first = T(Text::CylindersFault, {std::to_string(row), fgCylinders.Text(0, fault.column), fault.reason});
    }
  }
  fgCylinders.Cells = cells;
  return first;
}

std::string frmCylinders::ReadChoice(SupplyChoice& choice) {
  std::string first;
  const auto read = [&](TextBox& field, const Label& label, double least, double most, bool whole) -> double {
    const double value = NumberIn(field.Text).value_or(-1);
    const bool sound = value >= least && value <= most && (!whole || value == std::floor(value));
    field.ForeColor = sound ? -1 : kRed;
    if (!sound && first.empty())
      first = Unmarked(label.Caption) + ": " + T(Text::CylindersRange, {Plain(least), Plain(most)});
    return sound ? value : least;
  };
  choice.team = static_cast<int>(read(tbTeam, lbTeam, 1, kLargestTeam, true));
  choice.stress = read(tbStress, lbStress, 1, kLargestStress, false);
  choice.minutes = read(tbMinutes, lbMinutes, 0, kLongestSortingOut, false);
  choice.rule = static_cast<TurnRule>(std::max(0, cmbRule.ListIndex.Get()));
  return first;
}

std::string frmCylinders::ReadAll(std::vector<Cylinder>& cylinders, SupplyChoice& choice) {
  const std::string fault = ReadRows(cylinders);
  const std::string choiceFault = ReadChoice(choice);  // always: it marks its fields
  return fault.empty() ? choiceFault : fault;
}

void frmCylinders::Show() {
  std::vector<Cylinder> cylinders;
  SupplyChoice choice;
  NameUnits();
  std::string fault = ReadAll(cylinders, choice);
  const DiveTemplate& settings = TemplateOf(document_);
  const GasSupply supply = SupplyOf(services_.forms(document_).Planned(), choice, cylinders);
  const SupplyTables tables =
      TablesOf(supply, settings.RMV, AdviceWords(texts_, platform_.separators, settings.Metric));
  fgSupply.Cells = tables.gases;
  fgLegs.Cells = tables.legs;
  if (!tables.legTitle.empty()) lbLegs.Caption = tables.legTitle;
  lbLoop.Caption = tables.note;
  if (fault.empty() && !cylinders.empty() && !supply.IsTold()) fault = T(Text::CylindersNoRows);
  lbFault.Caption = fault.empty() ? setsFault_ : fault;
  EnableRowButtons();
  EnableSetButtons(static_cast<int>(cylinders.size()) == fgCylinders.Rows() - 1);
}

void frmCylinders::EnableRowButtons() {
  const int last = fgCylinders.Rows() - 1;
  cbRemove.Enabled = last > 0;
  cbUp.Enabled = fgCylinders.SelectedRow > 1 && fgCylinders.SelectedRow <= last;
  cbDown.Enabled = fgCylinders.SelectedRow > 0 && fgCylinders.SelectedRow < last;
}

void frmCylinders::MoveRow(int by) {
  const int row = fgCylinders.SelectedRow;
  const int to = row + by;
  if (std::min(row, to) < 1 || std::max(row, to) >= fgCylinders.Rows()) return;
  auto cells = fgCylinders.Cells.Get();
  std::swap(cells[static_cast<std::size_t>(row)], cells[static_cast<std::size_t>(to)]);
  fgCylinders.Cells = cells;
  fgCylinders.SelectCell(to, fgCylinders.SelectedColumn);
  fgCylinders.SetFocus();
  Show();
}

std::string frmCylinders::MissingGas() const {
  const ClassProfile& rows = services_.forms(document_).InputProfile;
  const auto carried = [this](const std::string& gas) {
    for (int row = 1; row < fgCylinders.Rows(); ++row) {
      if (fgCylinders.Text(row, Gas) == gas) return true;
    }
    return false;
  };
  for (std::int16_t i = 1; i <= rows.GetLength(); ++i) {
    if (!carried(rows.GetGasMixName(i))) return rows.GetGasMixName(i);
  }
  const int selected = fgCylinders.SelectedRow;
  return selected >= 1 && selected < fgCylinders.Rows() ? fgCylinders.Text(selected, Gas)
                                                        : TemplateOf(document_).Blends.front().Name;
}

void frmCylinders::cbAdd_Click() {
  const int index = cmbKind.ListIndex;
  fgCylinders.AddRow(RowOf(UsualCylinders()[static_cast<std::size_t>(std::max(0, index))].With(MissingGas())));
  fgCylinders.SelectCell(fgCylinders.Rows() - 1, Gas);
  fgCylinders.SetFocus();
  Show();
}

void frmCylinders::cbRemove_Click() {
  const int row = fgCylinders.SelectedRow;
  if (row < 1 || row >= fgCylinders.Rows()) return;
  fgCylinders.RemoveRow(row);
  fgCylinders.SelectCell(std::min(row, fgCylinders.Rows() - 1), fgCylinders.SelectedColumn);
  fgCylinders.SetFocus();
  Show();
}

void frmCylinders::cbOK_Click() {
  std::vector<Cylinder> cylinders;
  SupplyChoice choice;
  const std::string fault = ReadAll(cylinders, choice);
  if (!fault.empty()) {
    Box(fault, Caption, BoxIcon::Stop);
    return;
  }
  DiveTemplate& settings = TemplateOf(document_);
  if (!(choice == SupplyChoiceOf(settings))) {
    WriteSupplyChoice(platform_.settings, choice);
    TemplateOf(DocumentStore::DefaultDocument).Team = settings.Team = choice;
    MarkChanged(document_);
  }
  if (!(settings.Cylinders == cylinders)) {
    settings.Cylinders = std::move(cylinders);
    MarkChanged(document_);
  }
  // Shows the plan anew: the check of it reads cylinders and choice, and the undo history takes the step.
  if (document_ != DocumentStore::DefaultDocument) services_.forms(document_).ReEvaluateUserEnteredWaypoints();
  Unload();
}

}  // namespace tav
