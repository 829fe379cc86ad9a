#pragma once

#include <filesystem>
#include <string>

namespace tav {

/// Where the run-time data of the program lies.
class ProgramFolders {
 public:
  /// The folders of the running program: data beside the binary (a build tree or a portable folder), else in the
  /// installed place; the user's own under XDG_DATA_HOME or ~/.local/share.
  static ProgramFolders OfThisProgram();

  ProgramFolders(std::filesystem::path programFolder, std::filesystem::path userFolder);

  /// The read-only data: template/, dives/.
  [[nodiscard]] const std::filesystem::path& ProgramFolder() const { return programFolder_; }
  /// What the user writes.
  [[nodiscard]] const std::filesystem::path& UserFolder() const { return userFolder_; }

  /// The file of that name ("template/Default.tpl") in the user's folder if it is there, else in the program's.
  [[nodiscard]] std::filesystem::path Find(const std::filesystem::path& name) const;

  /// Where to write the file of that name: in the program's folder when that can be written, else in the user's, whose
  /// folders are made.
  [[nodiscard]] std::filesystem::path ToWrite(const std::filesystem::path& name) const;

  /// The templates that come with the program, and those of the user, which are found before them.
  [[nodiscard]] std::filesystem::path ShippedTemplates() const { return programFolder_ / "template"; }
  [[nodiscard]] std::filesystem::path OwnTemplates() const { return userFolder_ / "template"; }

 private:
  std::filesystem::path programFolder_;
  std::filesystem::path userFolder_;
};

/// Where the settings of the user lie, and beside them the copies of unsaved plans.
std::filesystem::path SettingsFolder();

}  // namespace tav
