#pragma once

#include <filesystem>

#include "app/main_services.h"

namespace tav {

/// Plans from dive logs and waypoints, plans for dive logs, and pictures of plans.
class PlanExchange {
 public:
  explicit PlanExchange(const MainServices& services) : services_(services) {}

  /// Imports a file that the user chooses.
  void ImportChosen() const;
  /// A dive log or waypoints as a new plan, and what was simplified told.
  [[nodiscard]] bool Import(const std::filesystem::path& file) const;
  /// The series of the plan in front as UDDF.
  void Export() const;
  /// The graph of the plan in front, as SVG or PNG.
  void ExportGraph(bool svg) const;

 private:
  const MainServices& services_;
};

}  // namespace tav
