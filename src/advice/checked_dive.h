#pragma once

#include <cstdint>

#include "compute/breathed_gas.h"
#include "compute/compute.h"

namespace tav {

/// A computed dive as the advice reads it. What it refers to outlives it and is not changed meanwhile.
struct CheckedDive {
  CheckedDive(const PlannedDive& dive)
      : planned(dive),
        rows(dive.plan.loadedRows),
        settings(dive.record.Template),
        surfaceInterval(dive.record.SurfaceInterval),
        decompresses(dive.plan.end.Decompresses),
        model(dive.plan.model),
        lastUserRow(LastUserRow(rows)) {}

  PlannedDive planned;
  const ClassProfile& rows;  ///< with the loads
  const DiveTemplate& settings;
  Single surfaceInterval;  ///< minutes, ahead of a repetitive dive
  bool decompresses;
  ModelChoice model;         ///< that made the rows, whichever is chosen now
  std::int16_t lastUserRow;  ///< the computed ascent follows

  /// One row back; 0 for the start row itself.
  [[nodiscard]] const Waypoint& Before(std::int16_t row) const {
    return rows.Row(static_cast<std::int16_t>(row > 0 ? row - 1 : 0));
  }
  [[nodiscard]] BreathedDive Breathed() const { return {rows, settings, lastUserRow, FirstOpenRow(rows, settings)}; }
};

}  // namespace tav
