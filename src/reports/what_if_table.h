#pragma once

#include <string>
#include <vector>

#include "advice/what_if.h"
#include "figures/advice_words.h"

namespace tav {

/// The columns of a comparison in words, side by side, the same in windows, on the clipboard and in the terminal.
struct WhatIfTable {
  struct Cell {
    std::string figure;  ///< stands at the right
    std::string note;    ///< beside it: a gas that is changed to, a verdict
    bool bad = false;    ///< the gas is short, the dive does not decompress
  };
  struct Row {
    std::string label;
    std::string unit;         ///< empty where the label tells it
    std::vector<Cell> cells;  ///< one for each column
    bool total = false;       ///< below the stops

    /// "Stop 9 m, min"
    [[nodiscard]] std::string Heading() const { return unit.empty() ? label : label + ", " + unit; }
  };
  struct Head {
    std::string name;
    std::string detail;  ///< "+5 min", "at 35 min, 65 m"
  };

  std::vector<Head> heads;            ///< one for each column
  std::vector<Row> rows;              ///< from the deepest stop to the gases
  std::vector<std::string> notes;     ///< which minutes the bail-outs begin at, and why
  std::vector<std::string> warnings;  ///< what must not be breathed, column by column: "lost EAN50: PPO2 too low ..."
};

/// "lost EAN50": the name of a column for the reader.
std::string NameOf(const WhatIfColumn& column, const AdviceWords& words);
/// What is different in it: "+5 min, +3 m", "at 35 min, 65 m"; empty where the name says it all.
std::string DetailOf(const WhatIfColumn& column, const WhatIfWish& wish, const AdviceWords& words);

/// `of` gave the columns.
WhatIfTable TableOf(const std::vector<WhatIfColumn>& columns, const WhatIfWish& wish, const WhatIf& of,
                    const AdviceWords& words);

/// The table as lines of text with columns that are aligned by blanks, in as many blocks below each other as lines of
/// `width` letters take.
std::string AlignedText(const WhatIfTable& table, std::size_t width);

}  // namespace tav
