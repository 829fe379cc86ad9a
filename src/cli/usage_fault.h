#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/message.h"

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace tav {

/// What is wrong with the arguments that the parser has refused, in words that wait for a language.
Message UsageFault(const CLI::App& app, const CLI::ParseError& error);

/// What is wrong with the values of the options of a command, of any: one that is empty, is missing, begins with "--"
/// or is itself the name of an option of the command. Negative numbers and ranges are values.
std::optional<Message> ValueFault(const CLI::App& app, const std::vector<std::string>& arguments);

}  // namespace tav
