#pragma once

#include <string>
#include <vector>

#include "reports/column_table.h"

namespace tav {

/// "lost EAN50": the name of a column for the reader.
std::string NameOf(const WhatIfColumn& column, const AdviceWords& words);
/// What is different in it: "+5 min, +3 m", "at 35 min, 65 m"; empty where the name says it all.
std::string DetailOf(const WhatIfColumn& column, const WhatIfWish& wish, const AdviceWords& words);

/// `of` gave the columns.
ColumnTable TableOf(const std::vector<WhatIfColumn>& columns, const WhatIfWish& wish, const WhatIf& of,
                    const AdviceWords& words);

}  // namespace tav
