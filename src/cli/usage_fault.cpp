#include "cli/usage_fault.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace tav {
namespace {

// Texts by number.
constexpr int kNoSuchCommand = 7851;
constexpr int kNoCommand = 7852;
constexpr int kNotExpected = 7853;
constexpr int kMissing = 7854;
constexpr int kNeeds = 7856;
constexpr int kExclude = 7857;
constexpr int kNoValue = 7858;
constexpr int kTwice = 7859;
constexpr int kNotUnderstood = 7055;

/// The option that the parser names in what it says: its first word with dashes.
std::string NameIn(const CLI::ParseError& error) {
  const std::string text = error.what();
  const std::size_t dashes = text.find("--");
  const std::size_t start = dashes == std::string::npos ? 0 : dashes;
  return text.substr(start, text.find_first_of(": ,", start) - start);
}

/// The option of that name, dashes included; none for another word.
const CLI::Option* OptionOf(const CLI::App& command, const std::string& name) {
  return name.starts_with('-') ? command.get_option_no_throw(name) : nullptr;
}

/// The first given option with another in `others` that is given, or is not, and both.
template <class OthersOf>
Message Pair(const CLI::App& command, int text, bool otherGiven, OthersOf othersOf) {
  for (const CLI::Option* option : command.get_options()) {
    if (option->count() == 0) continue;
    for (const CLI::Option* other : othersOf(*option)) {
      if ((other->count() > 0) == otherGiven) return {text, {option->get_name(), other->get_name()}};
    }
  }
  return {kNotUnderstood, {command.get_name()}};
}

}  // namespace

Message UsageFault(const CLI::App& app, const CLI::ParseError& error) {
  const std::vector<std::string> unknown = app.remaining(true);
  const bool commandGiven = !app.get_subcommands().empty();
  // A mistyped option is told rather than what is missing in its place.
  if (!unknown.empty()) {
    const bool option = unknown.front().starts_with('-');
    return {commandGiven || option ? kNotExpected : kNoSuchCommand, {unknown.front()}};
  }
  if (!commandGiven) return {kNoCommand};
  const CLI::App& command = *app.get_subcommands().front();
  if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
    for (const CLI::Option* option : command.get_options()) {
      if (option->get_required() && option->count() == 0) return {kMissing, {option->get_name()}};
    }
  }
  if (dynamic_cast<const CLI::RequiresError*>(&error) != nullptr) {
    return Pair(command, kNeeds, false, [](const CLI::Option& option) { return option.get_needs(); });
  }
  if (dynamic_cast<const CLI::ExcludesError*>(&error) != nullptr) {
    return Pair(command, kExclude, true, [](const CLI::Option& option) { return option.get_excludes(); });
  }
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
    for (const CLI::Option* option : command.get_options()) {
      if (option->count() > static_cast<std::size_t>(std::max(1, option->get_expected_max()))) {
        return {kTwice, {option->get_name()}};
      }
    }
    return {kNoValue, {NameIn(error)}};
  }
  return {kNotUnderstood, {NameIn(error)}};
}

std::optional<Message> ValueFault(const CLI::App& app, const std::vector<std::string>& arguments) {
  const auto argumentsEnd = std::ranges::find(arguments, "--");
  const auto commands = app.get_subcommands([](const CLI::App*) { return true; });
  const CLI::App* command = nullptr;
  for (auto word = arguments.begin(); word != argumentsEnd; ++word) {
    if (command == nullptr) {
      const auto named = std::ranges::find(commands, *word, [](const CLI::App* each) { return each->get_name(); });
      if (named != commands.end()) command = *named;
      continue;
    }
    const std::size_t equals = word->starts_with("--") ? word->find('=') : std::string::npos;
    const CLI::Option* option = OptionOf(*command, word->substr(0, equals));
    if (option == nullptr || option->get_items_expected_max() == 0) continue;
    const bool inWord = equals != std::string::npos;
    if (!inWord && word + 1 == argumentsEnd) return Message{kNoValue, {option->get_name()}};
    const std::string value = inWord ? word->substr(equals + 1) : *++word;
    if (value.empty() || value.starts_with("--") || OptionOf(*command, value) != nullptr) {
      return Message{kNoValue, {option->get_name()}};
    }
  }
  return std::nullopt;
}

}  // namespace tav
