#pragma once

#include <string>
#include <vector>

#include "advice/finding.h"
#include "compute/series_dive.h"
#include "engine/dive_moment.h"
#include "figures/advice_words.h"
#include "reports/sheet_pages.h"
#include "supply/supply_text.h"

namespace tav {

using SheetRows = std::vector<std::vector<SheetColumn::Cell>>;

/// What a plan sheet tells, in the words and figures in which it stands there; tables have their heads in row 0. What
/// it refers to outlives it.
struct SheetContents {
  SheetContents(const SeriesDive& dive, const AdviceWords& words);

  const SeriesDive& dive;
  const AdviceWords& words;
  std::string title;                ///< the name of the plan, without one that of its file; in a series with the number
  std::string file;                 ///< its file and place in the series, where the title does not say it
  std::string notice;               ///< ahead of all: it does not decompress, it has no ascent
  std::string settings;             ///< in words
  std::vector<DiveMoment> moments;  ///< for the picture
  SheetRows schedule;
  std::vector<std::string> totals;
  std::vector<Finding> findings;
  SupplyTables supply;
  std::string team;    ///< how the minimum gas is reckoned; empty where it is not
  SheetRows variants;  ///< the plan, longer, deeper, each gas lost, the bail-out that asks most; empty for no dive
  std::vector<std::string> remarks;  ///< on them: what must not be breathed, and the ascent that was added

 private:
  void Head();
  void Settings();
  void Schedule();
  void Supply();
  void Variants();
};

}  // namespace tav
