#include "app/recovery.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <system_error>
#include <utility>

#include "persist/text_file.h"

namespace tav {
namespace fs = std::filesystem;

namespace {

constexpr std::string_view kPrefix = "recovery-";

fs::path PathFile(fs::path copy) { return copy.replace_extension(".path"); }

/// The process that wrote a copy; 0 for a file that is none.
int ProcessOf(const std::string& name) {
  int process = 0;
  if (!name.starts_with(kPrefix) || !name.ends_with(".tav")) return 0;
  std::from_chars(name.data() + kPrefix.size(), name.data() + name.size(), process);
  return process;
}

bool Runs(int process) { return ::kill(process, 0) == 0 || errno == EPERM; }

}  // namespace

Recovery::Recovery(fs::path folder, int process) : folder_(std::move(folder)), process_(process) {
  // Copies bear the number of their process, so no later save would come by to do it.
  RemoveUnfinishedSaves(folder_, "");
}

fs::path Recovery::File(std::int16_t document) const {
  return folder_ / (std::string(kPrefix) + std::to_string(process_) + "-" + std::to_string(document) + ".tav");
}

void Recovery::Keep(std::int16_t document, const std::string& text, const fs::path& original) const {
  try {
    std::error_code error;
    fs::create_directories(folder_, error);
    WriteTextFile(PathFile(File(document)), original.string());
    WriteTextFile(File(document), text);
  } catch (const FileError&) {
    // The copy is a second net; the plan itself is still there.
    return;
  }
}

void Recovery::Drop(std::int16_t document) const { Remove({File(document), {}}); }

std::vector<Recovery::Copy> Recovery::Orphans() const {
  std::vector<Copy> orphans;
  std::error_code error;
  for (fs::directory_iterator entry(folder_, error), end; !error && entry != end; entry.increment(error)) {
    const int process = ProcessOf(entry->path().filename().string());
    if (process <= 0 || process == process_ || Runs(process)) continue;
    Copy copy{entry->path(), {}};
    try {
      copy.original = ReadTextFile(PathFile(copy.file));
    } catch (const FileError&) {
      copy.original = copy.file.filename();
    }
    orphans.push_back(std::move(copy));
  }
  std::sort(orphans.begin(), orphans.end(), [](const Copy& a, const Copy& b) { return a.file < b.file; });
  return orphans;
}

void Recovery::Remove(const Copy& copy) {
  std::error_code error;
  fs::remove(copy.file, error);
  fs::remove(PathFile(copy.file), error);
}

}  // namespace tav
