#pragma once

#include <optional>
#include <string>
#include <vector>

#include "advice/what_if.h"

namespace tav {

/// A plan as it was when it was taken: a value of its own, which no later edit touches.
struct ComparedPlan {
  std::string name;    ///< of its file or window
  std::string detail;  ///< what tells it from others of the name; may be empty
  int dive = 1;        ///< place in its series, from 1
  WhatIfColumn column;
  ModelChoice model;
  std::optional<EndState> before;  ///< how the dive before in its series ended

  /// Takes a plan that was computed, with its ascent where it lacks one. Its column has a fault where there is nothing
  /// to compare.
  ComparedPlan(std::string planName, const PlannedDive& plan, int number = 1);

  [[nodiscard]] const DiveTemplate& Settings() const { return column.record.Template; }
};

/// A setting that is not the same in all plans.
struct DifferingSetting {
  std::string key;                  ///< as in a file: "LastStop", "# Loop"
  std::vector<std::string> values;  ///< one for each plan, as in a file without the blanks that pad numbers
};

/// In the order of a file. Numbers are in the units of each plan. Of the gases only those stand there that not all
/// plans have.
std::vector<DifferingSetting> DifferingSettings(const std::vector<ComparedPlan>& plans);

/// "60 m, 25 min": the deepest leg as it was typed, of equals the last; empty without legs.
std::string DeepestLeg(const ComparedPlan& plan, const AdviceWords& words);

}  // namespace tav
