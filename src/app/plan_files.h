#pragma once

#include <cstdint>
#include <filesystem>

#include "app/main_panes.h"
#include "app/menu_lists.h"

namespace tav {

/// Plans from files and into files, and what went wrong told.
class PlanFiles {
 public:
  PlanFiles(const MainServices& services, MainPanes& panes, RecentMenu& recent)
      : services_(services), panes_(panes), recent_(recent) {}

  /// The file that the user chooses to open; empty when none.
  [[nodiscard]] std::filesystem::path Choose() const;
  bool Open(const std::filesystem::path& file);
  /// Saves the series of the plan in front, and tells what of it is in no file.
  bool SaveActive(bool saveAs);
  /// Saves the series of a document, under a name that the user gives if it has none or with `saveAs`. False when it is
  /// not saved.
  bool Save(std::int16_t document, bool saveAs);

 private:
  bool SaveSeries(std::int16_t document, const std::filesystem::path& file);

  const MainServices& services_;
  MainPanes& panes_;
  RecentMenu& recent_;
};

}  // namespace tav
