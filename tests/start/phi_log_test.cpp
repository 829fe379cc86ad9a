#include "start/phi_log.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "persist/text_file.h"
#include "support/scratch_folder.h"

namespace tav {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(TraceBlock, HasTheMoveAndTheLoadsInTwentyLines) {
  Loads loads;
  loads.N2[0] = 7.5;
  loads.He[0] = 0.25;
  loads.N2[15] = 100.0 / 3;
  TraceSegment segment;
  segment.constantDepth = true;
  segment.from = segment.to = 40;
  segment.time = 2.5;
  segment.loads = &loads;
  const std::string level = TraceBlock(segment);
  EXPECT_EQ(std::count(level.begin(), level.end(), '\n'), 20);
  EXPECT_THAT(level, StartsWith("\"                 \tDepth\tSTime\"\r\n"
                                "\"OC ascent/descent\t40\t2.5\t\"\r\n"
                                "\"End of this segment compartments are\"\r\n"
                                "\"Cpmt\tN2\tHe\"\r\n"
                                "\"1\t7.5\",\"0.25\"\r\n"
                                "\"2\t0\",\"0\"\r\n"));
  EXPECT_TRUE(level.ends_with("\"16\t33.33333\",\"0\"\r\n"));

  segment.constantDepth = false;
  segment.constantPPO2 = true;
  segment.setpointAboveStart = true;
  segment.from = 0;
  segment.rate = 18;
  const std::string ramp = TraceBlock(segment);
  EXPECT_EQ(std::count(ramp.begin(), ramp.end(), '\n'), 21);
  EXPECT_THAT(ramp, StartsWith("\"Setpoint > then startAmbient pressure\"\r\n"
                               "\"                 \tSDepth\tFDepth\tSTime\tRate\"\r\n"
                               "\"CC ascent/descent\t0\t40\t2.5\t18\t\"\r\n"));
}

TEST(PhiLog, ReplacesTheOldTrace) {
  const test::ScratchFolder folder;
  WriteTextFile(folder.Path() / "phi.log", "old");
  const Loads loads;
  TraceSegment segment;
  segment.loads = &loads;
  PhiLog log(folder.Path() / "phi.log");
  log.Write(segment);
  EXPECT_EQ(ReadTextFile(folder.Path() / "phi.log"), TraceBlock(segment));  // while the file is still open
  EXPECT_THROW(PhiLog(folder.Path() / "none" / "phi.log"), FileError);
}

}  // namespace
}  // namespace tav
