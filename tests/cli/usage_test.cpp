#include <array>
#include <cstdio>
#include <memory>
#include <regex>
#include <set>

#include "cli/command.h"
#include "cli/tavplan_fixture.h"
#include "cli/usage_texts.h"
#include "persist/text_file.h"
#include "start/language_table.h"
#include "support/source_folder.h"

/// What is told of the commands, which the table of each command makes: help, completion of the shell, manual page.
namespace tav {
namespace {

using Words = std::vector<std::string>;

std::string OutputOf(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), &::pclose);  // NOLINT(cert-env33-c)
  std::string text;
  std::array<char, 4096> part{};
  while (std::fgets(part.data(), part.size(), pipe.get()) != nullptr) text += part.data();
  return text;
}

Words WordsIn(const std::string& text) {
  std::istringstream in(text);
  return {std::istream_iterator<std::string>(in), {}};
}

TEST_F(Tavplan, HelpTellsEveryOptionAndShowsExamplesThatWork) {
  EXPECT_EQ(Run({"--version"}), ExitStatus::kFine);
  EXPECT_THAT(Out(), testing::StartsWith("tavplan "));
  EXPECT_EQ(Run({"--help"}), ExitStatus::kFine);
  const std::string all = Out();
  for (const Command& command : TavplanCommands()) {
    EXPECT_THAT(all, testing::HasSubstr("\n  " + command.name + " "));
    EXPECT_EQ(Run({command.name, "--help"}), ExitStatus::kFine);
    const std::string help = Out();
    EXPECT_THAT(help, testing::HasSubstr("Examples:\n  tavplan " + command.name));
    for (const Option& option : command.options) EXPECT_THAT(help, testing::HasSubstr(option.name)) << command.name;
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 130U) << line;
    // Each option of an example is one of the command.
    const std::regex option(" (--[a-z0-9-]+)");
    for (std::sregex_iterator each(command.examples.begin(), command.examples.end(), option), end; each != end;
         ++each) {
      EXPECT_EQ(std::ranges::count(command.options, (*each)[1].str(), &Option::name), 1) << (*each)[1];
    }
  }
}

/// All that the help says in a language is told in it, and its file holds nothing else.
TEST_F(Tavplan, HelpIsInTheLanguageOfTheUser) {
  std::set<std::string> said;
  const HelpWords keep = [&said](const std::string& english) {
    said.insert(english);
    return english;
  };
  HelpText(TavplanCommands(), keep);
  for (const Command& command : TavplanCommands()) HelpText(command, keep);
  for (const std::string language : {"de", "es", "fr", "it", "nl"}) {
    const auto file = SourceFolder() / kLanguageFolder / ("TAV_" + language + ".cli");
    std::istringstream lines(ReadTextFile(file));
    std::set<std::string> known;
    for (std::string line; std::getline(lines, line);) {
      const std::string english = line.substr(0, line.find('\t'));
      EXPECT_TRUE(said.contains(english)) << file << ": the help does not say " << english;
      EXPECT_GT(line.size(), english.size() + 1) << file << ": without a translation: " << english;
      // Names of options and values are the same in every language.
      const std::regex name("--[a-z-]+|[A-Z]{4,}|[0-9]+");
      for (std::sregex_iterator each(english.begin(), english.end(), name), end; each != end; ++each) {
        EXPECT_THAT(line.substr(english.size()), testing::HasSubstr(each->str())) << file << ": " << english;
      }
      known.insert(english);
    }
    for (const std::string& english : said) EXPECT_TRUE(known.contains(english)) << file << " lacks " << english;
    setenv("LC_ALL", language.c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
    EXPECT_EQ(Run({"mix", "--help"}), ExitStatus::kFine);
    EXPECT_THAT(Out(), testing::HasSubstr(HelpWordsOf(SourceFolder(), "TAV_" + language + ".dll")("Examples:")));
    setenv("LC_ALL", "C", 1);  // NOLINT(concurrency-mt-unsafe)
  }
}

TEST_F(Tavplan, TheShellCompletesWhatTheProgramTakes) {
  EXPECT_EQ(Run({"--bash-completion"}), ExitStatus::kFine);
  WriteTextFile(Scratch("completion"), Out());
  const auto offered = [this](const std::string& line) {
    return WordsIn(
        OutputOf("bash -c '_init_completion() { words=(" + line +
                 "); cword=$((${#words[@]} - 1)); cur=${words[-1]}; prev=${words[-2]}; }; complete() { :; }; "
                 "_filedir() { COMPREPLY=(\"files:$1\"); }; source " +
                 Scratch("completion") + "; _tavplan; echo \"${COMPREPLY[*]}\"'"));
  };
  Words names{"--help", "--version"};
  for (const Command& command : TavplanCommands()) {
    names.push_back(command.name);
    Words options{"--help"};
    for (const Option& option : command.options) {
      if (option.HasName()) options.push_back(option.name);
    }
    EXPECT_THAT(offered("tavplan " + command.name + " --"), testing::UnorderedElementsAreArray(options));
  }
  EXPECT_THAT(offered("tavplan \"\""), testing::UnorderedElementsAreArray(names));
  const std::pair<const char*, Words> values[] = {{"plan --turn", {"all", "half", "thirds"}},
                                                  {"new --team", {}},
                                                  {"new -o", {"files:@(tav)"}},
                                                  {"tables --template", {"files:@(tpl)", "Default", "Imperial"}},
                                                  {"check", {"files:@(tav|tpl)"}}};
  for (const auto& [line, words] : values) {
    EXPECT_EQ(offered("tavplan " + std::string(line) + " \"\""), words) << line;
  }
}

TEST_F(Tavplan, TheManualPageTellsEveryCommandAndOption) {
  EXPECT_EQ(Run({"--manual-page"}), ExitStatus::kFine);
  const std::string page = ReplaceAll(Out(), "\\-", "-");
  for (const Command& command : TavplanCommands()) {
    EXPECT_THAT(page, testing::HasSubstr("\n.B tavplan " + command.name + "\n")) << "synopsis";
    const std::size_t at = page.find("\n.SS " + command.name + "\n");
    ASSERT_NE(at, std::string::npos);
    const std::string part = page.substr(at, page.find("\n.S", at + 1) - at);
    for (const Option& option : command.options) EXPECT_THAT(part, testing::HasSubstr(option.name)) << command.name;
  }
  // What would be a command of roff is none.
  std::istringstream lines(page);
  for (std::string line; std::getline(lines, line);) {
    EXPECT_TRUE(line.empty() || line.front() != '\'') << line;
    if (!line.starts_with('.')) continue;
    EXPECT_THAT(line, testing::ContainsRegex("^[.](TH|SH|SS|B|I|BR|RI|IR|br|TP|PP|nf|fi)( |$)"));
  }
}

}  // namespace
}  // namespace tav
