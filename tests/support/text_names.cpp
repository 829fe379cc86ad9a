#include "support/text_names.h"

#include <fstream>
#include <list>
#include <map>
#include <regex>

#include "support/source_folder.h"

namespace tav {
namespace {

std::map<std::string, int> Numbers() {
  std::map<std::string, int> numbers;
  for (const TextName& each : TextNames()) numbers.emplace(each.name, each.number);
  return numbers;
}

}  // namespace

std::vector<TextName> TextNames() {
  static const std::regex line(R"(constexpr int (\w+) = (\d+);(?:  // and the (\d+) that follow.*)?)");
  std::vector<TextName> names;
  std::ifstream list(SourceFolder() / "src/model/text_id.h");
  std::smatch found;
  for (std::string told; std::getline(list, told);) {
    if (!std::regex_match(told, found, line)) continue;
    names.push_back({found[1], std::stoi(found[2]), found[3].matched ? std::stoi(found[3]) : 0});
  }
  return names;
}

const char* Numbered(std::string_view told) {
  static const std::map<std::string, int> numbers = Numbers();
  static std::list<std::string> kept;
  static const std::regex name(R"(<(\w+)(?:\+(\d))?>|\{(\w+)\})");
  const std::string text(told);
  std::string& numbered = kept.emplace_back();
  auto behind = text.begin();
  for (std::sregex_iterator it(text.begin(), text.end(), name), end; it != end; ++it) {
    const std::smatch& found = *it;
    const int number =
        numbers.at(found[1].matched ? found[1] : found[3]) + (found[2].matched ? std::stoi(found[2]) : 0);
    numbered.append(behind, found[0].first);
    numbered += found[1].matched ? "*StringID " + std::to_string(number) + "*" : std::to_string(number);
    behind = found[0].second;
  }
  return numbered.append(behind, text.end()).c_str();
}

}  // namespace tav
