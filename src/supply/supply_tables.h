#pragma once

#include <string>
#include <vector>

#include "controls/grid_cell.h"

namespace tav {

/// What a report or a window tells of the gas supply of a dive: texts in rows, row 0 the heads; what is short is red
/// and bold. Without rows there is nothing to tell.
struct SupplyTables {
  using Table = std::vector<std::vector<GridCell>>;
  /// Gas, cylinders, fill, carried, used, left, pressure left, verdict.
  Table gases;
  /// Leg, depth, run time, gas, left, minimum gas, as a pressure, turn pressure, verdict, how the minimum is worked
  /// out.
  Table legs;
  std::string gasTitle;
  std::string legTitle;
};

/// Columns of text in them; the others are numbers.
const std::vector<int> kSupplyTextColumns{0, 1, 7};
const std::vector<int> kLegTextColumns{3, 8, 9};

}  // namespace tav
