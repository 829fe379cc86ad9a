#include "reports/plan_slate.h"

#include "reports/dive_report.h"
#include "supply/gas_supply.h"
#include "supply/supply_text.h"

namespace tav {

std::string TurnText(const PlannedDive& dive, const AdviceWords& words) {
  const GasSupply supply = SupplyOf(dive);
  const LegSupply* deepest = nullptr;
  for (const LegSupply& leg : supply.legs) {
    if (deepest == nullptr || leg.depth >= deepest->depth) deepest = &leg;
  }
  if (deepest == nullptr || !deepest->turnLeft) return {};
  return ToActByText(*supply.Of(deepest->gas), deepest->turnLeft, words);
}

namespace {

SlateDive PlanOf(const SlateServices& services, const SeriesDive& dive) {
  const auto& [record, plan, before] = dive.dive;
  const AdviceWords words(services.texts, services.separators, record.Template.Metric);
  return {DiveTitle(dive, services.texts),
          "",
          plan.rows,
          record.Template,
          plan.model,
          before != nullptr,
          plan.end.Decompresses,
          TurnText(dive.dive, words)};
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
    } else {
      const std::string detail = DetailOf(column, wish, words);
      dive.variant = NameOf(column, words) + (detail.empty() ? "" : " " + detail);
    }
    services.slate.Add(dive);
  }
  services.slate.End();
}

}  // namespace tav
