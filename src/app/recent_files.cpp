#include "app/recent_files.h"

#include <algorithm>

namespace tav {
namespace {

constexpr auto kSection = "Recent";

std::string Key(std::size_t index) { return "File" + std::to_string(index + 1); }

}  // namespace

RecentFiles::RecentFiles(SettingsStore& settings) : settings_(settings) {
  for (std::size_t i = 0; i < kMost; ++i) {
    const std::string file = settings_.ReadSetting(kSection, Key(i));
    if (!file.empty()) files_.emplace_back(file);
  }
}

void RecentFiles::Add(const std::filesystem::path& file) {
  std::error_code error;
  std::filesystem::path whole = std::filesystem::absolute(file, error).lexically_normal();
  if (error) whole = file;
  std::erase(files_, whole);
  files_.insert(files_.begin(), whole);
  if (files_.size() > kMost) files_.resize(kMost);
  Store();
}

void RecentFiles::Remove(const std::filesystem::path& file) {
  std::erase(files_, file);
  Store();
}

void RecentFiles::Clear() {
  files_.clear();
  Store();
}

void RecentFiles::Store() const {
  for (std::size_t i = 0; i < kMost; ++i) {
    settings_.WriteSetting(kSection, Key(i), i < files_.size() ? files_[i].string() : "");
  }
}

}  // namespace tav
