#pragma once

#include "model/dive_template.h"
#include "model/profile.h"
#include "model/user_actions.h"

namespace tav {

/// One dive as a file holds it: the settings and what the user asked for. Results are computed anew.
struct DiveRecord {
  DiveTemplate Template;
  Single SurfaceInterval;  ///< minutes on the surface ahead of this dive
  ClassUseractions UserActions;
};

/// How a dive ends, which is what the dive after it starts from.
struct EndState {
  Compartments HeCompartments{};  ///< loads at the end of the last run with an ascent, depth units
  Compartments N2Compartments{};
  Single TotalOTU;  ///< totals at the end of that run; until there is one the doses that the dive starts with
  Single TotalCNS;
  bool Decompresses = true;     ///< false when a stop of the last ascent hit its limit without clearing
  bool LoadsAreMetric = true;   ///< depth units of the loads: metres, else feet
  bool EndsWithAscent = false;  ///< else it leaves no loads for a dive after it
  int NumberInSeries = 1;
};

}  // namespace tav
