// Rows from a spreadsheet or a mail into the table of legs.

#include <algorithm>
#include <string_view>
#include <utility>

#include "plans/leg_table.h"

namespace tav {
namespace {

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  while (true) {
    const std::size_t at = text.find(separator);
    parts.emplace_back(TrimBlanks(text.substr(0, at)));
    if (at == std::string_view::npos) return parts;
    text.remove_prefix(at + 1);
  }
}

using Line = std::vector<std::string>;

bool IsBlank(const Line& fields) {
  return std::ranges::all_of(fields, [](const std::string& field) { return field.empty(); });
}

/// What parts the fields: a tab or a semicolon, else a comma. Where the comma is the decimal of the user, a text of
/// lines with one comma each is a column of numbers.
char SeparatorOf(const std::string& text, char decimal) {
  for (const char separator : {'\t', ';'}) {
    if (text.find(separator) != std::string::npos) return separator;
  }
  constexpr char kNone = '\n';
  const auto hasOne = [](const std::string& line) { return std::ranges::count(line, ',') <= 1; };
  return decimal == ',' && std::ranges::all_of(Split(text, '\n'), hasOne) ? kNone : ',';
}

/// The lines of a text as fields, from the first to the last one that hold anything.
std::vector<Line> LinesIn(std::string text, char decimal) {
  std::erase(text, '\r');
  const char separator = SeparatorOf(text, decimal);
  std::vector<Line> lines;
  for (const std::string& line : Split(text, '\n')) lines.push_back(Split(line, separator));
  while (!lines.empty() && IsBlank(lines.back())) lines.pop_back();
  lines.erase(lines.begin(), std::ranges::find_if_not(lines, IsBlank));
  return lines;
}

}  // namespace

std::string LegTable::WithDecimal(std::string field) const {
  const std::size_t comma = field.find(',');
  if (comma == std::string::npos || numbers_.Read(field)) return field;
  std::string decimal = field;
  decimal.replace(comma, 1, numbers_.Separators().decimal);
  return numbers_.Read(decimal) ? decimal : field;
}

int LegTable::Paste(int row, const std::string& text, const std::string& ascentWord) {
  const int before = Rows();
  int pasted = 0;
  for (Line& fields : LinesIn(text, Decimal())) {
    if (IsBlank(fields)) continue;
    if (fields.front() == ascentWord) {
      Row ascent;
      ascent.ascent = true;
      ascent.mix = std::int16_t{0};
      Put(row + pasted++, std::move(ascent));
      continue;
    }
    for (std::string& field : fields) field = WithDecimal(std::move(field));
    const auto isNumber = [this](const std::string& field) { return numbers_.Read(field).has_value(); };
    if (pasted == 0 && std::ranges::none_of(fields, isNumber)) continue;
    Insert(row + pasted);
    Set(row + pasted, Field::Depth, fields[0]);
    if (fields.size() > 1) Set(row + pasted, Field::Time, fields[1]);
    if (fields.size() > 2 && !fields[2].empty()) Set(row + pasted, Field::Gas, fields[2]);
    ++pasted;
  }
  // Among them one that came to lie ahead of the ascent of the plan.
  DropIdleAscents();
  return Rows() - before;
}

char LegTable::Decimal() const {
  const std::string& decimal = numbers_.Separators().decimal;
  return decimal.empty() ? '.' : decimal.front();
}

bool LegTable::IsColumn(const std::string& text, const std::string& ascentWord) const {
  return std::ranges::all_of(LinesIn(text, Decimal()),
                             [&](const Line& fields) { return fields.size() == 1 && fields.front() != ascentWord; });
}

int LegTable::PasteColumn(int first, int last, Field field, const std::string& text) {
  std::vector<std::string> values;
  for (Line& fields : LinesIn(text, Decimal())) {
    std::string value = WithDecimal(std::move(fields.front()));
    const bool isHeading = field != Field::Gas && values.empty() && !numbers_.Read(value);
    if (!isHeading) values.push_back(std::move(value));
  }
  if (values.size() == 1) {
    const auto isLeg = [this](int row) { return row < Rows() && !At(row).ascent; };
    for (int row = first + 1; row <= last; ++row) {
      if (isLeg(row)) values.push_back(values.front());
    }
  }
  int row = first;
  for (const std::string& value : values) {
    while (row < EndOfLegs() && At(row).ascent) ++row;
    if (row == EndOfLegs()) Insert(row);
    if (!value.empty()) Set(row, field, value);  // a blank passes a leg over
    ++row;
  }
  return static_cast<int>(values.size());
}

}  // namespace tav
