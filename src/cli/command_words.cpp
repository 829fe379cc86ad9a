#include "cli/command_words.h"

#include <algorithm>
#include <map>

#include "cli/option_values.h"
#include "model/text_id.h"

namespace tav {
namespace {

class WordReader {
 public:
  WordReader(const Command& command, std::span<const std::string> words) : command_(command), words_(words) {}

  bool Read() {
    bool named = true;  // words may be names of options
    while (!words_.empty()) {
      const std::string word = Next();
      if (!named || word.size() < 2 || word.front() != '-') {
        ReadPlain(word);
      } else if (word == "--") {
        named = false;
      } else if (word == "--help" || word == "-h") {
        return false;
      } else {
        ReadNamed(word);
      }
    }
    CheckTogether();
    for (const auto& [option, values] : given_) Put(*option, values);
    return true;
  }

 private:
  std::string Next() {
    std::string word = words_.front();
    words_ = words_.subspan(1);
    return word;
  }

  [[nodiscard]] const Option* Named(const std::string& word) const {
    const auto found = std::ranges::find_if(command_.options, [&](const Option& option) {
      return option.HasName() && (option.name == word || option.shortName == word);
    });
    return found == command_.options.end() ? nullptr : &*found;
  }

  [[nodiscard]] bool IsValue(const std::string& word) const {
    return !word.empty() && !word.starts_with("--") && word != "-h" && Named(word) == nullptr;
  }

  void ReadPlain(const std::string& word) {
    for (const Option& option : command_.options) {
      if (option.HasName() || (given_.contains(&option) && !option.IsList())) continue;
      given_[&option].push_back(word);
      return;
    }
    throw UsageError({Text::UsageNotExpected, {word}});
  }

  void ReadNamed(const std::string& word) {
    // "--name=VALUE", and "-nVALUE" where a short name has one letter.
    const bool isLong = word.starts_with("--");
    const std::size_t equals = isLong ? word.find('=') : word.size() > 2 ? 1 : std::string::npos;
    const Option* option = Named(isLong ? word.substr(0, equals) : word.substr(0, 2));
    if (option == nullptr || (!isLong && word.size() > 2 && !option->TakesValue())) {
      throw UsageError({Text::UsageNotExpected, {word}});
    }
    std::vector<std::string>& values = given_[option];
    if (!option->TakesValue()) {
      if (equals != std::string::npos) throw UsageError({Text::NotUnderstood, {option->name}});
      return;
    }
    if (!values.empty() && !option->IsList()) throw UsageError({Text::UsageTwice, {option->name}});
    const bool inWord = equals != std::string::npos;
    if (!inWord && words_.empty()) throw UsageError({Text::UsageNoValue, {option->name}});
    values.push_back(inWord ? word.substr(equals + 1) : Next());
    if (!IsValue(values.back())) throw UsageError({Text::UsageNoValue, {option->name}});
    while (option->IsList() && !words_.empty() && !words_.front().starts_with('-')) values.push_back(Next());
  }

  [[nodiscard]] bool IsGiven(const std::string& name) const { return given_.contains(Named(name)); }

  void CheckTogether() const {
    for (const Option& option : command_.options) {
      if (option.required && !given_.contains(&option)) throw UsageError({Text::UsageMissing, {option.name}});
      if (!given_.contains(&option)) continue;
      if (!option.needs.empty() && !IsGiven(option.needs))
        throw UsageError({Text::UsageNeeds, {option.name, option.needs}});
      for (const std::string& other : option.excludes) {
        if (IsGiven(other)) throw UsageError({Text::UsageExclude, {option.name, other}});
      }
    }
  }

  static void Put(const Option& option, const std::vector<std::string>& values) {
    if (const auto* flag = std::get_if<bool*>(&option.place)) {
      **flag = true;
    } else if (const auto* list = std::get_if<std::vector<std::string>*>(&option.place)) {
      **list = values;
    } else if (const auto* text = std::get_if<std::string*>(&option.place)) {
      **text = values.front();
    } else {
      std::get<std::function<void(const std::string&)>>(option.place)(values.front());
    }
  }

  const Command& command_;
  std::span<const std::string> words_;
  std::map<const Option*, std::vector<std::string>> given_;  // in the order of the table
};

}  // namespace

bool ReadWords(const Command& command, std::span<const std::string> words) { return WordReader(command, words).Read(); }

std::string LanguageAmong(std::span<const std::string> words) {
  const std::string named = std::string(kLanguageOption) + "=";
  for (std::size_t i = 0; i < words.size() && words[i] != "--"; ++i) {
    if (words[i].starts_with(named)) return words[i].substr(named.size());
    if (words[i] == kLanguageOption && i + 1 < words.size()) return words[i + 1];
  }
  return {};
}

std::vector<std::string> ValuesOf(const Command& command, Option::Role role) {
  std::vector<std::string> values;
  for (const Option& option : command.options) {
    if (option.role != role) continue;
    if (const auto* list = std::get_if<std::vector<std::string>*>(&option.place)) {
      values.insert(values.end(), (*list)->begin(), (*list)->end());
    } else if (const auto* text = std::get_if<std::string*>(&option.place); text != nullptr && !(*text)->empty()) {
      values.push_back(**text);
    }
  }
  return values;
}

}  // namespace tav
