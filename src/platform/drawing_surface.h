#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/colour.h"
#include "platform/text_font.h"

namespace tav {

struct SurfacePoint {
  double x = 0;
  double y = 0;
  friend bool operator==(const SurfacePoint&, const SurfacePoint&) = default;
};

/// Something to draw on. Lengths are in drawing units, at first 1/1440 inch (the maker of a surface may scale them);
/// the origin is the top left corner, y runs down. What lies outside is cut off. Drawing shows at the next event pause.
class DrawingSurface {
 public:
  enum class LineStyle { Solid, Dotted, Thick };  ///< a thick line is twice as wide as the others

  virtual ~DrawingSurface() = default;

  [[nodiscard]] virtual double Width() const = 0;
  [[nodiscard]] virtual double Height() const = 0;

  virtual void Clear(Colour background) = 0;
  virtual void Line(double x0, double y0, double x1, double y1, Colour colour, LineStyle style = LineStyle::Solid) = 0;
  virtual void FilledBox(double x0, double y0, double x1, double y1, Colour colour) = 0;
  virtual void Box(double x0, double y0, double x1, double y1, Colour colour) = 0;
  virtual void FilledPolygon(const std::vector<SurfacePoint>& corners, Colour colour) = 0;
  virtual void FilledCircle(double x, double y, double radius, Colour colour) = 0;
  virtual void Circle(double x, double y, double radius, Colour colour) = 0;
  /// Text with its top left corner at (x, y).
  virtual void Text(double x, double y, const std::string& text, Colour colour, bool bold = false) = 0;
  [[nodiscard]] virtual double TextWidth(const std::string& text, bool bold = false) const = 0;
  [[nodiscard]] virtual double TextHeight(bool bold = false) const = 0;

  // Pages. The points of a font are those of the surface itself, whatever its units are scaled to.
  /// Text with its top left corner at (x, y), turned by `angle` degrees counter-clockwise around that corner.
  virtual void PageText(double x, double y, const std::string& text, const TextFont& font, Colour colour,
                        double angle) = 0;
  [[nodiscard]] virtual double PageTextWidth(const std::string& text, const TextFont& font) const = 0;
  /// A picture file, stretched into a box. False when it can't be read; then nothing is drawn.
  virtual bool Picture(const std::filesystem::path& file, double x, double y, double width, double height) = 0;

  /// In exclusive-or mode a second stroke at the same place erases the first.
  virtual void SetExclusiveOr(bool on) = 0;
};

}  // namespace tav
