#include <algorithm>

#include "cli/terminal_text.h"
#include "cli/usage_texts.h"
#include "model/text_columns.h"

namespace tav {
namespace {

constexpr std::size_t kTextColumn = 30;

constexpr const char* kStatus =
    "Exit status: 0, 1 for a plan that does not decompress, 2 for unusable input or an output that fails.";
constexpr const char* kMore = "\"tavplan COMMAND --help\" gives the options and examples of a command.";

/// A row of two columns; what is too long for the first gets a line of its own.
std::string Row(const std::string& head, const std::string& text) {
  std::string start = AtLeft("  " + head, kTextColumn);
  std::string above;
  if (start.back() != ' ') {
    above = start + "\n";
    start = std::string(kTextColumn, ' ');
  }
  return above + Wrapped(start + text, kTextColumn);
}

/// Lines of a command each, some with what it does behind two blanks or more.
std::string Examples(const std::string& examples, const HelpWords& words) {
  std::string text;
  std::size_t at = 0;
  while (at < examples.size()) {
    const std::size_t end = std::min(examples.find('\n', at), examples.size());
    const std::string line = examples.substr(at, end - at);
    constexpr std::size_t kIndent = 2;  // of a command; what begins further right tells of the line above
    const std::size_t first = std::min(line.find_first_not_of(' '), line.size());
    const std::size_t blanks = first > kIndent ? 0 : line.find("  ", first);
    const std::size_t about = blanks == std::string::npos ? blanks : line.find_first_not_of(' ', blanks);
    text += about == std::string::npos ? line : line.substr(0, about) + words(line.substr(about));
    text += "\n";
    at = end + 1;
  }
  return text;
}

}  // namespace

std::string HeadOf(const Option& option) {
  return (option.shortName.empty() ? "" : option.shortName + ", ") + option.name +
         (option.value.empty() ? "" : " " + option.value);
}

std::string UsageOf(const Command& command) {
  std::string usage;
  bool more = false;
  for (const Option& option : command.options) {
    if (!option.HasName()) {
      usage.insert(0, (option.required ? option.name : "[" + option.name + "]") + (option.IsList() ? "... " : " "));
    } else if (option.required) {
      usage += (option.shortName.empty() ? option.name : option.shortName) + " " + option.value + " ";
    } else {
      more = true;
    }
  }
  if (more) usage += "[OPTION]... ";
  usage.pop_back();
  return usage;
}

std::string HelpText(const std::vector<Command>& commands, const HelpWords& words) {
  std::string text = words("TAV: decompression planning on the command line") + "\n" + words("Usage:") +
                     " tavplan COMMAND [OPTION]...\n\n" + words("Options:") + "\n" +
                     Row("-h, --help", words("Print this help, or that of a command, and end")) +
                     Row("--version", words("Print the version and end")) +
                     Row("--manual-page", words("Print the manual page for man, and end")) +
                     Row("--bash-completion", words("Print the completion for bash, and end")) + "\n" +
                     words("Commands:") + "\n";
  for (const Command& command : commands) text += Row(command.name, words(command.about));
  return text + "\n" + Wrapped(words(kStatus), 0) + Wrapped(words(kMore), 0);
}

std::string HelpText(const Command& command, const HelpWords& words) {
  std::string text = words(command.about) + "\n" + words("Usage:") + " tavplan " + command.name + " " +
                     UsageOf(command) + "\n\n" + words("Options:") + "\n";
  for (const Option& option : command.options) {
    text += Row(HeadOf(option), words(option.text) + (option.required ? " (" + words("required") + ")" : ""));
  }
  text += Row("-h, --help", words("Print this help and end")) + "\n" + words("Examples:") +
          Examples(command.examples, words) + "\n";
  std::size_t at = 0;
  while (at != std::string::npos) {
    const std::size_t end = command.details.find('\n', at);
    text += Wrapped(words(command.details.substr(at, end - at)), 0);
    at = end == std::string::npos ? end : end + 1;
  }
  return text;
}

}  // namespace tav
