#include "cli/option_values.h"

#include <cmath>

#include "model/gas_name.h"
#include "model/number_text.h"
#include "model/text_id.h"

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

}  // namespace tav
