#include "model/gas_name.h"

#include <algorithm>

#include "model/number_text.h"

namespace tav {
namespace {

std::string LowerCase(std::string text) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  std::transform(text.begin(), text.end(), text.begin(), lower);
  return text;
}

}  // namespace

std::optional<GasMix> MixOfName(const std::string& text) {
  const std::string name = LowerCase(text);
  const auto number = [&](std::size_t from, std::size_t count = std::string::npos) {
    return ParseStrict(std::string_view(name).substr(from, count));
  };
  if (name == "air") return AirMix();
  if (name == "oxygen") return GasMix{"Oxygen", 100, 0, 0};
  if (name.starts_with("ean")) {
    if (const auto o2 = number(3); o2 && *o2 > 0 && *o2 <= 100) {
      return GasMix{"EAN" + FormatPlain(*o2), *o2, 100 - *o2, 0};
    }
  }
  if (name.starts_with("h")) {
    if (const auto he = number(1); he && *he > 0 && *he < 100) {
      return GasMix{"H" + FormatPlain(*he), 100 - *he, 0, *he};
    }
  }
  const std::size_t slash = name.find('/');
  if (name.starts_with("tx") && slash != std::string::npos) {
    const auto o2 = number(2, slash - 2);
    const auto he = number(slash + 1);
    if (o2 && he && *o2 > 0 && *he >= 0 && *o2 + *he <= 100) {
      return GasMix{"Tx" + FormatPlain(*o2) + "/" + FormatPlain(*he), *o2, 100 - *o2 - *he, *he};
    }
  }
  return std::nullopt;
}

std::string NameInTemplate(const std::string& name, const DiveTemplate& diveTemplate) {
  if (FindBlend(name, diveTemplate)) return name;
  const auto mix = MixOfName(name);
  if (mix && FindBlend(mix->Name, diveTemplate)) return mix->Name;
  const std::string lower = LowerCase(name);
  for (const GasMix& blend : diveTemplate.Blends) {
    if (LowerCase(blend.Name) == lower) return blend.Name;
  }
  return mix ? mix->Name : name;
}

std::optional<std::int16_t> GasNamed(const std::string& name, const DiveTemplate& diveTemplate) {
  return FindBlend(NameInTemplate(name, diveTemplate), diveTemplate);
}

std::string NameOfMix(Single O2, Single He) {
  constexpr double kNone = 0.5;  // of a percent: what rounds to no nitrogen, or to no helium
  const std::string oxygen = FormatFixed(O2, 0);
  const std::string helium = FormatFixed(He, 0);
  if (O2 > 100 - kNone) return "Oxygen";
  if (He < kNone) return "EAN" + oxygen;
  if (O2 + He > 100 - kNone) return "H" + helium;
  return "Tx" + oxygen + "/" + helium;
}

}  // namespace tav
