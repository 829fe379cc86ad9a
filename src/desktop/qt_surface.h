#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <memory>

#include "platform/drawing_surface.h"

namespace tav {

constexpr double kUnitsPerPixel = 15;  ///< 1440 drawing units and 96 pixels to the inch

/// Colours are red + 256 x green + 65536 x blue.
QColor ColourOf(Colour colour);

/// The font of all that is drawn: 12 pixels high.
QFont SurfaceFont(bool bold);

/// A font at a size in points of 1/96 inch pixels: `pixels` high on a device of any resolution, without hinting, so
/// that text has the same proportions at every zoom.
QFont PageFont(const TextFont& font, double pixels, const QPaintDevice& device);

/// Draws with a painter; the size is in drawing units.
class PainterSurface : public DrawingSurface {
 public:
  PainterSurface(QPainter& painter, double width, double height, double unitsPerPixel = kUnitsPerPixel);

  [[nodiscard]] double Width() const override { return width_; }
  [[nodiscard]] double Height() const override { return height_; }
  void Clear(Colour background) override;
  void Line(double x0, double y0, double x1, double y1, Colour colour, LineStyle style) override;
  void FilledBox(double x0, double y0, double x1, double y1, Colour colour) override;
  void Box(double x0, double y0, double x1, double y1, Colour colour) override;
  void FilledPolygon(const std::vector<SurfacePoint>& corners, Colour colour) override;
  void FilledCircle(double x, double y, double radius, Colour colour) override;
  void Circle(double x, double y, double radius, Colour colour) override;
  void Text(double x, double y, const std::string& text, Colour colour, bool bold) override;
  [[nodiscard]] double TextWidth(const std::string& text, bool bold) const override;
  [[nodiscard]] double TextHeight(bool bold) const override;
  void PageText(double x, double y, const std::string& text, const TextFont& font, Colour colour,
                double angle) override;
  [[nodiscard]] double PageTextWidth(const std::string& text, const TextFont& font) const override;
  bool Picture(const std::filesystem::path& file, double x, double y, double width, double height) override;
  void SetExclusiveOr(bool on) override;

  /// Of rules and outlines, in pixels; at first one pixel of the device.
  void SetPenWidth(double pixels) { penWidth_ = pixels; }
  /// Pixels to the point of a page font; at first 96 pixels to the inch.
  void SetPixelsPerPoint(double pixels) { pixelsPerPoint_ = pixels; }

  /// Where something was drawn since the last call, in pixels.
  QRect TakeTouched();

 private:
  void Touch(double x0, double y0, double x1, double y1);
  [[nodiscard]] double Pixels(double units) const { return units / unitsPerPixel_; }
  [[nodiscard]] const QFont& Font(bool bold) const { return bold ? bold_ : plain_; }

  QPainter& painter_;
  double width_;
  double height_;
  double unitsPerPixel_;
  double pixelsPerPoint_ = 96.0 / 72.0;
  QFont plain_ = SurfaceFont(false);
  QFont bold_ = SurfaceFont(true);
  double penWidth_ = 1;
  bool exclusiveOr_ = false;
  QRectF touched_;
};

/// A surface that keeps what is drawn on it, or on a part of it, as an image.
class ImageSurface {
 public:
  /// Whether the image has that size (pixels) at that scale.
  [[nodiscard]] bool Fits(QSize size, double scale) const;
  /// The image is to show the part from `scroll` on of a surface of the size `whole`, in pixels. Makes the image anew,
  /// empty, when it does not fit.
  void Show(QSize size, double scale, QSize whole, int scroll);
  [[nodiscard]] const QImage& Image() const { return image_; }
  /// The surface to draw on; valid until the next Show.
  [[nodiscard]] PainterSurface& Surface() { return *surface_; }

  ~ImageSurface();

 private:
  QImage image_;
  std::unique_ptr<QPainter> painter_;
  std::unique_ptr<PainterSurface> surface_;
  QSize whole_;
  int scroll_ = 0;
};

}  // namespace tav
