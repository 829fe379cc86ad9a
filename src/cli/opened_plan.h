#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "compute/series_dive.h"

namespace tav {

/// The dives of a file, or of a plan that is about to be one, each computed after the one ahead of it.
struct OpenedPlan {
  std::string file;
  std::vector<DiveRecord> records;
  std::vector<ComputedPlan> plans;  ///< one for each record

  [[nodiscard]] std::size_t Dives() const { return records.size(); }
  /// `dive` from 0.
  [[nodiscard]] PlannedDive Planned(std::size_t dive) const {
    return {records[dive], plans[dive], dive == 0 ? nullptr : &plans[dive - 1].end};
  }
  [[nodiscard]] SeriesDive InSeries(std::size_t dive) {
    return {Planned(dive),
            records[dive].Template,
            std::filesystem::path(file).filename().string(),
            static_cast<int>(dive) + 1,
            static_cast<int>(Dives()),
            records.front().Template.Texts};
  }
};

}  // namespace tav
