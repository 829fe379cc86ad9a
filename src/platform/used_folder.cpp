#include "platform/used_folder.h"

#include <system_error>

namespace tav {
namespace fs = std::filesystem;

namespace {

const std::string kSection = "Settings";

}  // namespace

fs::path FolderUsedLast(const SettingsStore& settings, const std::string& name) {
  const fs::path folder = settings.ReadSetting(kSection, name);
  std::error_code error;
  return fs::is_directory(folder, error) ? folder : fs::path();
}

void KeepFolder(SettingsStore& settings, const std::string& name, const fs::path& file) {
  std::error_code error;
  settings.WriteSetting(kSection, name, fs::absolute(file, error).parent_path().string());
}

}  // namespace tav
