#pragma once

#include <string>
#include <vector>

#include "platform/drawing_surface.h"

namespace tav {

/// A picture as the text of an SVG file, whose texts can be selected and searched: the strokes of a screen of 96 pixels
/// to the inch. Every font is Arial, measured by a table, so that the file is the same on every machine. There is no
/// exclusive-or mode, and of picture files it takes SVG alone.
class SvgSurface : public DrawingSurface {
 public:
  /// Drawing units.
  SvgSurface(double width, double height) : width_(width), height_(height) {}

  /// PageMillimetre is that of a page of a report, whose units are 1/567 cm.
  enum class Unit { Pixel, Millimetre, PageMillimetre };
  /// The file, which tells its size in that unit. Title and description are for those who do not see the picture.
  [[nodiscard]] std::string File(const std::string& title, const std::string& description, Unit unit) const;

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
  void SetExclusiveOr(bool /*on*/) override {}

 private:
  double width_;
  double height_;
  std::string elements_;
};

}  // namespace tav
