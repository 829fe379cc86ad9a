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

std::vector<std::string> ShortGases(const GasSupply& supply, const AdviceWords& words) {
  std::vector<std::string> lines;
  for (const GasStore& store : supply.gases) {
    if (!IsShort(store) || store.verdict == GasVerdict::UnknownGas) continue;
    std::string when;
    for (const LegSupply& leg : supply.legs) {
      // Too little for the minimum gas of a leg, not for the plan itself.
      if (leg.gas != store.gas || store.ofPlan == GasVerdict::RunsOut || leg.used + leg.Minimum() < store.Need())
        continue;
      when = words.T(Text::WhatIfMoment, {words.Short(leg.runTime), words.Depth(leg.depth)});
    }
    lines.push_back(GasNote(store, words, when));
  }
  return lines;
}

namespace {

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
    SlateDive dive{plan.title,         "", column.rows, column.record.Template, plan.model, plan.repetitive,
                   column.decompresses};
    if (column.kind == WhatIfColumn::Kind::Planned) {
      dive.turn = plan.turn;
      dive.shortGases = plan.shortGases;
    } else {
      dive.shortGases = ShortGases(column.supply, words);
      const std::string detail = DetailOf(column, wish, words);
      dive.variant = NameOf(column, words) + (detail.empty() ? "" : " " + detail);
    }
    services.slate.Add(dive);
  }
  services.slate.End();
}

}  // namespace tav
