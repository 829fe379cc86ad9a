#pragma once

#include <string>
#include <string_view>

#include "model/cylinder.h"
#include "model/message.h"

namespace tav {

/// How a cylinder stands in a template block: in a comment, so that readers that know no cylinders pass over it.
constexpr std::string_view kCylinderLine = "# Cylinder=";

/// The whole line without its end: "# Cylinder=EAN50: 1/ 7/ 200/ 20/", that is count, litres, fill and reserve in bar;
/// or
/// "# Cylinder=EAN50: 1/ 80/ 3000/ 2900/ 500/": count, cubic feet at a rated pressure, fill and reserve in psi.
std::string WriteCylinderLine(const Cylinder& cylinder);

/// Reads what stands behind "# Cylinder=". Returns why it can't be read; empty when it can.
Message ReadCylinderLine(std::string_view value, Cylinder& cylinder);

}  // namespace tav
