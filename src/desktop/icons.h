#pragma once

#include <QIcon>
#include <string>

namespace tav {

/// The icon of that name from the program's resources, drawn as SVG at any size.
QIcon IconNamed(const std::string& name);

}  // namespace tav
