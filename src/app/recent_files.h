#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/settings_store.h"

namespace tav {

/// The plans that were opened or saved last, newest first, kept in the settings.
class RecentFiles {
 public:
  static constexpr std::size_t kMost = 8;

  explicit RecentFiles(SettingsStore& settings);

  [[nodiscard]] const std::vector<std::filesystem::path>& List() const { return files_; }
  void Add(const std::filesystem::path& file);
  void Remove(const std::filesystem::path& file);
  void Clear();

 private:
  void Store() const;

  SettingsStore& settings_;
  std::vector<std::filesystem::path> files_;
};

}  // namespace tav
