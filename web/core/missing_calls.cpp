#include <cerrno>
#include <spawn.h>
#include <sys/xattr.h>

// Calls of the system that a page has not. They fail as on a disk without attributes and a machine that can start no
// other program, which the callers tell their users.

extern "C" {

ssize_t listxattr(const char* /*path*/, char* /*list*/, size_t /*size*/) { return errno = ENOTSUP, -1; }
ssize_t getxattr(const char* /*path*/, const char* /*name*/, void* /*value*/, size_t /*size*/) {
  return errno = ENOTSUP, -1;
}
int fsetxattr(int /*fd*/, const char* /*name*/, const void* /*value*/, size_t /*size*/, int /*flags*/) {
  return errno = ENOTSUP, -1;
}
int posix_spawnp(pid_t* /*child*/, const char* /*file*/, const posix_spawn_file_actions_t* /*actions*/,
                 const posix_spawnattr_t* /*attributes*/, char* const* /*arguments*/, char* const* /*environment*/) {
  return ENOSYS;
}

}  // extern "C"
