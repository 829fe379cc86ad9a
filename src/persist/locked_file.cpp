#include "persist/locked_file.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace tav {

Descriptor MakeLockedFile(const std::filesystem::path& beginning, std::filesystem::path& name) {
  while (true) {
    std::string made = beginning.string().append(kRandomEnd);
    Descriptor fd(::mkostemp(made.data(), O_CLOEXEC));
    if (!fd.IsOpen()) return fd;
    name = made;
    ::flock(fd.Get(), LOCK_EX);
    struct stat state {};
    if (::fstat(fd.Get(), &state) != 0 || state.st_nlink > 0) return fd;
    // Another process has taken it for a left one, before it was locked.
  }
}

bool HoldsLock(const Descriptor& file) { return file.IsOpen() && ::flock(file.Get(), LOCK_EX | LOCK_NB) == 0; }

void RemoveIfLeft(const std::filesystem::path& file) {
  const Descriptor fd(::open(file.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (HoldsLock(fd)) ::unlink(file.c_str());
}

}  // namespace tav
