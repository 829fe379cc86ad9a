#include <array>
#include <cstdio>
#include <memory>
#include <regex>

#include "cli/command.h"
#include "cli/tavplan_fixture.h"

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
