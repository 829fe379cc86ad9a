#include "start/standard_streams.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

#include "model/message.h"
#include "persist/text_file.h"
#include "support/scratch_folder.h"

namespace tav {
namespace {

/// Standard output goes to a file as long as it lives.
class Redirected {
 public:
  Redirected(const std::filesystem::path& file, int flags) : kept_(::dup(STDOUT_FILENO)) {
    const int opened = ::open(file.c_str(), flags, 0600);
    ::dup2(opened, STDOUT_FILENO);
    ::close(opened);
  }
  Redirected(const Redirected&) = delete;
  Redirected& operator=(const Redirected&) = delete;
  ~Redirected() {
    ::dup2(kept_, STDOUT_FILENO);
    ::close(kept_);
  }

 private:
  int kept_;
};

TEST(StandardOutput, WritesAllOfATextThatIsLongerThanItsBuffer) {
  const test::ScratchFolder folder;
  const auto file = folder.Path() / "out";
  std::string text;
  {
    const Redirected redirected(file, O_WRONLY | O_CREAT);
    StandardOutput out;
    for (int i = 0; i < 40000; ++i) {
      const std::string line = std::to_string(i) + "\n";
      text += line;
      for (const char c : line) out.put(c);
    }
    out.flush();
  }
  EXPECT_TRUE(ReadTextFile(file) == text);
}

TEST(StandardOutput, TellsADiskThatIsFull) {
  const Redirected redirected("/dev/full", O_WRONLY);
  StandardOutput out;
  EXPECT_THROW(out << "a" << std::flush, MessageError);
}

}  // namespace
}  // namespace tav
