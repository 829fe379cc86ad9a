#include "advice/what_if.h"

#include <algorithm>

#include "figures/dive_figures.h"
#include "plans/bailout_cuts.h"

namespace tav {
namespace {

using Kind = WhatIfColumn::Kind;

constexpr double kNoise = 1e-3;  // litres or cubic feet, far below what is shown
constexpr int kNoLegs = 7886;
constexpr int kNeverUnderWater = 7758;

/// How much a bail-out asks for; the more, the worse.
struct Demand {
  bool endless = false;   ///< it never reaches the surface
  double notCarried = 0;  ///< volume of gases that are in no cylinder
  double ratio = 0;       ///< the most of used to usable gas; minutes where no cylinders are told

  [[nodiscard]] bool IsAbove(const Demand& other) const {
    if (endless != other.endless) return endless;
    if (notCarried != other.notCarried) return notCarried > other.notCarried;
    return ratio > other.ratio;
  }
};

/// A gas that is lost is lost from the start.
std::vector<GasWarning> WarningsOf(const ClassProfile& rows, const DiveTemplate& settings,
                                   const std::optional<std::string>& lost = std::nullopt) {
  return GasWarnings({rows, settings, LastUserRow(rows), FirstOpenRow(rows, settings)}, {true, lost, 1});
}

Demand DemandOf(const TableDive& cut, const DiveTemplate& settings) {
  Demand demand;
  demand.endless = !cut.decompresses;
  const ClassProfile& rows = cut.profile;
  if (settings.Cylinders.empty()) {
    demand.ratio = rows.GetRunTime(rows.GetLength()) - rows.GetRunTime(LastUserRow(rows));
    return demand;
  }
  for (const GasNeed& need : GasNeeds(rows, settings)) {
    const double carried = need.carried.value_or(0);
    if (carried > 0) {
      demand.ratio = std::max(demand.ratio, need.used / carried);
    } else {
      demand.notCarried += need.used;
    }
  }
  return demand;
}

}  // namespace

std::optional<bool> GasNeed::Enough() const {
  if (!carried) return std::nullopt;
  return used <= *carried - reserve + kNoise;
}

std::vector<GasNeed> GasNeeds(const ClassProfile& rows, const DiveTemplate& settings) {
  std::vector<GasNeed> needs;
  for (const GasTotal& total : GasTotals(rows, settings)) {
    if (!(total.total > 0)) continue;
    GasNeed& need = needs.emplace_back();
    need.mix = total.Name;
    need.used = total.total;
    if (settings.Cylinders.empty()) continue;
    need.carried = 0;
    for (const Cylinder& cylinder : settings.Cylinders) {
      if (cylinder.Gas != need.mix) continue;
      const double perPressure = GasPerPressure(cylinder, settings.Metric);
      *need.carried += perPressure * PressureIn(settings.Metric, cylinder, cylinder.Fill);
      need.reserve += perPressure * PressureIn(settings.Metric, cylinder, cylinder.Reserve);
    }
  }
  return needs;
}

std::string WhatIfColumn::Id() const {
  switch (kind) {
    case Kind::Planned:
      return "planned";
    case Kind::Longer:
      return "longer";
    case Kind::Deeper:
      return "deeper";
    case Kind::Both:
      return "both";
    case Kind::Lost:
      return "lost " + lost;
    case Kind::BailOut:
      return "bail-out";
  }
  return {};
}

WhatIf::WhatIf(DocumentForms& forms, std::int16_t document)
    : model_(forms.Services().model),
      forms_({store_, model_, observer_, display_, boxes_, forms.Services().texts}),
      plan_(forms.Services().documents(document)),
      actions_(forms(document).UserActions),
      fault_(forms(document).EvaluationFault()) {
  const frmWaypointEditor& window = forms(document);
  for (std::int16_t i = 1; i <= actions_.GetLength(); ++i) {
    if (actions_.getaction(i) != ClassUseractions::kLeg) continue;
    if (deepest_ == 0 || actions_.getDepth(i) >= actions_.getDepth(deepest_)) deepest_ = i;
  }
  if (fault_.empty() && deepest_ == 0) fault_ = forms.Services().texts.GetResString(kNoLegs);
  if (!fault_.empty()) return;
  addsAscent_ = window.State() != EditState::Ascent;
  if (addsAscent_) {
    actions_.NewAction();
    actions_.setdeco(actions_.GetLength());
  }
  std::int16_t before = -1;
  if (window.PrevProfile != -1) {
    // Its window must know that it has an ascent; its loads are those that the user's series has.
    before = forms_.NewDocument();
    const DocumentState& previous = forms.Services().documents(window.PrevProfile);
    store_(before) = previous;
    forms_(before).UserActions = forms(window.PrevProfile).UserActions;
    forms_(before).ReEvaluateUserEnteredWaypoints();
    store_(before) = previous;
  }
  scratch_ = forms_.NewDocument();
  store_(scratch_) = plan_;
  forms_(scratch_).DiveNumber = window.DiveNumber;
  forms_(scratch_).PrevProfile = before;
}

WhatIfColumn WhatIf::Run(Kind kind, const ClassUseractions& actions, const DiveTemplate& settings) {
  frmWaypointEditor& window = forms_(scratch_);
  store_(scratch_).Template = settings;
  window.UserActions = actions;
  window.ReEvaluateUserEnteredWaypoints();
  WhatIfColumn column;
  column.kind = kind;
  column.fault = window.EvaluationFault();
  column.decompresses = store_(scratch_).Decompresses;
  column.rows = window.InputProfile;
  column.gas = GasNeeds(column.rows, settings);
  column.warnings = WarningsOf(column.rows, settings);
  return column;
}

WhatIfColumn WhatIf::Changed(Kind kind, const WhatIfWish& wish) {
  ClassUseractions actions = actions_;
  const double longer = kind == Kind::Deeper ? 0.0 : double{wish.minutes};
  const double deeper = kind == Kind::Longer ? 0.0 : double{wish.depth};
  actions.setuser(deepest_, actions_.getDepth(deepest_) + deeper, actions_.gettime(deepest_) + longer,
                  actions_.getmixnumber(deepest_));
  return Run(kind, actions, plan_.Template);
}

WhatIfColumn WhatIf::Lost(const std::string& gas) {
  DiveTemplate settings = plan_.Template;
  for (std::size_t i = settings.ChangeGasMixes.size(); i-- > 0;) {
    // The list may have a gas twice; all of it is in the cylinder that is lost.
    if (settings.ChangeGasMixes[i].Name == gas) settings = DropGasChange(settings, static_cast<int>(i));
  }
  WhatIfColumn column = Run(Kind::Lost, actions_, settings);
  column.lost = gas;
  column.warnings = WarningsOf(column.rows, settings, gas);
  return column;
}

WhatIfColumn WhatIf::BailOut() {
  WhatIfColumn worst;
  worst.kind = Kind::BailOut;
  const BailoutCuts cuts(forms_, scratch_, 1);
  worst.fault = cuts.Fault();
  if (!worst.fault.empty()) return worst;
  Demand most;
  try {
    cuts.Visit([&](const TableDive& cut) {
      if (!(cut.depth > 0)) return true;
      const Demand demand = DemandOf(cut, plan_.Template);
      if (worst.rows.GetLength() > 0 && !demand.IsAbove(most)) return true;
      most = demand;
      worst.moment = cut.head;
      worst.depth = cut.depth;
      worst.decompresses = cut.decompresses;
      worst.rows.Copy(cut.profile);
      worst.warnings = GasWarnings({plan_.Template, {}, true}, cut);
      return cut.decompresses;  // nothing is worse than what never ends
    });
  } catch (const std::runtime_error& error) {
    worst.fault = forms_.Services().texts.Words(error);
  }
  if (worst.fault.empty() && worst.rows.GetLength() == 0)
    worst.fault = forms_.Services().texts.GetResString(kNeverUnderWater);
  worst.gas = GasNeeds(worst.rows, plan_.Template);
  return worst;
}

std::vector<WhatIfColumn> WhatIf::Columns(const WhatIfWish& wish) {
  if (fixed_.empty()) {
    std::vector<std::string> lost;
    for (const GasChange& change : plan_.Template.ChangeGasMixes) {
      const bool known = FindBlend(change.Name, plan_.Template).has_value();
      if (known && std::ranges::find(lost, change.Name) == lost.end()) lost.push_back(change.Name);
    }
    fixed_.reserve(lost.size() + 2);
    for (const std::string& gas : lost) fixed_.push_back(Lost(gas));
    // The loop plan stands in the scratch document when the bail-out cuts it.
    fixed_.insert(fixed_.begin(), Run(Kind::Planned, actions_, plan_.Template));
    if (!plan_.Template.OpenCircuit) fixed_.push_back(BailOut());
  }
  std::vector<WhatIfColumn> columns;
  columns.reserve(fixed_.size() + 3);
  columns.push_back(fixed_.front());
  for (const Kind kind : {Kind::Longer, Kind::Deeper, Kind::Both}) columns.push_back(Changed(kind, wish));
  columns.insert(columns.end(), fixed_.begin() + 1, fixed_.end());
  return columns;
}

}  // namespace tav
