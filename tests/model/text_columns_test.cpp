#include "model/text_columns.h"

#include <gtest/gtest.h>

#include "model/utf8.h"

namespace tav {
namespace {

TEST(Utf8, CountsLettersAndFindsWhereTheyBegin) {
  const std::string text = "a\u00e4\u20ac\U0001F41F!";  // letters of 1, 2, 3, 4 and 1 bytes
  EXPECT_EQ(Letters(text), 5U);
  std::size_t at = 0;
  std::size_t letter = 0;
  for (const std::uint32_t code : {0x61U, 0xE4U, 0x20ACU, 0x1F41FU, 0x21U}) {
    EXPECT_EQ(StartOfLetter(text, letter++), at);
    EXPECT_EQ(NextLetter(text, at), code);
  }
  EXPECT_EQ(at, text.size());
  EXPECT_EQ(StartOfLetter(text, 9), text.size());
  at = 0;
  EXPECT_EQ(NextLetter("\xE4!", at), 0x4U) << "cut short by the next letter";
  EXPECT_EQ(at, 1U);
}

TEST(TextColumns, AreAsWideAsTheirLongestTextInLetters) {
  using Side = TextColumns::Column::Side;
  TextColumns columns({{Side::Left, 3, 1}, {Side::Right, 0, 2}, {Side::Left}});
  const std::vector<std::string> rows[] = {{"Oberfl\u00e4che", "7", "end"}, {"a", "12.5", ""}};
  for (const auto& row : rows) columns.Fit(row);
  EXPECT_EQ(columns.Line(rows[0]), " Oberfl\u00e4che     7  end\n");
  EXPECT_EQ(columns.Line(rows[1]), " a           12.5\n");
}

}  // namespace
}  // namespace tav
