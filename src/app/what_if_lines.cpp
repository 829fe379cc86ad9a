#include "app/what_if_lines.h"

#include <algorithm>

namespace tav {
WhatIfColumnKey WhatIfColumnKey::Of(const std::vector<WhatIfColumn>& columns, std::size_t index) {
  WhatIfColumnKey key{columns[index].PickName(), 0};
  key.nth = static_cast<int>(std::count_if(columns.begin(), columns.begin() + static_cast<std::ptrdiff_t>(index),
                                           [&](const auto& column) { return column.PickName() == key.name; }));
  return key;
}

std::optional<std::size_t> WhatIfColumnKey::In(const std::vector<WhatIfColumn>& columns) const {
  int before = nth;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].PickName() == name && before-- == 0) return i;
  }
  return std::nullopt;
}

const WhatIfLines::Choice* WhatIfLines::Of(std::int16_t document) const {
  const auto found = chosen_.find(document);
  return found == chosen_.end() ? nullptr : &found->second;
}

void WhatIfLines::Choose(std::int16_t document, const WhatIfWish& wish, const WhatIfColumnKey& column,
                         const ClassProfile& rows) {
  chosen_[document] = {wish, column, forms_(document).Evaluation(),
                       forms_.Services().documents(document).Template.Metric};
  draw_(document, LineOf(rows));
}

void WhatIfLines::Show(std::int16_t document, const ClassProfile& rows) { draw_(document, LineOf(rows)); }

void WhatIfLines::Clear(std::int16_t document) {
  chosen_.erase(document);
  draw_(document, {});
}

void WhatIfLines::Follow(std::int16_t document) {
  const auto found = chosen_.find(document);
  if (found == chosen_.end()) return;
  if (forms_.Services().documents(document).SlotFree) {
    chosen_.erase(found);
    return;
  }
  const Choice choice = found->second;
  if (choice.evaluation == forms_(document).Evaluation()) return;
  if (choice.metric != forms_.Services().documents(document).Template.Metric) return Clear(document);
  const SeriesDive dive = forms_.Series(document, false).front();
  WhatIf plan(dive.dive);
  // A plan that can't be compared just now, while it is being changed, keeps its choice.
  if (!plan.Fault().IsEmpty()) return draw_(document, {});
  const std::vector<WhatIfColumn> columns = plan.Columns(choice.wish);
  const auto at = choice.column.In(columns);
  if (!at) return Clear(document);
  Choose(document, choice.wish, choice.column, columns[*at].rows);
}

}  // namespace tav
