#pragma once

#include <string>
#include <string_view>

#include "model/cylinder.h"
#include "model/message.h"

namespace tav {

/// What stands behind "# Cylinder=" in a template block: "EAN50: 1/ 7/ 200/ 20/", that is count, litres, fill and
/// reserve in bar; or "EAN50: 1/ 80/ 3000/ 2900/ 500/": count, cubic feet at a rated pressure, fill and reserve in psi.
/// " bail-out" may follow.
std::string WriteCylinderLine(const Cylinder& cylinder);

/// Reads such a text. Returns why it can't be read; empty when it can.
Message ReadCylinderLine(std::string_view value, Cylinder& cylinder);

}  // namespace tav
