#include "dialogs/cylinders.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "model/numbers.h"
#include "model/text_id.h"
#include "supply/supply_settings.h"
#include "supply/supply_text.h"

namespace tav {
namespace {

/// Cylinders as divers call them.
struct Kind {
  const char* name;
  std::int16_t count;
  double size;
  double rated;  ///< psi; 0 for litres
  double fill;
  double reserve;
};

constexpr std::array<Kind, 18> kKinds{{
    {"3 l", 1, 3, 0, 200, 20},
    {"7 l", 1, 7, 0, 200, 20},
    {"S40 (5.7 l)", 1, 5.7, 0, 207, 20},
    {"S80 (11.1 l)", 1, 11.1, 0, 207, 20},
    {"10 l", 1, 10, 0, 200, 50},
    {"12 l", 1, 12, 0, 200, 50},
    {"15 l", 1, 15, 0, 200, 50},
    {"D7 (2 x 7 l)", 2, 7, 0, 200, 50},
    {"D12 (2 x 12 l)", 2, 12, 0, 200, 50},
    {"D18 (2 x 18 l)", 2, 18, 0, 200, 50},
    {"AL40 (40 cu ft)", 1, 40, 3000, 3000, 300},
    {"AL80 (77.4 cu ft)", 1, 77.4, 3000, 3000, 500},
    {"LP85", 1, 85, 2640, 2640, 500},
    {"LP104", 1, 104, 2640, 2640, 500},
    {"HP100", 1, 100, 3442, 3442, 500},
    {"HP120", 1, 120, 3442, 3442, 500},
    {"2 x LP85", 2, 85, 2640, 2640, 700},
    {"2 x HP100", 2, 100, 3442, 3442, 700},
}};

std::size_t UsualKind(bool metric) {
  constexpr std::size_t kTwin12 = 8;
  constexpr std::size_t kAL80 = 11;
  return metric ? kTwin12 : kAL80;
}

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
      if (TemplateOf(document_).OpenCircuit) return Grid::Editor{};
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
  const std::vector<Cylinder>& cylinders = TemplateOf(document_).Cylinders;
  std::vector<std::vector<std::string>> rows{{T(Text::InfoGas), T(Text::CylindersCount), T(Text::CylindersSize),
                                              T(Text::CylindersUnit), T(Text::CylindersRated), T(Text::SupplyFill),
                                              T(Text::CylindersReserve), T(Text::CylindersBailOut)}};
  rows.reserve(cylinders.size() + 1);
  for (const Cylinder& cylinder : cylinders) rows.push_back(RowOf(cylinder));
  fgCylinders.SetRows(rows);
  fgCylinders.SelectCell(std::min(1, fgCylinders.Rows() - 1), Gas);
  Show();
}

void frmCylinders::FillFields() {
  std::vector<std::string> kinds;
  kinds.reserve(kKinds.size());
  for (const Kind& kind : kKinds) kinds.push_back(Written(kind.name));
  cmbKind.Items = kinds;
  cmbKind.ListIndex = static_cast<int>(UsualKind(TemplateOf(document_).Metric));
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
          cylinder.BailOut                    ? T(Text::Yes)
          : TemplateOf(document_).OpenCircuit ? ""
                                              : T(Text::No)};
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

std::string frmCylinders::ReadRows(std::vector<Cylinder>& cylinders) {
  std::string first;
  for (int row = 1; row < fgCylinders.Rows(); ++row) {
    Fault fault;
    const Cylinder cylinder = ReadRow(row, fault);
    for (int column = 0; column < fgCylinders.Columns(); ++column) {
      fgCylinders.SetColour(row, column, column == fault.column ? kRed : -1);
    }
    if (fault.column < 0) {
      cylinders.push_back(cylinder);
    } else if (first.empty()) {
      first = T(Text::CylindersFault, {std::to_string(row), fgCylinders.Text(0, fault.column), fault.reason});
    }
  }
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
  std::string fault = ReadAll(cylinders, choice);
  const DiveTemplate& settings = TemplateOf(document_);
  const GasSupply supply = SupplyOf(services_.forms(document_).Planned(), choice, cylinders);
  const SupplyTables tables =
      TablesOf(supply, settings.RMV, AdviceWords(texts_, platform_.separators, settings.Metric));
  fgSupply.Cells = tables.gases;
  fgLegs.Cells = tables.legs;
  if (fault.empty() && !cylinders.empty() && !supply.IsTold()) fault = T(Text::CylindersNoRows);
  lbFault.Caption = fault;
  cbRemove.Enabled = fgCylinders.Rows() > 1;
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
  const Kind& kind = kKinds.at(index < 0 ? 0 : static_cast<std::size_t>(index));
  fgCylinders.AddRow(RowOf({MissingGas(), kind.count, kind.size, kind.rated, kind.fill, kind.reserve, false}));
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
