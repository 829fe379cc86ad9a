#include "picture/tissue_map.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "picture/graph_colours.h"

namespace tav {
namespace {

constexpr double kHead = 270;   // free above the rows, for title and legend
constexpr double kBottom = 60;  // free below them
constexpr double kHatch = 90;   // between two strokes of the hatching
constexpr int kLevels = 40;     // steps of colour up to 100 %
constexpr int kOver = kLevels;  // the level of what is hatched

int LevelOf(double share) {
  if (share >= 1) return kOver;
  return std::clamp(static_cast<int>(share * kLevels), 0, kLevels - 1);
}

/// White, with black strokes that lie on a raster of the whole map, so that neighbours join.
void Hatch(DrawingSurface& surface, double left, double top, double right, double bottom) {
  surface.FilledBox(left, top, right, bottom, graph::kWhite);
  const double rise = bottom - top;
  for (int stroke = static_cast<int>(std::ceil(left / kHatch)); stroke * kHatch < right; ++stroke) {
    const double x = stroke * kHatch;
    const double end = std::min(x + rise, right);
    surface.Line(x, bottom, end, bottom - (end - x), kBlack);
  }
}

void Cell(DrawingSurface& surface, int level, double left, double top, double right, double bottom) {
  if (level == kOver) {
    Hatch(surface, left, top, right, bottom);
  } else {
    surface.FilledBox(left, top, right, bottom, ColourOfLoad((level + 0.5) / kLevels));
  }
}

class Map {
 public:
  Map(DrawingSurface& surface, const TissueMapView& view)
      : surface_(surface), view_(view), row_((surface.Height() - kHead - kBottom) / kCompartments) {}

  void Draw(const std::vector<DiveMoment>& moments, const GraphScale& scale) {
    surface_.Clear(view_.around);
    surface_.FilledBox(view_.left, kHead, surface_.Width(), kHead + kCompartments * row_, kBlack);
    std::vector<double> x;
    x.reserve(moments.size());
    for (const DiveMoment& moment : moments) {
      x.push_back(view_.left - view_.scroll + scale.WorldToScreen(moment.time, 0).x);
    }
    for (std::size_t k = 0; k < kCompartments; ++k) DrawRow(moments, x, k);
    // What is scrolled to the left goes under the numbers.
    surface_.FilledBox(0, 0, view_.left, surface_.Height(), view_.around);
    NumberRows();
    DrawHead();
  }

 private:
  [[nodiscard]] double TopOf(std::size_t k) const { return kHead + row_ * static_cast<double>(k); }

  void DrawRow(const std::vector<DiveMoment>& moments, const std::vector<double>& x, std::size_t k) {
    for (std::size_t i = 1; i < moments.size();) {
      const std::size_t first = i;
      const int level = LevelOf(moments[i].fractions[k]);
      while (i < moments.size() && LevelOf(moments[i].fractions[k]) == level) ++i;
      const double left = std::max(x[first - 1], view_.left);
      const double right = std::min(x[i - 1], surface_.Width());
      if (left < right) Cell(surface_, level, left, TopOf(k), right, TopOf(k + 1));
    }
  }

  void NumberRows() {
    const auto each = static_cast<std::size_t>(std::max(1.0, std::ceil(surface_.TextHeight() / std::max(row_, 1.0))));
    for (std::size_t k = 0; k < kCompartments; k += each) {
      const std::string number = std::to_string(k + 1);
      const double y = TopOf(k) + (row_ - surface_.TextHeight()) / 2;
      surface_.Text(view_.left - 100 - surface_.TextWidth(number), y, number, kBlack);
    }
  }

  void DrawHead() {
    constexpr double kSpace = 120;
    constexpr double kStep = 45;
    constexpr double kTop = 70;
    constexpr double kFoot = 200;
    const double y = (kHead - surface_.TextHeight()) / 2;
    double x = view_.left;
    const auto fits = [&](double width) { return x + width <= surface_.Width(); };
    const auto text = [&](const std::string& words, bool bold) {
      surface_.Text(x, y, words, kBlack, bold);
      x += surface_.TextWidth(words, bold) + kSpace;
    };
    const double scaleWidth =
        kLevels * kStep + kHatch * 4 + 4 * kSpace + surface_.TextWidth("0100 %") + surface_.TextWidth(view_.overTitle);
    if (fits(surface_.TextWidth(view_.title, true) + kSpace + scaleWidth)) text(view_.title, true);
    if (!fits(scaleWidth)) return;
    text("0", false);
    for (int level = 0; level < kLevels; ++level)
      Cell(surface_, level, x + level * kStep, kTop, x + (level + 1) * kStep, kFoot);
    surface_.Box(x, kTop, x + kLevels * kStep, kFoot, kBlack);
    x += kLevels * kStep + kSpace;
    text("100 %", false);
    Hatch(surface_, x, kTop, x + kHatch * 4, kFoot);
    surface_.Box(x, kTop, x + kHatch * 4, kFoot, kBlack);
    x += kHatch * 4 + kSpace;
    text(view_.overTitle, false);
  }

  DrawingSurface& surface_;
  const TissueMapView& view_;
  double row_;
};

}  // namespace

Colour ColourOfLoad(double share) {
  constexpr std::array<std::array<int, 3>, 10> kStops{{{0, 32, 77},
                                                       {0, 51, 111},
                                                       {57, 72, 107},
                                                       {87, 92, 109},
                                                       {112, 113, 115},
                                                       {138, 135, 121},
                                                       {166, 157, 117},
                                                       {196, 181, 108},
                                                       {228, 207, 91},
                                                       {255, 234, 70}}};
  const double at = std::clamp(share, 0.0, 1.0) * (kStops.size() - 1);
  const auto first = std::min(static_cast<std::size_t>(at), kStops.size() - 2);
  const auto mixed = [&](std::size_t part) {
    const double low = kStops[first][part];
    return static_cast<int>(std::lround(low + (kStops[first + 1][part] - low) * (at - static_cast<double>(first))));
  };
  return RGB(mixed(0), mixed(1), mixed(2));
}

void DrawTissueMap(DrawingSurface& surface, const std::vector<DiveMoment>& moments, const GraphScale& scale,
                   const TissueMapView& view) {
  Map(surface, view).Draw(moments, scale);
}

}  // namespace tav
