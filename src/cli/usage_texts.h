#pragma once

#include <string>
#include <vector>

#include "cli/command.h"

/// What is told of the commands, all of it made of their tables. In English, as the names of the options are.
namespace tav {

/// Of the program, and of one command.
std::string HelpText(const std::vector<Command>& commands);
std::string HelpText(const Command& command);

/// "FILE --pdf OUT [OPTION]...": what stands behind the name of a command.
std::string UsageOf(const Command& command);

/// "-o, --output FILE"
std::string HeadOf(const Option& option);

/// The manual page, in the language of man.
std::string ManualPage(const std::vector<Command>& commands);

/// The completion of the words in bash.
std::string BashCompletion(const std::vector<Command>& commands);

}  // namespace tav
