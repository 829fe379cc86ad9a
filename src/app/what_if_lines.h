#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "advice/what_if.h"
#include "graph/overlay_line.h"
#include "plans/document_forms.h"

namespace tav {

/// A column of a comparison by what it is, so that it is found again in that of a changed plan.
struct WhatIfColumnKey {
  std::string name;  ///< as `PickName`
  int nth = 0;       ///< of the columns of this name

  static WhatIfColumnKey Of(const std::vector<WhatIfColumn>& columns, std::size_t index);
  [[nodiscard]] std::optional<std::size_t> In(const std::vector<WhatIfColumn>& columns) const;
};

/// Which column of its comparison is drawn over the graph of each plan. The line follows the plan, and stays when the
/// window of the comparison is closed, until it is cleared.
class WhatIfLines {
 public:
  struct Choice {
    WhatIfWish wish;
    WhatIfColumnKey column;
    int evaluation = 0;  ///< of the plan that the line was drawn for
    bool metric = true;  ///< the unit of the wish
  };

  /// An empty line takes the one away that is there.
  using Draw = std::function<void(std::int16_t document, const std::vector<PlotPoint>& line)>;
  WhatIfLines(DocumentForms& forms, Draw draw) : forms_(forms), draw_(std::move(draw)) {}

  /// nullptr when no line is chosen.
  [[nodiscard]] const Choice* Of(std::int16_t document) const;
  /// Draws the rows of a column.
  void Choose(std::int16_t document, const WhatIfWish& wish, const WhatIfColumnKey& column, const ClassProfile& rows);
  /// A line that nobody has chosen: the ascent that a plan lacks, while its comparison is seen; or none, while a plan
  /// can't be compared. What is chosen stays so.
  void Show(std::int16_t document, const ClassProfile& rows);
  void Clear(std::int16_t document);
  /// Draws the line anew when the plan is another one than it was drawn for; a column that is no more takes its line
  /// along, and so does a change of units. A closed document is forgotten.
  void Follow(std::int16_t document);

 private:
  DocumentForms& forms_;
  Draw draw_;
  std::map<std::int16_t, Choice> chosen_;
};

}  // namespace tav
