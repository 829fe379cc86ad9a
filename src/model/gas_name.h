#pragma once

#include <optional>
#include <string>

#include "model/dive_template.h"

namespace tav {

/// The gas that a usual name tells: EAN32 (oxygen), Tx18/45 (oxygen / helium), H85 (helium, the rest oxygen), Oxygen.
/// Nothing for a name that tells none.
std::optional<GasMix> MixOfName(const std::string& name);

/// The usual name of a gas by its percentages of oxygen and helium, in whole numbers.
std::string NameOfMix(Single O2, Single He);

}  // namespace tav
