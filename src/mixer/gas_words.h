#pragma once

#include <string>

#include "mixer/filling.h"
#include "platform/text_source.h"

namespace tav {

/// The name of a gas that is filled with, from the texts; of one from a bank its usual name or "31.6/0".
std::string NameOf(FillGas gas, const FillRequest& request, const TextSource& texts);

}  // namespace tav
