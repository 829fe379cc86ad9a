#pragma once

#include <string>
#include <vector>

#include "compute/gas_warnings.h"
#include "compute/table_dives.h"
#include "model/number_texts.h"
#include "tables/way_out_supply.h"

namespace tav {

/// A line of a card: a depth that the diver comes to.
struct CardRow {
  std::string depth;
  std::string stop;  ///< minutes; empty where the diver does not wait
  /// Whole minutes since the start of the dive, at the end of the stop or on arrival; rounded up, so that no stop seems
  /// to end before it began.
  std::string runTime;
  std::string gas;
  bool gasChanges = false;
  bool warned = false;  ///< a warning concerns it
};

/// One gas of an ascent.
struct CardGas {
  std::string mix;
  std::string volume;  ///< litres, or cubic feet with a decimal
};

/// The whole ascent from one moment of a plan.
struct AscentCard {
  std::string moment;  ///< minute of the dive, with decimals where the plan ends between two
  std::string depth;   ///< where it begins
  bool decompresses = true;
  std::vector<CardRow> rows;
  std::vector<GasWarning> warnings;
  std::vector<CardGas> needed;   ///< in the order in which they are breathed
  std::vector<GasStore> supply;  ///< the same gases in the cylinders; empty where none are told
};

/// The cards of a scenario, one for each cut under water.
///
/// The replay of a cut within the ascent of the plan counts the short first minute of each earlier stop whole and so
/// runs late; a card counts from its own moment. Numbers are written as `numbers` does. Gas is that of the way up by
/// the plan's own RMV; with `supply` what it says leaving a loop asks for.
std::vector<AscentCard> MakeAscentCards(const TableDives& cuts, const NumberTexts& numbers = {},
                                        const WayOutSupply* supply = nullptr);

}  // namespace tav
