#include "start/command_line.h"

#include <gtest/gtest.h>

namespace tav {
namespace {

TEST(AboutProgram, TellsWhatIsAskedWhereverItStands) {
  EXPECT_EQ(AboutProgram({"tav", "wreck.tav"}, "1.2"), "");
  EXPECT_EQ(AboutProgram({"tav", "wreck.tav", "--version"}, "1.2"), "tav 1.2\n");
  for (const char* word : {"-h", "--help"}) {
    EXPECT_NE(AboutProgram({"tav", "--version", word}, "1.2").find("--pages FILE --pdf OUT"), std::string::npos);
  }
}

}  // namespace
}  // namespace tav
