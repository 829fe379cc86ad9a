#include "desktop/qt_surface.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "desktop/form_binder.h"

namespace tav {
namespace {

double Pixels(double units) { return units / kUnitsPerPixel; }

}  // namespace

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

PainterSurface::PainterSurface(QPainter& painter, double width, double height)
    : painter_(painter), width_(width), height_(height) {
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
  QPen pen(ColourOf(colour), penWidth_, style == LineStyle::Dotted ? Qt::DotLine : Qt::SolidLine, Qt::FlatCap);
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
  return QFontMetricsF(Font(bold)).horizontalAdvance(ToQt(text)) * kUnitsPerPixel;
}

double PainterSurface::TextHeight(bool bold) const { return QFontMetricsF(Font(bold)).height() * kUnitsPerPixel; }

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
