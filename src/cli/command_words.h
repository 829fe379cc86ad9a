#pragma once

#include <span>
#include <string>

#include "cli/command.h"

namespace tav {

/// Puts the words that stand behind the name of a command where its table says. "--name VALUE", "--name=VALUE" and
/// "-nVALUE" are the same, "--" ends the options. A value that is empty, begins with "--" or is itself the name of an
/// option is a missing one: a typing error must not become the name of a file. Negative numbers and ranges are values.
/// Returns false where help is asked for; then nothing is to be done. Throws UsageError.
bool ReadWords(const Command& command, std::span<const std::string> words);

/// The value of --language among the words, before they are read; empty where there is none.
std::string LanguageAmong(std::span<const std::string> words);

/// The values of the options of a role that were given.
std::vector<std::string> ValuesOf(const Command& command, Option::Role role);

}  // namespace tav
