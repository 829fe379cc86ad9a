#pragma once

#include "model/message.h"

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace tav {

/// What is wrong with the arguments that the parser has refused, in words that wait for a language.
Message UsageFault(const CLI::App& app, const CLI::ParseError& error);

}  // namespace tav
