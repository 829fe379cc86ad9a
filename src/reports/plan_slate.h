#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "plans/document_forms.h"
#include "reports/slate.h"
#include "reports/what_if_table.h"
#include "supply/supply_choice.h"

namespace tav {

/// The pressure to turn at on the deepest leg, "120 bar"; empty where the plan tells no cylinders of its gas.
std::string TurnText(DocumentForms& forms, std::int16_t document, const SupplyChoice& choice, const AdviceWords& words);

/// What a slate is written with.
struct SlateServices {
  Slate& slate;
  DocumentForms& forms;
  const TextSource& texts;
  LocaleSeparators separators;
  SupplyChoice supply;
};

/// A whole report: the slate of a dive, or of all dives of its series from the first on.
void WriteSlates(const SlateServices& services, std::int16_t document, bool wholeSeries);

/// A whole report: a slate for each column of a plan that could be computed.
void WriteSlates(const SlateServices& services, std::int16_t document, const std::vector<WhatIfColumn>& columns,
                 const WhatIfWish& wish);

}  // namespace tav
