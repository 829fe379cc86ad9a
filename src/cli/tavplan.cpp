#include <algorithm>
#include <ostream>

#include "cli/command_frame.h"
#include "cli/command_words.h"
#include "cli/option_values.h"
#include "cli/usage_texts.h"
#include "model/text_id.h"

namespace tav {
namespace {

HelpWords UserHelpWords(const CommandFrame& frame) {
  const auto& folder = frame.Folders().ProgramFolder();
  return HelpWordsOf(folder, TableOfUser(folder, frame.Common().language));
}

/// What the program prints of itself; nothing for another word.
std::string AboutProgram(const std::string& word, const std::vector<Command>& commands, const CommandFrame& frame) {
  if (word == "--help" || word == "-h") return HelpText(commands, UserHelpWords(frame));
  if (word == "--version") return "tavplan " TAV_VERSION "\n";
  if (word == "--manual-page") return ManualPage(commands);
  if (word == "--bash-completion") return BashCompletion(commands);
  return {};
}

}  // namespace

int RunTavplan(const std::vector<std::string>& arguments, const ProgramFolders& folders, std::ostream& out,
               std::ostream& err, bool progress) {
  const std::vector<Command> commands = TavplanCommands();
  const std::string first = arguments.empty() ? std::string() : arguments.front();
  const auto found = std::ranges::find(commands, first, &Command::name);
  Command command{.run = [&](CommandFrame& frame) {
    const std::string about = AboutProgram(first, commands, frame);
    if (!about.empty()) {
      frame.Out() << about;
      return;
    }
    if (first.empty()) throw UsageError(Text::UsageNoCommand);
    throw UsageError({first.starts_with('-') ? Text::UsageNotExpected : Text::UsageNoSuchCommand, {first}});
  }};
  if (found != commands.end()) command = *found;
  command.common->language = LanguageAmong(arguments);
  if (found != commands.end()) {
    try {
      if (!ReadWords(command, std::span(arguments).subspan(1))) {
        command.run = [&](CommandFrame& frame) { frame.Out() << HelpText(command, UserHelpWords(frame)); };
      }
    } catch (const OptionError& error) {
      CommandFrame frame(command, folders, out, err, progress);
      frame.Tell(error);
      return ExitStatus::kUnusableInput;
    }
  }
  return CommandFrame(command, folders, out, err, progress).Run();
}

}  // namespace tav
