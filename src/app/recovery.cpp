#include "app/recovery.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "persist/locked_file.h"
#include "persist/text_file.h"

namespace tav {
namespace fs = std::filesystem;

namespace {

constexpr std::string_view kPrefix = "recovery-";
constexpr std::string_view kLock = "recovery.lock-";

fs::path PathFile(fs::path copy) { return copy.replace_extension(".path"); }

std::vector<fs::path> FilesOf(const fs::path& folder, std::string_view prefix, std::string_view extension) {
  std::vector<fs::path> files;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (name.starts_with(prefix) && name.ends_with(extension)) files.push_back(entry->path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

/// What stands in the name of a copy between its prefix and its document.
std::string TokenOf(const fs::path& copy) {
  const std::string name = copy.filename().string().substr(kPrefix.size());
  return name.substr(0, name.find('-'));
}

}  // namespace

Recovery::Recovery(fs::path folder) : folder_(std::move(folder)) {
  // Copies bear names of their own, so no later save would come by to do it.
  RemoveUnfinishedSaves(folder_, "");
}

Recovery::~Recovery() {
  std::error_code error;
  if (!token_.empty()) fs::remove(lockFile_, error);
}

void Recovery::Begin() {
  if (!token_.empty()) return;
  std::error_code error;
  fs::create_directories(folder_, error);
  lock_ = MakeLockedFile(folder_ / kLock, lockFile_);
  if (!lock_.IsOpen()) return;
  token_ = lockFile_.filename().string().substr(kLock.size());
  // Where there are no locks, another program that starts meanwhile is offered the copies: better than no one is.
  if (!HoldsLock(lock_)) fs::remove(lockFile_, error);
}

fs::path Recovery::File(std::int16_t document) const {
  return folder_ / std::string(kPrefix).append(token_).append("-").append(std::to_string(document)).append(".tav");
}

bool Recovery::Keep(std::int16_t document, const std::string& text, const fs::path& original) {
  Begin();
  if (token_.empty()) return false;
  try {
    WriteTextFile(PathFile(File(document)), original.string());
    WriteTextFile(File(document), text);
    return true;
  } catch (const FileError&) {
    // The copy is a second net; the plan itself is still there.
    return false;
  }
}

void Recovery::Drop(std::int16_t document) const {
  if (!token_.empty()) Remove({File(document), {}});
}

std::vector<Recovery::Copy> Recovery::Orphans() const {
  for (const fs::path& lock : FilesOf(folder_, kLock, "")) RemoveIfLeft(lock);
  std::vector<Copy> orphans;
  for (const fs::path& file : FilesOf(folder_, kPrefix, ".tav")) {
    const std::string token = TokenOf(file);
    std::error_code error;
    if (token == token_ || fs::exists(folder_ / std::string(kLock).append(token), error)) continue;
    Copy copy{file, {}};
    try {
      copy.original = ReadTextFile(PathFile(file));
    } catch (const FileError&) {
      // Then the plan has lost its name, and gets a new one.
    }
    orphans.push_back(std::move(copy));
  }
  return orphans;
}

void Recovery::Remove(const Copy& copy) {
  std::error_code error;
  fs::remove(copy.file, error);
  fs::remove(PathFile(copy.file), error);
}

}  // namespace tav
