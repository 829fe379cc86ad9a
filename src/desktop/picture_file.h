#pragma once

#include <QString>

#include "platform/file_picture.h"

namespace tav {

/// Writes a picture as SVG or, at twice the size for sharp letters, as PNG. False when that failed: the file is as it
/// was.
bool SavePicture(const QString& file, const FilePicture& picture, bool svg);

}  // namespace tav
