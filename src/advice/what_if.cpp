#include "advice/what_if.h"

#include <algorithm>

#include "compute/bailout_cuts.h"
#include "model/text_id.h"
#include "supply/gas_supply.h"

namespace tav {
namespace {

using Kind = WhatIfColumn::Kind;

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
WhatIfColumn ColumnOf(Kind kind, const ComputedPlan& plan, const DiveTemplate& settings,
                      const std::optional<std::string>& lost = std::nullopt) {
  const ClassProfile& rows = plan.rows;
  WhatIfColumn column;
  column.kind = kind;
  column.fault = plan.fault;
  column.decompresses = plan.end.Decompresses;
  column.rows = plan.loadedRows;
  column.gas = GasNeeds(rows, settings);
  column.warnings = GasWarnings({rows, settings, LastUserRow(rows), FirstOpenRow(rows, settings)}, {true, lost, 1});
  return column;
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

std::vector<GasNeed> GasNeeds(const ClassProfile& rows, const DiveTemplate& settings) {
  std::vector<GasNeed> needs;
  for (const GasStore& store : StoresOf(rows, settings, settings.Cylinders)) {
    if (!(store.used > 0)) continue;
    GasNeed& need = needs.emplace_back(GasNeed{store.gas, store.used, std::nullopt, std::nullopt});
    if (settings.Cylinders.empty()) continue;
    need.carried = store.carried;
    need.enough = store.verdict == GasVerdict::Enough;
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

WhatIf::WhatIf(const PlannedDive& dive) : plan_(dive.record), model_(dive.plan.model), fault_(dive.plan.fault) {
  if (dive.before != nullptr) before_ = *dive.before;
  ClassUseractions& actions = plan_.UserActions;
  for (std::int16_t i = 1; i <= actions.GetLength(); ++i) {
    if (actions.getaction(i) != ClassUseractions::kLeg) continue;
    if (deepest_ == 0 || actions.getDepth(i) >= actions.getDepth(deepest_)) deepest_ = i;
  }
  if (fault_.IsEmpty() && deepest_ == 0) fault_ = Text::NoLegs;
  if (!fault_.IsEmpty()) return;
  addsAscent_ = dive.plan.state != EditState::Ascent;
  if (addsAscent_) {
    actions.NewAction();
    actions.setdeco(actions.GetLength());
  }
}

ComputedPlan WhatIf::Computed(const DiveRecord& dive) const {
  EngineObserver silent;
  return Compute(dive, model_, before_ ? &*before_ : nullptr, silent);
}

WhatIfColumn WhatIf::Changed(Kind kind, const WhatIfWish& wish) const {
  DiveRecord dive = plan_;
  ClassUseractions& actions = dive.UserActions;
  const double longer = kind == Kind::Deeper ? 0.0 : double{wish.minutes};
  const double deeper = kind == Kind::Longer ? 0.0 : double{wish.depth};
  actions.setuser(deepest_, actions.getDepth(deepest_) + deeper, actions.gettime(deepest_) + longer,
                  actions.getmixnumber(deepest_));
  return ColumnOf(kind, Computed(dive), dive.Template);
}

WhatIfColumn WhatIf::Lost(const std::string& gas) const {
  DiveRecord dive = plan_;
  for (std::size_t i = dive.Template.ChangeGasMixes.size(); i-- > 0;) {
    // The list may have a gas twice; all of it is in the cylinder that is lost.
    if (dive.Template.ChangeGasMixes[i].Name == gas) dive.Template = DropGasChange(dive.Template, static_cast<int>(i));
  }
  WhatIfColumn column = ColumnOf(Kind::Lost, Computed(dive), dive.Template, gas);
  column.lost = gas;
  return column;
}

WhatIfColumn WhatIf::BailOut(const ComputedPlan& planned) const {
  WhatIfColumn worst;
  worst.kind = Kind::BailOut;
  EngineObserver silent;
  const BailoutCuts cuts({plan_, planned, before_ ? &*before_ : nullptr}, model_, 1, silent);
  worst.fault = cuts.Fault();
  if (!worst.fault.IsEmpty()) return worst;
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
      worst.rows = cut.profile;
      worst.warnings = GasWarnings({plan_.Template, {}, true}, cut);
      return cut.decompresses;  // nothing is worse than what never ends
    });
  } catch (const MessageError& error) {
    worst.fault = error.Reason();
  }
  if (worst.fault.IsEmpty() && worst.rows.GetLength() == 0) worst.fault = Text::NeverUnderWater;
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
    const ComputedPlan planned = Computed(plan_);
    fixed_.reserve(lost.size() + 2);
    fixed_.push_back(ColumnOf(Kind::Planned, planned, plan_.Template));
    for (const std::string& gas : lost) fixed_.push_back(Lost(gas));
    if (!plan_.Template.OpenCircuit) fixed_.push_back(BailOut(planned));
  }
  std::vector<WhatIfColumn> columns;
  columns.reserve(fixed_.size() + 3);
  columns.push_back(fixed_.front());
  for (const Kind kind : {Kind::Longer, Kind::Deeper, Kind::Both}) columns.push_back(Changed(kind, wish));
  columns.insert(columns.end(), fixed_.begin() + 1, fixed_.end());
  return columns;
}

}  // namespace tav
