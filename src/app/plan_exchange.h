#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

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
  /// A picture of the plan in front, as PNG or, where its name ends so, as SVG.
  void ExportPicture(const FilePicture& picture) const;

 private:
  /// The file for a picture of a document, beside its plan at first; empty when the user gave up.
  [[nodiscard]] std::filesystem::path AskForPicture(std::int16_t document, int title, const std::string& filter,
                                                    const std::string& extension) const;
  void TellWritten(const std::filesystem::path& file, bool written) const;

  const MainServices& services_;
};

}  // namespace tav
