#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pugixml.hpp>
#include <sstream>

#include "cli/commands.h"
#include "model/number_text.h"
#include "persist/text_file.h"
#include "support/scratch_folder.h"
#include "support/source_folder.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class TavplanGraph : public testing::Test {
 protected:
  TavplanGraph() {
    ::setenv("LC_ALL", "C", 1);                                            // NOLINT(concurrency-mt-unsafe)
    ::setenv("XDG_CONFIG_HOME", (scratch_.Path() / "config").c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
  }
  int Run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "graph");
    err_.str("");
    std::ostringstream out;
    const int status = RunTavplan(arguments, {SourceFolder(), scratch_.Path() / "user"}, out, err_);
    EXPECT_EQ(out.str(), "");
    return status;
  }
  static std::string Dive(const char* name) { return (SourceFolder() / "dives" / name).string(); }
  /// Reads the picture that was written and removes it.
  pugi::xml_node Picture() {
    EXPECT_TRUE(file_.load_file(svg_.c_str()));
    fs::remove(svg_);
    return file_.child("svg");
  }
  [[nodiscard]] std::string Texts(const pugi::xml_node& picture) const {
    std::string texts;
    for (const pugi::xml_node& text : picture.children("text")) texts += std::string(text.child_value()) + "\n";
    return texts;
  }

  test::ScratchFolder scratch_;
  const std::string svg_ = (scratch_.Path() / "plan.svg").string();
  std::ostringstream err_;
  pugi::xml_document file_;
};

TEST_F(TavplanGraph, DrawsOneDiveInTheSizeThatIsAskedFor) {
  const struct {
    std::vector<std::string> options;
    const char* title;
    const char* width;
    const char* height;
  } cases[] = {{{Dive("wreck.tav")}, "wreck", "1000", "700"},
               {{Dive("wreck.tav"), "--tissues"}, "wreck", "1000", "1000"},
               {{Dive("wreck.tav"), "--width", "180mm"}, "wreck", "180mm", "126mm"},
               {{Dive("wreck.tav"), "--height", "420px"}, "wreck", "600", "420"},
               {{Dive("wreck.tav"), "--width", "600", "--height", "200mm"}, "wreck", "158.75mm", "200mm"},
               {{Dive("lake-series.tav"), "--dive", "1"}, "lake-series, dive 1 of 2", "1000", "700"},
               {{Dive("lake-series.tav")}, "lake-series, dive 2 of 2", "1000", "700"}};
  for (const auto& known : cases) {
    SCOPED_TRACE(testing::PrintToString(known.options));
    std::vector<std::string> arguments = known.options;
    arguments.insert(arguments.end(), {"-o", svg_});
    EXPECT_EQ(Run(arguments), ExitStatus::kFine) << err_.str();
    EXPECT_EQ(err_.str(), "");
    const pugi::xml_node picture = Picture();
    EXPECT_STREQ(picture.child_value("title"), known.title);
    EXPECT_STREQ(picture.attribute("width").value(), known.width);
    EXPECT_STREQ(picture.attribute("height").value(), known.height);
    EXPECT_THAT(Texts(picture), HasSubstr("Run time (min)\n"));
  }
}

TEST_F(TavplanGraph, SaysWhatAPlanLacks) {
  const std::string noAscent = (SourceFolder() / "tests/data/vectors/no-ascent.tav").string();
  EXPECT_EQ(Run({noAscent, "-o", svg_}), ExitStatus::kFine);
  EXPECT_THAT(Texts(Picture()), HasSubstr("This plan has no ascent: it ends under water.\n"));
  // On air at 9 m the tissues never come down to what 5 % of the gradient allow at the surface.
  const std::string text = ReadTextFile(Dive("air-deco.tav"));
  std::string endless = ReplaceAll(text, "LastStop= 3", "LastStop= 9");
  endless = ReplaceAll(endless, text.substr(text.find("GF="), 12), "GF=1, .05, .05\r\n#");
  endless = ReplaceAll(endless, "Change Gas Mixes=", "Change Gas Mixes=\r\n# ");
  const std::string file = (scratch_.Path() / "endless.tav").string();
  WriteTextFile(file, endless);
  EXPECT_EQ(Run({file, "-o", svg_}), ExitStatus::kDoesNotDecompress);
  EXPECT_THAT(Texts(Picture()), HasSubstr("This plan never ends its deco: a stop does not clear.\n"));
}

TEST_F(TavplanGraph, RefusesWhatItCanNotWriteOrDraw) {
  const std::string plan = (scratch_.Path() / "plan.tav").string();
  WriteTextFile(plan, ReadTextFile(Dive("wreck.tav")));
  const std::string nowhere = (scratch_.Path() / "no" / "folder.svg").string();
  const struct {
    std::vector<std::string> arguments;
    std::string told;
  } cases[] = {
      {{plan, "-o", plan}, plan + ": this is the file that is read; give another one to write\n"},
      {{plan, "-o", nowhere}, nowhere + ": "},
      {{plan, "-o", svg_, "--dive", "2"}, "tavplan graph: --dive"},
      {{plan, "-o", svg_, "--width", "wide"}, "tavplan graph: --width: \"wide\" is no size such as 1000px or 180mm\n"},
      {{plan, "-o", svg_, "--width", "10cm"}, "tavplan graph: --width: \"10cm\" is no size such as 1000px or 180mm\n"},
      {{plan, "-o", svg_, "--height", "399px"}, "tavplan graph: --height: \"399px\" is outside 400px to 10000px\n"},
      {{plan, "-o", svg_, "--height", "2646mm"}, "tavplan graph: --height: \"2646mm\" is outside 400px to 10000px\n"},
  };
  const std::string before = ReadTextFile(plan);
  for (const auto& known : cases) {
    SCOPED_TRACE(testing::PrintToString(known.arguments));
    EXPECT_EQ(Run(known.arguments), ExitStatus::kUnusableInput);
    EXPECT_THAT(err_.str(), testing::StartsWith(known.told));
    EXPECT_FALSE(fs::exists(svg_));
  }
  EXPECT_EQ(ReadTextFile(plan), before);
}

}  // namespace
}  // namespace tav
