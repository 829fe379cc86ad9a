#pragma once

#include <filesystem>

#include "app/main_services.h"

namespace tav {

/// Templates from files and into files, and what went wrong told.
class TemplateFiles {
 public:
  TemplateFiles(const MainServices& services, const DialogServices& dialogs) : services_(services), dialogs_(dialogs) {}

  /// Loads one that the user chooses.
  void LoadChosen() const;
  /// Into the plan in front; without one, for new plans.
  void Load(const std::filesystem::path& file) const;
  /// Saves that of the plan in front, or that of new plans, if it has been changed.
  void Save() const;
  /// Stores the settings of new plans as the user's own template for them. Says why that failed.
  void KeepDefault() const;
  /// That file, which is found before that of the program.
  [[nodiscard]] std::filesystem::path OwnDefault() const { return services_.folders.OwnTemplates() / "Default.tpl"; }

 private:
  const MainServices& services_;
  const DialogServices& dialogs_;
};

}  // namespace tav
