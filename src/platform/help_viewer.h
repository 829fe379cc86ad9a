#pragma once

#include <filesystem>

namespace tav {

class HelpViewer {
 public:
  virtual ~HelpViewer() = default;

  enum class Page { Contents, Search };
  /// Shows the help file, or brings it to the front, at its contents or with the search field ready. Throws
  /// std::runtime_error when the file can't be read.
  virtual void ShowHelp(const std::filesystem::path& file, Page page) = 0;
};

}  // namespace tav
