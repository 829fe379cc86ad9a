#pragma once

#include <filesystem>
#include <string>

namespace tav {

class HelpViewer {
 public:
  virtual ~HelpViewer() = default;

  enum class Page { Contents, Search };
  /// Shows the help file, or brings it to the front, at its contents or with the search field ready, and its page of
  /// that anchor, if there is one. Throws std::runtime_error when the file can't be read.
  virtual void ShowHelp(const std::filesystem::path& file, Page page, const std::string& anchor) = 0;
};

}  // namespace tav
