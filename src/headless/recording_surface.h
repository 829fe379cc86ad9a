#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/drawing_surface.h"

namespace tav {

/// Keeps what is drawn, in order. Strokes in exclusive-or mode go to a list of their own, from which the second of two
/// equal ones takes the first away. A letter is 100 units wide, a line of text 180 high.
class RecordingSurface : public DrawingSurface {
 public:
  enum class Kind { Line, Dotted, Thick, Polygon, FilledBox, Box, FilledCircle, Circle, Text, PageText, Picture };
  struct Stroke {
    Kind kind;
    double x0, y0, x1, y1;  ///< of a circle: centre, radius, 0; of a text: its place, 0, 0
    Colour colour;
    std::string text;    ///< of a picture: its file
    TextFont font = {};  ///< of a page text; of a text whether it is bold
    friend bool operator==(const Stroke&, const Stroke&) = default;
  };

  RecordingSurface(double width, double height) : width_(width), height_(height) {}

  [[nodiscard]] double Width() const override { return width_; }
  [[nodiscard]] double Height() const override { return height_; }
  void Clear(Colour /*background*/) override {
    strokes.clear();
    polygons.clear();
    inverted.clear();
  }
  void Line(double x0, double y0, double x1, double y1, Colour colour, LineStyle style) override {
    const Kind kinds[] = {Kind::Line, Kind::Dotted, Kind::Thick};
    Draw({kinds[static_cast<int>(style)], x0, y0, x1, y1, colour, ""});
  }
  void FilledPolygon(const std::vector<SurfacePoint>& corners, Colour colour) override {
    polygons.push_back(corners);
    Draw({Kind::Polygon, corners.front().x, corners.front().y, 0, 0, colour, ""});
  }
  void FilledBox(double x0, double y0, double x1, double y1, Colour colour) override {
    Draw({Kind::FilledBox, x0, y0, x1, y1, colour, ""});
  }
  void Box(double x0, double y0, double x1, double y1, Colour colour) override {
    Draw({Kind::Box, x0, y0, x1, y1, colour, ""});
  }
  void FilledCircle(double x, double y, double radius, Colour colour) override {
    Draw({Kind::FilledCircle, x, y, radius, 0, colour, ""});
  }
  void Circle(double x, double y, double radius, Colour colour) override {
    Draw({Kind::Circle, x, y, radius, 0, colour, ""});
  }
  void Text(double x, double y, const std::string& text, Colour colour, bool bold) override {
    Draw({Kind::Text, x, y, 0, 0, colour, text, TextFont{.bold = bold}});
  }
  [[nodiscard]] double TextWidth(const std::string& text, bool /*bold*/) const override {
    return 100.0 * static_cast<double>(text.size());
  }
  [[nodiscard]] double TextHeight(bool /*bold*/) const override { return 180; }
  /// The angle stands in x1.
  void PageText(double x, double y, const std::string& text, const TextFont& font, Colour colour,
                double angle) override {
    Draw({Kind::PageText, x, y, angle, 0, colour, text, font});
  }
  /// Half an em for each byte, in units of 1/1440 inch.
  [[nodiscard]] double PageTextWidth(const std::string& text, const TextFont& font) const override {
    return font.points * 10 * static_cast<double>(text.size());
  }
  bool Picture(const std::filesystem::path& file, double x, double y, double width, double height) override {
    if (!std::filesystem::exists(file)) return false;
    Draw({Kind::Picture, x, y, x + width, y + height, kBlack, file.string()});
    return true;
  }
  void SetExclusiveOr(bool on) override { exclusiveOr_ = on; }

  [[nodiscard]] std::vector<Stroke> Of(Kind kind) const {
    std::vector<Stroke> found;
    std::copy_if(strokes.begin(), strokes.end(), std::back_inserter(found),
                 [&](const Stroke& stroke) { return stroke.kind == kind; });
    return found;
  }
  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> found;
    for (const Stroke& stroke : strokes) {
      if (stroke.kind == Kind::Text || stroke.kind == Kind::PageText) found.push_back(stroke.text);
    }
    return found;
  }

  std::vector<Stroke> strokes;
  std::vector<std::vector<SurfacePoint>> polygons;  ///< the corners of each Polygon stroke, which tells its first
  std::vector<Stroke> inverted;

 private:
  void Draw(const Stroke& stroke) {
    if (!exclusiveOr_) {
      strokes.push_back(stroke);
      return;
    }
    const auto same = std::find(inverted.begin(), inverted.end(), stroke);
    if (same == inverted.end()) {
      inverted.push_back(stroke);
    } else {
      inverted.erase(same);
    }
  }

  double width_;
  double height_;
  bool exclusiveOr_ = false;
};

}  // namespace tav
