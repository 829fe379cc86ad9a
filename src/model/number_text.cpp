#include "model/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace tav {
namespace {

constexpr int kSignificantDigits = 7;

/// The digits and the decimal exponent of |value|, as d.dddddd x 10^exponent, trailing zeros dropped.
struct Decimal {
  std::string digits;
  int exponent = 0;
};

Decimal SignificantDigits(double magnitude) {
  std::array<char, 32> buffer{};
  const char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                        std::chars_format::scientific, kSignificantDigits - 1)
                              .ptr;
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  const std::size_t e = text.find('e');
  Decimal decimal;
  for (const char c : text.substr(0, e)) {
    if (c != '.') decimal.digits += c;
  }
  while (decimal.digits.size() > 1 && decimal.digits.back() == '0') decimal.digits.pop_back();
  const std::string_view exponent = text.substr(text[e + 1] == '+' ? e + 2 : e + 1);
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.exponent);
  return decimal;
}

std::string ExponentForm(const Decimal& decimal) {
  std::string text = decimal.digits.substr(0, 1);
  if (decimal.digits.size() > 1) text += "." + decimal.digits.substr(1);
  const int magnitude = std::abs(decimal.exponent);
  text += decimal.exponent < 0 ? "E-" : "E+";
  if (magnitude < 10) text += "0";
  return text + std::to_string(magnitude);
}

/// |value| in plain form, with no zero ahead of the point.
std::string BareMagnitude(double magnitude) {
  if (magnitude == 0) return "0";
  const Decimal decimal = SignificantDigits(magnitude);
  const int digits = static_cast<int>(decimal.digits.size());
  if (decimal.exponent >= kSignificantDigits) return ExponentForm(decimal);
  if (decimal.exponent >= 0) {
    const int whole = decimal.exponent + 1;
    if (digits <= whole) return decimal.digits + std::string(static_cast<std::size_t>(whole - digits), '0');
    return decimal.digits.substr(0, static_cast<std::size_t>(whole)) + "." +
           decimal.digits.substr(static_cast<std::size_t>(whole));
  }
  const int zeros = -decimal.exponent - 1;
  if (zeros + digits > kSignificantDigits) return ExponentForm(decimal);
  return "." + std::string(static_cast<std::size_t>(zeros), '0') + decimal.digits;
}

std::string NotFinite(double value) { return std::isnan(value) ? "nan" : value < 0 ? "-inf" : "inf"; }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Length of the numeric prefix of text: sign, digits with at most one point, exponent; 0 when there is no digit.
std::size_t NumericPrefix(std::string_view text) {
  std::size_t i = 0;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  std::size_t digits = 0;
  bool point = false;
  for (; i < text.size() && (IsDigit(text[i]) || (text[i] == '.' && !point)); ++i) {
    if (text[i] == '.') {
      point = true;
    } else {
      ++digits;
    }
  }
  if (digits == 0) return 0;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    std::size_t j = i + 1;
    if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
    const std::size_t first = j;
    while (j < text.size() && IsDigit(text[j])) ++j;
    if (j > first) i = j;
  }
  return i;
}

/// The value of a text that is a number as NumericPrefix tells; underflow gives 0, overflow infinity.
double NumberValue(std::string_view number) {
  const bool negative = number.front() == '-';
  if (number.front() == '+' || number.front() == '-') number.remove_prefix(1);
  double value = 0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    // from_chars leaves the value alone; a negative exponent tells an underflow from an overflow, unless leading
    // zeros hide it ("0.000...1" of more than 300 zeros), which no file of ours holds: it reads as 0 too.
    const std::size_t e = number.find_first_of("eE");
    const bool small = e != std::string_view::npos ? number[e + 1] == '-' : number.find_first_not_of("0.") > 300;
    value = small ? 0.0 : std::numeric_limits<double>::infinity();
  }
  return negative ? -value : value;
}

/// Special blanks and apostrophes that group digits, as the ones of the keyboard where those of the user are such.
std::string AsTyped(std::string_view text, std::string_view thousand) {
  std::string typed(text);
  const auto put = [&](std::string_view key, std::initializer_list<std::string_view> others) {
    if (std::find(others.begin(), others.end(), thousand) != others.end()) typed = ReplaceAll(typed, key, thousand);
  };
  put(" ", {"\u00A0", "\u202F", "\u2009"});
  put("'", {"\u2019"});
  return typed;
}

