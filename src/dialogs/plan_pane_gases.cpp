#include "dialogs/plan_pane_gases.h"

#include <algorithm>
#include <utility>

#include "figures/advice_words.h"
#include "model/gas_name.h"
#include "model/text_id.h"
#include "supply/supply_text.h"

namespace tav {

namespace {

/// The same gases stay in their places: a tick that moved its row away would put another one under the pointer.
void KeepPlaces(const std::vector<GasAtHand>& before, std::vector<GasAtHand>& gases) {
  std::vector<GasAtHand> ordered;
  for (const GasAtHand& had : before) {
    const auto again = std::ranges::find_if(gases, [&](const GasAtHand& gas) {
      return gas.name == had.name && std::ranges::find(ordered, gas) == ordered.end();
    });
    if (again == gases.end()) return;
    ordered.push_back(*again);
  }
  if (ordered.size() == gases.size()) gases = std::move(ordered);
}

}  // namespace

PlanPaneGases::PlanPaneGases(Form& form, PlanEntry& entry) : PlanPanePart(form, entry) {
  fgGases.EditorOf = [this](int line, int column) { return EditorOf(line, column); };
  fgGases.Commit = [this](int line, int column, const std::string& text) { Commit(line, column, text); };
  fgGases.Ticked = [this](int line, bool on) { Tick(line, on); };
  cbAddGas.Click = fgGases.InsertKey = [this] {
    if (!entry_.IsFree()) return;
    entry_.Finish();
    fgGases.SetFocus();
    fgGases.SelectCell(fgGases.Rows() - 1, kGas);
    fgGases.OpenSelected();
  };
}

void PlanPaneGases::SetTexts() {
  lbGases.Caption = T(Text::PaneGasesAtHand);
  cbAddGas.Caption = T(Text::PaneAddGas);
  fgGases.ToolTipText = T(Text::PaneWayUpMeans);
  fgGases.RightColumns = {kDepth};
}

const GasAtHand* PlanPaneGases::At(int line) const {
  const bool isGas = line > 0 && static_cast<std::size_t>(line) <= gases_.size();
  return isGas ? &gases_[static_cast<std::size_t>(line) - 1] : nullptr;
}

Grid::Editor PlanPaneGases::EditorOf(int line, int column) const {
  const int typed = At(line) != nullptr ? kDepth : kGas;
  return {line > 0 && column == typed && entry_.IsFree() ? Grid::Editor::Kind::Text : Grid::Editor::Kind::None, {}};
}

void PlanPaneGases::Commit(int line, int column, const std::string& text) {
  const std::string typed(TrimBlanks(text));
  if (typed == fgGases.Text(line, column)) return;
  if (At(line) == nullptr) return AddGas(typed);
  const GasAtHand gas = *At(line);
  typed.empty() ? LeaveOut(gas) : SetDepth(gas, typed);
}

void PlanPaneGases::Tick(int line, bool on) {
  if (!entry_.IsFree() || At(line) == nullptr) return fgGases.Refresh();
  const GasAtHand gas = *At(line);
  if (!on) return LeaveOut(gas);
  const DiveTemplate& t = entry_.Template();
  const auto mix = FindBlend(gas.name, t);
  const Single depth = mix ? DeepestOnWayUp(t.Blends[static_cast<std::size_t>(*mix)], t) : Single(0);
  SetDepth(gas, Plain(depth));
  fgGases.Refresh();  // what is refused has no tick
}

void PlanPaneGases::SetDepth(const GasAtHand& gas, const std::string& text) {
  const double depth = NumberIn(text).value_or(0);
  const std::string fault = depth > 0 ? "" : T(Text::PaneGasDepthFault);
  Enter(text, fault, [&](DiveTemplate& t) {
    if (gas.change) t.AutoDecoGas = false;
    BreatheOnWayUp(gas, depth, t);
  });
}

void PlanPaneGases::LeaveOut(const GasAtHand& gas) {
  if (!gas.change) return fgGases.Refresh();
  const auto at = static_cast<std::ptrdiff_t>(*gas.change);
  Enter(gas.name, "", [at](DiveTemplate& t) { t.ChangeGasMixes.erase(t.ChangeGasMixes.begin() + at); });
}

void PlanPaneGases::AddGas(const std::string& name) {
  const bool known = GasNamed(name, entry_.Template().Blends).has_value();
  const std::string fault = known ? "" : T(TypedGasFault(name));
  Enter(name, fault, [&](DiveTemplate& t) { TakeGas(name, t.Blends, GasFromName); });
}

void PlanPaneGases::Enter(const std::string& text, const std::string& fault,
                          const std::function<void(DiveTemplate&)>& change) {
  entry_.Finish();
  entering_ = true;
  entry_.TypeSetting(text, fault, change);
  entry_.Finish();
  entering_ = false;
}

std::string PlanPaneGases::CylindersOf(const std::string& gas) const {
  const AdviceWords words(texts_, numbers_, entry_.Template().Metric);
  std::string text;
  for (const Cylinder& cylinder : entry_.Template().Cylinders) {
    if (cylinder.Gas != gas) continue;
    GasStore line;
    line.cylinders = {cylinder};
    text += (text.empty() ? "" : " + ") + CylindersText(line, words) + ", " +
            words.Gauge(cylinder.Fill, cylinder.InLitres());
  }
  return text;
}

void PlanPaneGases::Show() {
  const bool hasPlan = entry_.HasPlan();
  cbAddGas.Enabled = entry_.IsFree();
  fgGases.Enabled = hasPlan;
  const std::vector<GasAtHand> before = std::exchange(gases_, {});
  if (hasPlan) gases_ = GasesAtHand(entry_.Template(), entry_.Editor().UserActions);
  if (entering_) KeepPlaces(before, gases_);
  std::vector<std::vector<GridCell>> cells;
  cells.reserve(gases_.size() + 2);
  const std::string unit = hasPlan ? " " + entry_.LengthUnit() : "";
  cells.push_back({{T(Text::Gas)}, {T(Text::PaneWayUpFrom) + unit}, {T(Text::PaneCylinders)}});
  for (const GasAtHand& gas : gases_) {
    GridCell name{gas.name};
    name.tick = gas.change.has_value();
    const auto& changes = entry_.Template().ChangeGasMixes;
    cells.push_back({name, {gas.change ? Plain(changes[*gas.change].Depth) : ""}, {CylindersOf(gas.name)}});
  }
  if (hasPlan) cells.emplace_back(kCylinders + 1);
  fgGases.Cells = std::move(cells);
}

}  // namespace tav
