#include "cli/edit_words.h"

#include "cli/option_values.h"
#include "model/text_id.h"

namespace tav {
namespace {

/// The list of gases, for words.
std::string NamesOf(const std::vector<GasMix>& gases) {
  std::string names;
  for (const GasMix& gas : gases) names += (names.empty() ? "" : ", ") + gas.Name;
  return names;
}

}  // namespace

Pair Parted(const std::string& text, char sign, const char* option, const char* form) {
  const std::size_t at = text.find(sign);
  if (at == std::string::npos || at == 0 || at + 1 == text.size())
    throw OptionError({Text::OptionMustBe, {option, text, form}});
  return {text.substr(0, at), text.substr(at + 1)};
}

bool IsLeg(std::int16_t action, const ClassUseractions& actions) {
  return actions.getaction(action) == ClassUseractions::kLeg;
}

std::size_t GasToAlter(const std::string& name, const std::string& option, const DiveTemplate& settings) {
  const auto mix = FindBlend(name, settings);
  if (!mix) throw OptionError({Text::UsageNoneOf, {option, name, NamesOf(settings.Blends)}});
  if (*mix == 0) throw OptionError(option, Text::EditAirStays);
  return static_cast<std::size_t>(*mix);
}

std::string KnownName(const std::string& typed, DiveTemplate& settings) {
  return settings.Blends[static_cast<std::size_t>(MixNumber(typed, settings))].Name;
}

}  // namespace tav
