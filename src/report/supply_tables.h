#pragma once

#include <string>
#include <vector>

#include "platform/controls.h"

namespace tav {

/// What a report or a window tells of the gas supply of a dive: texts in rows, row 0 the heads; what is short is red
/// and bold. Without rows there is nothing to tell.
struct SupplyTables {
  /// Gas, cylinders, fill, carried, used, left, pressure left, verdict.
  std::vector<std::vector<GridCell>> gases;
  /// Leg, depth, run time, gas, left, minimum gas, as a pressure, turn pressure, verdict, how the minimum is worked
  /// out.
  std::vector<std::vector<GridCell>> legs;
  std::string gasTitle;
  std::string legTitle;
};

}  // namespace tav
