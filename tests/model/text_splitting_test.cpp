#include <gtest/gtest.h>

#include "model/path_text.h"
#include "model/tokenizer.h"

namespace tav {
namespace {

TEST(Tokenizer, CountsDelimitersOfTheGivenOrTheDefaultSet) {
  EXPECT_EQ(ClassTokenizer::tokenCount("", ","), 1);
  EXPECT_EQ(ClassTokenizer::tokenCount("a,b,", ","), 3);
  EXPECT_EQ(ClassTokenizer::tokenCount("6:Oxygen, 21:EAN50,", ",:"), 5);
  EXPECT_EQ(ClassTokenizer::tokenCount(R"(a:b;c,d.e f\g|h/i-j&k)"), 11);
  EXPECT_FALSE(ClassTokenizer::hastokens("a b", ","));
  EXPECT_TRUE(ClassTokenizer::hastokens("a b", ""));
  EXPECT_FALSE(ClassTokenizer::hastokens(""));
}

TEST(Tokenizer, HandsOutTokensAndKeepsTheRest) {
  std::string_view text = "one,two:three";
  EXPECT_EQ(ClassTokenizer::nextToken(text, ",:", true), "one,");
  EXPECT_EQ(text, "two:three");
  EXPECT_EQ(ClassTokenizer::nextToken(text, ",:"), "two");
  EXPECT_EQ(ClassTokenizer::nextToken(text, ",:"), "three");
  EXPECT_EQ(text, "three");  // a last token stays
}

TEST(Tokenizer, JoinsARangeAndRefusesOneThatGoesBeyond) {
  EXPECT_EQ(ClassTokenizer::nTokens(2, 2, "a,b,c,d", ","), "b|c");
  EXPECT_EQ(ClassTokenizer::nTokens(2, 2, "a,b,c,d", ",", true), "b,|c,");
  EXPECT_EQ(ClassTokenizer::nTokens(3, 2, "a,b,c,d", ","), "c|d");
  EXPECT_EQ(ClassTokenizer::nTokens(3, 3, "a,b,c,d", ","), "");
  EXPECT_EQ(ClassTokenizer::nthToken("1, .8, .3", 3, ","), " .3");
  for (const int n : {-1, 0, 4}) EXPECT_EQ(ClassTokenizer::nthToken("1, .8, .3", n, ","), "");
}

struct Path {
  const char* path;
  const char* name;
  const char* folder;
  const char* extension;
  const char* drive;
};

TEST(SplitPath, KnowsTheSeparatorsOfBothSystems) {
  const Path paths[] = {{"/home/ann/wreck.tav", "wreck.tav", "/home/ann/", ".tav", ""},
                        {R"(C:\dives\wreck.tav)", "wreck.tav", R"(C:\dives\)", ".tav", "C:"},
                        {"C:wreck.tav", "wreck.tav", "C:", ".tav", "C:"},
                        {"dives/a.b/plan", "plan", "dives/a.b/", "", ""},
                        {"plan.2024.tav", "plan.2024.tav", "", ".tav", ""},
                        {"plan.profile", "plan.profile", "", "", ""},
                        {"plan.", "plan.", "", "", ""},
                        {"dives/", "", "dives/", "", ""},
                        {"", "", "", "", ""}};
  for (const Path& path : paths) {
    SCOPED_TRACE(path.path);
    EXPECT_EQ(SplitPath(path.path, PathPart::FileName), path.name);
    EXPECT_EQ(SplitPath(path.path, PathPart::DriveFolder), path.folder);
    EXPECT_EQ(SplitPath(path.path, PathPart::Extension), path.extension);
    EXPECT_EQ(SplitPath(path.path, PathPart::Drive), path.drive);
  }
}

}  // namespace
}  // namespace tav
