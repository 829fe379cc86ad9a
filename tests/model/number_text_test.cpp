#include "model/number_text.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "model/numbers.h"
#include "support/text_names.h"

namespace tav {
namespace {

struct WrittenNumber {
  double value;
  const char* plain;
  const char* padded;
};

TEST(NumberText, HasSevenDigitsAndTheExponentFormOutside) {
  const WrittenNumber numbers[] = {{0, "0", " 0"},
                                   {-0.0, "0", " 0"},
                                   {10, "10", " 10"},
                                   {1.3, "1.3", " 1.3"},
                                   {0.5, "0.5", " .5"},
                                   {-0.25, "-0.25", "-.25"},
                                   {-1, "-1", "-1"},
                                   {100.0 / 3, "33.33333", " 33.33333"},
                                   {1234567.8, "1234568", " 1234568"},
                                   {9999999, "9999999", " 9999999"},
                                   {1e7, "1E+07", " 1E+07"},
                                   {-1.5e8, "-1.5E+08", "-1.5E+08"},
                                   {3.4028234e38, "3.402823E+38", " 3.402823E+38"},
                                   {0.0001, "0.0001", " .0001"},
                                   {1e-7, "0.0000001", " .0000001"},
                                   {1e-8, "1E-08", " 1E-08"},
                                   {0.01234567, "1.234567E-02", " 1.234567E-02"}};
  for (const WrittenNumber& number : numbers) {
    EXPECT_EQ(FormatPlain(number.value), number.plain);
    EXPECT_EQ(FormatPadded(number.value), number.padded);
  }
}

// Reading what was written may lose digits beyond the seventh, but only once: the text does not change any more.
TEST(NumberText, OfAnyNumberIsReadBackToTheSameText) {
  std::mt19937 random(1);
  for (int n = 0; n < 50000; ++n) {
    const auto bits = static_cast<std::uint32_t>(random());
    float any = 0;
    std::memcpy(&any, &bits, sizeof any);
    if (!std::isfinite(any)) continue;
    const Single value = static_cast<double>(any);
    const Single again = ParseLenient(FormatPadded(value));
    ASSERT_EQ(FormatPadded(again), FormatPadded(value));
    ASSERT_NEAR(again, value, std::max(std::fabs(value) * 6e-7, 1e-44));
    ASSERT_EQ(ParseLenient(FormatPlain(value)), ParseLenient(FormatPadded(value)));
  }
}

TEST(NumberText, NamesWhatIsNoNumber) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  for (const auto& [value, text] : {std::pair{kInfinity, "inf"}, {-kInfinity, "-inf"}, {std::nan(""), "nan"}}) {
    EXPECT_EQ(FormatPlain(value), text);
    EXPECT_EQ(FormatFixed(value, 1), text);
  }
}

TEST(NumberText, WithFixedDecimalsRoundsHalfAwayFromZero) {
  EXPECT_EQ(FormatFixed(Single(0.35), 1), "0.4");  // 0.349999994 in 32 bits
  EXPECT_EQ(FormatFixed(Single(1.005), 2), "1.01");
  EXPECT_EQ(FormatFixed(1.005, 2), "1.01");  // 1.00499999999999989 in 64 bits
  EXPECT_EQ(FormatFixed(2.5, 0), "3");
  EXPECT_EQ(FormatFixed(-2.5, 0), "-3");
  EXPECT_EQ(FormatFixed(2.4999, 0), "2");
  EXPECT_EQ(FormatFixed(-0.04, 1), "0.0");
  EXPECT_EQ(FormatFixed(1.0, 2), "1.00");
  EXPECT_EQ(FormatFixed(12345678.9, 1), "12345678.9");
  EXPECT_EQ(FormatFixed(1e22, 1), "10000000000000000000000.0");
  EXPECT_EQ(FormatZeroFilled(42, 6), "000042");
  EXPECT_EQ(FormatZeroFilled(1234567, 6), "1234567");
}

struct ReadNumber {
  std::string text;
  double lenient;
  bool strict;  // the strict reading takes it too, with the same value
};

TEST(NumberText, IsReadByItsNumericPrefixOrStrictlyAsAWhole) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const ReadNumber numbers[] = {{"12.5", 12.5, true},
                                {" \t7 ", 7, true},
                                {"+3", 3, true},
                                {"-.5", -0.5, true},
                                {"5.", 5, true},
                                {"-2.5e-1", -0.25, true},
                                {"1E+08", 1e8, true},
                                {"1e400", kInfinity, true},
                                {"-1e400", -kInfinity, true},
                                {"1e-400", 0, true},
                                {std::string(400, '9'), kInfinity, true},
                                {"0." + std::string(400, '0') + "1", 0, true},
                                {std::string(400, '0') + "1", 1, true},
                                {"", 0, false},
                                {" ", 0, false},
                                {"word", 0, false},
                                {"inf", 0, false},
                                {"nan", 0, false},
                                {"-", 0, false},
                                {".", 0, false},
                                {"- 5", 0, false},
                                {"0x10", 0, false},
                                {"12 bar", 12, false},
                                {"1,5", 1, false},
                                {"1.2.3", 1.2, false},
                                {"3e", 3, false},
                                {"3e+", 3, false},
                                {"3 4", 3, false}};
  for (const ReadNumber& number : numbers) {
    SCOPED_TRACE(number.text);
    EXPECT_EQ(ParseLenient(number.text), number.lenient);
    EXPECT_EQ(IsNumber(number.text), number.strict);
    EXPECT_EQ(ParseStrict(number.text), number.strict ? std::optional(number.lenient) : std::nullopt);
  }
}

