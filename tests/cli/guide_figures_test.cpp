// The figures of the guides and of docs/validation.md are what the program computes. A block of output stands behind
//   <!-- tavplan ARGUMENTS -->  or  <!-- tavplan ARGUMENTS, lines FROM-TO -->
// and the rows of a table behind  <!-- figures NAME -->.  To write them anew:
//   TAV_WRITE_FIGURES=1 build/release/bin/cli_test --gtest_filter='*Guides*'
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

#include "cli/figure_tables.h"
#include "model/number_text.h"
#include "persist/text_file.h"
#include "support/source_folder.h"

namespace tav {
namespace {

namespace fs = std::filesystem;
using namespace test;  // NOLINT(google-build-using-namespace)

const fs::path kRoot = SourceFolder();

struct Document {
  std::string file;
  bool html;
  bool comma;            ///< decimal sign of its tables
  std::string language;  ///< of what tavplan prints
};

/// The guides of all languages, and the page of the validation.
std::vector<Document> Documents() {
  std::vector<Document> documents = {{"docs/validation.md", false, false, "C"}};
  for (const auto& entry : fs::directory_iterator(kRoot / "lang")) {
    const fs::path name = entry.path().filename();
    if (name.extension() == ".hlp") {
      const std::string language = name == "TAV_uk.hlp" ? "C" : name.string().substr(4, 2);
      documents.push_back({"lang" / name, true, language != "C", language});
    }
  }
  return documents;
}

/// The lines of the block behind a marker, as they are to stand in the document.
Lines Block(const std::string& marker, const Document& document) {
  Lines block;
  if (marker.starts_with("figures ")) {
    for (const Lines& cells : Figures(marker.substr(8))) {
      std::string row = document.html ? "<tr>" : "|";
      for (const std::string& cell : cells) {
        const std::string text = document.comma ? ReplaceAll(cell, ".", ",") : cell;
        row += document.html ? "<td align=\"right\">" + text + "</td>" : " " + text + " |";
      }
      block.push_back(row + (document.html ? "</tr>" : ""));
    }
    return block;
  }
  const std::size_t comma = marker.find(", lines ");
  const std::string arguments = marker.substr(8, comma == std::string::npos ? comma : comma - 8);
  block = Split(Printed(Split(arguments, ' '), document.language));
  if (comma != std::string::npos) {
    const std::string range = marker.substr(comma + 8);
    const auto from = std::stoul(range);
    const auto to = std::stoul(range.substr(range.find('-') + 1));
    block = {block.begin() + static_cast<std::ptrdiff_t>(from) - 1, block.begin() + static_cast<std::ptrdiff_t>(to)};
  }
  if (document.html) {
    for (std::string& line : block) line = ReplaceAll(ReplaceAll(line, "&", "&amp;"), "<", "&lt;");
  }
  return block;
}

/// The document with all its blocks as they are to stand.
Lines Renewed(const Lines& lines, const Document& document, int& blocks) {
  const std::string open = document.html ? "<pre>" : "```";
  const std::string close = document.html ? "</pre>" : "```";
  Lines renewed;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    renewed.push_back(lines[i]);
    if (!lines[i].starts_with("<!-- tavplan ") && !lines[i].starts_with("<!-- figures ")) continue;
    ++blocks;
    const std::string marker = lines[i].substr(5, lines[i].find(" -->") - 5);
    const Lines block = Block(marker, document);
    if (marker.starts_with("tavplan ")) {
      renewed.push_back(open);
      renewed.insert(renewed.end(), block.begin(), block.end());
      renewed.push_back(close);
      for (i += 2; i < lines.size() && lines[i] != close;) ++i;
      continue;
    }
    // The heads of a table stay.
    const std::string row = document.html ? "<tr><td" : "| ";
    std::size_t heads = document.html ? 2 : 3;
    for (; heads > 0; --heads) renewed.push_back(lines[++i]);
    renewed.insert(renewed.end(), block.begin(), block.end());
    while (i + 1 < lines.size() && lines[i + 1].starts_with(row)) ++i;
  }
  return renewed;
}

class Guides : public testing::TestWithParam<Document> {};

TEST_P(Guides, ShowTheFiguresThatTheProgramComputes) {
  const fs::path file = kRoot / GetParam().file;
  const Lines lines = Split(ReadTextFile(file));
  int blocks = 0;
  const Lines renewed = Renewed(lines, GetParam(), blocks);
  EXPECT_GT(blocks, 5);
  if (std::getenv("TAV_WRITE_FIGURES") != nullptr) {
    std::string text;
    for (const std::string& line : renewed) text += line + "\n";
    if (renewed != lines) WriteTextFile(file, text);
    return;
  }
  for (std::size_t i = 0; i < std::min(lines.size(), renewed.size()); ++i) {
    ASSERT_EQ(lines[i], renewed[i]) << file << ":" << i + 1;
  }
  EXPECT_EQ(lines.size(), renewed.size());
}

INSTANTIATE_TEST_SUITE_P(, Guides, testing::ValuesIn(Documents()),
                         [](const auto& one) { return fs::path(one.param.file).stem().string(); });

}  // namespace
}  // namespace tav
