#include "desktop/picture_file.h"

#include <QtGui>

#include "desktop/qt_surface.h"
#include "desktop/qt_text.h"
#include "picture/svg_surface.h"

namespace tav {
namespace {

QByteArray Png(const FilePicture& picture) {
  constexpr double kScale = 2;
  const QSize size(picture.width, picture.height);
  QImage image(size * kScale, QImage::Format_RGB32);
  image.setDevicePixelRatio(kScale);
  image.setText(QStringLiteral("Description"), ToQt(picture.description));
  {
    QPainter painter(&image);
    PainterSurface surface(painter, picture.width * kUnitsPerPixel, picture.height * kUnitsPerPixel);
    picture.draw(surface);
  }
  QByteArray bytes;
  QBuffer buffer(&bytes);
  return buffer.open(QIODevice::WriteOnly) && image.save(&buffer, "PNG") ? bytes : QByteArray();
}

QByteArray Svg(const FilePicture& picture) {
  SvgSurface surface(picture.width * kUnitsPerPixel, picture.height * kUnitsPerPixel);
  picture.draw(surface);
  return QByteArray::fromStdString(surface.File(picture.title, picture.description, SvgSurface::Unit::Pixel));
}

}  // namespace

bool SavePicture(const QString& file, const FilePicture& picture, bool svg) {
  const QByteArray bytes = svg ? Svg(picture) : Png(picture);
  QSaveFile out(file);
  return !bytes.isEmpty() && out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size() && out.commit();
}

}  // namespace tav
