#include "desktop/text_colour.h"

#include <QPalette>
#include <algorithm>
#include <cmath>

#include "desktop/qt_surface.h"

namespace tav {
namespace {

double Luminance(const QColor& colour) {
  const auto linear = [](int part) {
    const double share = part / 255.0;
    return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) + 0.0722 * linear(colour.blue());
}

QColor Mixed(const QColor& one, const QColor& other, double share) {
  const auto mix = [share](int from, int to) { return static_cast<int>(std::lround(from + (to - from) * share)); };
  return {mix(one.red(), other.red()), mix(one.green(), other.green()), mix(one.blue(), other.blue())};
}

}  // namespace

double Contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor TextColour(Colour wanted, std::initializer_list<QColor> grounds) {
  const QColor colour = ColourOf(wanted);
  const auto worst = [&](const QColor& text) {
    double contrast = 21;
    for (const QColor& ground : grounds) contrast = std::min(contrast, Contrast(text, ground));
    return contrast;
  };
  const QColor end = worst(Qt::white) > worst(Qt::black) ? Qt::white : Qt::black;
  constexpr int kSteps = 20;
  for (int step = 0; step < kSteps; ++step) {
    const QColor text = Mixed(colour, end, static_cast<double>(step) / kSteps);
    if (worst(text) >= kReadable) return text;
  }
  return end;
}

QColor FaultGround(const QPalette& palette) {
  const QColor ground = palette.color(QPalette::Base);
  return ground.lightness() < 128 ? QColor(92, 24, 24) : QColor(255, 190, 190);
}

}  // namespace tav
