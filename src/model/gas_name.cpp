#include "model/gas_name.h"

#include "model/number_text.h"

namespace tav {
namespace {

std::string Small(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

}  // namespace

std::optional<GasMix> MixOfName(const std::string& name) {
  const std::string small = Small(name);
  const auto number = [&](std::size_t from, std::size_t count = std::string::npos) {
    return ParseStrict(std::string_view(small).substr(from, count));
  };
  const auto written = [](double percent) { return FormatPlain(percent); };
  if (small == "oxygen") return GasMix{"Oxygen", 100, 0, 0};
  if (small.starts_with("ean")) {
    if (const auto o2 = number(3); o2 && *o2 > 0 && *o2 <= 100) return GasMix{"EAN" + written(*o2), *o2, 100 - *o2, 0};
  }
  if (small.starts_with("h")) {
    if (const auto he = number(1); he && *he > 0 && *he < 100) return GasMix{"H" + written(*he), 100 - *he, 0, *he};
  }
  const std::size_t slash = small.find('/');
  if (small.starts_with("tx") && slash != std::string::npos) {
    const auto o2 = number(2, slash - 2);
    const auto he = number(slash + 1);
    if (o2 && he && *o2 > 0 && *he >= 0 && *o2 + *he <= 100) {
      return GasMix{"Tx" + written(*o2) + "/" + written(*he), *o2, 100 - *o2 - *he, *he};
    }
  }
  return std::nullopt;
}

std::optional<std::int16_t> GasNamed(const std::string& name, const DiveTemplate& diveTemplate) {
  if (const auto exact = FindBlend(name, diveTemplate)) return exact;
  const std::string small = Small(name);
  for (std::size_t i = 0; i < diveTemplate.Blends.size(); ++i) {
    if (Small(diveTemplate.Blends[i].Name) == small) return static_cast<std::int16_t>(i);
  }
  const auto usual = MixOfName(name);
  return usual ? FindBlend(usual->Name, diveTemplate) : std::nullopt;
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
