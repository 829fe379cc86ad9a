#pragma once

#include <optional>
#include <string>
#include <vector>

#include "compute/breathed_gas.h"
#include "compute/table_dives.h"

namespace tav {

/// Rows of a dive, one after the other and on one gas, that must not be dived as they stand.
struct GasWarning {
  enum class Kind { LowPPO2, HighPPO2, LostGas };

  Kind kind = Kind::LowPPO2;
  std::int16_t firstRow = 0;
  std::int16_t lastRow = 0;
  Single from;  ///< depths of the rows at their worst: of the first, or where it is too much of the deepest
  Single to;    ///< of the last, or where it is too little of the shallowest
  Single ppo2;  ///< the worst, bar or atmospheres
  std::string gas;

  [[nodiscard]] bool Concerns(std::int16_t row) const { return row >= firstRow && row <= lastRow; }
  friend bool operator==(const GasWarning&, const GasWarning&) = default;
};

/// "low_ppo2", "high_ppo2", "lost_gas": the name of a kind in files for scripts.
const char* IdOf(GasWarning::Kind kind);

/// Which rows of a dive are judged.
struct JudgedRows {
  bool descents = true;                  ///< the way down, too
  std::optional<std::string> lost = {};  ///< a gas that is not there
  std::int16_t lostFrom = 1;             ///< from this row on
};

/// What is wrong with the gases of a dive. Every row is judged at the end where it is worst, the move as well as the
/// stop: below `MinPPO2` at its shallower end, above `MaxPPO2`, or from the first stop on and on a gas of the change
/// list `DecoPPO2`, at its deeper end, and on open circuit for a gas that is lost. Air and what is richer is never too
/// poor; 0.02 bar above a limit are within rounding.
std::vector<GasWarning> GasWarnings(const BreathedDive& dive, const JudgedRows& judged);

/// The same of a dive of a table: the way down only where it is part of the dive, a lost gas from the cut on.
std::vector<GasWarning> GasWarnings(const TableDives& family, const TableDive& dive);

}  // namespace tav
