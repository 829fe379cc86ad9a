#pragma once

#include <string>

#include "platform/text_source.h"

namespace tav {

/// What stands for a gas on what is read under water: air and oxygen, which the program itself names, in the language
/// of the reader, oxygen with its sign; any other by the name that it has. "Oxygen (O2)", "Sauerstoff (O2)", "EAN50".
std::string GasWords(const std::string& gas, const TextSource& texts);

/// The same where there is little room: oxygen by its sign alone.
std::string GasSign(const std::string& gas, const TextSource& texts);

}  // namespace tav
