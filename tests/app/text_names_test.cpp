// Every text has a name in model/text_id.h, is used, and is given as many values as it has places for. That the other
// languages have the texts of the English one, with the same places, is tested in language_tables_test.

#include "support/text_names.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <regex>
#include <set>

#include "persist/line_reader.h"
#include "persist/text_file.h"
#include "support/source_folder.h"

namespace tav {
namespace {

namespace fs = std::filesystem;

std::map<int, std::string> EnglishTexts() {
  std::map<int, std::string> texts;
  const std::string table = ReadTextFile(SourceFolder() / "lang/TAV_uk.dll");
  LineReader lines(table);
  while (const auto line = lines.Next()) {
    const std::size_t tab = line->find('\t');
    if (tab == std::string_view::npos || line->front() == '#') continue;
    texts.emplace(std::stoi(std::string(line->substr(0, tab))), line->substr(tab + 1));
  }
  return texts;
}

/// The sources by file, without their comments.
std::map<std::string, std::string> Sources() {
  std::map<std::string, std::string> sources;
  for (const auto& entry : fs::recursive_directory_iterator(SourceFolder() / "src")) {
    const fs::path& file = entry.path();
    if ((file.extension() != ".cpp" && file.extension() != ".h") || file.filename() == "text_id.h") continue;
    std::string& code = sources[file.string()];
    const std::string text = ReadTextFile(file);
    LineReader lines(text);
    while (const auto line = lines.Next()) code += std::string(line->substr(0, line->find("// "))) + "\n";
  }
  return sources;
}

/// What the page in the browser shows, by number: "Graph: 9000," in its list of names. From 9000 on they are its own.
constexpr int kFirstOfPage = 9000;
std::map<int, std::string> PageTexts() {
  std::map<int, std::string> named;
  const std::string list = ReadTextFile(SourceFolder() / "web/page/src/text_ids.ts");
  const std::regex entry(R"((\w+): (\d+),)");
  for (std::sregex_iterator found(list.begin(), list.end(), entry), end; found != end; ++found) {
    named.emplace(std::stoi((*found)[2]), (*found)[1]);
  }
  return named;
}

bool IsWord(char letter) { return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_'; }

/// A place in the code that says Text::Name.
struct Use {
  std::string name;
  std::size_t at = 0;   ///< where "Text::" begins
  std::size_t end = 0;  ///< behind the name
};

std::vector<Use> UsesIn(const std::string& code) {
  constexpr std::string_view kText = "Text::";
  std::vector<Use> uses;
  for (std::size_t at = code.find(kText); at != std::string::npos; at = code.find(kText, at + 1)) {
    if (at > 0 && (IsWord(code[at - 1]) || code[at - 1] == ':')) continue;
    std::size_t end = at + kText.size();
    while (end < code.size() && IsWord(code[end])) ++end;
    uses.push_back({code.substr(at + kText.size(), end - at - kText.size()), at, end});
  }
  return uses;
}

/// How many values stand in the braces that open at `at`, which follow the name of a text; nothing when none open.
std::optional<std::size_t> ValuesAt(const std::string& code, std::size_t at) {
  const auto skipBlanks = [&] { at = std::min(code.find_first_not_of(" \n", at), code.size() - 1); };
  skipBlanks();
  if (code[at++] != ',') return std::nullopt;
  skipBlanks();
  if (code[at++] != '{') return std::nullopt;
  skipBlanks();
  if (code[at] == '}') return 0;
  std::size_t values = 1;
  bool quoted = false;
  for (int depth = 1; depth > 0 && at < code.size(); ++at) {
    if (code[at] == '"' && code[at - 1] != '\\' && code[at - 1] != '\'') quoted = !quoted;
    if (quoted) continue;
    if (code[at] == '(' || code[at] == '{' || code[at] == '[') ++depth;
    if (code[at] == ')' || code[at] == '}' || code[at] == ']') --depth;
    if (code[at] == ',' && depth == 1) ++values;
  }
  return values;
}

/// The values of the call go into the text as they stand: no key or place is put ahead of them by the callee.
bool IsFilledAsTold(const std::string& code, std::size_t at) {
  const std::string before = code.substr(at < 60 ? 0 : at - 60, std::min<std::size_t>(at, 60));
  return std::regex_search(before, std::regex(R"((\b(Filled|T|Message)|[\s({,])[({]$)"));
}

/// The highest of "%1" to "%9".
std::size_t PlacesIn(const std::string& text) {
  std::size_t places = 0;
  for (std::size_t at = 0; at + 1 < text.size(); ++at) {
    const char next = text[at + 1];
    if (text[at] == '%' && next >= '1' && next <= '9') places = std::max(places, static_cast<std::size_t>(next - '0'));
  }
  return places;
}

TEST(TextNames, AreThoseOfTheTexts) {
  const std::map<int, std::string> english = EnglishTexts();
  std::map<int, std::string> named;
  for (const TextName& each : TextNames()) {
    EXPECT_TRUE(named.emplace(each.number, each.name).second) << named[each.number] << " and " << each.name;
  }
  for (const TextName& each : TextNames()) {
    for (int n = 1; n <= each.following; ++n) named.emplace(each.number + n, each.name);
  }
  for (const auto& [id, name] : PageTexts()) {
    EXPECT_TRUE(english.contains(id)) << name << ", " << id << ", of the page has no text";
    if (id >= kFirstOfPage) named.emplace(id, name);
  }
  for (const auto& [id, text] : english) EXPECT_TRUE(named.contains(id)) << id << " has no name: " << text;
  for (const auto& [id, name] : named) EXPECT_TRUE(english.contains(id)) << name << ", " << id << ", has no text";
}

TEST(TextNames, AreAllUsedAndNoNumbersInTheirPlace) {
  const std::regex number(R"(\b(T|t|GetResString|Filled|Message)[({]\s*([\w.]+ \? )?[1-9]\d{2,3}\b)");
  std::set<std::string> used;
  for (const auto& [file, code] : Sources()) {
    for (const Use& use : UsesIn(code)) used.insert(use.name);
    std::smatch found;
    EXPECT_FALSE(std::regex_search(code, found, number)) << file << ": " << found.str() << " has a name";
  }
  for (const TextName& each : TextNames()) {
    EXPECT_TRUE(used.contains(each.name)) << each.name << ", " << each.number << ": nothing shows this text";
  }
  std::string page;
  for (const auto& entry : fs::recursive_directory_iterator(SourceFolder() / "web/page/src")) {
    if (entry.is_regular_file()) page += ReadTextFile(entry.path());
  }
  for (const auto& [id, name] : PageTexts()) {
    EXPECT_TRUE(std::regex_search(page, std::regex("Text\\." + name + "\\b"))) << name << ": the page shows it nowhere";
  }
}

TEST(TextNames, AreGivenAsManyValuesAsTheTextHasPlaces) {
  const std::map<int, std::string> english = EnglishTexts();
  std::map<std::string, std::string> texts;
  for (const TextName& each : TextNames()) {
    if (english.contains(each.number)) texts[each.name] = english.at(each.number);
  }
  int calls = 0;
  for (const auto& [file, code] : Sources()) {
    for (const Use& use : UsesIn(code)) {
      const auto values = ValuesAt(code, use.end);
      if (!values || !IsFilledAsTold(code, use.at)) continue;
      ++calls;
      EXPECT_EQ(*values, PlacesIn(texts[use.name])) << file << ": " << use.name << ": " << texts[use.name];
    }
  }
  EXPECT_GT(calls, 100);
}

}  // namespace
}  // namespace tav
