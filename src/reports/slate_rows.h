#pragma once

#include <string>
#include <vector>

#include "model/dive_template.h"
#include "model/number_texts.h"
#include "model/profile.h"

namespace tav {

/// A line of a slate.
struct SlateRow {
  enum class Kind {
    Leg,      ///< of the user's plan, at its end
    Gas,      ///< from here on another gas, or from the loop to open circuit
    Stop,     ///< at its end
    Surface,  ///< the end of the dive
  };
  Kind kind = Kind::Leg;
  std::string depth;
  std::string minutes;
  std::string runTime;
  std::string gas;
  std::string PPO2;   ///< bar or atmospheres
  bool loop = false;  ///< the gas is the diluent of a loop
};

/// What a diver must know to dive a plan.
struct SlateRows {
  SlateRow bottom;             ///< the deepest leg, of equals the last
  std::vector<SlateRow> rows;  ///< all legs where there is more than one, then the ascent with its gas changes
};

SlateRows SlateRowsOf(const ClassProfile& profile, const DiveTemplate& settings, const NumberTexts& numbers);

}  // namespace tav
