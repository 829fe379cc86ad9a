#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "engine/model_choice.h"
#include "model/dive_template.h"
#include "model/profile.h"

namespace tav {

/// One dive of a small table: a column of it.
struct TableDive {
  Single head;   ///< minutes, the head of the column: the moment of a cut, or the bottom time of a square dive
  Single depth;  ///< where the ascent begins
  bool decompresses = true;
  ClassProfile profile;       ///< the whole dive, as the engine wrote it
  std::int16_t openFrom = 1;  ///< its first row on open circuit; beyond the last for none
};

/// The dives of one small table.
struct TableDives {
  DiveTemplate diveTemplate;     ///< what they were computed on
  std::vector<TableDive> dives;  ///< element 0 gets no column: the plan that was cut, or an empty dive
  bool bailout = false;          ///< cuts of a plan, else square dives
  std::optional<std::string> lost = std::nullopt;  ///< of a bail-out: the gas of the change list that is missing
  ModelChoice model = {};
  bool descentCounts = false;  ///< of square dives: the way down is part of the dive
};

/// Told how far a run of many dives has come; returns false to end it at once. It is asked after each dive and at each
/// stop that never clears, that is, after a few milliseconds of work.
using RunProgress = std::function<bool(int done, int of)>;

}  // namespace tav
