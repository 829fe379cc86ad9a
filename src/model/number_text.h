#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "model/single.h"

/// The one home of number text: every number that a file, a report or a dialog shows is written and read here.
/// Nothing in this header depends on the locale of the process.
namespace tav {

/// The decimal and the thousands separator of the user; files never use them.
struct LocaleSeparators {
  std::string decimal = ".";
  std::string thousand = ",";
};

/// At most 7 significant digits, no trailing zeros, "." as decimal point: "30", "2.5", "0.5", "-1", "1E+08".
/// The exponent form is taken from 10 million up, and below 1 where more than 7 decimals would be needed.
std::string FormatPlain(Single value);

/// The form of a template block: as FormatPlain, without a zero ahead of the point, and with a leading blank for a
/// value that is not negative: " 1.3", " .5", " 10", "-1".
std::string FormatPadded(Single value);

/// A fixed number of decimals (0 to 9), rounded half away from zero: the patterns "0", "0.0", "0.00", "###0".
/// A Single is taken at its 7 significant digits, so that 0.35 with one decimal gives "0.4".
std::string FormatFixed(Single value, int decimals);
std::string FormatFixed(double value, int decimals);
inline std::string FormatFixed(int value, int decimals) { return FormatFixed(static_cast<double>(value), decimals); }

/// As FormatFixed without decimals, filled with zeros on the left: the pattern "000000".
std::string FormatZeroFilled(int value, int width);

/// The lenient reading: blanks skipped, then the longest numeric prefix (sign, digits, point, exponent); 0 when there
/// is none. A number too large for a double gives infinity.
double ParseLenient(std::string_view text);

/// True when the text begins with a number, blanks ahead of it allowed: the lenient reading has something to read.
bool BeginsWithNumber(std::string_view text);

/// True when nothing but blanks stands around a number, that is, when the lenient reading loses nothing.
bool IsNumber(std::string_view text);

/// The strict reading: the whole text must be a number, blanks around it allowed; nothing otherwise.
std::optional<double> ParseStrict(std::string_view text);

/// The reading of dialogs: the whole text must be a number as the user writes it; nothing otherwise. A thousands
/// separator counts as one only where it groups three digits behind one to three that do not begin with 0, so that
/// "1.500" is 1500 where points group, and "1.5" and "0.500" have a decimal point everywhere: the key of a number pad
/// gives one in any country. Where the separator is a special blank or apostrophe, that of the keyboard does as well.
std::optional<double> ParseLocaleNumber(std::string_view text, const LocaleSeparators& separators);

/// A number text of this header with the user's decimal separator; ParseLocaleNumber reads it back.
std::string WriteLocaleNumber(std::string_view number, const LocaleSeparators& separators);

/// text with every occurrence of `find` replaced, left to right; an empty `find` replaces nothing.
std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement);

/// text without blanks (and tabs) at both ends.
std::string_view TrimBlanks(std::string_view text);

}  // namespace tav
