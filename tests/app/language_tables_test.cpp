// Every language has every text, in the form that the program joins and fills it in.

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "model/text_id.h"
#include "persist/line_reader.h"
#include "persist/text_file.h"
#include "start/language_table.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using test::HeadlessProgram;

const fs::path kFolder = SourceFolder() / kLanguageFolder;

/// The file names of all tables.
std::vector<std::string> Tables() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(kFolder)) {
    if (entry.path().extension() == ".dll") names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// The texts of a table as they are written, escapes and all, by number; a number that stands twice is a fault.
std::map<int, std::string> Written(const std::string& name) {
  std::map<int, std::string> texts;
  const std::string file = ReadTextFile(kFolder / name);
  LineReader lines(file);
  while (const auto line = lines.Next()) {
    if (line->empty() || line->front() == '#') continue;
    const std::size_t tab = line->find('\t');
    const int id = std::stoi(std::string(line->substr(0, tab)));
    EXPECT_TRUE(texts.emplace(id, line->substr(tab + 1)).second) << name << ": " << id << " stands twice";
  }
  return texts;
}

/// "%1" to "%9", each as often as it stands there, in rising order.
std::multiset<char> Placeholders(const std::string& text) {
  std::multiset<char> found;
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] == '%' && text[i + 1] >= '1' && text[i + 1] <= '9') found.insert(text[i + 1]);
  }
  return found;
}

/// What joins a text with its neighbours: blanks and line breaks ahead of its first and after its last word, and how
/// many lines it has.
std::string Shape(const std::string& text) {
  const auto blankAt = [&](std::size_t i) {
    if (text[i] == ' ') return true;
    const bool escape = text[i] == '\\' || (i > 0 && text[i - 1] == '\\');
    const char code = text[i] == '\\' && i + 1 < text.size() ? text[i + 1] : text[i];
    return escape && (code == 'n' || code == 'r' || code == 't');
  };
  std::size_t first = 0;
  while (first < text.size() && blankAt(first)) ++first;
  std::size_t last = text.size();
  while (last > first && blankAt(last - 1)) --last;
  std::size_t breaks = 0;
  for (std::size_t at = text.find("\\n"); at != std::string::npos; at = text.find("\\n", at + 2)) ++breaks;
  return "[" + text.substr(0, first) + "] " + std::to_string(breaks) + " [" + text.substr(last) + "]";
}

/// The letter that a text is reached by; '\0' for none. "&&" is an ampersand.
char Mnemonic(const std::string& text) {
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] != '&') continue;
    if (text[i + 1] != '&') return static_cast<char>(std::tolower(static_cast<unsigned char>(text[i + 1])));
    ++i;
  }
  return '\0';
}

TEST(EveryLanguage, HasTheTextsOfTheEnglishOneInTheSameForm) {
  const std::vector<std::string> names = Tables();
  ASSERT_GE(names.size(), 6U);
  const auto english = Written(std::string(kDefaultLanguage));
  std::set<std::string> ownNames;
  for (const std::string& name : names) {
    const auto texts = Written(name);
    ASSERT_TRUE(texts.contains(Text::LanguageName)) << name;
    EXPECT_TRUE(ownNames.insert(texts.at(Text::LanguageName)).second) << name << " bears another's name";
    for (const auto& [id, text] : texts) EXPECT_TRUE(english.contains(id)) << name << ": " << id << " is not known";
    for (const auto& [id, text] : english) {
      const auto found = texts.find(id);
      if (found == texts.end()) {
        ADD_FAILURE() << name << ": " << id << " is missing: " << text;
        continue;
      }
      const std::string& own = found->second;
      EXPECT_EQ(own.empty(), text.empty()) << name << ": " << id;
      EXPECT_EQ(Placeholders(own), Placeholders(text)) << name << ": " << id << " " << own;
      EXPECT_EQ(Shape(own), Shape(text)) << name << ": " << id << " " << own;
      EXPECT_EQ(Mnemonic(own) != '\0', Mnemonic(text) != '\0') << name << ": " << id << " " << own;
    }
  }
}

/// Within one menu no two entries are reached by one letter. Plans and files that the user opened come by number.
void ExpectOneLetterEach(const std::vector<MenuEntry>& menu, const std::string& language) {
  std::map<int, std::map<char, std::string>> taken;  // of the menus that are open at this entry, by level
  for (const MenuEntry& entry : menu) {
    taken.erase(taken.upper_bound(entry.level), taken.end());
    const std::string caption = entry.item->Caption;
    if (caption == "-") continue;
    const char letter = Mnemonic(caption);
    EXPECT_NE(letter, '\0') << language << ": " << caption;
    const auto [other, free] = taken[entry.level].emplace(letter, caption);
    EXPECT_TRUE(free) << language << ": " << caption << " and " << other->second;
  }
}

TEST(EveryLanguage, ReachesEachEntryOfAMenuByALetterOfItsOwn) {
  for (const std::string& name : Tables()) {
    HeadlessProgram p;
    p.platform.settings[{"", "Language"}] = name;
    ASSERT_TRUE(p.Start({"/vpm", "/hybrid"}));
    ExpectOneLetterEach(p.Main().Menu(), name);
  }
}

}  // namespace
}  // namespace tav
