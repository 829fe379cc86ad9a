#include "reports/what_if_table.h"

#include "model/text_id.h"

namespace tav {

using Kind = WhatIfColumn::Kind;

std::string NameOf(const WhatIfColumn& column, const AdviceWords& words) {
  switch (column.kind) {
    case Kind::Lost:
      return words.T(Text::WhatIfLost, {column.lost});
    case Kind::AllLost:
      return words.T(Text::WhatIfAllLost);
    case Kind::Factors:
      return "GF " + words.Short(column.factors.low * 100) + "/" + words.Short(column.factors.high * 100);
    default:
      return words.T(Text::WhatIfKinds + static_cast<int>(column.kind));
  }
}

std::string DetailOf(const WhatIfColumn& column, const WhatIfWish& wish, const AdviceWords& words) {
  std::string longer = words.T(Text::WhatIfLongerBy, {words.Short(wish.minutes)});
  std::string deeper = words.T(Text::WhatIfDeeperBy, {words.Depth(wish.depth)});
  switch (column.kind) {
    case Kind::Longer:
      return longer;
    case Kind::Deeper:
      return deeper;
    case Kind::Both:
      return longer + " " + deeper;
    case Kind::BailOut:
      return column.rows.GetLength() == 0
                 ? ""
                 : words.T(Text::WhatIfMoment, {words.Short(column.minute.moment), words.Depth(column.depth)});
    default:
      return {};
  }
}

ColumnTable TableOf(const std::vector<WhatIfColumn>& columns, const WhatIfWish& wish, const WhatIf& of,
                    const AdviceWords& words) {
  std::vector<ColumnTableBuilder::Column> told;
  told.reserve(columns.size());
  for (const WhatIfColumn& column : columns) {
    told.push_back({column, {NameOf(column, words), DetailOf(column, wish, words)}, of.Before()});
  }
  ColumnTableBuilder builder(std::move(told), words);
  builder.AddStops();
  builder.AddTotals();
  builder.AddGases(ColumnTableBuilder::Carried::OfTheFirst);
  builder.AddWarnings();
  return builder.Take();
}

}  // namespace tav
