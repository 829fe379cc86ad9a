#pragma once

#include <vector>

#include "platform/drawing_surface.h"

namespace tav {

/// A part of another surface, with an origin and a size of its own. Clearing fills that part.
class OffsetSurface : public DrawingSurface {
 public:
  OffsetSurface(DrawingSurface& whole, double left, double top, double width, double height)
      : whole_(whole), left_(left), top_(top), width_(width), height_(height) {}

  [[nodiscard]] double Width() const override { return width_; }
  [[nodiscard]] double Height() const override { return height_; }
  void Clear(Colour background) override { whole_.FilledBox(left_, top_, left_ + width_, top_ + height_, background); }
  void Line(double x0, double y0, double x1, double y1, Colour colour, LineStyle style) override {
    whole_.Line(left_ + x0, top_ + y0, left_ + x1, top_ + y1, colour, style);
  }
  void FilledBox(double x0, double y0, double x1, double y1, Colour colour) override {
    whole_.FilledBox(left_ + x0, top_ + y0, left_ + x1, top_ + y1, colour);
  }
  void Box(double x0, double y0, double x1, double y1, Colour colour) override {
    whole_.Box(left_ + x0, top_ + y0, left_ + x1, top_ + y1, colour);
  }
  void FilledPolygon(const std::vector<SurfacePoint>& corners, Colour colour) override {
    std::vector<SurfacePoint> moved = corners;
    for (SurfacePoint& corner : moved) corner = {left_ + corner.x, top_ + corner.y};
    whole_.FilledPolygon(moved, colour);
  }
  void FilledCircle(double x, double y, double radius, Colour colour) override {
    whole_.FilledCircle(left_ + x, top_ + y, radius, colour);
  }
  void Circle(double x, double y, double radius, Colour colour) override {
    whole_.Circle(left_ + x, top_ + y, radius, colour);
  }
  void Text(double x, double y, const std::string& text, Colour colour, bool bold) override {
    whole_.Text(left_ + x, top_ + y, text, colour, bold);
  }
  [[nodiscard]] double TextWidth(const std::string& text, bool bold) const override {
    return whole_.TextWidth(text, bold);
  }
  [[nodiscard]] double TextHeight(bool bold) const override { return whole_.TextHeight(bold); }
  void PageText(double x, double y, const std::string& text, const TextFont& font, Colour colour,
                double angle) override {
    whole_.PageText(left_ + x, top_ + y, text, font, colour, angle);
  }
  [[nodiscard]] double PageTextWidth(const std::string& text, const TextFont& font) const override {
    return whole_.PageTextWidth(text, font);
  }
  bool Picture(const std::filesystem::path& file, double x, double y, double width, double height) override {
    return whole_.Picture(file, left_ + x, top_ + y, width, height);
  }
  void SetExclusiveOr(bool on) override { whole_.SetExclusiveOr(on); }

 private:
  DrawingSurface& whole_;
  double left_;
  double top_;
  double width_;
  double height_;
};

}  // namespace tav
