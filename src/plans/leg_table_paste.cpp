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

char SeparatorOf(const std::string& text) {
  for (const char separator : {'\t', ';'}) {
    if (text.find(separator) != std::string::npos) return separator;
  }
  return ',';
}

}  // namespace

int LegTable::Paste(int row, const std::string& text, const std::string& ascentWord) {
  const int before = Rows();
  int pasted = 0;
  const char separator = SeparatorOf(text);
  for (std::string line : Split(text, '\n')) {
    std::erase(line, '\r');
    const std::vector<std::string> fields = Split(line, separator);
    const auto isEmpty = [](const std::string& field) { return field.empty(); };
    if (std::all_of(fields.begin(), fields.end(), isEmpty)) continue;
    if (fields.front() == ascentWord) {
      Row ascent;
      ascent.ascent = true;
      ascent.mix = std::int16_t{0};
      Put(row + pasted++, std::move(ascent));
      continue;
    }
    const auto isNumber = [this](const std::string& field) { return numbers_.Read(field).has_value(); };
    if (pasted == 0 && std::none_of(fields.begin(), fields.end(), isNumber)) continue;
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

}  // namespace tav
