#include "reports/plan_slate.h"

#include "model/text_id.h"
#include "reports/dive_report.h"
#include "supply/supply_text.h"
#include "tables/way_out_supply.h"

namespace tav {

std::string TurnText(const GasSupply& supply, const AdviceWords& words) {
  const LegSupply* deepest = nullptr;
  for (const LegSupply& leg : supply.legs) {
    if (deepest == nullptr || leg.depth >= deepest->depth) deepest = &leg;
  }
  if (deepest == nullptr || !deepest->turnLeft) return {};
  return ToActByText(*supply.Of(deepest->gas), deepest->turnLeft, words);
}

namespace {

/// What must be carried, so that a leg leaves its minimum gas.
double NeedAt(const LegSupply& leg) { return leg.used + leg.Minimum(); }

}  // namespace

std::vector<std::string> ShortGases(const GasSupply& supply, const AdviceWords& words) {
  std::vector<std::string> lines;
  for (const GasStore& store : supply.gases) {
    const LegSupply* worst = nullptr;  // of the legs that leave too little
    for (const LegSupply& leg : supply.legs) {
      if (leg.gas != store.gas || !leg.decompresses || supply.VerdictOf(leg) != GasVerdict::RunsOut) continue;
      if (worst == nullptr || NeedAt(leg) > NeedAt(*worst)) worst = &leg;
    }
    if (worst != nullptr && (store.verdict == GasVerdict::Enough || store.verdict == GasVerdict::IntoReserve)) {
      const std::string when = words.T(Text::WhatIfMoment, {words.Short(worst->runTime), words.Depth(worst->depth)});
      lines.push_back(GasNote(store, VerdictText(supply, *worst, words) + " " + when, NeedAt(*worst), words));
    } else if (IsShort(store)) {
      lines.push_back(GasNote(store, words));
    }
  }
  return lines;
}

namespace {

/// What a bail-out asks for, as a supply.
GasSupply SupplyOf(const std::vector<GasNeed>& needs) {
  GasSupply supply;
  for (const GasNeed& need : needs) {
    if (!need.verdict) continue;
    GasStore& store = supply.gases.emplace_back();
    store.gas = need.mix;
    store.carried = need.carried.value_or(0);
    store.bailOut.emplace();
    store.bailOutVolume = need.need;
    store.verdict = *need.verdict;
  }
  return supply;
}

SlateDive PlanOf(const SlateServices& services, const SeriesDive& dive) {
  const auto& [record, plan, before] = dive.dive;
  const AdviceWords words(services.texts, services.separators, record.Template.Metric);
  const GasSupply supply = SupplyOf(dive.dive);
  return {DiveTitle(dive, services.texts),
          "",
          plan.rows,
          record.Template,
          plan.model,
          before != nullptr,
          plan.end.Decompresses,
          TurnText(supply, words),
          ShortGases(supply, words)};
}

}  // namespace

void WriteSlates(const SlateServices& services, const std::vector<SeriesDive>& dives) {
  services.slate.Begin();
  for (const SeriesDive& dive : dives) services.slate.Add(PlanOf(services, dive));
  services.slate.End();
}

void WriteSlates(const SlateServices& services, const SeriesDive& planned, const std::vector<WhatIfColumn>& columns,
                 const WhatIfWish& wish) {
  services.slate.Begin();
  const SlateDive plan = PlanOf(services, planned);
  const AdviceWords words(services.texts, services.separators, plan.settings.Metric);
  for (const WhatIfColumn& column : columns) {
    if (!column.fault.IsEmpty()) continue;
    SlateDive dive{plan.title, "", column.rows, plan.settings, plan.model, plan.repetitive, column.decompresses};
    if (column.kind == WhatIfColumn::Kind::Planned) {
      dive.turn = plan.turn;
      dive.shortGases = plan.shortGases;
    } else {
      const GasSupply supply = column.kind == WhatIfColumn::Kind::BailOut
                                   ? SupplyOf(column.gas)
                                   : SupplyOf(PlannedDive{column.record, column.plan, planned.dive.before});
      dive.shortGases = ShortGases(supply, words);
      const std::string detail = DetailOf(column, wish, words);
      dive.variant = NameOf(column, words) + (detail.empty() ? "" : " " + detail);
    }
    services.slate.Add(dive);
  }
  services.slate.End();
}

}  // namespace tav
