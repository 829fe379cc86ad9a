#include "picture/svg_surface.h"

#include <algorithm>
#include <cmath>

#include "model/number_text.h"
#include "pages/arial_measure.h"
#include "pages/page_units.h"
#include "persist/text_file.h"

namespace tav {
namespace {

constexpr double kUnitsPerPixel = 15;
constexpr double kUnitsPerMillimetre = 1440 / 25.4;
constexpr double kUnitsPerPoint = 20;
constexpr double kPoints = 9;  // of Text: 12 pixels
// Of Arial, in em.
constexpr double kAscent = 0.905;
constexpr double kDescent = 0.212;

/// Hundredths: finer than any screen.
std::string Number(double value) { return FormatPlain(std::nearbyint(value * 100) / 100); }
std::string Pixels(double units) { return Number(units / kUnitsPerPixel); }

/// An attribute with a blank ahead.
std::string Set(const char* name, const std::string& value) { return std::string(" ") + name + "=\"" + value + "\""; }
std::string Set(const char* name, double units) { return Set(name, Pixels(units)); }

std::string Set(const char* name, Colour colour) {
  std::string text = "#";
  for (const int shift : {4, 0, 12, 8, 20, 16}) text += "0123456789abcdef"[colour >> shift & 15];
  return Set(name, text);
}
std::string Filled(Colour colour) { return Set("fill", colour); }
std::string Outlined(Colour colour) { return Set("fill", "none") + Set("stroke", colour); }
/// On whole pixels of the device, as far as it has any.
std::string Crisp() { return Set("shape-rendering", "crispEdges"); }

std::string Element(const std::string& nameAndAttributes) { return "<" + nameAndAttributes + "/>\n"; }
std::string Rectangle(double x0, double y0, double x1, double y1, const std::string& paint) {
  return Element("rect" + Set("x", std::min(x0, x1)) + Set("y", std::min(y0, y1)) + Set("width", std::fabs(x1 - x0)) +
                 Set("height", std::fabs(y1 - y0)) + paint + Crisp());
}
std::string Disc(double x, double y, double radius, const std::string& paint) {
  return Element("circle" + Set("cx", x) + Set("cy", y) + Set("r", radius) + paint);
}

/// As the content of an element; what an XML file must not hold becomes a question mark.
std::string Escaped(const std::string& text) {
  std::string safe;
  for (const char letter : text) {
    if (letter == '&') {
      safe += "&amp;";
    } else if (letter == '<') {
      safe += "&lt;";
    } else if (letter == '>') {
      safe += "&gt;";
    } else {
      const bool control = static_cast<unsigned char>(letter) < 0x20 && letter != '\n';
      safe += control ? '?' : letter;
    }
  }
  return safe;
}

/// Empty for a file that can't be read.
std::string TextOf(const std::filesystem::path& file) {
  try {
    return ReadTextFile(file);
  } catch (const FileError&) {
    return {};
  }
}

/// The value of an attribute in the first tag of an element; empty where there is none.
std::string AttributeIn(std::string_view tag, const std::string& name) {
  const std::string start = " " + name + "=\"";
  const std::size_t found = tag.find(start);
  if (found == std::string_view::npos) return {};
  const std::string_view value = tag.substr(found + start.size());
  return std::string(value.substr(0, value.find('"')));
}

TextFont FontOf(bool bold) { return {"Arial", kPoints, bold}; }

}  // namespace

std::string SvgSurface::File(const std::string& title, const std::string& description, Unit unit) const {
  const auto size = [&](double units) {
    if (unit == Unit::Pixel) return Pixels(units);
    return Number(units / (unit == Unit::Millimetre ? kUnitsPerMillimetre : page::kUnitsPerCm / 10)) + "mm";
  };
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\"" +
         Set("width", size(width_)) + Set("height", size(height_)) +
         Set("viewBox", "0 0 " + Pixels(width_) + " " + Pixels(height_)) + Set("font-family", "Arial") +
         Set("font-size", kPoints * kUnitsPerPoint) + ">\n<title>" + Escaped(title) + "</title>\n<desc>" +
         Escaped(description) + "</desc>\n" + elements_ + "</svg>\n";
}

void SvgSurface::Clear(Colour background) {
  elements_.clear();
  FilledBox(0, 0, width_, height_, background);
}

void SvgSurface::Line(double x0, double y0, double x1, double y1, Colour colour, LineStyle style) {
  std::string line = "line" + Set("x1", x0) + Set("y1", y0) + Set("x2", x1) + Set("y2", y1) + Set("stroke", colour);
  // The ends of thick lines meet without a notch.
  if (style == LineStyle::Thick) line += Set("stroke-width", "2") + Set("stroke-linecap", "round");
  if (style == LineStyle::Dotted) line += Set("stroke-dasharray", "1 2");
  if (x0 == x1 || y0 == y1) line += Crisp();
  elements_ += Element(line);
}

void SvgSurface::FilledBox(double x0, double y0, double x1, double y1, Colour colour) {
  elements_ += Rectangle(x0, y0, x1, y1, Filled(colour));
}

void SvgSurface::Box(double x0, double y0, double x1, double y1, Colour colour) {
  // A rectangle without a height or width would not be drawn.
  if (x0 == x1 || y0 == y1) return Line(x0, y0, x1, y1, colour, LineStyle::Solid);
  elements_ += Rectangle(x0, y0, x1, y1, Outlined(colour));
}

void SvgSurface::FilledPolygon(const std::vector<SurfacePoint>& corners, Colour colour) {
  std::string points;
  for (const SurfacePoint& corner : corners) {
    points += (points.empty() ? "" : " ") + Pixels(corner.x) + "," + Pixels(corner.y);
  }
  elements_ += Element("polygon" + Set("points", points) + Filled(colour));
}

void SvgSurface::FilledCircle(double x, double y, double radius, Colour colour) {
  elements_ += Disc(x, y, radius, Filled(colour));
}

void SvgSurface::Circle(double x, double y, double radius, Colour colour) {
  elements_ += Disc(x, y, radius, Outlined(colour));
}

void SvgSurface::Text(double x, double y, const std::string& text, Colour colour, bool bold) {
  PageText(x, y, text, FontOf(bold), colour, 0);
}

double SvgSurface::TextWidth(const std::string& text, bool bold) const { return PageTextWidth(text, FontOf(bold)); }

double SvgSurface::TextHeight(bool /*bold*/) const { return (kAscent + kDescent) * kPoints * kUnitsPerPoint; }

void SvgSurface::PageText(double x, double y, const std::string& text, const TextFont& font, Colour colour,
                          double angle) {
  const double size = font.points * kUnitsPerPoint;
  elements_ += "<text" + Set("x", x) + Set("y", y + kAscent * size) + Filled(colour);
  if (font.points != kPoints) elements_ += Set("font-size", size);
  if (font.bold) elements_ += Set("font-weight", "bold");
  // Blanks at the front and side by side are measured, too.
  if (text.starts_with(' ') || text.find("  ") != std::string::npos) elements_ += Set("xml:space", "preserve");
  if (angle != 0) {
    elements_ += Set("transform", "rotate(" + Number(-angle) + " " + Pixels(x) + " " + Pixels(y) + ")");
  }
  elements_ += ">" + Escaped(text) + "</text>\n";
}

bool SvgSurface::Picture(const std::filesystem::path& file, double x, double y, double width, double height) {
  const std::string picture = TextOf(file);
  const std::size_t start = picture.find("<svg");
  const std::size_t content = picture.find('>', start);
  const std::size_t end = picture.rfind("</svg>");
  if (start == std::string::npos || content == std::string::npos || end == std::string::npos || end < content) {
    return false;
  }
  const std::string box = AttributeIn(std::string_view(picture).substr(start, content - start), "viewBox");
  if (box.empty()) return false;
  elements_ += "<svg" + Set("x", x) + Set("y", y) + Set("width", width) + Set("height", height) + Set("viewBox", box) +
               Set("preserveAspectRatio", "none") + picture.substr(content, end - content) + "</svg>\n";
  return true;
}

double SvgSurface::PageTextWidth(const std::string& text, const TextFont& font) const {
  return ArialMeasure().TextWidth(text, font);
}

}  // namespace tav
