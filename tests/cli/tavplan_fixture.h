#pragma once

#include <cstdlib>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "model/number_text.h"
#include "persist/text_file.h"
#include "support/scratch_folder.h"
#include "support/source_folder.h"

namespace tav {

inline std::string Dive(const char* name) { return (SourceFolder() / "dives" / name).string(); }

/// The command line, with folders of the test's own.
class Tavplan : public testing::Test {
 protected:
  Tavplan() { Speak("C"); }

  /// The environment's language; the settings of the user are those of the scratch folder.
  void Speak(const char* locale) {
    ::setenv("LC_ALL", locale, 1);                                         // NOLINT(concurrency-mt-unsafe)
    ::setenv("XDG_CONFIG_HOME", (scratch_.Path() / "config").c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
  }

  int Run(const std::vector<std::string>& arguments) {
    out_.str("");
    err_.str("");
    return RunTavplan(arguments, {SourceFolder(), scratch_.Path() / "user"}, out_, err_);
  }
  [[nodiscard]] std::string Out() const { return out_.str(); }
  [[nodiscard]] std::string Err() const { return err_.str(); }
  [[nodiscard]] nlohmann::json OutJson() const { return nlohmann::json::parse(Out()); }

  /// The place of a file of the test.
  [[nodiscard]] std::string Scratch(const std::string& name) const { return (scratch_.Path() / name).string(); }

  /// A copy of a shipped dive with `find` replaced.
  std::string Changed(const char* dive, const std::string& find, const std::string& replacement,
                      const std::string& name = "changed.tav") {
    const std::string text = ReadTextFile(Dive(dive));
    EXPECT_THAT(text, testing::HasSubstr(find));
    WriteTextFile(Scratch(name), ReplaceAll(text, find, replacement));
    return Scratch(name);
  }

  test::ScratchFolder scratch_;

 private:
  std::ostringstream out_;
  std::ostringstream err_;
};

}  // namespace tav
