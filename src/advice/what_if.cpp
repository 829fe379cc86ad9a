#include "advice/what_if.h"

#include <algorithm>

#include "advice/lost_gas.h"
#include "advice/plan_check.h"
#include "model/number_text.h"
#include "model/numbers.h"
#include "model/text_id.h"

namespace tav {
namespace {

using Kind = WhatIfColumn::Kind;

/// A gas that is lost is lost from the start.
std::vector<GasWarning> WarningsOf(const ClassProfile& rows, const DiveTemplate& settings,
                                   const std::optional<std::string>& lost) {
  return GasWarnings({rows, settings, LastUserRow(rows), FirstOpenRow(rows, settings)}, {true, lost, 1});
}

/// Per cent, as scripts read them.
std::string PerCent(Single factor) { return FormatPlain(RoundSingle(factor * 100, 2)); }

}  // namespace

std::optional<GradientFactors> FactorsOf(std::string_view text) {
  constexpr double kPerCentFrom = 2;
  constexpr double kBelow = 2;
  const std::size_t slash = text.find('/');
  if (slash == std::string_view::npos) return std::nullopt;
  const auto factor = [](std::string_view typed) {
    auto number = ParseStrict(typed);
    if (number && *number >= kPerCentFrom) number = Single(*number / 100);
    return number;
  };
  const auto low = factor(text.substr(0, slash));
  const auto high = factor(text.substr(slash + 1));
  if (!low || !high || !(*low > 0) || *high < *low || *high >= kBelow) return std::nullopt;
  return GradientFactors{*low, *high};
}

std::string TextOf(const GradientFactors& factors) { return PerCent(factors.low) + "/" + PerCent(factors.high); }

std::vector<GasNeed> GasNeeds(const std::vector<GasStore>& stores, bool told, bool metric) {
  std::vector<GasNeed> needs;
  for (const GasStore& store : stores) {
    if (!(store.Need() > 0)) continue;
    GasNeed& need = needs.emplace_back(
        GasNeed{store.gas, store.used, store.Need(), store.ShownBreathed(metric), store.ShownNeed(metric), {}, {}, {}});
    if (!told) continue;
    need.carried = store.carried;
    need.ofPlan = store.ofPlan;
    need.verdict = store.verdict;
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
    case Kind::AllLost:
      return "lost all";
    case Kind::Factors:
      return "gf " + TextOf(factors);
    case Kind::BailOut:
      return "bail-out " + FormatPlain(minute.moment);
  }
  return {};
}

std::string WhatIfColumn::PickName() const { return kind == Kind::BailOut ? "bail-out" : Id(); }

WhatIf::WhatIf(const PlannedDive& dive) : plan_(dive.record), model_(dive.plan.model), fault_(dive.plan.fault) {
  if (dive.before != nullptr) before_ = *dive.before;
  ClassUseractions& actions = plan_.UserActions;
  deepest_ = DeepestLegOf(actions);
  if (fault_.IsEmpty() && deepest_ == 0) fault_ = Text::NoLegs;
  if (!fault_.IsEmpty()) return;
  addsAscent_ = dive.plan.state != EditState::Ascent;
  if (addsAscent_ && actions.GetLength() == INT16_MAX) {
    fault_ = Text::TooManyActions;
    return;
  }
  if (addsAscent_) {
    actions.NewAction();
    actions.setdeco(actions.GetLength());
  }
}

std::int16_t DeepestLegOf(const ClassUseractions& actions) {
  std::int16_t deepest = 0;
  for (std::int16_t i = 1; i <= actions.GetLength() && i > 0; ++i) {
    if (actions.getaction(i) != ClassUseractions::kLeg) continue;
    if (deepest == 0 || actions.getDepth(i) >= actions.getDepth(deepest)) deepest = i;
  }
  return deepest;
}

WhatIfColumn WhatIf::Planned() const {
  if (fault_.IsEmpty()) return ColumnOf(Kind::Planned, plan_);
  WhatIfColumn column;
  column.record = plan_;
  column.fault = fault_;
  return column;
}

ComputedPlan WhatIf::Computed(const DiveRecord& dive) const {
  EngineObserver silent;
  return Compute(dive, model_, before_ ? &*before_ : nullptr, silent);
}

WhatIfColumn WhatIf::ColumnOf(Kind kind, DiveRecord dive) const {
  WhatIfColumn column;
  column.kind = kind;
  column.record = std::move(dive);
  column.plan = Computed(column.record);
  column.fault = column.plan.fault;
  column.decompresses = column.plan.end.Decompresses;
  column.rows = column.plan.loadedRows;
  if (!column.fault.IsEmpty()) return column;
  const DiveTemplate& settings = column.record.Template;
  const SupplyChoice choice = SupplyChoiceOf(settings);
  const PlannedDive planned{column.record, column.plan, Before()};
  const bool told = !plan_.Template.Cylinders.empty();
  if (told && kind != Kind::Lost && kind != Kind::AllLost) {
    column.supply = SupplyOf(planned);
  } else {
    const BailOutNeeds needs = BailOutNeedsOf(planned, choice.minutes);
    const double breathing = choice.team * choice.stress * settings.RMV;
    column.supply.gases = StoresOf(column.rows, settings, settings.Cylinders, needs, breathing);
    column.supply.neverUp = needs.neverUp;
    column.supply.choice = choice;
    column.supply.metric = settings.Metric;
  }
  column.gas = GasNeeds(column.supply.gases, told, settings.Metric);
  if (!told) column.supply = {};
  column.warnings = WarningsOf(column.rows, settings, std::nullopt);
  return column;
}

WhatIfColumn WhatIf::Changed(Kind kind, const WhatIfWish& wish) const {
  DiveRecord dive = plan_;
  ClassUseractions& actions = dive.UserActions;
  const double longer = kind == Kind::Deeper ? 0.0 : double{wish.minutes};
  const double deeper = kind == Kind::Longer ? 0.0 : double{wish.depth};
  actions.setuser(deepest_, actions.getDepth(deepest_) + deeper, actions.gettime(deepest_) + longer,
                  actions.getmixnumber(deepest_));
  return ColumnOf(kind, std::move(dive));
}

WhatIfColumn WhatIf::Lost(Kind kind, const std::vector<std::string>& gases) const {
  DiveRecord dive = plan_;
  const Message fault = LoseGases(gases, dive);
  WhatIfColumn column;
  if (fault.IsEmpty()) {
    column = ColumnOf(kind, std::move(dive));
    if (kind == Kind::Lost) column.warnings = WarningsOf(column.rows, column.record.Template, gases.front());
  } else {
    column.kind = kind;
    column.fault = fault;
  }
  if (kind == Kind::Lost) column.lost = gases.front();
  return column;
}

WhatIfColumn WhatIf::With(const GradientFactors& factors) const {
  if (model_.VPMMode) {
    WhatIfColumn column;
    column.kind = Kind::Factors;
    column.factors = factors;
    column.fault = Text::WhatIfNoFactors;
    return column;
  }
  DiveRecord dive = plan_;
  dive.Template.UseGF = true;
  dive.Template.GFLow = factors.low;
  dive.Template.GFHigh = factors.high;
  WhatIfColumn column = ColumnOf(Kind::Factors, std::move(dive));
  column.factors = factors;
  return column;
}

WhatIfColumn WhatIf::BailOut(const PlannedDive& dive, const BailoutCuts& cuts, const DearMinute& minute) const {
  const DiveTemplate& settings = plan_.Template;
  WhatIfColumn column;
  column.kind = Kind::BailOut;
  column.minute = minute;
  column.record = plan_;
  try {
    const TableDive cut = cuts.At(minute.moment);
    column.depth = cut.depth;
    column.decompresses = cut.decompresses;
    column.rows = cut.profile;
    column.warnings = GasWarnings({settings, {}, true}, cut);
    const SupplyChoice choice = SupplyChoiceOf(settings);
    column.supply.gases =
        StoresOf(cut.profile, settings, settings.Cylinders, BailOutNeedsOf(dive, choice.minutes, minute.moment),
                 choice.team * choice.stress * settings.RMV, &dive.plan.rows);
    column.gas = GasNeeds(column.supply.gases, !settings.Cylinders.empty(), settings.Metric);
    if (settings.Cylinders.empty()) column.supply = {};
  } catch (const MessageError& error) {
    column.fault = error.Reason();
  }
  return column;
}

std::vector<WhatIfColumn> WhatIf::BailOuts(const WhatIfColumn& planned) const {
  EngineObserver silent;
  const PlannedDive dive{planned.record, planned.plan, Before()};
  const BailoutCuts cuts(dive, model_, 1, silent);
  std::vector<WhatIfColumn> columns;
  if (!cuts.Fault().IsEmpty()) {
    columns.emplace_back().kind = Kind::BailOut;
    columns.back().fault = cuts.Fault();
    return columns;
  }
  const BailOutNeeds needs = BailOutNeedsOf(dive, SupplyChoiceOf(plan_.Template).minutes);
  const std::vector<DearMinute> minutes = needs.Minutes();
  if (minutes.empty()) {
    columns.emplace_back().kind = Kind::BailOut;
    columns.back().fault = Text::NeverUnderWater;
  }
  for (const DearMinute& minute : minutes) columns.push_back(BailOut(dive, cuts, minute));
  return columns;
}

std::vector<WhatIfColumn> WhatIf::Columns(const WhatIfWish& wish) {
  if (fixed_.empty()) {
    const std::vector<std::string> lost = GasesToLose(plan_.Template);
    fixed_.push_back(ColumnOf(Kind::Planned, plan_));
    for (const std::string& gas : lost) fixed_.push_back(Lost(Kind::Lost, {gas}));
    if (lost.size() > 1) fixed_.push_back(Lost(Kind::AllLost, lost));
    if (!plan_.Template.OpenCircuit) {
      for (WhatIfColumn& way : BailOuts(fixed_.front())) fixed_.push_back(std::move(way));
    }
  }
  std::vector<WhatIfColumn> columns;
  columns.reserve(fixed_.size() + 3 + wish.factors.size());
  columns.push_back(fixed_.front());
  for (const Kind kind : {Kind::Longer, Kind::Deeper, Kind::Both}) columns.push_back(Changed(kind, wish));
  const auto ways = std::ranges::find(fixed_, Kind::BailOut, &WhatIfColumn::kind);
  columns.insert(columns.end(), fixed_.begin() + 1, ways);
  for (const GradientFactors& factors : wish.factors) {
    WhatIfColumn column = With(factors);
    // Asked for once.
    if (std::ranges::find(columns, column.Id(), &WhatIfColumn::Id) == columns.end())
      columns.push_back(std::move(column));
  }
  columns.insert(columns.end(), ways, fixed_.end());
  return columns;
}

std::vector<Finding> DangersOf(const WhatIfColumn& column, const EndState* before, const AdviceWords& words) {
  if (!column.fault.IsEmpty()) return {};
  if (column.kind == WhatIfColumn::Kind::BailOut) {
    if (column.decompresses) return {};
    return {{Rule::DoesNotDecompress, Severity::Danger, 0, 0, words.T(Text::SupplyNoWayUp)}};
  }
  std::vector<Finding> findings = CheckPlan(CheckedDive({column.record, column.plan, before}), words, column.supply);
  std::erase_if(findings, [](const Finding& finding) { return finding.severity != Severity::Danger; });
  return findings;
}

}  // namespace tav
