#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "persist/descriptor.h"

namespace tav {

/// Copies of plans with unsaved changes, for the next start after a crash. Each series has a file
/// "recovery-TOKEN-DOCUMENT.tav" and, beside it, a ".path" with the name that the plan had. The token is the end of the
/// name of a lock file, "recovery.lock-TOKEN", which is locked as long as the program runs: copies without one are left
/// of a program that has ended, whatever process or container it ran in. A copy goes away when the plan is saved or
/// closed.
class Recovery {
 public:
  struct Copy {
    std::filesystem::path file;      ///< the copy, a profile file
    std::filesystem::path original;  ///< the name that the plan had, with its folder if it had one; empty when lost
  };

  /// Copies lie in `folder`.
  explicit Recovery(std::filesystem::path folder);
  Recovery(const Recovery&) = delete;
  Recovery& operator=(const Recovery&) = delete;
  ~Recovery();

  /// Keeps a copy in the place of the one before. False when it can't be written: that one is still there, whole.
  bool Keep(std::int16_t document, const std::string& text, const std::filesystem::path& original);
  void Drop(std::int16_t document) const;
  /// The copies of programs that run no more.
  [[nodiscard]] std::vector<Copy> Orphans() const;
  static void Remove(const Copy& copy);

 private:
  void Begin();
  [[nodiscard]] std::filesystem::path File(std::int16_t document) const;

  std::filesystem::path folder_;
  Descriptor lock_;
  std::filesystem::path lockFile_;
  std::string token_;  ///< empty until there is a copy
};

}  // namespace tav
