#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "app/plan_files.h"

namespace tav {

/// The files of the plans that were open when the program ended last, kept in the settings: they open again at the next
/// start, unless the user has switched that off.
class LastSession {
 public:
  /// `reopen` is the entry of a menu that switches it.
  LastSession(const MainServices& services, PlanFiles& files, MenuItem& reopen);

  /// Opens them, but for those that are open already, as one is that was recovered, or are about to be opened as
  /// `others`. The empty plan of the start makes room for them.
  void Open(const std::vector<std::filesystem::path>& others);
  /// Says in the status bar which of them are gone.
  void TellGone() const;
  /// Takes note of the files that are open now; nothing before Open.
  void Keep();

 private:
  void CloseEmptyPlan() const;

  const MainServices& services_;
  PlanFiles& files_;
  MenuItem& reopen_;
  bool begun_ = false;
  std::vector<std::filesystem::path> kept_;
  std::string gone_;
};

}  // namespace tav
