// The program as a shell starts it, where it shows no window.
#include <cstdlib>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include "persist/text_file.h"
#include "support/scratch_folder.h"

namespace tav {
namespace {

TEST(ProgramStart, EndsWithALineWhereThereIsNoWindowToShow) {
  const test::ScratchFolder scratch;
  const std::string tav = (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "tav").string();
  const std::string told = (scratch.Path() / "told").string();
  const std::string without =
      "env -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM -u DISPLAY LC_ALL=C XDG_CONFIG_HOME=" + scratch.Path().string() +
      " timeout 20 ";
  const std::string noDisplay = "tav: there is no display to open a window on; tavplan works without one\n";
  const struct {
    std::string line;
    int status;
    std::string start;
  } cases[] = {
      {without + tav + " --help", 0, "TAV: decompression planner"},
      {without + tav + " /vpm --version", 0, "tav " TAV_VERSION "\n"},
      {without + tav, 2, noDisplay},
      {without + "env DISPLAY=:9876 " + tav + " plan.tav", 2, noDisplay},
  };
  for (const auto& [line, status, start] : cases) {
    const int ended = std::system((line + " >" + told + " 2>&1").c_str());  // NOLINT
    EXPECT_EQ(WEXITSTATUS(ended), status) << line;
    EXPECT_THAT(ReadTextFile(told), testing::StartsWith(start)) << line;
  }
}

}  // namespace
}  // namespace tav
