#include "model/plan_texts.h"

#include <algorithm>

#include "model/number_text.h"
#include "model/text_id.h"
#include "model/utf8.h"

namespace tav {
namespace {

bool CanStandIn(const PlanTextField& field, char c) {
  constexpr char kDelete = 0x7F;
  return (static_cast<unsigned char>(c) >= ' ' && c != kDelete) || (field.hasLines && c == '\n');
}

}  // namespace

Message PlanTextFault(const PlanTextField& field, const std::string& what, std::string_view text) {
  const std::size_t letters = Letters(text);
  if (letters > field.mostLetters) {
    return {Text::PlanTextTooLong, {what, std::to_string(letters), std::to_string(field.mostLetters)}};
  }
  const auto stands = [&](char c) { return CanStandIn(field, c); };
  return std::ranges::all_of(text, stands) ? Message() : Message{Text::PlanTextControl, {what}};
}

std::string FittingPlanText(const PlanTextField& field, std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const auto trimmed = [&](std::string_view whole) {
    const std::size_t from = whole.find_first_not_of(kBlanks);
    return from == std::string_view::npos ? std::string_view()
                                          : whole.substr(from, whole.find_last_not_of(kBlanks) + 1 - from);
  };
  std::string fitting = ReplaceAll(trimmed(text), "\r\n", "\n");
  std::ranges::replace_if(
      fitting, [&](char c) { return !CanStandIn(field, c); }, ' ');
  fitting.resize(StartOfLetter(fitting, field.mostLetters));
  return std::string(trimmed(fitting));
}

}  // namespace tav
