#pragma once

#include <string>

#include "mixer/filling.h"
#include "platform/text_source.h"

namespace tav {

// Texts by number.
inline constexpr int kHelium = 7406;
inline constexpr int kOxygen = 7407;
inline constexpr int kAirText = 7408;

/// The name of a gas that is filled with, from the texts; of one from a bank its usual name or "31.6/0".
std::string NameOf(FillGas gas, const FillRequest& request, const TextSource& texts);

}  // namespace tav
