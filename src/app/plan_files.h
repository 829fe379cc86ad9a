#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <vector>

#include "app/main_panes.h"
#include "app/menu_lists.h"

namespace tav {

/// Plans from files and into files, what went wrong told, and what other programs do with the files of open plans.
class PlanFiles {
 public:
  PlanFiles(const MainServices& services, MainPanes& panes, RecentMenu& recent)
      : services_(services), panes_(panes), recent_(recent) {}

  /// The file that the user chooses to open; empty when none.
  [[nodiscard]] std::filesystem::path Choose() const;
  /// Opens a plan that the user asks for.
  bool Open(const std::filesystem::path& file);
  /// Opens a plan without more words than why it can't be.
  bool Read(const std::filesystem::path& file, bool withAdvice = false);
  /// Saves the series of the plan in front, and tells what of it is in no file.
  bool SaveActive(bool saveAs);
  /// Saves the series of a document, under a name that the user gives if it has none or with `saveAs`. False when it is
  /// not saved.
  bool Save(std::int16_t document, bool saveAs);

  /// The files of the open plans, whole paths, in the order of the plans.
  [[nodiscard]] std::vector<std::filesystem::path> OpenFiles() const;
  /// Looks whether another program has changed the files of the open plans. A plan without unsaved changes is read
  /// again; the status bar tells what has happened.
  void LookAgain();
  /// A plan goes on from a copy of what was unsaved: from now on its file is watched. `newer` tells that the file was
  /// written after the copy, so that saving asks first.
  void Recovered(const std::filesystem::path& file, bool newer);

  /// The same file, whatever folder the program works in.
  [[nodiscard]] static std::filesystem::path Whole(const std::filesystem::path& file);

 private:
  /// The content of a file, to tell it from another; nothing for one that can't be read.
  using Content = std::optional<std::size_t>;
  struct Known {
    Content mine;  ///< as it was read or written here
    Content seen;  ///< as the last look found it
  };

  [[nodiscard]] static Content ContentOf(const std::filesystem::path& file);
  /// The file of a series by its first dive; empty when it has none.
  [[nodiscard]] std::filesystem::path FileOf(std::int16_t first) const;
  void KnowsNow(const std::filesystem::path& file);
  bool SaveSeries(std::int16_t document, const std::filesystem::path& file);
  void LookAgainAt(std::int16_t first);
  [[nodiscard]] bool HasUnsaved(std::int16_t first) const;
  void ReadAgain(std::int16_t first, const std::filesystem::path& file);

  const MainServices& services_;
  MainPanes& panes_;
  RecentMenu& recent_;
  std::map<std::filesystem::path, Known> known_;
};

}  // namespace tav