// What is read need not end where its text does.
TEST(NumberText, IsReadToItsEndAndNoFurther) {
  for (const char* text : {"1e52", "1e5", "123", "1.5", "-12"}) {
    const std::string_view all(text);
    const std::string_view head = all.substr(0, all.size() - 1);
    const bool isWhole = head != "1e";
    EXPECT_EQ(IsNumber(head), isWhole) << head;
    EXPECT_EQ(ParseStrict(head), isWhole ? std::optional(std::stod(std::string(head))) : std::nullopt) << head;
  }
  EXPECT_EQ(ParseLenient("1e12 m"), 1e12);
}

TEST(NumberText, OfADialogHasTheSeparatorsOfTheUser) {
  const LocaleSeparators german{",", "."};
  const LocaleSeparators english{".", ","};
  const LocaleSeparators french{",", "\u202F"};
  const LocaleSeparators swiss{".", "\u2019"};
  const LocaleSeparators none{"", ""};
  constexpr std::optional<double> kNone;
  struct {
    std::string text;
    LocaleSeparators separators;
    std::optional<double> number;
  } const cases[] = {{"1.500", german, 1500},
                     {"1.500,5", german, 1500.5},
                     {"-12.345.678", german, -12345678},
                     {" 1,500 ", german, 1.5},
                     {"1.5", german, 1.5},
                     {"20,5", german, 20.5},
                     {"0.300", german, 0.3},
                     {"1500.5", german, 1500.5},
                     {"1.500,", german, 1500},
                     {",5", german, 0.5},
                     {"1.50.000", german, kNone},
                     {"1.500.00", german, kNone},
                     {"1,5.300", german, kNone},
                     {"1,500.5", german, kNone},
                     {".500", german, 0.5},
                     {"1.2e3", german, 1200},
                     {"1,500", english, 1500},
                     {"1,234.5", english, 1234.5},
                     {"1.500", english, 1.5},
                     {"1,5", english, kNone},
                     {"1,500,", english, kNone},
                     {"1\u202F234,5", french, 1234.5},
                     {"1 234,5", french, 1234.5},
                     {"12 34", french, kNone},
                     {"1.500", french, 1.5},
                     {"1'234.5", swiss, 1234.5},
                     {"12.5", none, 12.5},
                     {"1,500", none, kNone},
                     {"12 m", german, kNone},
                     {"", german, kNone},
                     {"-", german, kNone},
                     {"+", german, kNone}};
  for (const auto& each : cases) {
    EXPECT_EQ(ParseLocaleNumber(each.text, each.separators), each.number)
        << each.text << " with " << each.separators.decimal << " and " << each.separators.thousand;
  }
}

TEST(ReplaceAll, GoesLeftToRightAndPastWhatItPutIn) {
  EXPECT_EQ(ReplaceAll("aaa", "aa", "a"), "aa");
  EXPECT_EQ(ReplaceAll("a.b.", ".", ".."), "a..b..");
  EXPECT_EQ(ReplaceAll("ab", "", "x"), "ab");
}

TEST(Numbers, RoundInTheSenseOfTheirUse) {
  for (const auto& [minutes, whole] : {std::pair{0.0, 1.0}, {0.999, 1.0}, {1.499, 1.0}, {1.5, 2.0}, {2.5, 3.0}}) {
    EXPECT_EQ(RoundMinutes(minutes), Single(whole)) << minutes;
  }
  EXPECT_EQ(RoundToInt16(2.5), 2);
  EXPECT_EQ(RoundToInt16(3.5), 4);
  EXPECT_EQ(RoundToInt16(-2.5), -2);
  EXPECT_EQ(RoundToInt16(32767.4), 32767);
  EXPECT_EQ(RoundToInt16(32767.5), std::nullopt);
  EXPECT_EQ(RoundToInt16(-32769), std::nullopt);
  EXPECT_EQ(RoundToInt16(std::nan("")), std::nullopt);
  EXPECT_EQ(FormatMinutes(0).Raw(), Numbered("{HoursAndMinutes} (0, 0)"));
  EXPECT_EQ(FormatMinutes(125.4).Raw(), Numbered("{HoursAndMinutes} (2, 5)"));
  EXPECT_EQ(FormatMinutes(62.5).Raw(), Numbered("{HoursAndMinutes} (1, 2)"));
  EXPECT_EQ(FormatMinutes(1499).Raw(), Numbered("{HoursAndMinutes} (24, 59)"));
}

}  // namespace
}  // namespace tav
