#pragma once

#include <string>

#include "model/dive_template.h"
#include "pages/print_preview.h"

namespace tav {

/// What stands in the column left of the tables.
struct TableInfo {
  DiveTemplate diveTemplate;  ///< what the tables were computed on
  bool bailout = false;
  bool descentCounts = false;  ///< of deco tables: the way down is part of the time
  std::string model;           ///< its name, with gradient factors where they act
  std::string caption;         ///< of a bail-out: the window's caption; what follows the first " [" is left out
};

/// Prints the information column of a page of small tables: title, logo, plan, printed by whom and when, limits, rates,
/// their units, the gases of deco tables. Returns its lower edge, cm.
double PrintTableInfo(PrintPreview& writer, const TableInfo& info);

}  // namespace tav
