#pragma once

#include <QString>
#include <string>

namespace tav {

/// Text of ours, UTF-8, as Qt holds it, and back.
inline QString ToQt(const std::string& text) { return QString::fromStdString(text); }
inline std::string FromQt(const QString& text) { return text.toStdString(); }

}  // namespace tav