/// The digits ahead of the decimal separator, without separators if these group all of them; else as they stand.
std::string WithoutGrouping(const std::string& whole, const std::string& thousand) {
  constexpr std::size_t kGroup = 3;
  const std::size_t first = thousand.empty() ? std::string::npos : whole.find(thousand);
  if (first == std::string::npos || first < 1 || first > kGroup || whole.front() == '0') return whole;
  std::string digits = whole.substr(0, first);
  for (std::size_t at = first; at < whole.size(); at += thousand.size() + kGroup) {
    if (whole.compare(at, thousand.size(), thousand) != 0) return whole;
    const std::string group = whole.substr(std::min(at + thousand.size(), whole.size()), kGroup);
    if (group.size() < kGroup) return whole;
    digits += group;
  }
  return std::all_of(digits.begin(), digits.end(), IsDigit) ? digits : whole;
}

/// Half away from zero on the decimal expansion of a double of 15 digits: 2.5 gives 3, 1.005 with two places 1.01.
double RoundHalfAway(double value, int decimals) {
  const double scale = std::pow(10.0, decimals);
  const double scaled = std::fabs(value) * scale;
  if (scaled >= 1e15) return value;
  // 100.49999999999999 is what is left of 100.5: its 15 digits say so.
  std::array<char, 32> digits{};
  const char* const end =
      std::to_chars(digits.data(), digits.data() + digits.size(), scaled, std::chars_format::scientific, 14).ptr;
  double decimal = 0;
  std::from_chars(digits.data(), end, decimal);
  return std::copysign(std::floor(decimal + 0.5) / scale, value);
}

}  // namespace

std::string FormatPlain(Single value) {
  if (!std::isfinite(value)) return NotFinite(value);
  std::string text = BareMagnitude(std::fabs(value));
  if (text.front() == '.') text.insert(0, "0");
  return value < 0 ? "-" + text : text;
}

std::string FormatPadded(Single value) {
  if (!std::isfinite(value)) return " " + NotFinite(value);
  return (value < 0 ? "-" : " ") + BareMagnitude(std::fabs(value));
}

std::string FormatFixed(double value, int decimals) {
  if (!std::isfinite(value)) return NotFinite(value);
  double rounded = RoundHalfAway(value, decimals);
  if (rounded == 0) rounded = 0;  // no "-0.0"
  std::array<char, 400> buffer{};
  const char* const end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), rounded, std::chars_format::fixed, decimals).ptr;
  return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
}

std::string FormatFixed(Single value, int decimals) {
  if (!std::isfinite(value)) return NotFinite(value);
  return FormatFixed(ParseLenient(FormatPlain(value)), decimals);
}

std::string FormatZeroFilled(int value, int width) {
  std::string digits = std::to_string(std::abs(value));
  const auto wanted = static_cast<std::size_t>(width);
  if (digits.size() < wanted) digits.insert(0, wanted - digits.size(), '0');
  return value < 0 ? "-" + digits : digits;
}

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

double ParseLenient(std::string_view text) {
  text = TrimBlanks(text);
  const std::size_t length = NumericPrefix(text);
  return length == 0 ? 0.0 : NumberValue(text.substr(0, length));
}

bool BeginsWithNumber(std::string_view text) { return NumericPrefix(TrimBlanks(text)) > 0; }

bool IsNumber(std::string_view text) {
  text = TrimBlanks(text);
  return !text.empty() && NumericPrefix(text) == text.size();
}

std::optional<double> ParseStrict(std::string_view text) {
  if (!IsNumber(text)) return std::nullopt;
  return NumberValue(TrimBlanks(text));
}

std::optional<double> ParseLocaleNumber(std::string_view text, const LocaleSeparators& separators) {
  const std::string typed = AsTyped(TrimBlanks(text), separators.thousand);
  const std::size_t sign = typed.find_first_not_of("+-");
  if (sign == std::string::npos) return std::nullopt;
  std::string whole = typed.substr(sign);
  std::string rest;
  // A point that groups is no decimal point, and may well be the only separator of the text.
  const std::size_t end = separators.decimal.empty() ? std::string::npos : whole.find(separators.decimal);
  if (end != std::string::npos) {
    rest = "." + whole.substr(end + separators.decimal.size());
    whole.resize(end);
  }
  return ParseStrict(typed.substr(0, sign) + WithoutGrouping(whole, separators.thousand) + rest);
}

std::string WriteLocaleNumber(std::string_view number, const LocaleSeparators& separators) {
  return separators.decimal.empty() ? std::string(number) : ReplaceAll(number, ".", separators.decimal);
}

std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement) {
  if (find.empty()) return std::string(text);
  std::string result;
  for (std::size_t at = text.find(find); at != std::string_view::npos; at = text.find(find)) {
    result.append(text.substr(0, at)).append(replacement);
    text.remove_prefix(at + find.size());
  }
  return result.append(text);
}

}  // namespace tav
