// The guides name only what the program has: menu entries, captions, pictures, pages of their own; and those of all
// languages tell the same.

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>

#include "persist/line_reader.h"
#include "persist/text_file.h"
#include "start/language_table.h"
#include "support/program_fixture.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using test::HeadlessProgram;
using Texts = std::vector<std::string>;

const fs::path kFolder = SourceFolder() / kLanguageFolder;

Texts AllOf(const std::string& html, const char* pattern) {
  const std::regex regex(pattern);
  Texts found;
  for (std::sregex_iterator it(html.begin(), html.end(), regex), end; it != end; ++it) found.push_back((*it)[1].str());
  return found;
}

/// One paragraph, cell, heading or list item, or an anchor in between.
struct Block {
  std::string tag;
  std::string text;
  std::size_t line = 0;
};

/// Without the chapters that each language sorts by its own alphabet: those from `name="glossary"` on.
std::vector<Block> Blocks(const std::string& html) {
  static const std::regex tag("<(h1|h2|h3|p|li|th|td|title|pre)( [^>]*)?>");
  const std::string sorted = html.substr(0, html.find("<a name=\"glossary\">"));
  std::vector<Block> blocks;
  for (std::sregex_iterator it(sorted.begin(), sorted.end(), tag), end; it != end; ++it) {
    const auto from = static_cast<std::size_t>(it->position() + it->length());
    const std::size_t to = sorted.find("</" + (*it)[1].str() + ">", from);
    const auto line = std::count(sorted.begin(), sorted.begin() + it->position(), '\n') + 1;
    blocks.push_back({(*it)[1].str(), sorted.substr(from, to - from), static_cast<std::size_t>(line)});
  }
  return blocks;
}

/// As it is read on the screen.
std::string Plain(std::string text) {
  for (const auto& [from, to] : {std::pair("\n", " "), {"&gt;", ">"}, {"&lt;", "<"}, {"&amp;", "&"}}) {
    text = ReplaceAll(text, from, to);
  }
  return std::regex_replace(text, std::regex("<[^>]*>"), "");
}

/// A caption as people name it: without its mnemonic and its dots.
std::string Named(std::string caption) {
  caption = std::regex_replace(caption, std::regex("^ +| +$|\\.\\.\\.|(\u00A0)?:$|(\u00A0)$|&"), "");
  return caption;
}

std::map<int, std::string> Captions(const std::string& table) {
  std::map<int, std::string> captions;
  const std::string file = ReadTextFile(kFolder / table);
  LineReader lines(file);
  while (const auto line = lines.Next()) {
    if (line->empty() || line->front() == '#') continue;
    const std::size_t tab = line->find('\t');
    captions[std::stoi(std::string(line->substr(0, tab)))] = Named(std::string(line->substr(tab + 1)));
  }
  return captions;
}

/// The captions that a block names in bold, those of a menu path one by one, or fills as a cell.
Texts NamedIn(const Block& block) {
  Texts names;
  const auto add = [&names](const std::string& text) {
    static const std::regex arrow(" > ");
    const std::string plain = Plain(text);
    for (std::sregex_token_iterator it(plain.begin(), plain.end(), arrow, -1), end; it != end; ++it) {
      names.push_back(Named(it->str()));
    }
  };
  for (const std::string& bold : AllOf(block.text, "<b>([^<]*)</b>")) add(bold);
  if (block.tag == "td" || block.tag == "th") names.push_back(Named(Plain(block.text)));
  return names;
}

/// The digits of a text in rising order of their groups: "1.61" and "1,61" are the same. O2 and PPO2 are words.
std::multiset<std::string> Digits(const Block& block) {
  const Texts found = AllOf(ReplaceAll(Plain(block.text), "O2", ""), "([0-9]+)");
  return {found.begin(), found.end()};
}

