#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tav {

/// Copies of plans with unsaved changes, for the next start after a crash. Each series has a file
/// "recovery-PROCESS-DOCUMENT.tav" and, beside it, a ".path" with the name that the plan had. A copy goes away when the
/// plan is saved or closed, so what is left of a process that has ended was lost with it.
class Recovery {
 public:
  struct Copy {
    std::filesystem::path file;      ///< the copy, a profile file
    std::filesystem::path original;  ///< the name that the plan had
  };

  /// Copies lie in `folder`; `process` is the number of this process.
  Recovery(std::filesystem::path folder, int process);

  /// Keeps a copy; one that can't be written is passed over.
  void Keep(std::int16_t document, const std::string& text, const std::filesystem::path& original) const;
  void Drop(std::int16_t document) const;
  /// The copies of processes that run no more.
  [[nodiscard]] std::vector<Copy> Orphans() const;
  static void Remove(const Copy& copy);

 private:
  [[nodiscard]] std::filesystem::path File(std::int16_t document) const;

  std::filesystem::path folder_;
  int process_;
};

}  // namespace tav
