// A save is a promise, see WriteTextFile.

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <system_error>

#include "model/text_id.h"
#include "persist/locked_file.h"
#include "persist/text_file.h"

namespace tav {
namespace fs = std::filesystem;

namespace {

// The new text of "plan.tav" is in "plan.tav.saving-XXXXXX" until it takes the place of the old one.
constexpr std::string_view kUnfinished = ".saving-";

FileError NotWritten(const fs::path& file) { return {file, 0, {Text::NotWritten, {ErrorText(errno)}}}; }

void WriteAll(int fd, std::string_view text, const fs::path& file) {
  while (!text.empty()) {
    const ssize_t written = ::write(fd, text.data(), text.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      throw NotWritten(file);
    }
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

/// What a name stands for, all links followed. A link that leads nowhere is not replaced by a file: its user means the
/// file behind it, on a disk that is not there now.
fs::path Target(const fs::path& file) {
  struct stat state {};
  const int fault = ::stat(file.c_str(), &state) == 0 ? 0 : errno;
  std::error_code error;
  if (fault != 0 && fs::is_symlink(fs::symlink_status(file, error))) {
    if (fault == ELOOP) throw FileError(file, 0, Text::LinksInACircle);
    if (fault == ENOENT) throw FileError(file, 0, {Text::DanglingLink, {fs::read_symlink(file, error).string()}});
    throw FileError(file, 0, {Text::NotWritten, {ErrorText(fault)}});
  }
  fs::path target = fs::weakly_canonical(file, error);
  return error ? file : target;
}

/// Extended attributes, access lists among them. False when one could not be taken over.
bool CopyAttributes(const fs::path& from, int to) {
  const ssize_t size = ::listxattr(from.c_str(), nullptr, 0);
  if (size <= 0) return size == 0 || errno == ENOTSUP;
  std::string names(static_cast<std::size_t>(size), '\0');
  if (::listxattr(from.c_str(), names.data(), names.size()) != size) return false;
  bool all = true;
  for (std::size_t at = 0; at < names.size(); at = names.find('\0', at) + 1) {
    const char* name = names.data() + at;
    if (std::string_view(name).starts_with("security.")) continue;  // labels that the system gives by its own rules
    const ssize_t length = ::getxattr(from.c_str(), name, nullptr, 0);
    std::string value(static_cast<std::size_t>(std::max<ssize_t>(length, 0)), '\0');
    all = length >= 0 && ::getxattr(from.c_str(), name, value.data(), value.size()) == length &&
          ::fsetxattr(to, name, value.data(), value.size(), 0) == 0 && all;
  }
  return all;
}

/// Gives the new file what the old one has besides its text; returns what could not be kept.
SaveNotes TakeOver(const fs::path& target, const struct stat& old, const Descriptor& made, const fs::path& file) {
  SaveNotes notes;
  mode_t mode = old.st_mode & 07777U;
  if (::fchown(made.Get(), old.st_uid, static_cast<gid_t>(-1)) != 0) notes.emplace_back(Text::SavedOtherOwner);
  if (::fchown(made.Get(), static_cast<uid_t>(-1), old.st_gid) != 0) {
    // The rights of the old group are not for the new one.
    mode = (mode & 0707U) | (mode & 0007U) << 3U;
    notes.emplace_back(Text::SavedOtherGroup);
  }
  if (!CopyAttributes(target, made.Get())) notes.emplace_back(Text::SavedOtherAccess);
  // After the owner, as a change of that takes rights away, and after the access list, which has some of its own.
  if (::fchmod(made.Get(), mode) != 0) throw NotWritten(file);
  if (old.st_nlink > 1) notes.emplace_back(Text::SavedOtherNames);
  return notes;
}

}  // namespace

SaveNotes WriteTextFile(const fs::path& file, std::string_view text) {
  const fs::path target = Target(file);
  std::error_code error;
  if (fs::is_directory(target, error)) throw FileError(file, 0, Text::IsFolder);

  // A file that is there but must not be written stays, although its folder would allow the rename.
  struct stat old {};
  const bool exists = ::stat(target.c_str(), &old) == 0;
  if (exists && ::access(target.c_str(), W_OK) != 0) throw NotWritten(file);
  if (exists && !S_ISREG(old.st_mode)) {  // a pipe or a terminal has nothing to lose
    const Descriptor device(::open(target.c_str(), O_WRONLY | O_CLOEXEC));
    if (!device.IsOpen()) throw NotWritten(file);
    WriteAll(device.Get(), text, file);
    return {};
  }

  RemoveUnfinishedSaves(target.parent_path(), target.filename().string());
  fs::path beside;
  Descriptor fd = MakeLockedFile(target.string().append(kUnfinished), beside);
  if (!fd.IsOpen()) throw NotWritten(file);
  const Descriptor lock(::fcntl(fd.Get(), F_DUPFD_CLOEXEC, 0));  // holds it until the file has its name
  SaveNotes notes;
  try {
    if (exists) {
      notes = TakeOver(target, old, fd, file);
    } else {
      const mode_t mask = ::umask(0);
      ::umask(mask);
      if (::fchmod(fd.Get(), 0666U & ~mask) != 0) throw NotWritten(file);
    }
    WriteAll(fd.Get(), text, file);
    if (::fsync(fd.Get()) != 0 || !fd.Close()) throw NotWritten(file);
    if (::rename(beside.c_str(), target.c_str()) != 0) {
      throw FileError(file, 0, {Text::NotReplaced, {ErrorText(errno)}});
    }
  } catch (...) {
    ::unlink(beside.c_str());
    throw;
  }
  // The rename itself reaches the disk with the folder.
  const Descriptor folder(::open(target.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.IsOpen()) ::fsync(folder.Get());
  return notes;
}

void RemoveUnfinishedSaves(const fs::path& folder, std::string_view name) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string found = entry->path().filename().string();
    const std::size_t mark = found.rfind(kUnfinished);
    if (mark == std::string::npos || found.size() != mark + kUnfinished.size() + kRandomEnd.size()) continue;
    if (name.empty() || found.substr(0, mark) == name) RemoveIfLeft(entry->path());
  }
}

}  // namespace tav
