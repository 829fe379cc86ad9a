#include "desktop/icons.h"

namespace tav {

QIcon IconNamed(const std::string& name) {
  return name.empty() ? QIcon()
                      : QIcon(QStringLiteral(":/icons/") + QString::fromStdString(name) + QStringLiteral(".svg"));
}

}  // namespace tav
