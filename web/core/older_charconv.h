#pragma once

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

// Floating-point numbers as text. The C library of the web rounds exactly in both directions, and knows no locale; it
// is slow, as it computes in software with 128 bits. What whole numbers can do exactly is done with these.
namespace std {

namespace older {

constexpr uint64_t kPowers[] = {1ULL,
                                10ULL,
                                100ULL,
                                1000ULL,
                                10000ULL,
                                100000ULL,
                                1000000ULL,
                                10000000ULL,
                                100000000ULL,
                                1000000000ULL,
                                10000000000ULL,
                                100000000000ULL,
                                1000000000000ULL,
                                10000000000000ULL,
                                100000000000000ULL,
                                1000000000000000ULL,
                                10000000000000000ULL,
                                100000000000000000ULL,
                                1000000000000000000ULL};

// value x 10^decimals as a whole number, ties to even; false where 128 bits or 18 digits do not hold it.
inline bool Scaled(double value, int decimals, uint64_t& whole) {
  using Wide = unsigned __int128;
  if (!(value >= 1e-12 && value < 1e18) || decimals > 18 || decimals < -18) return false;
  int exponent = 0;
  const auto mantissa = static_cast<uint64_t>(ldexp(frexp(value, &exponent), 53));
  exponent -= 53;
  if (exponent > 10) return false;
  Wide over = decimals > 0 ? Wide{mantissa} * kPowers[decimals] : Wide{mantissa};
  Wide under = decimals < 0 ? Wide{kPowers[-decimals]} : Wide{1};
  if (exponent > 0) over <<= exponent;
  if (exponent < 0 && (exponent < -120 || (under << -exponent) >> -exponent != under)) return false;
  if (exponent < 0) under <<= -exponent;
  Wide result = over / under;
  const Wide rest = over % under;
  if (rest > under - rest || (rest == under - rest && (result & 1) != 0)) ++result;
  if (result >= kPowers[18]) return false;
  whole = static_cast<uint64_t>(result);
  return true;
}

inline int DigitsOf(uint64_t whole) {
  int digits = 1;
  while (digits < 19 && whole >= kPowers[digits]) ++digits;
  return digits;
}

// A text that ends at `end`, with a point ahead of the last `decimals` digits of at least one more; where it begins.
inline char* PutDigits(char* end, uint64_t whole, int decimals) {
  for (int i = 0; whole > 0 || i <= decimals; ++i) {
    if (i == decimals && decimals > 0) *--end = '.';
    *--end = static_cast<char>('0' + whole % 10);
    whole /= 10;
  }
  return end;
}

inline to_chars_result Copied(const char* from, size_t length, char* first, char* last) {
  if (length > static_cast<size_t>(last - first)) return {last, errc::value_too_large};
  memcpy(first, from, length);
  return {first + length, errc()};
}

inline to_chars_result Printed(char* first, char* last, double value, chars_format form, int precision) {
  char text[400];
  const int length = snprintf(text, sizeof text, form == chars_format::fixed ? "%.*f" : "%.*e", precision, value);
  if (length < 0 || length >= static_cast<int>(sizeof text)) return {last, errc::value_too_large};
  return Copied(text, static_cast<size_t>(length), first, last);
}

// The digits of a number above 0 and its decimal exponent, rounded to that many behind the first.
inline bool Scientific(double value, int precision, uint64_t& digits, int& exponent) {
  exponent = static_cast<int>(floor(log10(value)));
  for (int tries = 0; tries < 3; ++tries) {
    if (precision > 16 || !Scaled(value, precision - exponent, digits)) return false;
    const int more = DigitsOf(digits) - (precision + 1);
    if (more == 0) return true;
    exponent += more;
  }
  return false;
}

}  // namespace older

inline to_chars_result to_chars(char* first, char* last, double value, chars_format form, int precision) {
  const double size = fabs(value);
  uint64_t digits = 0;
  int exponent = 0;
  char text[48];
  char* end = text + sizeof text;
  char* begin = end;
  if (form == chars_format::fixed) {
    if (precision > 18 || !older::Scaled(size, precision, digits)) {
      return older::Printed(first, last, value, form, precision);
    }
    begin = older::PutDigits(end, digits, precision);
  } else {
    if (!older::Scientific(size, precision, digits, exponent)) {
      return older::Printed(first, last, value, form, precision);
    }
    begin = older::PutDigits(end -= 4, digits, precision);
    const int tens = exponent < 0 ? -exponent : exponent;  // below 100, as Scaled tells
    end[0] = 'e';
    end[1] = exponent < 0 ? '-' : '+';
    end[2] = static_cast<char>('0' + tens / 10);
    end[3] = static_cast<char>('0' + tens % 10);
    end += 4;
  }
  if (value < 0) *--begin = '-';
  return older::Copied(begin, static_cast<size_t>(end - begin), first, last);
}

from_chars_result from_chars(const char* first, const char* last, double& value);

// The fewest digits that are read back as the same number. Seven tell most numbers here, which were rounded to these.
inline to_chars_result to_chars(char* first, char* last, double value, chars_format form) {
  char text[48];
  int digits = 6;
  char* end = text;
  for (;; digits = digits < 14 ? 14 : digits + 1) {
    end = to_chars(text, text + sizeof text, value, chars_format::scientific, digits).ptr;
    double read = 0;
    from_chars(text, end, read);
    if (read == value || digits == 16) break;
  }
  *end = 0;
  char* const e = strchr(text, 'e');
  char* zeros = e;
  while (zeros[-1] == '0' && digits > 0) --zeros, --digits;
  const int exponent = atoi(e + 1);
  if (form == chars_format::fixed) {
    return to_chars(first, last, value, form, digits > exponent ? digits - exponent : 0);
  }
  return to_chars(first, last, value, form, digits);
}

// A number ahead, as in files: without blanks, a plus or other bases. One too large or too small leaves `value`.
inline from_chars_result from_chars(const char* first, const char* last, double& value) {
  const char* digits = first;
  if (digits != last && *digits == '-') ++digits;
  if (digits == last || !((*digits >= '0' && *digits <= '9') || *digits == '.')) return {first, errc::invalid_argument};
  const char* end = digits;
  uint64_t whole = 0;
  int count = 0;
  int decimals = 0;
  bool point = false;
  for (; end != last && ((*end >= '0' && *end <= '9') || (*end == '.' && !point)); ++end) {
    if (*end == '.') {
      point = true;
    } else {
      if (whole > 0 || *end != '0') ++count;
      if (count <= 18) whole = whole * 10 + static_cast<uint64_t>(*end - '0');
      if (point) ++decimals;
    }
  }
  int power = -decimals;
  const char* behindDigits = end;
  if (end != last && (*end == 'e' || *end == 'E')) {
    int exponent = 0;
    const auto read = from_chars(end + 1 + (end + 1 != last && end[1] == '+' ? 1 : 0), last, exponent);
    power = read.ec == errc() && exponent > -100 && exponent < 100 ? exponent - decimals : 100;
    if (count == 0 && read.ec == errc()) power = 0;
    behindDigits = read.ptr;
  }
  // Both parts are exact as doubles, so one operation rounds once (Clinger, How to read floating point numbers
  // accurately, 1990).
  if (count <= 15 && power >= -18 && power <= 18 && end - digits > (point ? 1 : 0)) {
    const auto parts = static_cast<double>(whole);
    const auto scale = static_cast<double>(older::kPowers[power < 0 ? -power : power]);
    const double exact = power < 0 ? parts / scale : parts * scale;
    value = *first == '-' ? -exact : exact;
    return {behindDigits, errc()};
  }
  while (end != last && ((*end >= '0' && *end <= '9') || *end == 'e' || *end == 'E' ||
                         ((*end == '-' || *end == '+') && (end[-1] == 'e' || end[-1] == 'E')))) {
    ++end;
  }
  const string number(first, end);
  char* rest = nullptr;
  const double parsed = strtod(number.c_str(), &rest);
  if (rest == number.c_str()) return {first, errc::invalid_argument};
  const char* const behind = first + (rest - number.c_str());
  const bool vanished = parsed == 0 && number.find_first_of("123456789") < number.find_first_of("eE");
  if (parsed > __DBL_MAX__ || parsed < -__DBL_MAX__ || vanished) return {behind, errc::result_out_of_range};
  value = parsed;
  return {behind, errc()};
}

}  // namespace std
