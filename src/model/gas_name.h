#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/dive_template.h"
#include "model/message.h"

namespace tav {

/// The gas that a usual name tells, in any case of its letters: Air, EAN32 (oxygen), Tx18/45 (oxygen / helium), H85
/// (helium, the rest oxygen), Oxygen. It bears the name in its usual form: "ean 032" is EAN32. Nothing for a name that
/// tells none.
std::optional<GasMix> MixOfName(std::string_view text);

/// The gas that a user types. Beside the usual names it may be told by its percentages alone, those of oxygen and
/// helium: 28, 20/40; and in words: nitrox 28, trimix 20/40, heliox 21/79, O2. It bears the usual name, or that which
/// was typed where it is one. Nothing for what tells none.
std::optional<GasMix> GasFromName(std::string_view typed);

/// Why what was typed tells no gas; empty where GasFromName knows one.
Message TypedGasFault(std::string_view typed);

/// The number of the gas that a name means, in whatever case of its letters or form of its numbers. Nothing for one
/// that is not among these.
std::optional<std::int16_t> GasNamed(std::string_view name, const std::vector<GasMix>& gases);

/// The same; a gas that only its name tells is added.
std::optional<std::int16_t> TakeGas(std::string_view name, std::vector<GasMix>& gases,
                                    std::optional<GasMix> (*read)(std::string_view) = MixOfName);

/// The usual name of a gas by its percentages of oxygen and helium, in whole numbers.
std::string NameOfMix(Single O2, Single He);

}  // namespace tav
