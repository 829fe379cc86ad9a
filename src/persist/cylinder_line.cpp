#include "persist/cylinder_line.h"

#include <cmath>
#include <vector>

#include "model/number_text.h"
#include "model/numbers.h"
#include "model/text_id.h"
#include "model/tokenizer.h"

namespace tav {
namespace {

constexpr std::string_view kBailOut = "bail-out";

}  // namespace

std::string WriteCylinderLine(const Cylinder& cylinder) {
  std::string line = cylinder.Gas + ":";
  const auto add = [&](Single number) { line += FormatPadded(number) + "/"; };
  add(static_cast<double>(cylinder.Count));
  add(cylinder.Size);
  if (!cylinder.InLitres()) add(cylinder.RatedPressure);
  add(cylinder.Fill);
  add(cylinder.Reserve);
  if (cylinder.BailOut) line += " " + std::string(kBailOut);
  return line;
}

Message ReadCylinderLine(std::string_view value, Cylinder& cylinder) {
  if (!ClassTokenizer::hastokens(value, ":")) return Text::CylinderNoGas;
  cylinder.Gas = TrimBlanks(ClassTokenizer::nextToken(value, ":"));
  std::vector<Single> numbers;
  while (ClassTokenizer::hastokens(value, "/")) {
    constexpr double kTooLarge = 1e6;
    const std::string_view text = ClassTokenizer::nextToken(value, "/");
    if (TrimBlanks(text) == kBailOut && TrimBlanks(value).empty()) {
      value = kBailOut;
      break;
    }
    const auto number = ParseStrict(text);
    if (!number) return {Text::CylinderNoNumber, {std::string(TrimBlanks(text))}};
    if (std::fabs(*number) > kTooLarge) return {Text::CylinderNumberTooLarge, {std::string(TrimBlanks(text))}};
    numbers.emplace_back(*number);
  }
  constexpr std::size_t kLitres = 4;
  constexpr std::size_t kCubicFeet = 5;
  cylinder.BailOut = TrimBlanks(value) == kBailOut;
  if ((numbers.size() != kLitres && numbers.size() != kCubicFeet) ||
      (!TrimBlanks(value).empty() && !cylinder.BailOut)) {
    return Text::CylinderMustFollow;
  }
  cylinder.Count = RoundToInt16(numbers[0]).value_or(0);
  if (numbers[0] != static_cast<double>(cylinder.Count)) cylinder.Count = 0;
  cylinder.Size = numbers[1];
  cylinder.RatedPressure = 0;
  if (numbers.size() == kCubicFeet) {
    cylinder.RatedPressure = numbers[2];
    if (!(cylinder.RatedPressure > 0)) return Text::CylinderNoRated;
  }
  cylinder.Fill = numbers[numbers.size() - 2];
  cylinder.Reserve = numbers.back();
  return CylinderFault(cylinder);
}

}  // namespace tav
