#pragma once

#include <string>
#include <vector>

#include "cli/command.h"
#include "cli/help_words.h"

/// What is told of the commands, all of it made of their tables.
namespace tav {

/// Of the program, and of one command, in the language of the words.
std::string HelpText(const std::vector<Command>& commands, const HelpWords& words);
std::string HelpText(const Command& command, const HelpWords& words);

/// "FILE --pdf OUT [OPTION]...": what stands behind the name of a command.
std::string UsageOf(const Command& command);

/// "-o, --output FILE"
std::string HeadOf(const Option& option);

/// The manual page, in the language of man.
std::string ManualPage(const std::vector<Command>& commands);

/// The completion of the words in bash.
std::string BashCompletion(const std::vector<Command>& commands);

}  // namespace tav
