#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "compute/compute.h"

namespace tav {

/// What a UDDF file says of its making.
struct UddfOrigin {
  std::string version;             ///< of the program
  std::chrono::sys_seconds start;  ///< when the first dive begins; a plan has no date of its own
};

/// Computed dives of one series, in order, as UDDF 3.2: the gases they breathe, change to or carry, cylinders, a sample
/// at the end of every row, gas switches and setpoints at the sample where they begin, stops where they begin, and the
/// plan itself as a processing instruction (kPlanInstruction), from which ImportUddf makes it again. A later dive
/// begins its surface interval after the one before.
std::string WriteUddf(const std::vector<PlannedDive>& dives, const UddfOrigin& origin);

}  // namespace tav
