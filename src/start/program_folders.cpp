#include "start/program_folders.h"

#include <cstdlib>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tav {
namespace fs = std::filesystem;

namespace {

fs::path Variable(const char* name) {
  const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): the program has one thread
  return value == nullptr ? fs::path() : fs::path(value);
}

}  // namespace

ProgramFolders::ProgramFolders(fs::path programFolder, fs::path userFolder)
    : programFolder_(std::move(programFolder)), userFolder_(std::move(userFolder)) {}

ProgramFolders ProgramFolders::OfThisProgram() {
  std::error_code error;
  const fs::path binary = fs::read_symlink("/proc/self/exe", error).parent_path();
  fs::path data = binary;
  if (!fs::exists(binary / "template", error)) data = binary.parent_path() / "share" / "tav";
  fs::path user = Variable("XDG_DATA_HOME");
  if (user.empty()) user = Variable("HOME") / ".local" / "share";
  return {data, user / "tav"};
}

fs::path ProgramFolders::Find(const fs::path& name) const {
  std::error_code error;
  if (fs::exists(userFolder_ / name, error)) return userFolder_ / name;
  return programFolder_ / name;
}

fs::path ProgramFolders::ToWrite(const fs::path& name) const {
  fs::path inProgram = programFolder_ / name;
  if (::access(inProgram.parent_path().c_str(), W_OK) == 0) return inProgram;
  fs::path inUser = userFolder_ / name;
  std::error_code error;
  fs::create_directories(inUser.parent_path(), error);
  return inUser;
}

std::filesystem::path SettingsFolder() {
  const char* config = std::getenv("XDG_CONFIG_HOME");  // NOLINT(concurrency-mt-unsafe): nothing sets it meanwhile
  if (config != nullptr && *config != '\0') return std::filesystem::path(config) / "TAV";
  const char* home = std::getenv("HOME");  // NOLINT(concurrency-mt-unsafe)
  return std::filesystem::path(home == nullptr ? "." : home) / ".config" / "TAV";
}

}  // namespace tav
