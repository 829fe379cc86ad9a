#include "reports/plan_slate.h"

#include "reports/dive_report.h"
#include "supply/gas_supply.h"
#include "supply/supply_text.h"

namespace tav {
std::string TurnText(DocumentForms& forms, std::int16_t document, const SupplyChoice& choice,
                     const AdviceWords& words) {
  const GasSupply supply = SupplyOf(forms, document, choice);
  const LegSupply* deepest = nullptr;
  for (const LegSupply& leg : supply.legs) {
    if (deepest == nullptr || leg.depth >= deepest->depth) deepest = &leg;
  }
  if (deepest == nullptr || !deepest->turnPressure) return {};
  return ToActByText(*supply.Of(deepest->gas), deepest->turnPressure, words);
}

namespace {

SlateDive PlanOf(const SlateServices& services, std::int16_t document) {
  const DocumentState& state = services.forms.Services().documents(document);
  const AdviceWords words(services.texts, services.separators, state.Template.Metric);
  return {DiveTitle(services.forms, document, services.texts),
          "",
          services.forms(document).InputProfile,
          state.Template,
          state.Decompresses,
          TurnText(services.forms, document, services.supply, words)};
}

}  // namespace

void WriteSlates(const SlateServices& services, std::int16_t document, bool wholeSeries) {
  services.slate.Begin();
  if (wholeSeries) {
    std::int16_t dive = services.forms(document).getFirstProfile();
    for (; dive != -1; dive = services.forms(dive).NextProfile) services.slate.Add(PlanOf(services, dive));
  } else {
    services.slate.Add(PlanOf(services, document));
  }
  services.slate.End();
}

void WriteSlates(const SlateServices& services, std::int16_t document, const std::vector<WhatIfColumn>& columns,
                 const WhatIfWish& wish) {
  services.slate.Begin();
  const SlateDive plan = PlanOf(services, document);
  const AdviceWords words(services.texts, services.separators, plan.settings.Metric);
  for (const WhatIfColumn& column : columns) {
    if (!column.fault.empty()) continue;
    SlateDive dive{plan.title, "", column.rows, plan.settings, column.decompresses};
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
