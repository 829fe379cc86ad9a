#pragma once

#include <filesystem>
#include <optional>

#include "persist/text_file.h"

namespace tav {

/// A folder for the files of one report, readable by the user alone. It is always one that was made for the purpose:
/// nothing of another's is ever removed. It goes away with its owner; what a killed process left is taken away by the
/// next folder that is made.
class ScratchFolder {
 public:
  ScratchFolder() = default;
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() { Remove(); }

  /// Makes a new, empty folder in `parent` (the current folder where there is no such) and removes the one before.
  void Renew(std::filesystem::path parent);
  /// Empty when there is none.
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  /// Why no folder could be made in the one that it names; nothing when all is well.
  [[nodiscard]] const std::optional<FileError>& Fault() const { return fault_; }

 private:
  void Remove();

  std::filesystem::path path_;
  std::optional<FileError> fault_;
};

}  // namespace tav
