#include <array>
#include <cstdio>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <regex>
#include <sstream>

#include "cli/commands.h"
#include "model/number_text.h"
#include "persist/text_file.h"
#include "support/scratch_folder.h"
#include "support/source_folder.h"

/// What is told of the commands outside the program: the completion of the shell and the manual page.
namespace tav {
namespace {

using Words = std::vector<std::string>;

Words Matches(const std::string& text, const char* pattern) {
  const std::regex expression(pattern, std::regex::ECMAScript | std::regex::multiline);
  Words found;
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match) {
    found.push_back((*match)[1]);
  }
  return found;
}

std::string Help(Words arguments) {
  const test::ScratchFolder scratch;
  std::ostringstream out;
  std::ostringstream err;
  arguments.emplace_back("--help");
  EXPECT_EQ(RunTavplan(arguments, {SourceFolder(), scratch.Path()}, out, err), ExitStatus::kFine) << err.str();
  return out.str();
}

Words Commands() {
  const std::string help = Help({});
  return Matches(help.substr(help.find("Subcommands:")), "^  ([a-z]+) ");
}

Words OptionsOf(const std::string& command) { return Matches(Help({command}), "^  (?:-[a-z],)?(--[a-z0-9-]+)"); }

/// What the shell offers behind words of which the last is being typed.
Words Offered(const std::string& line) {
  const std::string script =
      "_init_completion() { words=(" + line +
      "); cword=$((${#words[@]} - 1)); cur=${words[-1]}; prev=${words[-2]}; }; " + "complete() { :; }; source '" +
      (SourceFolder() / "packaging/tavplan.bash-completion").string() + "'; _tavplan; echo \"${COMPREPLY[*]}\"";
  const std::string command = "bash -c '" + ReplaceAll(script, "'", "'\\''") + "'";
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), &::pclose);  // NOLINT(cert-env33-c)
  std::string text;
  std::array<char, 256> part{};
  while (std::fgets(part.data(), part.size(), pipe.get()) != nullptr) text += part.data();
  return Matches(text, "(\\S+)");
}

/// The parts of the manual page whose headings name a command, and its lines of the synopsis.
std::string PageOf(const std::string& command) {
  const std::string page = ReplaceAll(ReadTextFile(SourceFolder() / "docs/tavplan.1"), "\\-", "-");
  std::string parts;
  for (std::size_t at = page.find("\n.SH OPTIONS OF "); at != std::string::npos;) {
    const std::size_t next = page.find("\n.SH ", at + 1);
    const std::string part = page.substr(at, next - at);
    const std::string heading = part.substr(0, part.find('\n', 1)) + " ";
    if (heading.find(" " + command + " ") != std::string::npos) parts += part;
    at = page.find("\n.SH OPTIONS OF ", at + 1);
  }
  return parts;
}

TEST(Usage, TheShellCompletesWhatTheProgramTakes) {
  Words commands = Commands();
  ASSERT_GE(commands.size(), 10U);
  for (const std::string& command : commands) {
    EXPECT_THAT(Offered("tavplan " + command + " --"), testing::UnorderedElementsAreArray(OptionsOf(command)))
        << command;
  }
  commands.insert(commands.end(), {"--help", "--version"});
  EXPECT_THAT(Offered("tavplan \"\""), testing::UnorderedElementsAreArray(commands));
  EXPECT_THAT(Offered("tavplan plan --turn \"\""), testing::ElementsAre("all", "half", "thirds"));
  EXPECT_THAT(Offered("tavplan new --team \"\""), testing::IsEmpty());
}

TEST(Usage, TheManualPageTellsAllOptionsOfEachCommand) {
  const std::string page = ReplaceAll(ReadTextFile(SourceFolder() / "docs/tavplan.1"), "\\-", "-");
  for (const std::string& command : Commands()) {
    EXPECT_THAT(page, testing::HasSubstr("\n.B tavplan " + command + "\n")) << "synopsis";
    EXPECT_THAT(page, testing::HasSubstr("\n.TP\n.B " + command + "\n"));
    const Words told = Matches(PageOf(command), "(--[a-z0-9-]+)");
    for (const std::string& option : OptionsOf(command)) {
      if (option == "--help") continue;
      EXPECT_THAT(told, testing::Contains(option)) << command;
    }
  }
  for (const char* option : {"--help", "--version"}) {
    EXPECT_THAT(page, testing::HasSubstr("\n.TP\n.B " + std::string(option) + "\n"));
  }
}

}  // namespace
}  // namespace tav
