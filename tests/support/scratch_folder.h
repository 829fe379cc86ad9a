#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace tav::test {

/// A new folder for the files of one test, gone after it.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tav.XXXXXX").string();
    path_ = ::mkdtemp(name.data()) == nullptr ? throw std::runtime_error("no temporary folder") : name;
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace tav::test
