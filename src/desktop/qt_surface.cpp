#include "desktop/qt_surface.h"

#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>

#include "desktop/qt_text.h"

namespace tav {

QColor ColourOf(Colour colour) { return {colour & 255, colour >> 8 & 255, colour >> 16 & 255}; }

QFont SurfaceFont(bool bold) {
  constexpr int kPixelSize = 12;
  QFont font;
  font.setFamilies({QStringLiteral("Liberation Sans"), QStringLiteral("Arial")});
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(kPixelSize);
  font.setBold(bold);
  return font;
}

QFont PageFont(const TextFont& font, double pixels, const QPaintDevice& device) {
  QFont made;
  // Liberation Sans has the widths of Arial, and is on every machine that shows the pages.
  const QString name = ToQt(font.name);
  made.setFamilies(name == QLatin1String("Arial") ? QStringList{QStringLiteral("Liberation Sans"), name}
                                                  : QStringList{name, QStringLiteral("Liberation Sans")});
  made.setStyleHint(QFont::SansSerif);
  made.setHintingPreference(QFont::PreferNoHinting);
  made.setKerning(false);  // widths are the sums of the letters
  constexpr double kPointsPerInch = 72;
  constexpr double kSmallest = 0.1;
  made.setPointSizeF(std::max(kSmallest, pixels * kPointsPerInch / device.logicalDpiY()));
  made.setBold(font.bold);
  return made;
}

PainterSurface::PainterSurface(QPainter& painter, double width, double height, double unitsPerPixel)
    : painter_(painter), width_(width), height_(height), unitsPerPixel_(unitsPerPixel) {
  // Whole pixels of the device, so that all lines look alike at a scale like 1.5.
  const double scale = painter.device()->devicePixelRatioF();
  penWidth_ = std::max(1.0, std::floor(scale)) / scale;
}

void PainterSurface::Touch(double x0, double y0, double x1, double y1) {
  constexpr double kPen = 2;
  touched_ |= QRectF(QPointF(Pixels(x0), Pixels(y0)), QPointF(Pixels(x1), Pixels(y1)))
                  .normalized()
                  .adjusted(-kPen, -kPen, kPen, kPen);
}

QRect PainterSurface::TakeTouched() {
  const QRect touched = touched_.toAlignedRect();
  touched_ = {};
  return touched;
}

void PainterSurface::Clear(Colour background) { FilledBox(0, 0, width_, height_, background); }

void PainterSurface::Line(double x0, double y0, double x1, double y1, Colour colour, LineStyle style) {
  const bool thick = style == LineStyle::Thick;
  // The ends of thick lines meet without a notch.
  QPen pen(ColourOf(colour), thick ? 2 * penWidth_ : penWidth_,
           style == LineStyle::Dotted ? Qt::DotLine : Qt::SolidLine, thick ? Qt::RoundCap : Qt::FlatCap);
  painter_.setPen(pen);
  // Rules stay crisp; slopes are smooth, but for those that are to be erased to the pixel.
  const bool slope = x0 != x1 && y0 != y1;
  painter_.setRenderHint(QPainter::Antialiasing, slope && !exclusiveOr_);
  painter_.drawLine(QPointF(Pixels(x0), Pixels(y0)), QPointF(Pixels(x1), Pixels(y1)));
  Touch(x0, y0, x1, y1);
}

void PainterSurface::FilledBox(double x0, double y0, double x1, double y1, Colour colour) {
  painter_.setRenderHint(QPainter::Antialiasing, false);
  painter_.fillRect(QRectF(QPointF(Pixels(x0), Pixels(y0)), QPointF(Pixels(x1), Pixels(y1))).normalized(),
                    ColourOf(colour));
  Touch(x0, y0, x1, y1);
}

void PainterSurface::FilledPolygon(const std::vector<SurfacePoint>& corners, Colour colour) {
  QPolygonF polygon;
  polygon.reserve(static_cast<qsizetype>(corners.size()));
  for (const SurfacePoint& corner : corners) polygon << QPointF(Pixels(corner.x), Pixels(corner.y));
  painter_.setRenderHint(QPainter::Antialiasing, true);
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(ColourOf(colour));
  painter_.drawPolygon(polygon);
  touched_ |= polygon.boundingRect();
}

void PainterSurface::Box(double x0, double y0, double x1, double y1, Colour colour) {
  painter_.setRenderHint(QPainter::Antialiasing, false);
  painter_.setPen(QPen(ColourOf(colour), penWidth_));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawRect(QRectF(QPointF(Pixels(x0), Pixels(y0)), QPointF(Pixels(x1), Pixels(y1))).normalized());
  Touch(x0, y0, x1, y1);
}

void PainterSurface::FilledCircle(double x, double y, double radius, Colour colour) {
  painter_.setRenderHint(QPainter::Antialiasing, true);
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(ColourOf(colour));
  painter_.drawEllipse(QPointF(Pixels(x), Pixels(y)), Pixels(radius), Pixels(radius));
  Touch(x - radius, y - radius, x + radius, y + radius);
}

void PainterSurface::Circle(double x, double y, double radius, Colour colour) {
  painter_.setRenderHint(QPainter::Antialiasing, !exclusiveOr_);
  painter_.setPen(QPen(ColourOf(colour), penWidth_));
  painter_.setBrush(Qt::NoBrush);
  painter_.drawEllipse(QPointF(Pixels(x), Pixels(y)), Pixels(radius), Pixels(radius));
  Touch(x - radius, y - radius, x + radius, y + radius);
}

void PainterSurface::Text(double x, double y, const std::string& text, Colour colour, bool bold) {
  painter_.setPen(ColourOf(colour));
  painter_.setFont(Font(bold));
  painter_.drawText(QPointF(Pixels(x), Pixels(y) + QFontMetricsF(Font(bold)).ascent()), ToQt(text));
  Touch(x, y, x + TextWidth(text, bold), y + TextHeight(bold));
}

double PainterSurface::TextWidth(const std::string& text, bool bold) const {
  return QFontMetricsF(Font(bold)).horizontalAdvance(ToQt(text)) * unitsPerPixel_;
}

double PainterSurface::TextHeight(bool bold) const { return QFontMetricsF(Font(bold)).height() * unitsPerPixel_; }

void PainterSurface::PageText(double x, double y, const std::string& text, const TextFont& font, Colour colour,
                              double angle) {
  const QFont drawn = PageFont(font, font.points * pixelsPerPoint_, *painter_.device());
  painter_.save();
  painter_.setRenderHint(QPainter::TextAntialiasing, true);
  painter_.setPen(ColourOf(colour));
  painter_.setFont(drawn);
  painter_.translate(Pixels(x), Pixels(y));
  if (angle != 0) painter_.rotate(-angle);
  painter_.drawText(QPointF(0, QFontMetricsF(drawn, painter_.device()).ascent()), ToQt(text));
  painter_.restore();
}

double PainterSurface::PageTextWidth(const std::string& text, const TextFont& font) const {
  const QFont drawn = PageFont(font, font.points * pixelsPerPoint_, *painter_.device());
  return QFontMetricsF(drawn, painter_.device()).horizontalAdvance(ToQt(text)) * unitsPerPixel_;
}

bool PainterSurface::Picture(const std::filesystem::path& file, double x, double y, double width, double height) {
  QFile in(ToQt(file.string()));
  constexpr qint64 kLargest = qint64{16} * 1024 * 1024;
  // A device or a pipe would never end.
  if (!QFileInfo(in).isFile() || !in.open(QIODevice::ReadOnly) || in.size() > kLargest) return false;
  const QByteArray bytes = in.readAll();
  const QRectF place(Pixels(x), Pixels(y), width / unitsPerPixel_, height / unitsPerPixel_);
  if (bytes.contains("<svg")) {
    QSvgRenderer drawing;
    if (!drawing.load(bytes)) return false;
    painter_.setRenderHint(QPainter::Antialiasing, true);
    drawing.render(&painter_, place);
    return true;
  }
  const QImage image = QImage::fromData(bytes);
  if (image.isNull()) return false;
  painter_.setRenderHint(QPainter::SmoothPixmapTransform, true);
  painter_.drawImage(place, image);
  return true;
}

void PainterSurface::SetExclusiveOr(bool on) {
  exclusiveOr_ = on;
  painter_.setCompositionMode(on ? QPainter::RasterOp_SourceXorDestination : QPainter::CompositionMode_SourceOver);
}

ImageSurface::~ImageSurface() {
  if (painter_) painter_->end();
}

bool ImageSurface::Fits(QSize size, double scale) const {
  return surface_ && image_.size() == size.expandedTo(QSize(1, 1)) * scale && image_.devicePixelRatio() == scale;
}

void ImageSurface::Show(QSize size, double scale, QSize whole, int scroll) {
  const bool fits = Fits(size, scale);
  if (fits && whole == whole_ && scroll == scroll_) return;
  whole_ = whole;
  scroll_ = scroll;
  surface_.reset();
  if (!fits) {
    if (painter_) painter_->end();
    image_ = QImage(size.expandedTo(QSize(1, 1)) * scale, QImage::Format_RGB32);
    image_.setDevicePixelRatio(scale);
    image_.fill(Qt::gray);
    painter_ = std::make_unique<QPainter>(&image_);
  }
  painter_->resetTransform();
  painter_->translate(-scroll, 0);
  surface_ =
      std::make_unique<PainterSurface>(*painter_, whole.width() * kUnitsPerPixel, whole.height() * kUnitsPerPixel);
}

}  // namespace tav