Texts Guides() {
  Texts names;
  for (const auto& entry : fs::directory_iterator(kFolder)) {
    if (entry.path().extension() == ".hlp") names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

class Guide : public testing::TestWithParam<std::string> {
 protected:
  const std::string html_ = ReadTextFile(kFolder / GetParam());
};

TEST_P(Guide, LeadsOnlyToPagesAndPicturesThatExist) {
  const Texts names = AllOf(html_, "<a name=\"([^\"]*)\"");
  const std::set<std::string> anchors(names.begin(), names.end());
  EXPECT_EQ(anchors.size(), names.size()) << "an anchor stands twice";
  for (const std::string& link : AllOf(html_, "<a href=\"([^\"]*)\"")) {
    EXPECT_TRUE(link.starts_with('#') && anchors.contains(link.substr(1))) << link;
  }
  const Texts pictures = AllOf(html_, "<img src=\"([^\"]*)\" alt=\"[^\"]+\">");
  EXPECT_EQ(pictures.size(), AllOf(html_, "(<img)").size()) << "a picture without a text";
  EXPECT_GT(pictures.size(), 10U);
  for (const std::string& picture : pictures) EXPECT_TRUE(fs::is_regular_file(kFolder / picture)) << picture;
}

TEST_P(Guide, TellsTheSameAsTheEnglishOne) {
  const std::string english = ReadTextFile(kFolder / "TAV_uk.hlp");
  EXPECT_EQ(AllOf(html_, "<a name=\"([^\"]*)\""), AllOf(english, "<a name=\"([^\"]*)\""));
  EXPECT_EQ(AllOf(html_, "<img src=\"([^\"]*)\""), AllOf(english, "<img src=\"([^\"]*)\""));
  const Texts links = AllOf(html_, "<a href=\"([^\"]*)\"");
  const Texts englishLinks = AllOf(english, "<a href=\"([^\"]*)\"");
  EXPECT_EQ(std::multiset<std::string>(links.begin(), links.end()),
            std::multiset<std::string>(englishLinks.begin(), englishLinks.end()));

  const std::map<int, std::string> captions = Captions(GetParam().substr(0, 6) + ".dll");
  const std::map<int, std::string> englishCaptions = Captions("TAV_uk.dll");
  const std::vector<Block> blocks = Blocks(html_);
  const std::vector<Block> original = Blocks(english);
  for (std::size_t i = 0; i < std::min(blocks.size(), original.size()); ++i) {
    SCOPED_TRACE(GetParam() + ":" + std::to_string(blocks[i].line) + " " + blocks[i].text);
    ASSERT_EQ(blocks[i].tag, original[i].tag);
    EXPECT_EQ(Digits(blocks[i]), Digits(original[i]));
    // Where the English guide names a caption, this one names the same in its own language.
    const Texts named = NamedIn(blocks[i]);
    for (const std::string& caption : NamedIn(original[i])) {
      std::set<std::string> allowed;
      for (const auto& [id, text] : englishCaptions) {
        if (text == caption && captions.contains(id)) allowed.insert(captions.at(id));
      }
      const bool isThere = std::any_of(named.begin(), named.end(), [&](const auto& n) { return allowed.contains(n); });
      EXPECT_TRUE(allowed.empty() || isThere) << caption << ": " << *allowed.begin();
    }
  }
  EXPECT_EQ(blocks.size(), original.size());
}

INSTANTIATE_TEST_SUITE_P(, Guide, testing::ValuesIn(Guides()),
                         [](const auto& one) { return fs::path(one.param).stem().string(); });

TEST(EnglishGuide, NamesOnlyEntriesThatTheMenusHave) {
  HeadlessProgram p;
  ASSERT_TRUE(p.Start());
  std::set<std::string> entries;
  Texts path;
  for (const MenuEntry& entry : p.Main().Menu()) {
    path.resize(static_cast<std::size_t>(entry.level));
    path.push_back(Named(entry.item->Caption));
    std::string name;
    for (const std::string& part : path) name += (name.empty() ? "" : " > ") + part;
    entries.insert(name);
  }
  const std::string html = ReadTextFile(kFolder / "TAV_uk.hlp");
  const Texts named = AllOf(html, "<b>([^<]* &gt; [^<]*)</b>");
  EXPECT_GT(named.size(), 15U);
  for (const std::string& each : named) EXPECT_TRUE(entries.contains(Named(Plain(each)))) << each;
}

}  // namespace
}  // namespace tav
