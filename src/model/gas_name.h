#pragma once

#include <optional>
#include <string>

#include "model/dive_template.h"

namespace tav {

/// The gas that a usual name tells, in any case of its letters: Air, EAN32 (oxygen), Tx18/45 (oxygen / helium), H85
/// (helium, the rest oxygen), Oxygen. It bears the name in its usual form: "ean 032" is EAN32. Nothing for a name that
/// tells none.
std::optional<GasMix> MixOfName(const std::string& text);

/// The name under which a template has a gas that the user calls `name`, in whatever case of its letters or form of its
/// numbers; else that under which it would get it.
std::string NameInTemplate(const std::string& name, const DiveTemplate& diveTemplate);

/// The number of the gas that a name means so. Nothing for a gas that the template does not have.
std::optional<std::int16_t> GasNamed(const std::string& name, const DiveTemplate& diveTemplate);

/// The usual name of a gas by its percentages of oxygen and helium, in whole numbers.
std::string NameOfMix(Single O2, Single He);

}  // namespace tav
