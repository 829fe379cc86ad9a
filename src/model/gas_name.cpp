#include "model/gas_name.h"

#include <algorithm>
#include <array>

#include "model/number_text.h"
#include "model/text_id.h"

namespace tav {
namespace {

std::string LowerCase(std::string_view of) {
  std::string text(of);
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  std::transform(text.begin(), text.end(), text.begin(), lower);
  return text;
}

/// What a user types, in small letters without blanks, apart from a word for the kind of gas.
struct TypedName {
  std::string rest;
  bool tellsHelium = false;  ///< the word is that of a gas that has some
};
TypedName Parted(std::string_view typed) {
  std::string name = LowerCase(typed);
  std::erase_if(name, [](char c) { return c == ' ' || c == '\t' || c == '%'; });
  for (const std::string_view word : {"trimix", "heliox", "tx", "hx"}) {
    if (name.starts_with(word)) return {name.substr(word.size()), true};
  }
  for (const std::string_view word : {"nitrox", "ean", "nx"}) {
    if (name.starts_with(word)) return {name.substr(word.size())};
  }
  return {name};
}

/// Percentages of oxygen and helium in a text such as "28" or "20/40". Nothing for another text, nor for a gas with
/// helium of which only one share is told: half of "Tx18/45" is no nitrox.
std::optional<std::array<double, 2>> SharesIn(const TypedName& typed) {
  const std::string& bare = typed.rest;
  const std::size_t slash = bare.find('/');
  if (typed.tellsHelium && slash == std::string::npos) return std::nullopt;
  const auto o2 = ParseStrict(bare.substr(0, slash));
  const auto he = slash == std::string::npos ? std::optional<double>(0) : ParseStrict(bare.substr(slash + 1));
  if (!o2 || !he) return std::nullopt;
  return std::array<double, 2>{*o2, *he};
}

}  // namespace

std::optional<GasMix> MixOfName(std::string_view text) {
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

std::optional<GasMix> GasFromName(std::string_view typed) {
  if (auto usual = MixOfName(TrimBlanks(typed))) return usual;
  const TypedName name = Parted(typed);
  if (!name.tellsHelium) {
    if (auto usual = MixOfName(name.rest == "o2" ? "oxygen" : name.rest)) return usual;
  }
  const auto shares = SharesIn(name);
  if (!shares) return std::nullopt;
  const auto [o2, he] = *shares;
  if (he == 0 && o2 == 21) return AirMix();
  if (he == 0 && o2 == 100) return MixOfName("oxygen");
  if (he == 0) return MixOfName("ean" + FormatPlain(o2));
  if (o2 > 0 && o2 + he == 100) return MixOfName("h" + FormatPlain(he));
  return MixOfName("tx" + FormatPlain(o2) + "/" + FormatPlain(he));
}

Message TypedGasFault(std::string_view typed) {
  if (GasFromName(typed)) return {};
  const std::string name(TrimBlanks(typed));
  if (name.find_first_of(":,") != std::string::npos) return {Text::GasNameFault};
  const auto shares = SharesIn(Parted(name));
  if (shares && (*shares)[0] + (*shares)[1] > 100) return {Text::GasOverHundred, {name}};
  if (shares && (*shares)[0] == 0) return {Text::GasWithoutOxygen, {name}};
  return {Text::NoSuchGas, {name}};
}

std::optional<std::int16_t> GasNamed(std::string_view name, const std::vector<GasMix>& gases) {
  const auto first = [&gases](auto isIt) -> std::optional<std::int16_t> {
    const auto found = std::find_if(gases.begin(), gases.end(), isIt);
    if (found == gases.end()) return std::nullopt;
    return static_cast<std::int16_t>(found - gases.begin());
  };
  if (const auto same = first([&](const GasMix& gas) { return gas.Name == name; })) return same;
  const auto mix = MixOfName(name);
  const auto usual = mix ? first([&](const GasMix& gas) { return gas.Name == mix->Name; }) : std::nullopt;
  if (usual) return usual;
  return first([lower = LowerCase(name)](const GasMix& gas) { return LowerCase(gas.Name) == lower; });
}

std::optional<std::int16_t> TakeGas(std::string_view name, std::vector<GasMix>& gases,
                                    std::optional<GasMix> (*read)(std::string_view)) {
  if (const auto known = GasNamed(name, gases)) return known;
  auto mix = read(name);
  if (!mix) return std::nullopt;
  if (const auto known = GasNamed(mix->Name, gases)) return known;
  if (gases.size() >= INT16_MAX) return std::nullopt;
  gases.push_back(*std::move(mix));
  return static_cast<std::int16_t>(gases.size() - 1);
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
