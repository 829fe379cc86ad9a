#pragma once

#include <optional>
#include <string>

#include "model/dive_template.h"

namespace tav {

/// The gas that a usual name tells: EAN32 (oxygen), Tx18/45 (oxygen / helium), H85 (helium, the rest oxygen), Oxygen,
/// in any case of letters; it bears the name as it is usually written, so that "ean032" gives EAN32. Nothing for a name
/// that tells none.
std::optional<GasMix> MixOfName(const std::string& name);

/// The number of the gas that a name means: the one of exactly this name, else one that differs in the case of its
/// letters alone, else the one of the usual name. Nothing for a gas that the template does not have.
std::optional<std::int16_t> GasNamed(const std::string& name, const DiveTemplate& diveTemplate);

/// The usual name of a gas by its percentages of oxygen and helium, in whole numbers.
std::string NameOfMix(Single O2, Single He);

}  // namespace tav
