#include "cli/option_values.h"

#include <cmath>

#include "model/gas_name.h"
#include "model/number_text.h"
#include "model/text_id.h"
#include "persist/cylinder_line.h"

namespace tav {

Single NumberOf(const std::string& text, const std::string& option) {
  const auto number = ParseStrict(text);
  if (!number) throw OptionError({Text::OptionNoNumber, {option, text}});
  return *number;
}

Single NumberOf(const std::string& text, const std::string& option, double least, double most) {
  const Single number = NumberOf(text, option);
  if (number >= least && number <= most) return number;
  throw OptionError({Text::OptionOutside, {option, text, FormatPlain(least), FormatPlain(most)}});
}

int WholeNumberOf(const std::string& text, const std::string& option, int least, int most) {
  const auto number = ParseStrict(text);
  if (number && *number == std::floor(*number) && *number >= least && *number <= most) return static_cast<int>(*number);
  throw OptionError({Text::UsageNotWhole, {option, text, std::to_string(least), std::to_string(most)}});
}

std::int16_t MixNumber(const std::string& name, DiveTemplate& diveTemplate) {
  if (const auto mix = TakeGas(name, diveTemplate.Blends)) return *mix;
  std::string known;
  for (const GasMix& blend : diveTemplate.Blends) known += (known.empty() ? "" : ", ") + blend.Name;
  throw OptionError({Text::OptionUnknownGas, {name, known}});
}

TypedLeg LegOf(const std::string& text, const std::string& option) {
  const std::size_t at = text.find('@');
  const std::string place = text.substr(0, at);
  const std::size_t colon = place.find(':');
  if (colon == std::string::npos || at == text.size() - 1)
    throw OptionError({Text::OptionMustBe, {option, text, "DEPTH:TIME, DEPTH:TIME@GAS"}});
  const std::string told = option + " " + text;
  return {NumberOf(place.substr(0, colon), told), NumberOf(place.substr(colon + 1), told),
          at == std::string::npos ? "" : text.substr(at + 1)};
}

Cylinder CylinderOf(const std::string& text, DiveTemplate& diveTemplate) {
  Cylinder cylinder;
  const Message fault = ReadCylinderLine(text.ends_with('/') ? text : text + "/", cylinder);
  if (!fault.IsEmpty()) throw OptionError({Text::OptionCylinder, {text, fault}});
  const std::int16_t mix = MixNumber(cylinder.Gas, diveTemplate);
  cylinder.Gas = diveTemplate.Blends[static_cast<std::size_t>(mix)].Name;
  return cylinder;
}

}  // namespace tav
