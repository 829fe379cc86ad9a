#pragma once

#include <string>

#include "compute/compute.h"

namespace tav {

/// A dive of a series.
struct SeriesDive {
  PlannedDive dive;
  DiveTemplate& settings;  ///< of its record: a long report leaves the altitude of `EndPressure` in it
  std::string file;        ///< its name
  int number = 1;          ///< place in the series, from 1
  int ofDives = 1;
  PlanTexts texts = {};  ///< of the series
};

}  // namespace tav
