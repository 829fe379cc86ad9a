#pragma once

#include <cstdint>

#include "engine/model_choice.h"
#include "model/document_store.h"
#include "plan/breathed_gas.h"
#include "plan/waypoint_editor.h"

namespace tav {

/// A computed dive as the advice reads it. What it refers to outlives it and is not changed meanwhile.
struct CheckedDive {
  CheckedDive(const frmWaypointEditor& plan, const DocumentState& document, const ModelChoice& modelChoice)
      : window(plan),
        rows(plan.LoadedProfile()),
        settings(document.Template),
        decompresses(document.Decompresses),
        model(modelChoice),
        lastUserRow(LastUserRow(rows)) {}

  const frmWaypointEditor& window;
  const ClassProfile& rows;  ///< with the loads
  const DiveTemplate& settings;
  bool decompresses;
  ModelChoice model;
  std::int16_t lastUserRow;  ///< the computed ascent follows

  /// One row back; 0 for the start row itself.
  [[nodiscard]] const Waypoint& Before(std::int16_t row) const {
    return rows.Row(static_cast<std::int16_t>(row > 0 ? row - 1 : 0));
  }
  [[nodiscard]] BreathedDive Breathed() const { return {rows, settings, lastUserRow, FirstOpenRow(rows, settings)}; }
};

}  // namespace tav
