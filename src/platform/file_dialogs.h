#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tav {

/// What a file dialog shows.
struct FileDialogRequest {
  std::string title;
  std::string filter;                         ///< "Dive plans (*.tav);;All files (*)"
  std::filesystem::path folder;               ///< where it starts; empty: the user's documents
  std::string fileName;                       ///< what stands in the name field, a name or a whole path
  std::string extension;                      ///< added to a name to save that has none: ".tav"
  std::vector<std::filesystem::path> places;  ///< other folders to go to at once, where the platform can show them
};

/// The common dialogs that ask for a file. An empty path means that the user gave up.
class FileDialogs {
 public:
  virtual ~FileDialogs() = default;

  virtual std::filesystem::path Open(const FileDialogRequest& request) = 0;
  /// Asks before a file that exists is chosen.
  virtual std::filesystem::path Save(const FileDialogRequest& request) = 0;
};

}  // namespace tav
