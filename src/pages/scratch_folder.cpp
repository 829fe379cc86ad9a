#include "pages/scratch_folder.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "model/number_text.h"

namespace tav {
namespace fs = std::filesystem;

namespace {

const std::string kStart = "tav-pages-";

/// A folder of ours, of this user and of a process that has ended: "tav-pages-PROCESS-XXXXXX".
bool IsAbandoned(const fs::path& folder) {
  const std::string name = folder.filename().string();
  if (!name.starts_with(kStart)) return false;
  const auto process = ParseStrict(name.substr(kStart.size(), name.rfind('-') - kStart.size()));
  struct stat about {};
  if (!process || ::lstat(folder.c_str(), &about) != 0) return false;
  if (!S_ISDIR(about.st_mode) || about.st_uid != ::geteuid()) return false;
  return ::kill(static_cast<pid_t>(*process), 0) != 0 && errno == ESRCH;
}

}  // namespace

void ScratchFolder::Remove() {
  std::error_code error;
  if (!path_.empty()) fs::remove_all(path_, error);
  path_.clear();
}

void ScratchFolder::Renew(fs::path parent) {
  Remove();
  fault_.reset();
  std::error_code error;
  if (!fs::is_directory(parent, error)) parent = fs::current_path(error);
  for (const auto& entry : fs::directory_iterator(parent, error)) {
    std::error_code ignored;
    if (IsAbandoned(entry.path())) fs::remove_all(entry.path(), ignored);
  }
  std::string name = (parent / (kStart + std::to_string(::getpid()) + "-XXXXXX")).string();
  if (::mkdtemp(name.data()) != nullptr) {
    path_ = name;
  } else {
    fault_.emplace(parent, 0, ErrorText(errno));
  }
}

}  // namespace tav
