#include "cli/terminal_text.h"
#include "cli/usage_texts.h"
#include "model/text_columns.h"

namespace tav {
namespace {

constexpr std::size_t kTextColumn = 30;

constexpr const char* kFooter = R"(
Exit status: 0, 1 for a plan that does not decompress, 2 for unusable input or an output that fails.
"tavplan COMMAND --help" gives the options and examples of a command.
)";

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
      usage.insert(0, option.name + (option.IsList() ? "... " : " "));
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

std::string HelpText(const std::vector<Command>& commands) {
  std::string text =
      "TAV: decompression planning on the command line\nUsage: tavplan COMMAND [OPTION]...\n\nOptions:\n" +
      Row("-h, --help", "Print this help, or that of a command, and end") +
      Row("--version", "Print the version and end") + Row("--manual-page", "Print the manual page for man, and end") +
      Row("--bash-completion", "Print the completion for bash, and end") + "\nCommands:\n";
  for (const Command& command : commands) text += Row(command.name, command.about);
  return text + kFooter;
}

std::string HelpText(const Command& command) {
  std::string text = command.about + "\nUsage: tavplan " + command.name + " " + UsageOf(command) + "\n\nOptions:\n";
  for (const Option& option : command.options) {
    text += Row(HeadOf(option), option.text + (option.required ? " (required)" : ""));
  }
  text += Row("-h, --help", "Print this help and end") + "\nExamples:" + command.examples + "\n";
  std::size_t at = 0;
  while (at != std::string::npos) {
    const std::size_t end = command.details.find('\n', at);
    text += Wrapped(command.details.substr(at, end - at), 0);
    at = end == std::string::npos ? end : end + 1;
  }
  return text;
}

}  // namespace tav
